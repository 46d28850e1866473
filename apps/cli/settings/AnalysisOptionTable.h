// SPDX-License-Identifier: MIT
#pragma once

#include <shared/options/OptionParser.h>
#include <shared/settings/AnalysisOptions.h>

#include <QString>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

/// One command line option that changes the analysis. Every command that analyses offers them all.
struct AnalysisOptionInfo
{
    QString name;       ///< with the dashes
    QString valueName;  ///< for the help; empty = a flag without a value
    QString help;
    /// Reads a value, which is ignored for a flag; returns the limits when it is refused, else an
    /// empty text.
    std::function<QString(AnalysisOptions& pOptions, const QString& pValue)> read;
    QString initial;  ///< what an analysis has without the option; empty = it goes without saying
};

/// All of them, in the order of the help: tracker and profile, then every setting of the analysis.
/// A switch is a flag that gives it the value that it does not begin with.
std::vector<AnalysisOptionInfo> getAnalysisOptionTable();

/// What an analysis has where an option is not given.
enum eAnalysisDefault
{
    eInitialDefaults,  ///< the table's, which the help tells
    eStoredDefaults    ///< the user's
};

/// Adds all of them, or those that pNames holds; what is given comes into pValues by option name.
void addAnalysisOptions(shared::OptionSet& pOptions,
                        std::map<std::string, std::string>& pValues,
                        eAnalysisDefault pDefault,
                        const std::set<std::string>& pNames = {});
/// Reads the values by option name. Returns which one is refused, and its limits, or an empty text.
QString readAnalysisOptions(const std::map<std::string, std::string>& pValues,
                            AnalysisOptions& pOptions);
