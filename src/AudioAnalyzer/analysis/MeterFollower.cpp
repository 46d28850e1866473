// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterFollower.h>

#include <utility>

namespace {

/// Frames of the tracker; what it knows at the end of the first one counts from the beginning.
constexpr quint64 kFramesPerSecond = 100;

}  // namespace

MeterFollower::MeterFollower(QObject* pParent) : QObject(pParent) {}

// Direct connections: the tracker's signals are followed wherever Push() is called.
void MeterFollower::Follow(MeterTracker* pTracker)
{
    m_pTracker = pTracker;
    Restart();
    using T = MeterTracker;
    connect(
        pTracker,
        &T::OnBeatForeseen,
        this,
        [this](const T::Beat& pBeat) {
            _TellWaiting();
            m_waits = pBeat;
        },
        Qt::DirectConnection);
    connect(
        pTracker, &T::OnTempoChanged, this, [this] { m_isTempoNew = true; }, Qt::DirectConnection);
    connect(
        pTracker, &T::OnPlayingChanged, this, &MeterFollower::_SetPlaying, Qt::DirectConnection);
}

void MeterFollower::Restart()
{
    m_waits.reset();
    m_isTempoNew = m_isPlayingKnown = false;
}

void MeterFollower::Push(const qint16* pSamples, std::size_t pCount)
{
    m_pTracker->Push(pSamples, pCount);
    if (!m_isPlayingKnown && m_pTracker->getSampleCount() >= _GetSecondFrameEnd())
        _SetPlaying(0, false);
    _TellWaiting();
}

quint64 MeterFollower::_GetSecondFrameEnd() const
{
    return 2 * static_cast<quint64>(m_pTracker->getSampleRate()) / kFramesPerSecond;
}

void MeterFollower::_SetPlaying(quint64 pIndex, bool pIsPlaying)
{
    _TellWaiting();
    const bool isFirst = !std::exchange(m_isPlayingKnown, true);
    const bool isFromBeginning = isFirst && pIndex < _GetSecondFrameEnd();
    if (isFirst && !isFromBeginning)
        Q_EMIT OnPlayingChanged(0, !pIsPlaying);
    Q_EMIT OnPlayingChanged(isFromBeginning ? 0 : pIndex, pIsPlaying);
}

void MeterFollower::_TellWaiting()
{
    if (!m_waits || m_waits->index >= m_pTracker->getSampleCount())
        return;
    const MeterTracker::Beat beat = *std::exchange(m_waits, std::nullopt);
    const bool isTempoNew = std::exchange(m_isTempoNew, false);
    Q_EMIT OnBeatFound(beat);
    if (isTempoNew)
        Q_EMIT OnTempoFound(beat.index, beat.bpm);
}

#include "moc_MeterFollower.cpp"
