// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/clock/LiveBeats.h>

#include <algorithm>
#include <array>
#include <cmath>

using shared::ClockThread;

namespace {

constexpr int kWatchMs = 500;
constexpr double kMicroSecondsPerSecond = 1e6;

}  // namespace

LiveBeats::LiveBeats(QObject* pParent) : QObject(pParent)
{
    connect(&m_watch, &QTimer::timeout, this, &LiveBeats::_Watch);
}

LiveBeats::~LiveBeats()
{
    m_thread.Stop();
}

void LiveBeats::Follow(LiveSource* pSource)
{
    if (m_pSource)
        m_pSource->disconnect(this);
    m_pSource = pSource;
    m_tracker.reset();
    m_follower.reset();
    m_end = 0;
    _SetPlaying(ClockThread::getTime(), false);
    if (!pSource) {
        m_watch.stop();
        return;
    }
    using S = LiveSource;
    connect(pSource, &S::OnAnalyzerCreated, this, &LiveBeats::_OnAnalyzerCreated);
    connect(pSource, &S::OnAnchored, this, &LiveBeats::_OnAnchored);
    connect(pSource, &S::OnSamples, this, &LiveBeats::_OnSamples);
    m_watch.start(kWatchMs);
}

void LiveBeats::setAutomatic(bool pIsAutomatic)
{
    if (pIsAutomatic == m_isAutomatic)
        return;
    m_isAutomatic = pIsAutomatic;
    if (m_tracker)
        _MakeTracker();
    _SetPlaying(ClockThread::getTime(), !m_isAutomatic && m_follower && m_follower->isPlaying());
}

bool LiveBeats::setTempoRange(double pMinimum, double pMaximum)
{
    using T = MeterTracker;
    if (!(pMinimum >= T::kSlowestBPM && pMinimum <= pMaximum && pMaximum <= T::kFastestBPM))
        return false;
    m_minimalBPM = pMinimum;
    m_maximalBPM = pMaximum;
    return !m_tracker || m_tracker->setTempoRange(pMinimum, pMaximum);
}

void LiveBeats::Reset()
{
    if (m_tracker)
        _MakeTracker();
    m_isPlaying = false;
    m_confidence = 0.0;
    m_clock.Restart(ClockThread::getTime());
}

void LiveBeats::Tap()
{
    const std::int64_t now = ClockThread::getTime();
    m_clock.Tap(now);
    if (!m_isAutomatic || !m_tracker || m_heard == 0)
        return;
    const double ahead = double(now - m_end) * m_sampleRate / kMicroSecondsPerSecond;
    const double index = double(m_heard) + ahead;
    m_tracker->Tap(quint64(std::max(0.0, index)));
}

double LiveBeats::getConfidence(const BeatClockState& pState) const
{
    if (!pState.isRunning())
        return 0.0;
    if (pState.charge != BeatClockCharge_Music)
        return 1.0;
    return m_isAutomatic ? m_confidence.load() : pState.getSureness(ClockThread::getTime());
}

// ---- The source ---------------------------------------------------------------------------------

void LiveBeats::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer)
{
    m_sampleRate = m_pSource->getSampleRate();
    m_follower = std::make_unique<BeatFollower>();
    m_follower->Follow(pAnalyzer);
    connect(m_follower.get(), &BeatFollower::OnBeatFound, this, &LiveBeats::_OnFollowed);
    connect(m_follower.get(),
            &BeatFollower::OnPlayingChanged,
            this,
            [this](quint64 pIndex, bool pIsPlaying) {
                if (!m_isAutomatic)
                    _SetPlaying(_TimeOf(pIndex, m_analyzed), pIsPlaying);
            });
    _MakeTracker();
}

void LiveBeats::_MakeTracker()
{
    m_tracker = std::make_unique<MeterTracker>(m_sampleRate);
    m_tracker->setTempoRange(m_minimalBPM, m_maximalBPM);
    m_heard = 0;
    m_confidence = 0.0;
    using T = MeterTracker;
    connect(m_tracker.get(), &T::OnBeatForeseen, this, &LiveBeats::_OnForeseen);
    connect(m_tracker.get(), &T::OnPlayingChanged, this, [this](quint64 pIndex, bool pIsPlaying) {
        _SetPlaying(_TimeOf(pIndex, m_heard), pIsPlaying);
        if (pIsPlaying)
            _Foretell();
    });
}

/// The clock need not miss the first beat, which is told when it is about to have sounded.
void LiveBeats::_Foretell()
{
    constexpr double kSureEnough = 0.5;
    const quint64 next = m_tracker->getNextBeat();
    if (next == 0 || m_tracker->getConfidence() < kSureEnough)
        return;
    m_clock.Hear({_TimeOf(next, m_heard), m_tracker->getBPM(), m_tracker->getConfidence()},
                 ClockThread::getTime());
}

void LiveBeats::_OnAnchored()
{
    m_analyzed = 0;
    m_follower->Restart();
}

void LiveBeats::_OnSamples(const qint16* pSamples, std::size_t pCount, quint64 pEnd)
{
    const std::int64_t now = ClockThread::getTime();
    const std::int64_t end = now + static_cast<std::int64_t>(pEnd - HighResolutionTimer::getTime());
    const auto length = std::llround(double(pCount) * kMicroSecondsPerSecond / m_sampleRate);
    if (m_end != 0)
        _PassGap(end - length);
    m_end = end;
    if (m_pSource->getAnalyzer()->isAnalyzing())
        m_analyzed += pCount;
    if (!m_isAutomatic)
        return;
    m_heard += pCount;
    m_tracker->Push(pSamples, pCount);
    m_confidence = m_tracker->getConfidence();
}

/// Nothing sounded from m_end to pStart, or nobody heard it.
void LiveBeats::_PassGap(std::int64_t pStart)
{
    const std::int64_t gap = pStart - m_end;
    if (gap <= -kLongGap || gap >= kLongGap) {
        _SetPlaying(pStart, false);
        return _MakeTracker();
    }
    if (gap < kLeastGap || !m_isAutomatic)
        return;
    const std::array<qint16, 1024> silence = {};
    auto missing = quint64(double(gap) * m_sampleRate / kMicroSecondsPerSecond);
    m_end = pStart;
    for (; missing > 0; missing -= std::min<quint64>(missing, silence.size())) {
        const auto count = std::size_t(std::min<quint64>(missing, silence.size()));
        m_heard += count;
        m_tracker->Push(silence.data(), count);
    }
}

/// Without samples nobody else notices that the music is over.
void LiveBeats::_Watch()
{
    const std::int64_t now = ClockThread::getTime();
    if (m_isPlaying && now - m_end >= kLongGap)
        _SetPlaying(now, false);
}

// ---- The beats ----------------------------------------------------------------------------------

void LiveBeats::_OnForeseen(const MeterTracker::Beat& pBeat)
{
    _Hear({_TimeOf(pBeat.index, m_heard),
           pBeat.bpm,
           pBeat.confidence,
           pBeat.beatInBar,
           pBeat.barConfidence,
           false});
}

void LiveBeats::_OnFollowed(const BeatFollower::Beat& pBeat)
{
    if (!m_isAutomatic)
        _Hear(
            {_TimeOf(pBeat.index, m_analyzed), pBeat.bpm, pBeat.accuracy, 0, 0.0, pBeat.isVirtual});
}

void LiveBeats::_Hear(const Heard& pBeat)
{
    // Sound that was gone is back.
    if (!pBeat.isVirtual)
        _SetPlaying(pBeat.time, true);
    m_clock.Hear({pBeat.time, pBeat.bpm, pBeat.confidence, pBeat.isVirtual, pBeat.beatInBar - 1},
                 ClockThread::getTime());
    Q_EMIT OnBeatHeard(pBeat);
}

void LiveBeats::_SetPlaying(std::int64_t pTime, bool pIsPlaying)
{
    if (pIsPlaying == m_isPlaying)
        return;
    m_isPlaying = pIsPlaying;
    if (m_pSource)
        m_pSource->setMusicHeard(pIsPlaying && m_isAutomatic);
    if (!pIsPlaying)
        m_confidence = 0.0;
    m_clock.setPlaying(pIsPlaying, ClockThread::getTime());
    Q_EMIT OnPlayingChanged(pTime, pIsPlaying);
}

/// When the sample of an index sounds, of pCount that are there with the present block.
std::int64_t LiveBeats::_TimeOf(quint64 pIndex, quint64 pCount) const
{
    const auto ahead = double(static_cast<qint64>(pIndex - pCount));
    return m_end + std::llround(ahead * kMicroSecondsPerSecond / m_sampleRate);
}

#include "moc_LiveBeats.cpp"
