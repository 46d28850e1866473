// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/analysis/detail/BeatConfidence.h>
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>
#include <AudioAnalyzer/analysis/detail/MeterEvidence.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/analysis/detail/MusicEvidence.h>
#include <AudioAnalyzer/dsp/Elementary.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <algorithm>
#include <cmath>

MeterTracker::MeterTracker(int pSampleRate, QObject* pParent)
    : QObject(pParent), m_sampleRate(qBound(kLowestRate, pSampleRate, kHighestRate)),
      m_pOnsets(std::make_unique<OnsetLevels>(m_sampleRate)),
      m_pEvidence(std::make_unique<detail::MeterEvidence>(detail::kMeterTable)),
      m_pFilter(std::make_unique<detail::MeterFilter>()),
      m_pDecision(std::make_unique<detail::BeatDecision>(m_pFilter->getStates())),
      m_pMusic(std::make_unique<detail::MusicEvidence>())
{
}

MeterTracker::~MeterTracker() = default;

void MeterTracker::Push(const qint16* pSamples, std::size_t pCount)
{
    while (pCount > 0) {
        const std::size_t taken = m_pOnsets->Push(pSamples, pCount);
        m_sampleCount += taken;
        pSamples += taken;
        pCount -= taken;
        if (m_pOnsets->isFrameComplete())
            _CompleteFrame();
    }
}

void MeterTracker::Reset()
{
    m_sampleCount = 0;
    m_pOnsets->Reset();
    m_isLevelHeld = m_isDownbeatHeld = m_isPlaying = false;
    _AllowTempi();
    m_pFilter->Reset();
    m_pDecision->Reset();
    m_pMusic->Reset();
    m_toldBPM = m_lastBeat = m_lastTap = m_tapInterval = 0.0;
    m_lastNumber = m_tapCount = 0;
}

void MeterTracker::_CompleteFrame()
{
    const float ratio = m_pFilter->Update(m_pEvidence->Weigh(m_pOnsets->getLevels()));
    m_pMusic->Update(elementary::naturalLog(ratio), m_pOnsets->getMeanSquare());
    const std::optional<double> due = m_pDecision->Update(m_pOnsets->getFrameCount(), *m_pFilter);
    _SetPlaying(m_pMusic->isPlaying());
    if (due)
        _TellBeat(*due);
}

void MeterTracker::_SetPlaying(bool pIsPlaying)
{
    if (pIsPlaying == m_isPlaying)
        return;
    m_isPlaying = pIsPlaying;
    Q_EMIT OnPlayingChanged(m_sampleCount, pIsPlaying);
}

void MeterTracker::_TellBeat(double pTime)
{
    m_lastNumber = _CountBeat(pTime);
    m_lastBeat = pTime;
    if (m_isLevelHeld)
        _AllowTempi();
    if (!m_isPlaying)
        return;
    const Beat beat = {_IndexOf(pTime),
                       getBPM(),
                       m_lastNumber + 1,
                       getConfidence(),
                       m_isDownbeatHeld ? 1.0 : double(m_pDecision->getBarConfidence())};
    Q_EMIT OnBeatForeseen(beat);
    constexpr double kLeastChange = 0.001;
    if (std::fabs(beat.bpm - m_toldBPM) < kLeastChange * m_toldBPM)
        return;
    m_toldBPM = beat.bpm;
    Q_EMIT OnTempoChanged(beat.index, beat.bpm);
}

// By hand the bar goes on from the last beat; else it is what the music says.
int MeterTracker::_CountBeat(double pTime)
{
    constexpr int kBar = detail::kBeatsPerBar;
    if (!m_isDownbeatHeld)
        return static_cast<int>(m_pDecision->getBeatInBar());
    const double beats = (pTime - m_lastBeat) / static_cast<double>(m_pDecision->getPeriod());
    return (m_lastNumber + std::max(1, qRound(beats))) % kBar;
}

double MeterTracker::getBPM() const
{
    return m_isPlaying ? detail::MeterStates::kFramesPerMinute / double(m_pDecision->getPeriod())
                       : 0.0;
}

double MeterTracker::getConfidence() const
{
    if (!m_isPlaying)
        return 0.0;
    const detail::BeatSigns signs = {
        m_pDecision->getPhaseShare(), m_pDecision->getTempoShare(), m_pMusic->getMean()};
    return static_cast<double>(detail::beatConfidence(signs, detail::kMeterTable));
}

quint64 MeterTracker::getNextBeat() const
{
    return m_isPlaying ? _IndexOf(m_pDecision->getNextBeat()) : 0;
}

double MeterTracker::getPhase(quint64 pIndex) const
{
    if (!m_isPlaying)
        return 0.0;
    const double beats = (_FramesOf(pIndex) - m_pDecision->getNextBeat()) /
                         static_cast<double>(m_pDecision->getPeriod());
    const double phase = beats - std::floor(beats);
    return phase < 1.0 ? phase : 0.0;
}

std::size_t MeterTracker::getTempoCount() const
{
    return m_pFilter->getStates().getTempi().size();
}

double MeterTracker::getTempo(std::size_t pNumber) const
{
    const float period = m_pFilter->getStates().getTempi()[pNumber].period;
    return detail::MeterStates::kFramesPerMinute / static_cast<double>(period);
}

double MeterTracker::getTempoBelief(std::size_t pNumber) const
{
    return static_cast<double>(m_pFilter->getTempoMasses()[pNumber] / m_pFilter->getTotal());
}

quint64 MeterTracker::_IndexOf(double pFrames) const
{
    const double index = pFrames * m_sampleRate / OnsetLevels::kFramesPerSecond;
    return static_cast<quint64>(qRound64(std::max(0.0, index)));
}

double MeterTracker::_FramesOf(quint64 pIndex) const
{
    return static_cast<double>(pIndex) * OnsetLevels::kFramesPerSecond / m_sampleRate;
}

#include "moc_MeterTracker.cpp"
