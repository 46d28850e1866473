// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

bool Configuration::setSelectedAudioInputDevice(const QtAudioInputDeviceInfo& pDevice)
{
    // Intended: with nothing stored, even an empty name counts as a change.
    if (!m_selectedAudioInputDevice.isEmpty() && isSelected(pDevice))
        return false;
    m_selectedAudioInputDevice = pDevice.getDeviceName();
    m_isModified = true;
    return true;
}

bool Configuration::isSelected(const QtAudioInputDeviceInfo& pDevice) const
{
    return m_selectedAudioInputDevice == pDevice.getDeviceName();
}

QtAudioInputDeviceInfo* Configuration::getSelectedAudioInputDevice() const
{
    return _FindDevice(m_selectedAudioInputDevice);
}

QtAudioInputDeviceInfo* Configuration::_FindDevice(const QString& pName)
{
    // The first look at the watcher asks the sound system for its devices: not for nothing.
    if (pName.isEmpty())
        return nullptr;
    return QtAudioInputDevicesManager::GetInstance()->GetAudioInputDevice(pName);
}
