// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <memory>

class Configuration;

/// The configuration file that all hosts in one folder share, with words for what goes wrong.
///
/// The library forgets the stored device when it is not present at the moment of loading. A host
/// that saves again would lose it for good, so the store keeps it.
class ConfigurationStore
{
    Q_DECLARE_TR_FUNCTIONS(ConfigurationStore)

public:
    ConfigurationStore();
    ~ConfigurationStore();
    Q_DISABLE_COPY(ConfigurationStore)

    /// The file, next to the program.
    static QString getPath();
    /// Reads the file; without one there are the defaults. False when it is damaged: then there are
    /// the defaults as well, and getError() says what to do. [event loop]
    bool Load();
    /// Writes the file. False when it cannot be written, which getError() tells with its path.
    bool Save();
    /// The defaults, with or without the user's profiles; nothing is saved.
    void Reset(bool pKeepsProfiles);

    Configuration& getConfiguration() { return *m_configuration; }
    const Configuration& getConfiguration() const { return *m_configuration; }
    /// The stored device, present or not; empty = none.
    const QString& getDeviceName() const { return m_deviceName; }
    void setDeviceName(const QString& pName);
    QString getError() const { return m_error; }

private:
    std::unique_ptr<Configuration> m_configuration;  ///< never null
    QString m_deviceName;
    QString m_error;
};
