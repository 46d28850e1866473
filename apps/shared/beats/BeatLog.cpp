// SPDX-License-Identifier: MIT
#include <shared/beats/BeatLog.h>

BeatLog::BeatLog(QObject* pParent) : QObject(pParent)
{
    connect(&m_follower, &BeatFollower::OnBeatFound, this, &BeatLog::_LogBeat);
    connect(&m_follower, &BeatFollower::OnPulseFound, this, &BeatLog::_LogPulse);
    connect(&m_follower, &BeatFollower::OnTempoFound, this, &BeatLog::_LogTempo);
    connect(&m_follower, &BeatFollower::OnPlayingChanged, this, &BeatLog::_LogPlaying);
}

void BeatLog::Follow(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    m_result.sampleRate = pSampleRate;
    m_follower.Follow(pAnalyzer);
}

void BeatLog::Restart(double pTime)
{
    m_start = pTime;
    m_follower.Restart();
}

void BeatLog::setEnd(quint64 pSampleCount)
{
    m_follower.setEnd(pSampleCount);
}

void BeatLog::Finish()
{
    m_result.sampleCount = m_follower.getSampleCount();
    if (!isPlaying() && m_silenceStart < m_result.duration())
        m_result.silences.push_back({m_silenceStart, m_result.duration()});
}

void BeatLog::_LogBeat(const BeatFollower::Beat& pBeat)
{
    const LoggedBeat beat{pBeat.index,
                          _TimeOf(pBeat.index),
                          pBeat.isVirtual,
                          pBeat.loudness,
                          pBeat.accuracy,
                          pBeat.bpm};
    m_result.beats.push_back(beat);
    Q_EMIT OnBeatLogged(beat);
}

void BeatLog::_LogPulse(const Pulse& pPulse)
{
    const double time = _TimeOf(pPulse.getStartIndex());
    m_result.pulseTimes.push_back(time);
    Q_EMIT OnPulseLogged(time, pPulse);
}

void BeatLog::_LogTempo(quint64 pIndex, double pBPM)
{
    m_result.tempos.push_back({_TimeOf(pIndex), pBPM});
    Q_EMIT OnTempoLogged(_TimeOf(pIndex), pBPM);
}

void BeatLog::_LogPlaying(quint64 pIndex, bool pIsPlaying)
{
    const double now = _TimeOf(pIndex);
    if (pIsPlaying && now > m_silenceStart)
        m_result.silences.push_back({m_silenceStart, now});
    if (!pIsPlaying)
        m_silenceStart = now;
    Q_EMIT OnPlayingChanged(now, pIsPlaying);
}

double BeatLog::_TimeOf(quint64 pIndex) const
{
    return m_start + static_cast<double>(pIndex) / m_result.sampleRate;
}

#include "moc_BeatLog.cpp"
