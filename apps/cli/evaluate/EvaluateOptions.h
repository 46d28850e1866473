// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/EvaluationWriters.h>

/// What "evaluate" was asked to do.
struct EvaluateOptions
{
    QString reference;  ///< file or folder of annotated beats
    QString estimate;   ///< file or folder of found beats; "-" = standard input
    double from = 5.0;  ///< seconds; earlier beats do not count
    eEvaluationFormat format = eEvaluationText;
};
