// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QFile>

#include <fake/FakeAudioState.h>

/// A machine on which the library starts up: fake devices, and the configuration file beside the
/// test's executable. Nothing of it outlives the object.
class StartUp
{
public:
    StartUp() { Clear(); }
    ~StartUp() { Clear(); }
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;

    /// Plugs in a device of one format, and lets the watcher see it.
    static void Plug(const char* pName, int pRate = 44100, int pChannels = 1)
    {
        FakeAudioDevice device;
        device.name = QLatin1String(pName);
        device.sampleRates = {pRate};
        device.channelCounts = {pChannels};
        FakeAudioState::Get().Plug(device);
        Look();
    }
    static void Look() { QtAudioInputDevicesManager::GetInstance()->Enumerate(false); }

    /// Writes the file with that device selected.
    static bool Save(const char* pDevice)
    {
        Configuration configuration;
        return Save(configuration, pDevice);
    }
    static bool Save(Configuration& pConfiguration, const char* pDevice)
    {
        pConfiguration.setSelectedAudioInputDevice(
            QtAudioInputDeviceInfo(QLatin1String(pDevice), false));
        return pConfiguration.Save();
    }

private:
    /// The analyzer never frees the configuration that it was started with.
    static void Clear()
    {
        if (AudioAnalyzer::m_pInstance) {
            const Configuration* pConfiguration = AudioAnalyzer::m_pInstance->getConfiguration();
            delete AudioAnalyzer::m_pInstance;
            delete pConfiguration;
        }
        AudioAnalyzer::m_pInstance = nullptr;
        QFile::remove(Configuration::_getConfigFilePath());
        FakeAudioState::Get().Clear();
        Look();
    }
};
