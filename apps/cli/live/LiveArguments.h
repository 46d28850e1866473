// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <shared/options/OptionParser.h>

#include <map>
#include <string>
#include <vector>

/// The arguments of "listen" as they are given.
struct ListenArguments
{
    std::string device;
    std::string file;
    std::string format;
    std::string duration;
    std::string offset;
    bool isHeard = false;
    bool isSaved = false;
    bool showsFormat = false;
    bool measures = false;
    bool isQuiet = false;
    std::map<std::string, std::vector<std::string>> outputs;  ///< addresses, by kind
    std::vector<std::string> outputNames;
    bool isWithoutStored = false;
    std::vector<std::string> handsMidi;
    std::vector<std::string> handsOsc;
    std::string learned;
    std::string web;
    std::map<std::string, std::string> analysis;  ///< by option name
};

/// The commands, with what they may be given; the parser fills the arguments.
void addListenCommand(shared::OptionParser& pParser, ListenArguments& pArguments);
void addDevicesCommand(shared::OptionParser& pParser, DevicesOptions& pOptions);
/// Reads the values into pOptions. Returns what is refused, and the limits, or an empty text.
QString readListenArguments(const ListenArguments& pArguments, ListenOptions& pOptions);
