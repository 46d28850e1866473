// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <algorithm>
#include <common/BeatLog.h>

BeatLog::BeatLog(QObject* pParent) : QObject(pParent) {}

void BeatLog::Follow(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    m_pAnalyzer = pAnalyzer;
    m_result.sampleRate = pSampleRate;
    connect(pAnalyzer, &AudioAnalyzer::OnAmplitudesComputed, this, &BeatLog::_OnSpectrum);
    connect(pAnalyzer, &AudioAnalyzer::OnPulseDetected, this, &BeatLog::_OnPulse);
    connect(pAnalyzer, &AudioAnalyzer::OnBPMChanged, this, &BeatLog::_OnTempo);
    connect(pAnalyzer,
            &AudioAnalyzer::OnAudioSamplesAnalyzed,
            this,
            [this](unsigned int, qint16*, unsigned int pCount) { _OnBlockEnd(pCount); });
}

void BeatLog::Restart(double pTime)
{
    m_start = pTime;
    m_blockIndex = 0;
    m_windowPulses.clear();
    m_virtualBeat.reset();
}

void BeatLog::setEnd(quint64 pSampleCount)
{
    m_end = pSampleCount;
}

void BeatLog::Finish()
{
    m_result.sampleCount = std::min(m_end, m_blockIndex);
    if (!m_isPlaying && m_silenceStart < m_result.duration())
        m_result.silences.push_back({m_silenceStart, m_result.duration()});
}

// A spectrum is computed for a block only while music plays, and before anything else.
void BeatLog::_OnSpectrum()
{
    m_isBlockHeard = true;
    _SetPlaying(true);
}

void BeatLog::_OnPulse(const Pulse& pPulse)
{
    if (pPulse.getType() == eVirtualBeat) {
        m_virtualBeat = _MakeBeat(pPulse, 0.0);
        return;
    }
    _LogPulse(pPulse);
    if (pPulse.getType() == eBeat)
        _LogBeat(_MakeBeat(pPulse, m_lastBPM));
    else
        m_windowPulses.push_back(pPulse);
}

void BeatLog::_OnTempo(double pBPM)
{
    m_lastBPM = pBPM;
    const auto chosen = std::find_if(m_windowPulses.begin(),
                                     m_windowPulses.end(),
                                     [](const Pulse& pPulse) { return pPulse.getType() == eBeat; });
    if (chosen != m_windowPulses.end())
        _LogBeat(_MakeBeat(*chosen, pBPM));
    if (m_virtualBeat) {
        m_virtualBeat->bpm = pBPM;
        _LogBeat(*m_virtualBeat);
    }
    m_windowPulses.clear();
    m_virtualBeat.reset();
    if (m_blockIndex >= m_end)
        return;
    m_result.tempos.push_back({_TimeOf(m_blockIndex), pBPM});
    Q_EMIT OnTempoLogged(_TimeOf(m_blockIndex), pBPM);
}

void BeatLog::_OnBlockEnd(unsigned int pCount)
{
    if (!m_isBlockHeard)
        _SetPlaying(false);
    m_isBlockHeard = false;
    m_blockIndex += pCount;
}

LoggedBeat BeatLog::_MakeBeat(const Pulse& pPulse, double pBPM) const
{
    return {pPulse.getStartIndex(),
            _TimeOf(pPulse.getStartIndex()),
            pPulse.getType() == eVirtualBeat,
            pPulse.getMaximalValue(),
            m_pAnalyzer->getAccuracy(),
            pBPM};
}

void BeatLog::_LogPulse(const Pulse& pPulse)
{
    if (pPulse.getStartIndex() >= m_end)
        return;
    const double time = _TimeOf(pPulse.getStartIndex());
    m_result.pulseTimes.push_back(time);
    Q_EMIT OnPulseLogged(time, pPulse);
}

void BeatLog::_LogBeat(const LoggedBeat& pBeat)
{
    if (pBeat.index >= m_end)
        return;
    m_result.beats.push_back(pBeat);
    Q_EMIT OnBeatLogged(pBeat);
}

void BeatLog::_SetPlaying(bool pIsPlaying)
{
    if ((m_isPlayingKnown && pIsPlaying == m_isPlaying) || m_blockIndex >= m_end)
        return;
    const double now = _TimeOf(m_blockIndex);
    if (pIsPlaying && now > m_silenceStart)
        m_result.silences.push_back({m_silenceStart, now});
    if (!pIsPlaying)
        m_silenceStart = now;
    m_isPlayingKnown = true;
    m_isPlaying = pIsPlaying;
    Q_EMIT OnPlayingChanged(now, pIsPlaying);
}

double BeatLog::_TimeOf(quint64 pIndex) const
{
    return m_start + static_cast<double>(pIndex) / m_result.sampleRate;
}

#include "moc_BeatLog.cpp"
