// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Configuration.h>

#include <QStringList>

#include <initializer_list>

inline Profile add(Configuration& pConfiguration, const char* pName)
{
    return pConfiguration.Add(QString::fromUtf8(pName), 100.0, 150.0, 1.25, 20, 200);
}

inline QStringList names(const QList<Profile>& pProfiles)
{
    QStringList result;
    for (const Profile& profile : pProfiles)
        result << profile.getName();
    return result;
}

inline QStringList texts(std::initializer_list<const char*> pTexts)
{
    QStringList result;
    for (const char* text : pTexts)
        result << QString::fromUtf8(text);
    return result;
}

inline UserProfile handle(const char* pName, unsigned int pID)
{
    return UserProfile(QString::fromUtf8(pName), 1.0, 0, 75, pID, 90.0, 175.0);
}
