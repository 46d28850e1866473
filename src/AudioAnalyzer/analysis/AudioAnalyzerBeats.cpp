// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/detail/BeatSchedule.h>
#include <AudioAnalyzer/analysis/detail/BeatWindow.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>
#include <AudioAnalyzer/analysis/detail/TempoEstimate.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QTimer>

#include <algorithm>

namespace {

using detail::kMicroSecondsPerSecond;
constexpr double kLeastAccuracy = 0.5;
constexpr double kLongestInaccuracySeconds = 10.0;

/// Appends a value, in a node of pFree when there is one.
void AppendReusing(std::list<quint64>& pList, std::list<quint64>& pFree, quint64 pValue)
{
    if (pFree.empty()) {
        pList.push_back(pValue);
        return;
    }
    pFree.front() = pValue;
    pList.splice(pList.end(), pFree, pFree.begin());
}

/// Moves the nodes of all values smaller than pLimit to pFree.
void RemoveSmaller(std::list<quint64>& pList, std::list<quint64>& pFree, quint64 pLimit)
{
    for (auto it = pList.begin(); it != pList.end();) {
        const auto node = it++;
        if (*node < pLimit)
            pFree.splice(pFree.end(), pList, node);
    }
}

}  // namespace

double AudioAnalyzer::_ClampToProfile(double pBPM) const
{
    const Profile profile = m_pConfiguration->getSelectedProfile();
    // The minimum is applied last: it wins in a profile whose minimum exceeds its maximum.
    return std::max(std::min(pBPM, profile.getMaximalBPM()), profile.getMinimalBPM());
}

double AudioAnalyzer::getFixedBPM() const
{
    return m_fixedBPM > 0.0 ? _ClampToProfile(m_fixedBPM) : 0.0;
}

double AudioAnalyzer::getComputedBPM() const
{
    return m_computedBPM > 0.0 ? _ClampToProfile(m_computedBPM) : 0.0;
}

double AudioAnalyzer::getCurrentBPM() const
{
    const double fixedBPM = getFixedBPM();
    return fixedBPM > 0.0 ? fixedBPM : getComputedBPM();
}

bool AudioAnalyzer::setFixedBPM(double pBPM)
{
    m_fixedBPM = pBPM > 0.0 ? pBPM : 0.0;
    return true;
}

void AudioAnalyzer::setConsistencyAllowed(bool pIsAllowed)
{
    m_isConsistencyAllowed = pIsAllowed;
}

void AudioAnalyzer::setBeatTimerAllowed(bool pIsAllowed)
{
    m_isBeatTimerAllowed = pIsAllowed;
}

double AudioAnalyzer::getAccuracy() const
{
    return std::min(m_accuracy, 1.0 / static_cast<double>(m_missedBeatsCount + 1));
}

double AudioAnalyzer::getInaccuracyElapsedSeconds() const
{
    if (m_inaccuracyStartTime == 0)
        return 0.0;
    const quint64 elapsed = HighResolutionTimer::getTime() - m_inaccuracyStartTime;
    const quint64 seconds = elapsed / kMicroSecondsPerSecond;
    const quint64 microSeconds = elapsed % kMicroSecondsPerSecond;
    return static_cast<double>(seconds) + static_cast<double>(microSeconds) / 1000000.0;
}

bool AudioAnalyzer::isSendingBeats() const
{
    const bool isMusicPlaying = !m_isStopped && m_analysisStartTime != 0;
    return isMusicPlaying || m_pConfiguration->getDisplayVirtualBeatsWhenStopped();
}

void AudioAnalyzer::_OnBeat()
{
    if (isSendingBeats())
        Q_EMIT OnBeat();
}

void AudioAnalyzer::ComputeNextBeatStartIndexes()
{
    const Profile profile = m_pConfiguration->getSelectedProfile();
    if (m_beatLength == 0)
        m_beatLength = _PredictBeatLength(profile.getDefaultBPM());
    if (m_beatLength == 0) {
        m_beatWindowEnd = 0;
        m_beatWindowStart = 0;
        m_nextBeatIndex = 0;
        return;
    }
    m_previousVolume = m_currentVolume;
    m_currentVolume = 0;

    const detail::BeatWindow window =
        m_lastBeatIndex != 0
            ? detail::WindowAfterBeat(m_lastBeatIndex, m_beatLength, m_pulseBlockSize)
            : detail::FirstWindow(m_sampleIndex,
                                  m_beatLength,
                                  detail::BeatLength(m_samplesPerMinute, profile.getMinimalBPM()));
    m_beatWindowEnd = window.end;
    m_beatWindowStart = window.start;
    m_nextBeatIndex = window.nextBeat;
}

/// From the current tempo, else the last one, else pDefaultBPM; 0 when that is unknown too.
quint64 AudioAnalyzer::_PredictBeatLength(double pDefaultBPM) const
{
    double tempo = getCurrentBPM();
    if (tempo == 0.0)
        tempo = m_isConsistencyAllowed && m_lastBPM > 0.0 ? m_lastBPM : pDefaultBPM;
    return tempo > 0.0 ? detail::BeatLength(m_samplesPerMinute, tempo) : 0;
}

void AudioAnalyzer::DetectBeats(unsigned long count,
                                unsigned long index,
                                short averageVolume,
                                short threshold)
{
    if (m_beatWindowEnd > index)
        return;
    const std::optional<Pulse> beat = _ChooseBeat(count, averageVolume, threshold);
    _WatchAccuracy();
    _MeasureTempo();
    _ReportTempo();
    if (beat)
        _ArmBeatTimer(*beat);
    m_candidatePulses.clear();
    ComputeNextBeatStartIndexes();
}

std::optional<Pulse>
AudioAnalyzer::_ChooseBeat(unsigned long pCount, short pAverageVolume, short pThreshold)
{
    if (m_candidatePulses.empty())
        return _MakeVirtualBeat(pCount, pAverageVolume, pThreshold);
    return _ChooseLoudestCandidate();
}

std::optional<Pulse>
AudioAnalyzer::_MakeVirtualBeat(unsigned long pCount, short pAverageVolume, short pThreshold)
{
    m_missedBeatsCount += 1;
    m_lastBeatIndex = m_nextBeatIndex;
    m_isLastBeatVirtual = true;
    m_virtualBeatIndex = m_nextBeatIndex;
    if (!isSendingBeats())
        return std::nullopt;
    const Pulse beat(m_analysisStartTime,
                     m_nextBeatIndex,
                     m_nextBeatIndex + pCount - 1,
                     static_cast<quint64>(m_sampleRate),
                     pAverageVolume,
                     pThreshold,
                     pThreshold,
                     eVirtualBeat);
    Q_EMIT OnPulseDetected(beat);
    return beat;
}

Pulse AudioAnalyzer::_ChooseLoudestCandidate()
{
    // Ties go to the earliest candidate: max_element returns the first of equals.
    Pulse beat = *std::max_element(m_candidatePulses.begin(),
                                   m_candidatePulses.end(),
                                   [](const Pulse& pLeft, const Pulse& pRight) {
                                       return pLeft.getMaximalValue() < pRight.getMaximalValue();
                                   });
    m_accuracy = 1.0 / (static_cast<double>(m_missedBeatsCount) + 1.0);
    m_missedBeatsCount = 0;
    // The record is shared, so whoever kept the emitted pulse sees it become the beat.
    beat.setType(eBeat);
    m_virtualBeatIndex = 0;
    m_lastBeatIndex = beat.getStartIndex();
    m_isLastBeatVirtual = false;
    return beat;
}

void AudioAnalyzer::_WatchAccuracy()
{
    if (getAccuracy() >= kLeastAccuracy) {
        m_inaccuracyStartTime = 0;
        return;
    }
    if (m_inaccuracyStartTime == 0)
        m_inaccuracyStartTime = HighResolutionTimer::getTime();
    if (getInaccuracyElapsedSeconds() < kLongestInaccuracySeconds)
        return;
    const double lastBPM = m_lastBPM;
    Reset();
    if (m_isConsistencyAllowed)
        m_lastBPM = lastBPM;
}

void AudioAnalyzer::_MeasureTempo()
{
    AppendReusing(m_beatIndexes, m_freeBeatNodes, m_lastBeatIndex);
    const quint64 span =
        detail::SampleCount(m_pConfiguration->getBPMCalculationDuration(), m_sampleRate);
    if (m_lastBeatIndex > span)
        RemoveSmaller(m_beatIndexes, m_freeBeatNodes, m_lastBeatIndex - span);
    m_computedBPM = detail::TempoOfBeats(
        m_beatIndexes.front(), m_beatIndexes.back(), m_beatIndexes.size(), m_samplesPerMinute);
}

void AudioAnalyzer::_ReportTempo()
{
    double tempo = getCurrentBPM();
    if (tempo > 0.0) {
        m_lastBPM = tempo;
        m_beatLength = detail::BeatLength(m_samplesPerMinute, tempo);
    } else {
        m_beatLength = 0;
        if (m_isConsistencyAllowed)
            tempo = m_lastBPM;
    }
    Q_EMIT OnBPMChanged(tempo);
}

void AudioAnalyzer::_ArmBeatTimer(const Pulse& pBeat)
{
    // Intended: under a fixed tempo no timer is armed, so no OnBeat() is sent at all.
    if (!m_isBeatTimerAllowed || m_beatLength == 0 || getFixedBPM() > 0.0)
        return;
    const quint64 now = HighResolutionTimer::getTime();
    const quint64 period =
        m_beatLength * kMicroSecondsPerSecond / static_cast<quint64>(m_sampleRate);
    const quint64 instant = detail::NextBeatInstant(pBeat.getStartTime(), period, now);
    QTimer::singleShot(detail::DelayInMilliSeconds(instant, now), this, SLOT(_OnBeat()));
}

void AudioAnalyzer::_ForgetBeatIndexes()
{
    m_freeBeatNodes.splice(m_freeBeatNodes.end(), m_beatIndexes);
}

// Kept on purpose: whether the analysis runs and since when, the position, the consistency setting,
// the fixed tempo and whether the last beat was virtual. A fresh search starts with the music
// stopped.
void AudioAnalyzer::Reset()
{
    m_accuracy = 1.0;
    m_isStopped = true;
    _ForgetBeatIndexes();
    m_computedBPM = 0.0;
    m_missedBeatsCount = 0;
    m_beatLength = 0;
    m_volumeStats.Reset();
    m_lastBPM = 0.0;
    m_inaccuracyStartTime = 0;
    m_lastBeatIndex = 0;
    m_lastPulseIndex = 0;
    m_virtualBeatIndex = 0;
    m_currentVolume = 0;
    m_previousVolume = 0;
    m_beatWindowEnd = 0;
    m_beatWindowStart = 0;
    m_nextBeatIndex = 0;
    m_candidatePulses.clear();
    m_pulseBlockFill = 0;
    m_stopBlockFill = 0;
}
