// SPDX-License-Identifier: MIT
#include <shared/outputs/SoundPicture.h>

#include <algorithm>
#include <cmath>

namespace shared {

void SoundPicture::TakeSpectrum(const double* pAmplitudes, std::size_t pCount, int pSampleRate)
{
    if (pCount == 0)
        return;
    if (pCount != m_count || pSampleRate != m_sampleRate)
        _FindBins(pCount, pSampleRate);
    for (std::size_t i = 0; i < kBands; ++i) {
        // A band that is narrower than a bin has that of its lower end.
        const std::size_t first = std::min(m_firstBins[i], pCount - 1);
        const std::size_t end = std::min(std::max(m_firstBins[i + 1], first + 1), pCount);
        const double strongest = *std::max_element(pAmplitudes + first, pAmplitudes + end);
        const double decibels = 20.0 * std::log10(std::max(strongest, 1e-9));
        const bool isHeard = m_firstBins[i] < pCount;
        m_sound.bands[i] =
            isHeard ? std::clamp(1.0 + (decibels + kTilt * double(i)) / kRange, 0.0, 1.0) : 0.0;
    }
    const double* strongest = std::max_element(pAmplitudes, pAmplitudes + pCount);
    m_sound.magnitude = std::clamp(*strongest, 0.0, 1.0);
    m_sound.frequency = double(strongest - pAmplitudes) * pSampleRate / 2.0 / double(pCount);
}

void SoundPicture::_FindBins(std::size_t pCount, int pSampleRate)
{
    m_count = pCount;
    m_sampleRate = pSampleRate;
    const double width = pSampleRate / 2.0 / double(pCount);
    for (std::size_t i = 0; i <= kBands; ++i)
        m_firstBins[i] =
            static_cast<std::size_t>(std::lround(kLowest * std::exp2(double(i) / 2.0) / width));
}

std::optional<OutputSound>
SoundPicture::TakeSamples(const std::int16_t* pSamples, std::size_t pCount, std::int64_t pEnd)
{
    for (std::size_t i = 0; i < pCount; ++i)
        m_power += double(pSamples[i]) * pSamples[i];
    m_summed += pCount;
    if (pEnd < m_due || m_summed == 0)
        return std::nullopt;
    // A full sine is full scale.
    constexpr double kFullScale = 32768.0;
    m_sound.level = std::min(std::sqrt(2.0 * m_power / double(m_summed)) / kFullScale, 1.0);
    m_sound.time = pEnd;
    m_power = 0.0;
    m_summed = 0;
    m_due = (pEnd - m_due < kInterval ? m_due : pEnd) + kInterval;
    return m_sound;
}

}  // namespace shared
