// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/detail/BlockSize.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/dsp/BandPassThreshold.h>

#include <algorithm>

AudioAnalyzer::AudioAnalyzer(Configuration* pConfiguration,
                             const QAudioFormat& pFormat,
                             QObject* pParent)
    : QObject(pParent), m_format(pFormat), m_samplesPerMinute(m_format.sampleRate() * 60.0),
      m_sampleRate(m_format.sampleRate()), m_accuracy(1.0), m_pAmplitudes(nullptr),
      m_amplitudesCount(0), m_analysisStartTime(0), m_sampleIndex(0), m_isAnalyzing(false),
      m_isConsistencyAllowed(true), m_isStopped(true), m_computedBPM(0.0),
      m_pConfiguration(pConfiguration), m_missedBeatsCount(0), m_beatLength(0),
      m_volumeStats(m_pConfiguration->getAverageVolumeCalculationDuration(), m_sampleRate),
      m_fixedBPM(0.0), m_lastBPM(0.0), m_inaccuracyStartTime(0), m_lastBeatIndex(0),
      m_isLastBeatVirtual(true), m_lastPulseIndex(0), m_virtualBeatIndex(0), m_currentVolume(0),
      m_previousVolume(0), m_beatWindowEnd(0), m_beatWindowStart(0), m_nextBeatIndex(0),
      m_pPulseBlock(nullptr), m_pulseBlockFill(0),
      m_pulseBlockSize(detail::PulseBlockSize(m_sampleRate)), m_pStopBlock(nullptr),
      m_stopBlockFill(0), m_stopBlockSize(0), m_pStopDecision(std::make_unique<BandPassThreshold>())
{
    m_pPulseBlock = new qint16[m_pulseBlockSize]();
}

AudioAnalyzer::~AudioAnalyzer()
{
    Stop();
    delete[] m_pPulseBlock;
    delete[] m_pStopBlock;
}

bool AudioAnalyzer::Start()
{
    if (m_isAnalyzing)
        return false;
    m_computedBPM = 0.0;
    m_analysisStartTime = HighResolutionTimer::getTime();
    ComputeNextBeatStartIndexes();
    m_isAnalyzing = true;
    Q_EMIT OnAnalysisStarted();
    return true;
}

// Kept on purpose: the consistency setting, the fixed and the last tempo, the accuracy with its
// missed beats and its watch, the volumes, and whether the last beat was virtual.
bool AudioAnalyzer::Stop()
{
    if (!m_isAnalyzing)
        return false;
    m_pAmplitudes = nullptr;
    m_amplitudesCount = 0;
    m_analysisStartTime = 0;
    m_sampleIndex = 0;
    m_isAnalyzing = false;
    m_isStopped = true;
    _ForgetBeatIndexes();
    m_computedBPM = 0.0;
    m_beatLength = 0;
    m_volumeStats.Reset();
    m_lastBeatIndex = 0;
    m_lastPulseIndex = 0;
    m_virtualBeatIndex = 0;
    m_beatWindowEnd = 0;
    m_beatWindowStart = 0;
    m_nextBeatIndex = 0;
    m_candidatePulses.clear();
    m_pulseBlockFill = 0;
    m_stopBlockFill = 0;
    Q_EMIT OnAnalysisStopped();
    return true;
}

// Intended: the test is the reverse of what the name suggests. Hosts rely on being told that the
// analysis has stopped when it does not run, and a running analysis is ended by Stop() only.
bool AudioAnalyzer::PauseAnalysis()
{
    if (m_isAnalyzing)
        return false;
    m_isAnalyzing = false;
    Q_EMIT OnAnalysisStopped();
    return true;
}

bool AudioAnalyzer::isAnalyzing() const
{
    return m_isAnalyzing;
}

bool AudioAnalyzer::isPlaying() const
{
    return m_isAnalyzing && !m_isStopped;
}

void AudioAnalyzer::Analyze(qint16* pAudioSamples, size_t pCount)
{
    DetectStops(pAudioSamples, pCount);
    if (!m_pPulseBlock || m_pulseBlockSize == 0)
        return;

    const quint64 missing = m_pulseBlockSize - m_pulseBlockFill;
    if (missing <= pCount) {
        std::copy_n(pAudioSamples, missing, m_pPulseBlock + m_pulseBlockFill);
        m_pulseBlockFill = 0;
        DetectPulses(m_pPulseBlock, m_pulseBlockSize, m_sampleIndex);
        m_sampleIndex += m_pulseBlockSize;
        pAudioSamples += missing;
        pCount -= missing;
    }
    while (pCount >= m_pulseBlockSize) {
        m_pulseBlockFill = 0;
        DetectPulses(pAudioSamples, m_pulseBlockSize, m_sampleIndex);
        m_sampleIndex += m_pulseBlockSize;
        pAudioSamples += m_pulseBlockSize;
        pCount -= m_pulseBlockSize;
    }
    std::copy_n(pAudioSamples, pCount, m_pPulseBlock + m_pulseBlockFill);
    m_pulseBlockFill += pCount;
}

Configuration* AudioAnalyzer::getConfiguration() const
{
    return m_pConfiguration;
}

const double* AudioAnalyzer::getAmplitudes() const
{
    return m_pAmplitudes;
}

quint64 AudioAnalyzer::getAmplitudesCount() const
{
    return m_amplitudesCount;
}

quint64 AudioAnalyzer::getAnalysisStartTime() const
{
    return m_analysisStartTime;
}

quint64 AudioAnalyzer::getPulseBlockSize() const
{
    return m_pulseBlockSize;
}

AudioValues AudioAnalyzer::getCurrentPulseBlock() const
{
    return {static_cast<uint32_t>(m_pulseBlockSize), m_pPulseBlock};
}

#include "moc_AudioAnalyzer.cpp"
