// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <algorithm>

// Intended: the stored list itself is sorted, so its order changes under a const reader.
const QList<Profile>& Configuration::getProfiles() const
{
    // Profiles with one ID and several names have no consistent order; a stable sort bears that.
    std::stable_sort(m_profiles.begin(), m_profiles.end());
    return m_profiles;
}

Profile Configuration::getSelectedProfile()
{
    return m_selectedProfile;
}

Profile Configuration::getSelectedProfile() const
{
    return m_selectedProfile;
}

bool Configuration::setSelectedProfile(const Profile& pProfile)
{
    if (isSelected(pProfile))
        return false;
    m_selectedProfile = pProfile;
    m_isModified = true;
    return true;
}

bool Configuration::isSelected(const Profile& pProfile) const
{
    return m_selectedProfile == pProfile;
}

Profile Configuration::Add(const QString& name,
                           double minimalBPM,
                           double maximalBPM,
                           double sensibility,
                           int filterLowFrequency,
                           int filterHighFrequency)
{
    m_profiles << UserProfile(
        name, sensibility, filterLowFrequency, filterHighFrequency, minimalBPM, maximalBPM);
    m_isModified = true;
    return m_profiles.constLast();
}

bool Configuration::Remove(const UserProfile& pProfile)
{
    // Intended: the selection leaves the profile even when the list does not hold it.
    if (isSelected(pProfile)) {
        _SelectDefaultProfile();
        m_isModified = true;
    }
    const bool isRemoved = m_profiles.removeOne(pProfile);
    m_isModified |= isRemoved;
    return isRemoved;
}

void Configuration::_AppendUserProfiles(const QList<Profile>& pProfiles)
{
    for (const Profile& profile : pProfiles)
        if (profile.isSerializable())
            m_profiles << profile;
}

void Configuration::_SelectDefaultProfile()
{
    const auto found = std::find_if(
        m_profiles.cbegin(), m_profiles.cend(), [](const Profile& p) { return p.isDefault(); });
    if (found != m_profiles.cend())
        m_selectedProfile = *found;
}

void Configuration::_SelectEqualProfile(const Profile& pProfile)
{
    const int index = m_profiles.indexOf(pProfile);
    if (index >= 0)
        m_selectedProfile = m_profiles.at(index);
}
