// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/analysis/detail/MusicEvidence.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <algorithm>

namespace {

constexpr double kFactors[] = {2.0, 0.5, 1.5, 2.0 / 3.0};
constexpr double kSlack = 1.015;     ///< by which a measured tempo may lie outside of the range
constexpr double kLongestTap = 1.5;  ///< mean intervals after which a new row of taps begins
constexpr int kMostTaps = 8;         ///< whose mean is the interval
constexpr int kHeldReach = 12;       ///< tempi on each side that a held level may reach at a beat

}  // namespace

void MeterTracker::Tap(quint64 pIndex)
{
    const double tap = _FramesOf(pIndex);
    const double interval = tap - m_lastTap;
    const double longest = detail::MeterStates::kFramesPerMinute / m_minimalBPM * kLongestTap;
    const bool isInRow = m_tapCount > 0 && interval > 0.0 && interval < longest &&
                         (m_tapInterval == 0.0 || interval < kLongestTap * m_tapInterval);
    m_tapCount = isInRow ? std::min(m_tapCount + 1, kMostTaps) : 1;
    m_tapInterval = isInRow ? m_tapInterval + (interval - m_tapInterval) / (m_tapCount - 1) : 0.0;
    m_lastTap = tap;
    m_isLevelHeld = false;
    _AllowTempi();
    const auto now = static_cast<double>(m_pOnsets->getFrameCount());
    m_pFilter->Tap(static_cast<float>(now - tap), static_cast<float>(m_tapInterval));
    m_pDecision->setLastBeat(tap);
    m_pDecision->Reconsider(*m_pFilter);
    m_pMusic->Believe();
}

bool MeterTracker::Multiply(double pFactor)
{
    const bool isOffered =
        std::any_of(std::begin(kFactors), std::end(kFactors), [&](double pOffer) {
            return qFuzzyCompare(pFactor, pOffer);
        });
    const double bpm =
        detail::MeterStates::kFramesPerMinute / double(m_pDecision->getPeriod()) * pFactor;
    if (!isOffered || bpm * kSlack < m_minimalBPM || bpm > m_maximalBPM * kSlack)
        return false;
    m_isLevelHeld = false;
    _AllowTempi();
    m_pFilter->Multiply(static_cast<float>(pFactor));
    m_pDecision->Reconsider(*m_pFilter);
    m_isLevelHeld = true;
    _AllowTempi();
    return true;
}

void MeterTracker::setDownbeat(quint64 pIndex)
{
    constexpr int kBar = detail::kBeatsPerBar;
    const double beats =
        (_FramesOf(pIndex) - m_lastBeat) / static_cast<double>(m_pDecision->getPeriod());
    const int behind = static_cast<int>(qRound64(beats) % kBar);
    m_lastNumber = (kBar - behind) % kBar;
    m_isDownbeatHeld = true;
}

void MeterTracker::ReleaseDownbeat()
{
    m_isDownbeatHeld = false;
}

bool MeterTracker::setTempoRange(double pMinimum, double pMaximum)
{
    if (!(pMinimum >= kSlowestBPM && pMinimum <= pMaximum && pMaximum <= kFastestBPM))
        return false;
    const double bpm = detail::MeterStates::kFramesPerMinute / double(m_pDecision->getPeriod());
    m_minimalBPM = pMinimum;
    m_maximalBPM = pMaximum;
    m_isLevelHeld = false;
    // Before the first frame there is no tempo that could be outside.
    const bool isHeard = m_pOnsets->getFrameCount() > 0;
    if (isHeard && (bpm < pMinimum || bpm > pMaximum))
        for (const double factor : kFactors)
            if (bpm * factor >= pMinimum && bpm * factor <= pMaximum) {
                m_pFilter->Allow(0, m_pFilter->getStates().getTempi().size());
                m_pFilter->Multiply(static_cast<float>(factor));
                break;
            }
    _AllowTempi();
    if (isHeard)
        m_pDecision->Reconsider(*m_pFilter);
    else
        m_pFilter->Reset();
    return true;
}

// The range, and within it the neighbourhood of the present tempo if the level is held.
void MeterTracker::_AllowTempi()
{
    const detail::MeterStates& states = m_pFilter->getStates();
    const int last = static_cast<int>(states.getTempi().size()) - 1;
    const auto find = [&](double pBPM) {
        const auto period = static_cast<float>(detail::MeterStates::kFramesPerMinute / pBPM);
        return qBound(0, states.findTempo(period), last);
    };
    int first = find(m_maximalBPM);
    int final = find(m_minimalBPM);
    if (m_isLevelHeld) {
        const int tempo = static_cast<int>(m_pDecision->getTempo());
        first = qBound(first, tempo - kHeldReach, final);
        final = qBound(first, tempo + kHeldReach, final);
    }
    m_pFilter->Allow(static_cast<std::size_t>(first), static_cast<std::size_t>(final) + 1);
}
