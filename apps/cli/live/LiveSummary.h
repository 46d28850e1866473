// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <cli/live/detail/AnnounceErrors.h>
#include <cli/live/detail/TempoMedian.h>
#include <cli/live/detail/TickStatistics.h>
#include <shared/beats/BeatRelay.h>
#include <shared/clock/LiveBeats.h>
#include <shared/clock/StallQueue.h>

#include <QObject>

#include <atomic>
#include <cstdint>
#include <vector>

class LiveSource;

/// What is told of a live session of any length, and said of it at its end.
///
/// Times are seconds since the first sample, by the clock, also when the device was away meanwhile.
///
/// Threads: that of the event loop, but for what is marked.
class LiveSummary : public QObject, public shared::ClockListener
{
    Q_OBJECT

public:
    /// Follows a source, which is not owned and not opened yet, and its beats, which outlive this.
    /// With pMeasures the clock's beats are compared with those heard, and its ticks with their
    /// instants.
    LiveSummary(LiveSource& pSource, LiveBeats& pBeats, bool pMeasures);
    ~LiveSummary() override;

    const BeatRelay& getRelay() const { return m_relay; }
    /// The first sample was heard.
    bool hasBegun() const { return m_start != 0; }
    /// Seconds since the first sample; 0 before it.
    double getSeconds() const { return getSeconds(shared::ClockThread::getTime()); }
    /// The same of an instant of the clock, µs. [any thread]
    double getSeconds(std::int64_t pTime) const;
    quint64 getRealBeats() const { return m_realBeats; }
    quint64 getVirtualBeats() const { return m_virtualBeats; }
    /// Median of the tempos of real beats, automatic ones' as nine in a row make it, without those
    /// of the first ten seconds if there are others; BPM, 0 = unknown.
    double getTempo() const;
    /// Takes what was measured since; to be called a few times a second.
    void TakeTicks();
    cli::AnnounceStatistics getAnnounceStatistics() const { return m_errors.getStatistics(); }
    cli::TickStatistics getTickStatistics() const { return m_ticks; }

    void OnTick(const shared::ClockTick& pTick, const BeatClockState& pState) override;
    void OnRunningChanged(bool, const BeatClockState&) override {}

private:
    static constexpr std::size_t kMostTicks = 4096;  ///< a minute and more
    static constexpr std::int32_t kDivision = 24;    ///< ticks a beat, as MIDI has them

    /// A tick as it was told.
    struct ToldTick
    {
        std::int64_t time;      ///< µs, without the offset
        std::int64_t lateness;  ///< µs
        bool isBeat;
    };

    void _OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    void _OnAnchored();
    void _WatchTracker();
    void _RelayPlaying(double pTime, bool pIsPlaying);
    void _OnHeard(const LiveBeats::Heard& pBeat);
    void _RelayHeard(const LiveBeats::Heard& pBeat, double pTime);
    void _Count(const LoggedBeat& pBeat);
    double _TempoOf(const LoggedBeat& pBeat);

    LiveSource& m_source;  ///< not owned
    LiveBeats& m_beats;    ///< not owned
    bool m_measures;
    bool m_isTold;  ///< the automatic tracker has had the beat: beats come as they are heard
    BeatFollower m_follower;
    BeatRelay m_relay;
    bool m_isPlayingTold = false;
    std::atomic<std::int64_t> m_start{0};  ///< µs, of the first sample; 0 = none yet
    quint64 m_realBeats = 0;
    quint64 m_virtualBeats = 0;
    std::vector<RecordingTempo::Report> m_row;  ///< the last nine automatic beats
    cli::TempoMedian m_earlyTempo;
    cli::TempoMedian m_settledTempo;
    shared::StallQueue<ToldTick> m_told{kMostTicks};
    cli::TickStatistics m_ticks;
    cli::AnnounceErrors m_errors;
};
