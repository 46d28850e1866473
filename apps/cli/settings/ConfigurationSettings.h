// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

class ConfigurationStore;

/// One setting of the configuration file, as a person reads and writes it.
struct ConfigurationSetting
{
    QString name;
    QString help;  ///< what it is, its unit and its limits
    std::function<QString(const ConfigurationStore& pStore)> get;
    /// Returns why a value is refused, with the limits, or an empty text.
    std::function<QString(ConfigurationStore& pStore, const QString& pValue)> set;
};

/// All of them, by name: every stored setting of the table that the hosts use, and what is chosen
/// by its name.
const std::vector<ConfigurationSetting>& getConfigurationSettings();
