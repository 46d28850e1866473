// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <QTimer>

namespace {

constexpr int kPollingIntervalMs = 2000;

/// The entries of pList that equal none of pOthers, in order.
QList<QtAudioInputDeviceInfo> Missing(const QList<QtAudioInputDeviceInfo>& pList,
                                      const QList<QtAudioInputDeviceInfo>& pOthers)
{
    QList<QtAudioInputDeviceInfo> result;
    for (const QtAudioInputDeviceInfo& device : pList)
        if (!pOthers.contains(device))
            result.append(device);
    return result;
}

}  // namespace

QSharedPointer<QtAudioInputDevicesManager> QtAudioInputDevicesManager::s_instance;

QtAudioInputDevicesManager* QtAudioInputDevicesManager::GetInstance()
{
    if (!s_instance)
        s_instance = QSharedPointer<QtAudioInputDevicesManager>::create();
    return s_instance.data();
}

QtAudioInputDevicesManager::QtAudioInputDevicesManager() : QObject(nullptr), m_pTimer(nullptr)
{
    Enumerate(false);
}

QtAudioInputDevicesManager::~QtAudioInputDevicesManager()
{
    Stop();
}

bool QtAudioInputDevicesManager::Start()
{
    if (m_pTimer)
        return true;
    m_pTimer = new QTimer(this);
    const bool isConnected = connect(m_pTimer, SIGNAL(timeout()), this, SLOT(OnTimer()));
    Q_ASSERT(isConnected);
    Q_UNUSED(isConnected)
    m_pTimer->setInterval(kPollingIntervalMs);
    m_pTimer->start();
    return true;
}

bool QtAudioInputDevicesManager::Stop()
{
    if (!m_pTimer)
        return true;
    m_pTimer->stop();
    delete m_pTimer;
    m_pTimer = nullptr;
    return true;
}

void QtAudioInputDevicesManager::Enumerate(bool pEmitSignals)
{
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    const QList<QtAudioInputDeviceInfo> added = Missing(devices, m_devices);
    const QList<QtAudioInputDeviceInfo> removed = Missing(m_devices, devices);
    // Intended: another default device, another letter case, a second device of a known name or one
    // of two gone are no changes; the old list stays, default marks included.
    if (added.isEmpty() && removed.isEmpty())
        return;
    m_devices = devices;
    if (!pEmitSignals)
        return;
    Q_EMIT OnModified();
    for (const QtAudioInputDeviceInfo& device : added)
        Q_EMIT OnConnected(device);
    for (const QtAudioInputDeviceInfo& device : removed)
        Q_EMIT OnDisconnected(device);
}

QtAudioInputDeviceInfo* QtAudioInputDevicesManager::GetAudioInputDevice(const QString& pName)
{
    for (QtAudioInputDeviceInfo& device : m_devices)
        if (device.getDeviceName() == pName)
            return &device;
    return nullptr;
}

void QtAudioInputDevicesManager::OnTimer()
{
    Enumerate(true);
}

#include "moc_QtAudioInputDevicesManager.cpp"
