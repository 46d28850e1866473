// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class ConfigurationStore;

/// One setting of the configuration file, as a person reads and writes it.
struct ConfigurationSetting
{
    QString name;
    QString help;  ///< what it is, its unit and its limits
    QString (*get)(const ConfigurationStore& pStore);
    /// Returns why a value is refused, with the limits, or an empty text.
    QString (*set)(ConfigurationStore& pStore, const QString& pValue);
};

/// All of them, by name.
const std::vector<ConfigurationSetting>& getConfigurationSettings();
