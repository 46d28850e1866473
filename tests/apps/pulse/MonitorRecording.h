// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <shared/capture/SoundBackEnd.h>

#include <QObject>

#include <algorithm>
#include <memory>
#include <optional>
#include <support/Text.h>
#include <vector>

/// All that an input delivers, and when each of its samples sounds, as the server tells at last.
class MonitorRecording
{
public:
    explicit MonitorRecording(const char* pName)
        : m_device(QtAudioInputDeviceInfo(Text(pName), false).Create(nullptr))
    {
        if (!m_device)
            return;
        QObject::connect(m_device.get(),
                         &QtAudioInputDevice::OnAudioSamplesRecorded,
                         [this](qint16* pSamples, unsigned pCount) {
                             samples.insert(samples.end(), pSamples, pSamples + pCount);
                             m_end = SoundBackEnd::get()->getPosition();
                         });
    }

    bool Start()
    {
        return m_device && m_device->SetRecordingFormat(m_device->getPreferredInputFormat()) &&
               m_device->StartRecording();
    }
    /// µs since the epoch.
    quint64 getInstant(std::size_t pIndex) const
    {
        const auto behind = double(samples.size() - pIndex);
        return m_end ? m_end->instant - quint64(behind * 1e6 / 48000.0) : 0;
    }
    /// Whether there is sound in the last pCount samples.
    bool isSounding(std::size_t pCount) const
    {
        return samples.size() >= pCount && std::any_of(
                                               samples.end() - std::ptrdiff_t(pCount),
                                               samples.end(),
                                               [](qint16 pSample) { return pSample != 0; });
    }
    /// Whether there are that many, and nothing in them.
    bool isSilent(std::size_t pCount) const
    {
        return samples.size() >= pCount && !isSounding(pCount);
    }

    std::vector<qint16> samples;  ///< 48000 Hz

private:
    std::unique_ptr<QtAudioInputDevice> m_device;
    std::optional<SoundPosition> m_end;
};
