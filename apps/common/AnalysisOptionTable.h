// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <common/AnalysisOptions.h>
#include <vector>

/// One command line option that changes the analysis. Every command that analyses offers them all.
struct AnalysisOptionInfo
{
    QString name;       ///< with the dashes
    QString valueName;  ///< for the help; empty = a flag without a value
    QString help;
    /// Reads a value, which is ignored for a flag; returns the limits when it is refused, else an
    /// empty text.
    QString (*read)(AnalysisOptions& pOptions, const QString& pValue);
};

/// All of them, in the order of the help.
std::vector<AnalysisOptionInfo> getAnalysisOptionTable();
