// SPDX-License-Identifier: MIT
#pragma once

#include "LiveOptions.h"

#include <map>
#include <string>
#include <vector>

/// The arguments of the commands that listen to devices or edit the configuration, as they are
/// given.
struct ListenArguments
{
    std::string device;
    std::string format;
    std::string duration;
    bool isSaved = false;
    bool showsFormat = false;
    bool measures = false;
    bool isQuiet = false;
    std::map<std::string, std::string> analysis;  ///< by option name
};

struct ProfilesArguments
{
    std::vector<std::string> words;  ///< action and name
    std::string newName;
    std::map<std::string, std::string> changes;  ///< by option name
};

struct ConfigArguments
{
    std::vector<std::string> words;  ///< action, key and value
    bool isAll = false;
};

/// Read the values into pOptions. Return what is refused, and the limits, or an empty text.
QString readListenArguments(const ListenArguments& pArguments, ListenOptions& pOptions);
QString readProfilesArguments(const ProfilesArguments& pArguments, ProfilesOptions& pOptions);
QString readConfigArguments(const ConfigArguments& pArguments, ConfigOptions& pOptions);
