// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/EvaluateOptions.h>
#include <shared/options/OptionParser.h>

#include <string>

/// The arguments of "evaluate" as they are given.
struct EvaluateArguments
{
    std::string reference;
    std::string estimate;
    std::string from;
    std::string format;
};

/// The command, with what it may be given; the parser fills the arguments.
void addEvaluateCommand(shared::OptionParser& pParser, EvaluateArguments& pArguments);
/// Reads the values into pOptions. Returns which one is refused, and its limits, or an empty text.
QString readEvaluateArguments(const EvaluateArguments& pArguments, EvaluateOptions& pOptions);
