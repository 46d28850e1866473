// SPDX-License-Identifier: MIT
#pragma once

#include <cli/outputs/OutputsOptions.h>
#include <shared/options/OptionParser.h>

#include <string>
#include <vector>

/// The arguments of "outputs" as they are given.
struct OutputsArguments
{
    std::vector<std::string> words;  ///< action, name, kind, place
    std::string newName;
    std::string place;
    std::string offset;
    bool showsPorts = false;
};

/// The command, with what it may be given; the parser fills the arguments.
void addOutputsCommand(shared::OptionParser& pParser, OutputsArguments& pArguments);
/// Reads the values into pOptions. Returns what is refused, or an empty text.
QString readOutputsArguments(const OutputsArguments& pArguments, OutputsOptions& pOptions);
