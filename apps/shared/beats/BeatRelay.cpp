// SPDX-License-Identifier: MIT
#include <shared/beats/BeatRelay.h>

BeatRelay::BeatRelay(const BeatFollower& pFollower)
{
    using F = BeatFollower;
    connect(&pFollower, &F::OnBeatFound, this, &BeatRelay::_TellBeat);
    connect(
        &pFollower,
        &F::OnPulseFound,
        this,
        [this](const Pulse& pPulse) { Q_EMIT OnPulse(_TimeOf(pPulse.getStartIndex()), pPulse); });
    connect(
        &pFollower,
        &F::OnTempoFound,
        this,
        [this](quint64 pIndex, double pBPM) { Q_EMIT OnTempo(_TimeOf(pIndex), pBPM); });
    connect(&pFollower, &F::OnPlayingChanged, this, [this](quint64 pIndex, bool pIsPlaying) {
        Q_EMIT OnPlayingChanged(_TimeOf(pIndex), pIsPlaying);
    });
}

void BeatRelay::Restart(int pSampleRate, double pTime)
{
    m_sampleRate = pSampleRate;
    m_start = pTime;
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

double BeatRelay::_TimeOf(quint64 pIndex) const
{
    return m_start + static_cast<double>(pIndex) / m_sampleRate;
}

#include "moc_BeatRelay.cpp"
