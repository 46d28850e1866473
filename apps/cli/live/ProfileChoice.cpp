// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/live/ProfileChoice.h>

ProfileChoice::ProfileChoice(Configuration& pConfiguration, LiveBeats& pBeats)
    : m_configuration(pConfiguration), m_beats(pBeats)
{
}

QStringList ProfileChoice::FindNames()
{
    m_stored.TakeOver();
    QStringList names;
    for (const Profile& profile : m_stored.getConfiguration().getProfiles())
        names += profile.getName();
    return names;
}

QString ProfileChoice::getName() const
{
    return m_beats.isAutomatic() ? QString() : m_configuration.getSelectedProfile().getName();
}

bool ProfileChoice::Choose(const QString& pName)
{
    m_stored.TakeOver();
    for (const Profile& profile : m_stored.getConfiguration().getProfiles()) {
        if (profile.getName().compare(pName, Qt::CaseInsensitive) != 0)
            continue;
        // Those of two configurations may bear the same number, and would be taken for one.
        m_configuration.setSelectedProfile(Profile());
        m_configuration.setSelectedProfile(profile);
        m_beats.setAutomatic(false);
        return true;
    }
    if (pName.isEmpty())
        m_beats.setAutomatic(true);
    return pName.isEmpty();
}
