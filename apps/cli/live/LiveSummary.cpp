// SPDX-License-Identifier: MIT
#include <cli/live/LiveSummary.h>
#include <shared/capture/LiveSource.h>

#include <algorithm>

namespace {

constexpr double kSettlingSeconds = 10.0;
constexpr std::size_t kBeatsInRow = 9;  ///< that RecordingTempo makes a tempo of

}  // namespace

LiveSummary::LiveSummary(LiveSource& pSource, LiveBeats& pBeats, bool pMeasures)
    : m_source(pSource), m_beats(pBeats), m_measures(pMeasures), m_isTold(pBeats.isAutomatic()),
      m_relay(m_follower, m_isTold ? BeatRelay::eTold : BeatRelay::eFollower)
{
    using S = LiveSource;
    connect(&pSource, &S::OnAnalyzerCreated, this, &LiveSummary::_OnAnalyzerCreated);
    connect(&pSource, &S::OnAnchored, this, &LiveSummary::_OnAnchored);
    connect(&pBeats, &LiveBeats::OnBeatHeard, this, &LiveSummary::_OnHeard);
    connect(&pBeats, &LiveBeats::OnPlayingChanged, this, [this](qint64 pTime, bool pIsPlaying) {
        m_errors.Interrupt();
        _WatchTracker();
        if (m_isTold)
            _RelayPlaying(getSeconds(pTime), pIsPlaying);
    });
    connect(&m_relay, &BeatRelay::OnBeat, this, &LiveSummary::_Count);
    if (m_measures)
        m_beats.getThread().Add(*this, kDivision);
}

LiveSummary::~LiveSummary()
{
    m_beats.getThread().Remove(*this);
}

double LiveSummary::getSeconds(std::int64_t pTime) const
{
    const std::int64_t start = m_start;
    return start == 0 ? 0.0 : double(std::max(pTime, start) - start) / 1e6;
}

double LiveSummary::getTempo() const
{
    const double settled = m_settledTempo.getMedian();
    return settled > 0.0 ? settled : m_earlyTempo.getMedian();
}

void LiveSummary::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer)
{
    m_follower.Follow(pAnalyzer);
}

void LiveSummary::_OnAnchored()
{
    if (m_start == 0)
        m_start = shared::ClockThread::getTime();
    if (m_isTold && !m_isPlayingTold)
        _RelayPlaying(0.0, m_beats.isPlaying());
    m_follower.Restart();
    m_relay.Restart(m_source.getSampleRate(), getSeconds());
}

/// A hand may turn from a profile to the automatic tracker.
void LiveSummary::_WatchTracker()
{
    if (m_isTold || !m_beats.isAutomatic())
        return;
    m_isTold = m_isPlayingTold = true;
    m_relay.LeaveFollower();
}

void LiveSummary::_RelayPlaying(double pTime, bool pIsPlaying)
{
    m_isPlayingTold = true;
    m_relay.TellPlaying(pTime, pIsPlaying);
}

// ---- The beats ----------------------------------------------------------------------------------

/// What the offset moves it is meant to move.
void LiveSummary::OnTick(const shared::ClockTick& pTick, const BeatClockState& pState)
{
    m_told.Push({pTick.time + pTick.lateness - pState.offset, pTick.lateness, pTick.place == 0});
}

void LiveSummary::TakeTicks()
{
    ToldTick tick = {};
    while (m_told.Take(tick)) {
        m_ticks.Add(double(tick.lateness) / 1000.0);
        if (tick.isBeat)
            m_errors.AddAnnouncement(quint64(tick.time));
    }
}

void LiveSummary::_OnHeard(const LiveBeats::Heard& pBeat)
{
    _WatchTracker();
    if (m_isTold)
        _RelayHeard(pBeat, getSeconds(pBeat.time));
    if (!m_measures || pBeat.isVirtual)
        return;
    TakeTicks();
    m_errors.AddBeat(quint64(pBeat.time));
}

void LiveSummary::_RelayHeard(const LiveBeats::Heard& pBeat, double pTime)
{
    LoggedBeat beat = {};
    beat.index = quint64(pTime * m_source.getSampleRate());
    beat.time = pTime;
    beat.isVirtual = pBeat.isVirtual;
    beat.bpm = pBeat.bpm;
    beat.beatInBar = pBeat.beatInBar;
    beat.confidence = pBeat.confidence;
    beat.barConfidence = pBeat.barConfidence;
    m_relay.Tell(beat);
}

void LiveSummary::_Count(const LoggedBeat& pBeat)
{
    ++(pBeat.isVirtual ? m_virtualBeats : m_realBeats);
    const double bpm = _TempoOf(pBeat);
    if (!pBeat.isVirtual && bpm > 0.0)
        (pBeat.time < kSettlingSeconds ? m_earlyTempo : m_settledTempo).Add(bpm);
}

/// Automatic beats lie more exactly than their tempo is told.
double LiveSummary::_TempoOf(const LoggedBeat& pBeat)
{
    if (pBeat.beatInBar == 0)
        return pBeat.bpm;
    if (m_row.size() == kBeatsInRow)
        m_row.erase(m_row.begin());
    m_row.push_back({pBeat.time, pBeat.bpm, pBeat.isVirtual});
    return RecordingTempo::ComputeFromTimes(m_row);
}

#include "moc_LiveSummary.cpp"
