// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <QAudioDeviceInfo>

QtAudioInputDeviceInfo::QtAudioInputDeviceInfo() : m_isDefault(false) {}

QtAudioInputDeviceInfo::QtAudioInputDeviceInfo(const QString& pName, bool pIsDefault)
    : m_deviceName(pName), m_isDefault(pIsDefault)
{
}

QtAudioInputDeviceInfo::QtAudioInputDeviceInfo(const QtAudioInputDeviceInfo& pOther) = default;

QtAudioInputDeviceInfo&
QtAudioInputDeviceInfo::operator=(const QtAudioInputDeviceInfo& pOther) = default;

QtAudioInputDeviceInfo::~QtAudioInputDeviceInfo() = default;

int QtAudioInputDeviceInfo::CompareTo(const QtAudioInputDeviceInfo& pOther) const
{
    return QString::compare(
        m_deviceName.trimmed(), pOther.m_deviceName.trimmed(), Qt::CaseInsensitive);
}

const QString& QtAudioInputDeviceInfo::getDeviceName() const
{
    return m_deviceName;
}

bool QtAudioInputDeviceInfo::isDefault() const
{
    return m_isDefault;
}

QtAudioInputDevice* QtAudioInputDeviceInfo::Create(QObject* pParent) const
{
    // Intended: letter case counts and the stored name is not trimmed, although CompareTo() does
    // neither: a device is opened by its name as it was listed, or not at all.
    const QList<QAudioDeviceInfo> devices = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    for (const QAudioDeviceInfo& device : devices) {
        const QString name = device.deviceName().trimmed();
        if (!name.isEmpty() && name == m_deviceName)
            return new QtAudioInputDevice(device, pParent);
    }
    return nullptr;
}

QList<QtAudioInputDeviceInfo> QtAudioInputDeviceInfo::Enumerate()
{
    // Intended: devices of one name are all listed, and all marked when the name is the default's.
    const QString defaultName = QAudioDeviceInfo::defaultInputDevice().deviceName().trimmed();
    const QList<QAudioDeviceInfo> devices = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    QList<QtAudioInputDeviceInfo> result;
    for (const QAudioDeviceInfo& device : devices) {
        const QString name = device.deviceName().trimmed();
        if (!name.isEmpty())
            result.append(QtAudioInputDeviceInfo(name, name == defaultName));
    }
    return result;
}
