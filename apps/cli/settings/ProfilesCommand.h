// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Profile.h>

#include <cli/settings/SettingsOptions.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCoreApplication>

#include <optional>

/// The command "profiles": lists and edits the tempo profiles of the configuration file.
class ProfilesCommand
{
    Q_DECLARE_TR_FUNCTIONS(ProfilesCommand)

public:
    /// pOptions is not owned.
    explicit ProfilesCommand(const ProfilesOptions& pOptions);

    /// Does the work and returns the exit code.
    int Run();

private:
    int _List();
    int _Save(const QString& pRefusal);
    QString _Change();
    QString _Add();
    QString _Edit(Profile pProfile);
    QString _Remove(const Profile& pProfile);
    QString _Select(const Profile& pProfile);
    QString _CheckName(const QString& pName, const Profile* pOwner) const;
    QString _Apply(Profile& pProfile) const;
    std::optional<Profile> _Find(const QString& pName) const;

    const ProfilesOptions& m_options;  ///< not owned
    ConfigurationStore m_store;
};
