// SPDX-License-Identifier: MIT
#pragma once

/// Exit codes of the program.
enum eExitCode
{
    eExitDone = 0,         ///< everything was done
    eExitFailed = 1,       ///< something failed; the rest was done
    eExitUsage = 2,        ///< the arguments make no sense; nothing was done
    eExitPipeClosed = 141  ///< the reader of the output left: what a shell shows for SIGPIPE
};
