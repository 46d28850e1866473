// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/detail/BeatWindow.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <algorithm>

namespace {

/// More pulse blocks than a window of the built-in profiles has, so that it does not allocate.
constexpr std::size_t kUsualBlocksOfWindow = 64;

}  // namespace

BeatFollower::BeatFollower(QObject* pParent) : QObject(pParent) {}

// Direct connections: the analyzer's signals are followed wherever Analyze() is called.
void BeatFollower::Follow(AudioAnalyzer* pAnalyzer)
{
    m_pAnalyzer = pAnalyzer;
    m_windowPulses.reserve(kUsualBlocksOfWindow);
    connect(
        pAnalyzer,
        &AudioAnalyzer::OnAmplitudesComputed,
        this,
        [this] { _OnSpectrum(); },
        Qt::DirectConnection);
    connect(pAnalyzer,
            &AudioAnalyzer::OnPulseDetected,
            this,
            &BeatFollower::_OnPulse,
            Qt::DirectConnection);
    connect(pAnalyzer,
            &AudioAnalyzer::OnBPMChanged,
            this,
            &BeatFollower::_OnTempo,
            Qt::DirectConnection);
    connect(
        pAnalyzer,
        &AudioAnalyzer::OnAudioSamplesAnalyzed,
        this,
        [this](unsigned int, qint16*, unsigned int pCount) { _OnBlockEnd(pCount); },
        Qt::DirectConnection);
}

void BeatFollower::Restart()
{
    m_blockIndex = 0;
    m_windowPulses.clear();
    m_virtualBeat.reset();
}

void BeatFollower::setEnd(quint64 pSampleCount)
{
    m_end = pSampleCount;
}

quint64 BeatFollower::getSampleCount() const
{
    return std::min(m_end, m_blockIndex);
}

// The longest beat, to the end of its window, and the block that finds the window passed.
quint64 BeatFollower::getSettlingSampleCount(int pSampleRate) const
{
    constexpr quint64 kBlocksBehindBeat = 2 * detail::kWindowBlocksAfter;
    const double slowest =
        60.0 / m_pAnalyzer->getConfiguration()->getSelectedProfile().getMinimalBPM();
    return static_cast<quint64>(slowest * pSampleRate) +
           kBlocksBehindBeat * m_pAnalyzer->getPulseBlockSize();
}

// A spectrum is computed for a block only while music plays, and before anything else.
void BeatFollower::_OnSpectrum()
{
    m_isBlockHeard = true;
    _SetPlaying(true);
}

void BeatFollower::_OnPulse(const Pulse& pPulse)
{
    if (pPulse.getType() == eVirtualBeat) {
        m_virtualBeat = _MakeBeat(pPulse, 0.0);
        return;
    }
    if (pPulse.getStartIndex() < m_end)
        Q_EMIT OnPulseFound(pPulse);
    if (pPulse.getType() == eBeat)
        _TellBeat(_MakeBeat(pPulse, m_lastBPM));
    else
        m_windowPulses.push_back(pPulse);
}

void BeatFollower::_OnTempo(double pBPM)
{
    m_lastBPM = pBPM;
    const auto chosen = std::find_if(m_windowPulses.begin(),
                                     m_windowPulses.end(),
                                     [](const Pulse& pPulse) { return pPulse.getType() == eBeat; });
    if (chosen != m_windowPulses.end())
        _TellBeat(_MakeBeat(*chosen, pBPM));
    if (m_virtualBeat) {
        m_virtualBeat->bpm = pBPM;
        _TellBeat(*m_virtualBeat);
    }
    m_windowPulses.clear();
    m_virtualBeat.reset();
    if (m_blockIndex < m_end)
        Q_EMIT OnTempoFound(m_blockIndex, pBPM);
}

void BeatFollower::_OnBlockEnd(unsigned int pCount)
{
    if (!m_isBlockHeard)
        _SetPlaying(false);
    m_isBlockHeard = false;
    m_blockIndex += pCount;
}

BeatFollower::Beat BeatFollower::_MakeBeat(const Pulse& pPulse, double pBPM) const
{
    return {pPulse.getStartIndex(),
            pPulse.getType() == eVirtualBeat,
            pPulse.getMaximalValue(),
            m_pAnalyzer->getAccuracy(),
            pBPM};
}

// By value: a receiver may restart the follower.
void BeatFollower::_TellBeat(Beat pBeat)
{
    if (pBeat.index < m_end)
        Q_EMIT OnBeatFound(pBeat);
}

void BeatFollower::_SetPlaying(bool pIsPlaying)
{
    if ((m_isPlayingKnown && pIsPlaying == m_isPlaying) || m_blockIndex >= m_end)
        return;
    m_isPlayingKnown = true;
    m_isPlaying = pIsPlaying;
    Q_EMIT OnPlayingChanged(m_blockIndex, pIsPlaying);
}

#include "moc_BeatFollower.cpp"
