// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/SoundFeed.h>

#include <algorithm>
#include <cmath>
#include <utility>

void SoundFeed::Follow(LiveSource& pSource)
{
    connect(
        &pSource,
        &LiveSource::OnSamples,
        this,
        [this, &pSource](const qint16* pSamples, std::size_t pCount, quint64 pEnd) {
            const auto wallNow = static_cast<std::int64_t>(HighResolutionTimer::getTime());
            const std::int64_t end =
                shared::ClockThread::getTime() + static_cast<std::int64_t>(pEnd) - wallNow;
            _Take(pSamples, pCount, end, pSource.getSampleRate());
        });
}

void SoundFeed::_Take(const qint16* pSamples,
                      std::size_t pCount,
                      std::int64_t pEnd,
                      int pSampleRate)
{
    if (std::exchange(m_sampleRate, pSampleRate) != pSampleRate) {
        m_transform.setLastMaximalAmplitudesSize(pSampleRate, kLoudestSpan, kBlock);
        m_filled = 0;
    }
    while (pCount > 0) {
        const std::size_t count = std::min(pCount, kBlock - m_filled);
        std::copy_n(pSamples, count, m_block.begin() + std::ptrdiff_t(m_filled));
        m_filled += count;
        pSamples += count;
        pCount -= count;
        if (m_filled == kBlock)
            _TakeBlock(pEnd - std::llround(1e6 * double(pCount) / pSampleRate), pSampleRate);
    }
}

void SoundFeed::_TakeBlock(std::int64_t pEnd, int pSampleRate)
{
    m_filled = 0;
    m_transform.Compute(m_block.data(), kBlock);
    const double* pPowers = m_transform.getAmplitudes();
    m_amplitudes.resize(m_transform.getAmplitudesCount());
    std::transform(pPowers, pPowers + m_amplitudes.size(), m_amplitudes.begin(), [](double pPower) {
        return std::sqrt(pPower);
    });
    m_picture.TakeSpectrum(m_amplitudes.data(), m_amplitudes.size(), pSampleRate);
    if (const auto sound = m_picture.TakeSamples(m_block.data(), kBlock, pEnd))
        Q_EMIT OnSound(*sound);
}

#include "moc_SoundFeed.cpp"
