// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/detail/SampleLoops.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <algorithm>

void AudioAnalyzer::DetectPulses(short* samples, unsigned long count, unsigned long index)
{
    if (m_beatLength == 0)
        ComputeNextBeatStartIndexes();
    if (m_isStopped) {
        DetectBeats(count, index, 0, 0);
        _ReportBlock(index, samples, count);
        return;
    }

    short* pFiltered = nullptr;
    unsigned long filteredCount = 0;
    ApplyFilter(samples, count, pFiltered, filteredCount);
    FullWaveRectify(pFiltered, filteredCount);
    if (!m_volumeStats.Update(pFiltered, filteredCount))
        return;
    m_currentVolume = detail::Peak(pFiltered, filteredCount, m_currentVolume);

    const qint16 average = m_volumeStats.getAverageVolume();
    const qint16 threshold = getThreshold();
    const qint16 maximum = m_volumeStats.getMaximalVolume();
    if (detail::IsPulse(pFiltered, filteredCount, threshold)) {
        // The end index counts the block's own samples, not the filtered ones.
        const Pulse pulse(m_analysisStartTime,
                          index,
                          index + count - 1,
                          static_cast<quint64>(m_sampleRate),
                          average,
                          threshold,
                          std::max(threshold, maximum),
                          ePulse);
        _TrackPulse(pulse, filteredCount);
    } else {
        DetectBeats(filteredCount, index, average, threshold);
    }
    _ReportBlock(index, pFiltered, filteredCount);
}

void AudioAnalyzer::_TrackPulse(const Pulse& pPulse, unsigned long pFilteredCount)
{
    const quint64 index = pPulse.getStartIndex();
    if (m_beatWindowStart <= index && index <= m_beatWindowEnd)
        m_candidatePulses.push_back(pPulse);
    DetectBeats(pFilteredCount, index, pPulse.getAverageVolume(), pPulse.getThreshold());
    m_lastPulseIndex = index;
    Q_EMIT OnPulseDetected(pPulse);
}

void AudioAnalyzer::_ReportBlock(unsigned long pIndex, short* pSamples, unsigned long pCount)
{
    Q_EMIT OnAudioSamplesAnalyzed(
        static_cast<unsigned int>(pIndex), pSamples, static_cast<unsigned int>(pCount));
}

void AudioAnalyzer::ApplyFilter(short* samples,
                                unsigned long count,
                                short*& filtered,
                                unsigned long& filteredCount)
{
    m_filterFFT.Compute(samples, count);
    const Profile profile = m_pConfiguration->getSelectedProfile();
    m_pAmplitudes = m_filterFFT.getAmplitudes();
    m_amplitudesCount = m_filterFFT.getAmplitudesCount();
    Q_EMIT OnAmplitudesComputed(m_pAmplitudes, static_cast<unsigned int>(m_amplitudesCount));

    const int low = profile.getFilterLowFrequency();
    const int high = profile.getFilterHighFrequency();
    if (high >= 1 && low >= 1)
        m_filterFFT.BandPassFilter(low, high, m_sampleRate);
    else if (high >= 1)
        m_filterFFT.LowPassFilter(high, m_sampleRate);
    else if (low >= 1)
        m_filterFFT.HighPassFilter(low, m_sampleRate);
    m_filterFFT.ComputeInverse(filtered, filteredCount);
}

void AudioAnalyzer::FullWaveRectify(short* samples, unsigned long count)
{
    detail::Rectify(samples, count);
}

qint16 AudioAnalyzer::getThreshold() const
{
    const short fixed = m_pConfiguration->getThreshold();
    if (fixed >= 0)
        return fixed;
    const Profile profile = m_pConfiguration->getSelectedProfile();
    return detail::AutomaticThreshold(
        profile.getSensibility(), m_volumeStats.getAverageVolume(), profile.getMaximalThreshold());
}
