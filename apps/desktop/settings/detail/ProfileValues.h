// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Profile.h>

#include <QString>
#include <QStringList>

#include <algorithm>

namespace desktop {

/// What a person sets in a profile.
struct ProfileValues
{
    QString name;
    double minimalBPM = 90.0;
    double maximalBPM = 175.0;
    int low = 0;    ///< Hz; -1 = no lower edge
    int high = 75;  ///< Hz; -1 = no upper edge
    double sensibility = 2.0;
};

inline bool operator==(const ProfileValues& pLeft, const ProfileValues& pRight)
{
    return pLeft.name == pRight.name && pLeft.minimalBPM == pRight.minimalBPM &&
           pLeft.maximalBPM == pRight.maximalBPM && pLeft.low == pRight.low &&
           pLeft.high == pRight.high && pLeft.sensibility == pRight.sensibility;
}

inline ProfileValues ValuesOf(const Profile& pProfile)
{
    return {pProfile.getName(),
            pProfile.getMinimalBPM(),
            pProfile.getMaximalBPM(),
            pProfile.getFilterLowFrequency(),
            pProfile.getFilterHighFrequency(),
            pProfile.getSensibility()};
}

/// Returns whether the profile took all of them; values that ProfileCheck lets pass are taken by
/// every profile that is not read-only.
inline bool Apply(const ProfileValues& pValues, Profile pProfile)
{
    bool isStored = pProfile.setName(pValues.name);
    isStored &= pProfile.setBPM(pValues.minimalBPM, pValues.maximalBPM);
    isStored &= pProfile.setFilterFrequencies(pValues.low, pValues.high);
    isStored &= pProfile.setSensibility(pValues.sensibility);
    return isStored;
}

inline bool IsSameName(const QString& pLeft, const QString& pRight)
{
    return pLeft.trimmed().compare(pRight.trimmed(), Qt::CaseInsensitive) == 0;
}

inline bool HasName(const QStringList& pNames, const QString& pName)
{
    return std::any_of(
        pNames.begin(),
        pNames.end(),
        [&pName](const QString& pOther) { return IsSameName(pOther, pName); });
}

/// What pMake makes of a number: of the first one from 2 whose name no profile has.
template <typename Make>
QString FirstFreeName(const QStringList& pNames, Make pMake)
{
    int number = 2;
    while (HasName(pNames, pMake(number)))
        ++number;
    return pMake(number);
}

}  // namespace desktop
