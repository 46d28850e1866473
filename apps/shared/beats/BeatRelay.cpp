// SPDX-License-Identifier: MIT
#include <shared/beats/BeatRelay.h>

#include <cmath>

BeatRelay::BeatRelay(const BeatFollower& pFollower, eSource pSource) : m_follower(pFollower)
{
    _FollowPulses(pFollower);
    if (pSource == eTold)
        return;
    connect(&pFollower, &BeatFollower::OnBeatFound, this, &BeatRelay::_TellBeat);
    _Follow(pFollower);
}

BeatRelay::BeatRelay(const BeatFollower& pFollower, const MeterFollower& pMeter)
    : m_follower(pFollower)
{
    connect(&pMeter, &MeterFollower::OnBeatFound, this, &BeatRelay::_TellMeterBeat);
    _FollowPulses(pFollower);
    _Follow(pMeter);
}

/// What both trackers tell alike.
template <typename Follower>
void BeatRelay::_Follow(const Follower& pFollower)
{
    connect(
        &pFollower,
        &Follower::OnTempoFound,
        this,
        [this](quint64 pIndex, double pBPM) { Q_EMIT OnTempo(_TimeOf(pIndex), pBPM); });
    connect(&pFollower, &Follower::OnPlayingChanged, this, [this](quint64 pIndex, bool pIsPlaying) {
        Q_EMIT OnPlayingChanged(_TimeOf(pIndex), pIsPlaying);
    });
}

void BeatRelay::_FollowPulses(const BeatFollower& pFollower)
{
    connect(
        &pFollower,
        &BeatFollower::OnPulseFound,
        this,
        [this](const Pulse& pPulse) { Q_EMIT OnPulse(_TimeOf(pPulse.getStartIndex()), pPulse); });
}

void BeatRelay::Restart(int pSampleRate, double pTime)
{
    m_sampleRate = pSampleRate;
    m_start = pTime;
}

void BeatRelay::LeaveFollower()
{
    m_follower.disconnect(this);
    _FollowPulses(m_follower);
}

void BeatRelay::Tell(const LoggedBeat& pBeat)
{
    constexpr double kSameTempo = 0.001;
    Q_EMIT OnBeat(pBeat);
    if (std::fabs(pBeat.bpm - m_toldBPM) < kSameTempo * pBeat.bpm)
        return;
    m_toldBPM = pBeat.bpm;
    Q_EMIT OnTempo(pBeat.time, pBeat.bpm);
}

void BeatRelay::TellPlaying(double pTime, bool pIsPlaying)
{
    Q_EMIT OnPlayingChanged(pTime, pIsPlaying);
}

void BeatRelay::_TellBeat(const BeatFollower::Beat& pBeat)
{
    Q_EMIT OnBeat({pBeat.index,
                   _TimeOf(pBeat.index),
                   pBeat.isVirtual,
                   pBeat.loudness,
                   pBeat.accuracy,
                   pBeat.bpm});
}

void BeatRelay::_TellMeterBeat(const MeterTracker::Beat& pBeat)
{
    LoggedBeat beat = {pBeat.index, _TimeOf(pBeat.index), false, 0, 0.0, pBeat.bpm};
    beat.beatInBar = pBeat.beatInBar;
    beat.confidence = pBeat.confidence;
    beat.barConfidence = pBeat.barConfidence;
    Q_EMIT OnBeat(beat);
}

double BeatRelay::_TimeOf(quint64 pIndex) const
{
    return m_start + static_cast<double>(pIndex) / m_sampleRate;
}

#include "moc_BeatRelay.cpp"
