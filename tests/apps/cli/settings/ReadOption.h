// SPDX-License-Identifier: MIT
#pragma once

#include <cli/settings/AnalysisOptionTable.h>

/// Reads one option the way a command does; returns the refusal.
inline QString Read(AnalysisOptions& pOptions, const QString& pName, const QString& pValue)
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable())
        if (info.name == pName)
            return info.read(pOptions, pValue);
    return QStringLiteral("no such option");
}
