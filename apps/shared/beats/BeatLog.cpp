// SPDX-License-Identifier: MIT
#include <shared/beats/BeatLog.h>

BeatLog::BeatLog(BeatRelay& pRelay) : m_relay(pRelay)
{
    using R = BeatRelay;
    connect(
        &pRelay,
        &R::OnBeat,
        this,
        [this](const LoggedBeat& pBeat) { m_result.beats.push_back(pBeat); });
    connect(
        &pRelay, &R::OnPulse, this, [this](double pTime) { m_result.pulseTimes.push_back(pTime); });
    connect(&pRelay, &R::OnTempo, this, [this](double pTime, double pBPM) {
        m_result.tempos.push_back({pTime, pBPM});
    });
    connect(&pRelay, &R::OnPlayingChanged, this, &BeatLog::_LogPlaying);
}

void BeatLog::Finish(quint64 pSampleCount)
{
    m_result.sampleRate = m_relay.getSampleRate();
    m_result.sampleCount = pSampleCount;
    if (!m_isPlaying && m_silenceStart < m_result.duration())
        m_result.silences.push_back({m_silenceStart, m_result.duration()});
}

void BeatLog::_LogPlaying(double pTime, bool pIsPlaying)
{
    m_isPlaying = pIsPlaying;
    if (pIsPlaying && pTime > m_silenceStart)
        m_result.silences.push_back({m_silenceStart, pTime});
    if (!pIsPlaying)
        m_silenceStart = pTime;
}

#include "moc_BeatLog.cpp"
