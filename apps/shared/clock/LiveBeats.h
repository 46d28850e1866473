// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <shared/capture/LiveSource.h>
#include <shared/clock/ClockThread.h>

#include <QObject>
#include <QTimer>

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>

/// The beats of what sounds now: a tracker hears the samples of a source, and a beat clock is told
/// when each beat sounded. What a host shows and sends comes from the clock.
///
/// The tracker is the automatic one, which is given the samples beside the engine, or the engine
/// with its profile. A beat's instant is that at which its sample sounds, as the source tells it,
/// on the clock of ClockThread::getTime(): neither the sound server's delay nor that of this
/// program counts. What is missing between two blocks passes as silence, so that the beat goes on
/// behind a short gap; behind a long one the tracker begins anew, and the clock has stopped.
///
/// Threads: one event-loop thread, but for what is marked.
class LiveBeats : public QObject
{
    Q_OBJECT

public:
    static constexpr std::int64_t kLeastGap = 200000;  ///< µs; less is jitter of the source
    static constexpr std::int64_t kLongGap = 2000000;  ///< µs without sound that end the music

    /// A beat as it was heard, before the clock.
    struct Heard
    {
        std::int64_t time;     ///< µs; when it sounded or sounds
        double bpm;            ///< 0 = unknown
        double confidence;     ///< that it lies within 70 ms of the music's; the engine's accuracy
        int beatInBar;         ///< 1 to 4; 0 = unknown
        double barConfidence;  ///< 0 = unknown
        bool isVirtual;        ///< the engine put it where one was expected
    };

    explicit LiveBeats(QObject* pParent = nullptr);
    ~LiveBeats() override;

    /// Hears a source, which is not owned and not opened yet, until it is gone or another one is
    /// followed; null = none.
    void Follow(LiveSource* pSource);
    /// By default it is.
    void setAutomatic(bool pIsAutomatic);
    bool isAutomatic() const { return m_isAutomatic; }
    /// Of the automatic tracker, BPM. False outside of what it can follow; then nothing changes.
    bool setTempoRange(double pMinimum, double pMaximum);
    /// Forgets music and hand.
    void Reset();

    /// A tap of now, for the clock, and evidence for the automatic tracker.
    void Tap();

    BeatClock& getClock() { return m_clock; }
    const BeatClock& getClock() const { return m_clock; }
    /// Not started. Listeners come and go here.
    shared::ClockThread& getThread() { return m_thread; }
    /// Whether the music plays, as the tracker hears it.
    bool isPlaying() const { return m_isPlaying; }
    /// The automatic one, which hears every source; null without one. [valid until control returns
    /// to the event loop]
    const MeterTracker* getTracker() const { return m_tracker.get(); }
    /// When the newest sample sounds or sounded, µs; 0 before the first.
    std::int64_t getSoundTime() const { return m_end; }
    /// The probability that the next beat is right, 0 to 1: the automatic tracker's, else how well
    /// beats were foretold; 1 while the hand is in charge, 0 while the clock stands. [any thread]
    /// [no allocation]
    double getConfidence(const BeatClockState& pState) const;

Q_SIGNALS:
    /// In order of time. [valid during the emission]
    void OnBeatHeard(const LiveBeats::Heard& pBeat);
    /// The music plays from pTime, µs, on, or no longer.
    void OnPlayingChanged(qint64 pTime, bool pIsPlaying);

private:
    void _OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    void _OnAnchored();
    void _OnSamples(const qint16* pSamples, std::size_t pCount, quint64 pEnd);
    void _PassGap(std::int64_t pStart);
    void _MakeTracker();
    void _Foretell();
    void _OnForeseen(const MeterTracker::Beat& pBeat);
    void _OnFollowed(const BeatFollower::Beat& pBeat);
    void _Hear(const Heard& pBeat);
    void _SetPlaying(std::int64_t pTime, bool pIsPlaying);
    void _Watch();
    std::int64_t _TimeOf(quint64 pIndex, quint64 pCount) const;

    LiveSource* m_pSource = nullptr;  ///< not owned
    BeatClock m_clock;
    shared::ClockThread m_thread{m_clock};
    bool m_isAutomatic = true;
    double m_minimalBPM = MeterTracker::kSlowestBPM;
    double m_maximalBPM = MeterTracker::kFastestBPM;
    std::unique_ptr<MeterTracker> m_tracker;   ///< null before the sample rate is known
    std::unique_ptr<BeatFollower> m_follower;  ///< likewise
    int m_sampleRate = 0;                      ///< Hz
    quint64 m_heard = 0;                       ///< samples given to the tracker
    quint64 m_analyzed = 0;                    ///< samples of the analyzer since its anchor
    std::int64_t m_end = 0;                    ///< µs; when the sample behind the last one sounds
    bool m_isPlaying = false;
    std::atomic<double> m_confidence{0.0};
    QTimer m_watch;
};
