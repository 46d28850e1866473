// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzeOptions.h"
#include "AnalyzePlan.h"
#include "ProgressBar.h"

#include <QCoreApplication>

/// Exit codes of the program.
enum eExitCode
{
    eExitDone = 0,         ///< everything was done
    eExitFailed = 1,       ///< something failed; the rest was done
    eExitUsage = 2,        ///< the arguments make no sense; nothing was done
    eExitPipeClosed = 141  ///< the reader of the output left: what a shell shows for SIGPIPE
};

/// The command "analyze": analyses files one after the other or side by side.
class AnalyzeCommand
{
    Q_DECLARE_TR_FUNCTIONS(AnalyzeCommand)

public:
    /// pOptions is not owned.
    explicit AnalyzeCommand(const AnalyzeOptions& pOptions);

    /// Does the work and returns the exit code. After a signal the caller ends the program by it.
    int Run();

private:
    bool _MakeFolder();
    void _RunHere();
    bool _RunFile(const AnalyzeTask& pTask, const std::function<bool(double, double)>& pProgress);
    void _RunWorkers();
    bool _Write(const AnalyzeTask& pTask, const QByteArray& pOutput);
    void _Print(const QString& pLine);
    void _PrintFailure(const QString& pLine);

    const AnalyzeOptions& m_options;
    AnalyzePlan m_plan;
    ProgressBar m_bar;
    int m_exitCode = eExitDone;
};
