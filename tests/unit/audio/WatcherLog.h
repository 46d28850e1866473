// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <QByteArrayList>
#include <QObject>

#include <functional>

/// Records the signals of the manager in the order of emission: "modified", "+name" and "-name".
class WatcherLog : public QObject
{
public:
    explicit WatcherLog(QtAudioInputDevicesManager* pManager)
    {
        using M = QtAudioInputDevicesManager;
        connect(
            pManager, &M::OnModified, this, [this] { Add("modified"); });
        connect(
            pManager,
            &M::OnConnected,
            this,
            [this](const QtAudioInputDeviceInfo& pDevice) { Add('+' + Name(pDevice)); });
        connect(pManager, &M::OnDisconnected, this, [this](const QtAudioInputDeviceInfo& pDevice) {
            Add('-' + Name(pDevice));
        });
    }

    QByteArray Take()
    {
        const QByteArray records = m_records.join(' ');
        m_records.clear();
        return records;
    }

    std::function<void()> observer;

private:
    static QByteArray Name(const QtAudioInputDeviceInfo& pDevice)
    {
        return pDevice.getDeviceName().toLatin1() + (pDevice.isDefault() ? "*" : "");
    }

    void Add(const QByteArray& pRecord)
    {
        m_records.append(pRecord);
        if (observer)
            observer();
    }

    QByteArrayList m_records;
};
