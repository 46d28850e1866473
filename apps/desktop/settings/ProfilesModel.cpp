// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/ProfilesModel.h>

#include <QLocale>

ProfilesModel::ProfilesModel(Configuration& pConfiguration, QObject* pParent)
    : QAbstractListModel(pParent), m_configuration(pConfiguration),
      m_profiles(pConfiguration.getProfiles())
{
    for (const Profile& profile : qAsConst(m_profiles))
        if (!profile.isSerializable())
            m_builtIn.emplace(profile.getID(), desktop::ValuesOf(profile));
}

int ProfilesModel::rowCount(const QModelIndex& pParent) const
{
    return pParent.isValid() ? 0 : m_profiles.size();
}

QVariant ProfilesModel::data(const QModelIndex& pIndex, int pRole) const
{
    if (!hasIndex(pIndex.row(), pIndex.column(), pIndex.parent()))
        return {};
    const Profile& profile = m_profiles.at(pIndex.row());
    switch (pRole) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return _Text(profile);
    case eNameRole:
        return profile.getName();
    case eBuiltInRole:
        return !profile.isSerializable();
    case eSelectedRole:
        return m_configuration.isSelected(profile);
    case eChangedRole:
        return _IsChanged(profile);
    default:
        return {};
    }
}

QHash<int, QByteArray> ProfilesModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(eNameRole, "name");
    names.insert(eBuiltInRole, "isBuiltIn");
    names.insert(eSelectedRole, "isSelected");
    names.insert(eChangedRole, "isChanged");
    return names;
}

int ProfilesModel::getSelectedRow() const
{
    return m_profiles.indexOf(m_configuration.getSelectedProfile());
}

QStringList ProfilesModel::getNames(int pExceptRow) const
{
    QStringList names;
    for (int row = 0; row < m_profiles.size(); ++row)
        if (row != pExceptRow)
            names.append(m_profiles.at(row).getName());
    return names;
}

void ProfilesModel::Reload()
{
    beginResetModel();
    m_profiles = m_configuration.getProfiles();
    endResetModel();
}

void ProfilesModel::UpdateTexts()
{
    if (!m_profiles.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

bool ProfilesModel::_IsChanged(const Profile& pProfile) const
{
    const auto found = m_builtIn.find(pProfile.getID());
    return !pProfile.isSerializable() && found != m_builtIn.end() &&
           !(found->second == desktop::ValuesOf(pProfile));
}

QString ProfilesModel::_Text(const Profile& pProfile) const
{
    const QLocale locale;
    const QString text = tr("%1 (%2 to %3 BPM)", "name (tempo range)")
                             .arg(pProfile.getName(),
                                  locale.toString(pProfile.getMinimalBPM()),
                                  locale.toString(pProfile.getMaximalBPM()));
    return _IsChanged(pProfile) ? tr("%1, changed until exit").arg(text) : text;
}

#include "moc_ProfilesModel.cpp"
