// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/dsp/BandPassThreshold.h>

#include <algorithm>

namespace {

constexpr int kStopLowHz = 50;
constexpr int kStopHighHz = 2000;

}  // namespace

void AudioAnalyzer::DetectStops(const short* samples, unsigned long count)
{
    if (!m_pStopBlock && !_BuildStopBlock())
        return;
    if (count >= m_stopBlockSize) {
        m_stopBlockFill = 0;
        _DecideStop(samples + (count - m_stopBlockSize));
        return;
    }
    const quint64 missing = m_stopBlockSize - m_stopBlockFill;
    if (count < missing) {
        std::copy_n(samples, count, m_pStopBlock + m_stopBlockFill);
        m_stopBlockFill += count;
        return;
    }
    std::copy_n(samples, missing, m_pStopBlock + m_stopBlockFill);
    _DecideStop(m_pStopBlock);
    // What is left over begins the next block.
    m_stopBlockFill = count - missing;
    std::copy_n(samples + missing, m_stopBlockFill, m_pStopBlock);
}

bool AudioAnalyzer::_BuildStopBlock()
{
    m_stopBlockFill = 0;
    m_stopBlockSize =
        detail::SampleCount(m_pConfiguration->getStopDetectionDuration(), m_sampleRate);
    if (m_stopBlockSize == 0)
        return false;
    m_pStopBlock = new qint16[m_stopBlockSize];
    return true;
}

void AudioAnalyzer::_DecideStop(const short* pSamples)
{
    // Intended: the samples are compared signed, unrectified. Only positive excursions prove music.
    const short threshold = m_pConfiguration->getStopDetectionThreshold();
    m_isStopped = !m_pStopDecision->RisesAbove(
        pSamples, m_stopBlockSize, {kStopLowHz, kStopHighHz, m_sampleRate, threshold}, m_stopFFT);
}

bool AudioAnalyzer::setStopDetectionDuration(double pSeconds)
{
    // Intended: the duration comes from the configuration, where the caller has stored it before.
    Q_UNUSED(pSeconds)
    delete[] m_pStopBlock;
    m_pStopBlock = nullptr;
    return true;
}

bool AudioAnalyzer::setAverageVolumeCalculationDuration(double pSeconds)
{
    return m_volumeStats.Resize(pSeconds, m_sampleRate);
}

qint16 AudioAnalyzer::getAverageVolume() const
{
    return m_volumeStats.getAverageVolume();
}

qint16 AudioAnalyzer::getCurrentVolume() const
{
    return m_currentVolume;
}

qint16 AudioAnalyzer::getMaximalVolume() const
{
    return std::max(m_previousVolume, m_currentVolume);
}
