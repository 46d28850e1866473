// SPDX-License-Identifier: MIT
#pragma once

#include <cli/settings/SettingsOptions.h>
#include <shared/options/OptionParser.h>

#include <map>
#include <string>
#include <vector>

/// The arguments of the commands that edit the configuration, as they are given.
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

/// The commands, with what they may be given; the parser fills the arguments.
void addProfilesCommand(shared::OptionParser& pParser, ProfilesArguments& pArguments);
void addConfigCommand(shared::OptionParser& pParser, ConfigArguments& pArguments);

/// Read the values into pOptions. Return what is refused, and the limits, or an empty text.
QString readProfilesArguments(const ProfilesArguments& pArguments, ProfilesOptions& pOptions);
QString readConfigArguments(const ConfigArguments& pArguments, ConfigOptions& pOptions);
