// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <map>
#include <vector>

class Configuration;

/// Everything that a configuration stores, as plain values, which can be told apart and merged.
///
/// Profiles have no lasting identifier: they are known by their name, and when several have the
/// same name, by which of them they are.
struct ConfigurationValues
{
    struct ProfileValues
    {
        QString name;
        int minimalBPM = 0;  ///< whole, as it is stored
        int maximalBPM = 0;
        int low = 0;   ///< Hz; -1 = no lower edge
        int high = 0;  ///< Hz; -1 = no upper edge
        double sensibility = 0.0;
    };

    std::vector<double> numbers;  ///< in the order of the table of settings
    QString device;               ///< name; empty = none
    QString language;             ///< code; empty = none
    QString selected;             ///< key of a profile; empty = one that is not stored
    std::map<QString, ProfileValues> profiles;  ///< the user's, by key

    static ConfigurationValues Of(const Configuration& pConfiguration, const QString& pDevice);
    /// Gives the configuration all values but the device. Profiles that stay keep their handles.
    void StoreIn(Configuration& pConfiguration) const;
};

bool operator==(const ConfigurationValues& pLeft, const ConfigurationValues& pRight);

/// What two programs made of pBase: what was not changed in pMine is as in pTheirs. A profile that
/// one changed and the other removed stays.
ConfigurationValues MergeValues(const ConfigurationValues& pBase,
                                const ConfigurationValues& pMine,
                                const ConfigurationValues& pTheirs);
