// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include "WatcherLog.h"

#include <QStringList>

#include <fake/FakeAudioState.h>
#include <fake/Machine.h>

inline QtAudioInputDevicesManager& Manager()
{
    return *QtAudioInputDevicesManager::GetInstance();
}

/// Plugs devices into an empty machine, the first as the default, before the manager is made.
inline QList<QByteArray> Boot(const char* pNames)
{
    QtAudioInputDevicesManager::s_instance.reset();
    Machine().Clear();
    QList<QByteArray> handles;
    for (const QString& name : QString::fromLatin1(pNames).split(QLatin1Char('|'))) {
        FakeAudioDevice device;
        device.name = name;
        if (!name.isEmpty())
            handles.append(Machine().Plug(device));
    }
    Manager();
    return handles;
}

/// "name" or "name*" (default), in order, joined by bars.
inline QByteArray List()
{
    QStringList names;
    for (const QtAudioInputDeviceInfo& device : qAsConst(Manager().m_devices))
        names.append(device.getDeviceName() +
                     (device.isDefault() ? QStringLiteral("*") : QString()));
    return names.join(QLatin1Char('|')).toLatin1();
}
