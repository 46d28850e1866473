// SPDX-License-Identifier: MIT
#pragma once

#include <cli/settings/SettingsOptions.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCoreApplication>

/// The command "config": shows and changes the settings of the configuration file.
class ConfigCommand
{
    Q_DECLARE_TR_FUNCTIONS(ConfigCommand)

public:
    /// pOptions is not owned.
    explicit ConfigCommand(const ConfigOptions& pOptions);

    /// Does the work and returns the exit code.
    int Run();

private:
    int _Show();
    int _Set();
    int _Save();
    int _Fail(const QString& pReason, int pExitCode);

    const ConfigOptions& m_options;  ///< not owned
    ConfigurationStore m_store;
};
