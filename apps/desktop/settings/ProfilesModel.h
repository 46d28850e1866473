// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Profile.h>

#include <desktop/settings/detail/ProfileValues.h>

#include <QAbstractListModel>
#include <QStringList>

#include <map>

class Configuration;

/// The tempo profiles of a configuration, in its order: the built-in ones, then the user's.
///
/// Threads: the event-loop thread.
class ProfilesModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum eRole
    {
        eNameRole = Qt::UserRole,  ///< QString
        eBuiltInRole,              ///< bool
        eSelectedRole,             ///< bool, the configuration's selected one
        eChangedRole               ///< bool, a built-in profile with other values than at first
    };

    /// pConfiguration is not owned and must outlive the model. The built-in profiles count as
    /// unchanged as they are now.
    explicit ProfilesModel(Configuration& pConfiguration, QObject* pParent = nullptr);

    int rowCount(const QModelIndex& pParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& pIndex, int pRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// A handle on the profile of a row that exists.
    Profile getProfile(int pRow) const { return m_profiles.at(pRow); }
    /// The row of the configuration's selected profile; -1 when the list does not hold it.
    int getSelectedRow() const;
    /// The names of all profiles but that of pRow.
    QStringList getNames(int pExceptRow = -1) const;
    /// Takes the profiles from the configuration anew.
    void Reload();
    /// The same profiles, but other values or another language.
    void UpdateTexts();

private:
    bool _IsChanged(const Profile& pProfile) const;
    QString _Text(const Profile& pProfile) const;

    Configuration& m_configuration;  ///< not owned
    QList<Profile> m_profiles;
    std::map<unsigned, desktop::ProfileValues> m_builtIn;  ///< first values by ID
};
