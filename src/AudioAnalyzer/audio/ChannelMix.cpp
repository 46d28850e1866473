// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>
#include <AudioAnalyzer/audio/ChannelMix.h>

#include <algorithm>

namespace {

constexpr std::size_t kUsualChannels = 8;
constexpr int kWindowsPerSecond = 10;
constexpr double kFading = 0.9;        ///< of the powers, from window to window
constexpr double kCancelled = 0.4;     ///< of the power that the loudest channel alone leaves
constexpr double kSound = 0.8;         ///< the same, where the average is taken again
constexpr double kStillLoudest = 0.5;  ///< of the loudest one's power, where the channel stays

quint64 square(qint16 pSample)
{
    return static_cast<quint64>(qint64(pSample) * pSample);
}

}  // namespace

ChannelMix::ChannelMix(int pSampleRate)
    : m_windowSize(static_cast<std::size_t>(pSampleRate / kWindowsPerSecond))
{
    m_sums.reserve(kUsualChannels + 1);
    m_powers.reserve(kUsualChannels + 1);
}

void ChannelMix::Reset()
{
    m_frameCount = m_firstCancellation = 0;
    m_hasCancelled = false;
    _Count(0);
}

void ChannelMix::_Count(int pChannels)
{
    m_channels = static_cast<std::size_t>(pChannels);
    m_sums.assign(m_channels + 1, 0);
    m_powers.assign(m_channels + 1, 0.0);
    m_windowFill = 0;
    m_channel = -1;
}

template <typename Sample>
void ChannelMix::Mix(const Sample* pFrames, int pChannels, std::size_t pCount, qint16* pSamples)
{
    if (m_channels != static_cast<std::size_t>(pChannels))
        _Count(pChannels);
    while (pCount > 0) {
        const std::size_t some = std::min(pCount, m_windowSize - m_windowFill);
        _MixSome(pFrames, some, pSamples);
        pFrames += some * m_channels;
        pSamples += some;
        pCount -= some;
        m_frameCount += some;
        m_windowFill += some;
        if (m_windowFill == m_windowSize)
            _Choose();
    }
}

template <typename Sample>
void ChannelMix::_MixSome(const Sample* pFrames, std::size_t pCount, qint16* pSamples)
{
    AudioDownmix::ToMono(pFrames, static_cast<int>(m_channels), pCount, pSamples);
    if (m_channels == 1)
        return;
    for (std::size_t i = 0; i < pCount; ++i) {
        const Sample* pFrame = pFrames + i * m_channels;
        m_sums[m_channels] += square(pSamples[i]);
        for (std::size_t channel = 0; channel < m_channels; ++channel)
            m_sums[channel] +=
                square(AudioDownmix::ToSample16(AudioDownmix::MeanOfFrame(pFrame + channel, 1)));
        if (m_channel >= 0)
            pSamples[i] =
                AudioDownmix::ToSample16(AudioDownmix::MeanOfFrame(pFrame + m_channel, 1));
    }
}

void ChannelMix::_Choose()
{
    m_windowFill = 0;
    for (std::size_t i = 0; i <= m_channels; ++i) {
        m_powers[i] = kFading * m_powers[i] + static_cast<double>(m_sums[i]);
        m_sums[i] = 0;
    }
    const auto end = m_powers.end() - 1;
    const auto loudest = std::max_element(m_powers.begin(), end);
    const auto count = static_cast<double>(m_channels);
    const double average = count * count * *end;
    const bool wasTaken = m_channel >= 0;
    if (average >= (wasTaken ? kSound : kCancelled) * *loudest) {
        m_channel = -1;
        return;
    }
    if (!wasTaken || m_powers[static_cast<std::size_t>(m_channel)] < kStillLoudest * *loudest)
        m_channel = static_cast<int>(loudest - m_powers.begin());
    if (!m_hasCancelled)
        m_firstCancellation = m_frameCount;
    m_hasCancelled = true;
}

template AUDIOANALYZER_EXPORT void
ChannelMix::Mix(const float* pFrames, int pChannels, std::size_t pCount, qint16* pSamples);
template AUDIOANALYZER_EXPORT void
ChannelMix::Mix(const qint16* pFrames, int pChannels, std::size_t pCount, qint16* pSamples);
