// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>

class QTimer;

/// The list of audio input devices, and the watcher that reports what appears and vanishes.
///
/// The first list is taken silently by the constructor. Polling runs only between Start() and
/// Stop(); the library itself never starts it. Two devices are the same when their trimmed names
/// are, letter case ignored.
///
/// Threads: the event-loop thread that called GetInstance() first; signals are emitted
/// synchronously.
class AUDIOANALYZER_EXPORT QtAudioInputDevicesManager : public QObject
{
    Q_OBJECT

public:
    /// The one manager, made by the first call and destroyed with the process. Never null.
    /// [event loop]
    static QtAudioInputDevicesManager* GetInstance();

    ~QtAudioInputDevicesManager() override;

    /// Polls every 2000 ms from now on; no change while it polls already. Always true. [event loop]
    bool Start();
    /// Ends the polling; the list stays as it is. Always true. [event loop]
    bool Stop();
    /// Takes a new list. When a device has appeared or vanished, replaces the old list and, with
    /// pEmitSignals, emits the changes; otherwise keeps the old list, default marks included.
    /// [event loop]
    void Enumerate(bool pEmitSignals);
    /// The first entry of exactly this name, or null. Owned by the manager.
    /// [event loop] [valid until the next Enumerate]
    QtAudioInputDeviceInfo* GetAudioInputDevice(const QString& pName);

Q_SIGNALS:
    void OnConnected(const QtAudioInputDeviceInfo& pDevice);
    void OnDisconnected(const QtAudioInputDeviceInfo& pDevice);
    /// Comes first, once, when anything has appeared or vanished.
    void OnModified();

public Q_SLOTS:
    /// Enumerate(true).
    void OnTimer();

private:
    // Constructed in place by QSharedPointer::create().
    friend class QSharedPointer<QtAudioInputDevicesManager>;
    QtAudioInputDevicesManager();

    QList<QtAudioInputDeviceInfo> m_devices;  ///< the last list taken
    QTimer* m_pTimer;                         ///< child; null while not polling

    static QSharedPointer<QtAudioInputDevicesManager> s_instance;
};
