// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <memory>

namespace {

constexpr double kStopDetectionSeconds = 1.5;

std::unique_ptr<QtAudioInputDevice> CreateSelectedDevice(const Configuration& pConfiguration)
{
    const QtAudioInputDeviceInfo* pInfo = pConfiguration.getSelectedAudioInputDevice();
    return std::unique_ptr<QtAudioInputDevice>(pInfo ? pInfo->Create(nullptr) : nullptr);
}

// Intended: whatever was saved, a start-up begins with this duration and the first profile.
void ApplyStartUpSettings(Configuration& pConfiguration)
{
    pConfiguration.setStopDetectionDuration(kStopDetectionSeconds);
    if (pConfiguration.getProfiles().isEmpty())
        return;
    const Profile first = pConfiguration.getProfiles().first();
    pConfiguration.setSelectedProfile(first);
}

bool FixFormat(QtAudioInputDevice& pDevice)
{
    return pDevice.SetRecordingFormat(pDevice.getPreferredInputFormat()) &&
           pDevice.getOutputFormat().sampleRate() >= 1;
}

/// The device only tells the format; the host makes the one it records from.
AudioAnalyzer* CreateFromSavedSettings()
{
    std::unique_ptr<Configuration> configuration(Configuration::LoadOrCreate());
    const std::unique_ptr<QtAudioInputDevice> device = CreateSelectedDevice(*configuration);
    ApplyStartUpSettings(*configuration);
    if (!device || !FixFormat(*device))
        return nullptr;
    auto* pAnalyzer = new AudioAnalyzer(configuration.get(), device->getOutputFormat(), nullptr);
    static_cast<void>(configuration.release());  // the analyzer's from here on
    return pAnalyzer;
}

}  // namespace

AudioAnalyzer* AudioAnalyzer::m_pInstance = nullptr;

AudioAnalyzer* AudioAnalyzer::getInstance()
{
    if (!m_pInstance)
        m_pInstance = CreateFromSavedSettings();
    return m_pInstance;
}

void AudioAnalyzer::init(Configuration* pConfiguration,
                         const QAudioFormat& pFormat,
                         QObject* pParent)
{
    delete m_pInstance;
    m_pInstance = nullptr;
    m_pInstance = new AudioAnalyzer(pConfiguration, pFormat, pParent);
}
