// SPDX-License-Identifier: MIT
#pragma once

#include <cli/analyze/AnalyzeOptions.h>
#include <shared/options/OptionParser.h>

#include <map>
#include <string>
#include <vector>

/// The arguments of "analyze" as they are given. Reading them is apart from finding them, so that
/// all refusals are in one style.
struct AnalyzeArguments
{
    std::vector<std::string> inputs;
    std::string format;
    std::string output;
    std::string click;
    std::string plot;
    std::string raw;
    std::string jobs;
    bool isRealOnly = false;
    bool isPartial = false;
    bool isLookingAhead = false;
    bool isQuiet = false;
    bool isWorker = false;
    std::map<std::string, std::string> analysis;  ///< by option name
};

/// The command, with what it may be given; pArguments are filled by the parser.
void addAnalyzeCommand(shared::OptionParser& pParser, AnalyzeArguments& pArguments);
/// Reads the values into pOptions. Returns which one is refused, and its limits, or an empty text.
QString readAnalyzeArguments(const AnalyzeArguments& pArguments, AnalyzeOptions& pOptions);

/// The names of all output formats, for texts.
QString getFormatNames();
