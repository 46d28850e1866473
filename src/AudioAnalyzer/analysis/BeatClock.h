// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/BeatClockState.h>
#include <AudioAnalyzer/analysis/Published.h>
#include <AudioAnalyzer/analysis/TapTempo.h>

#include <cstdint>

/// A clock of beats that music or a hand sets, and that goes on by itself.
///
/// It is told the beats that a tracker finds, heard or foretold, and answers at any instant which
/// beat it is, how much of it has passed, and when the next beats and ticks are due. Within limits
/// it believes the music: a line of least squares through the last beats is its target, and the
/// clock runs a little faster or slower until it is there. A beat that does not fit is doubted; two
/// that fit each other but not the clock are a new song, and the clock jumps to it. Without beats
/// it goes on at its tempo, until the music is said to have stopped.
///
///     BeatClock clock;
///     connect(&follower, &BeatFollower::OnBeatFound, [&](const BeatFollower::Beat& pBeat) {
///         clock.Hear({timeOf(pBeat.index), pBeat.bpm, pBeat.accuracy, pBeat.isVirtual}, now());
///     });
///     connect(&follower, &BeatFollower::OnPlayingChanged,
///             [&](quint64, bool pIsPlaying) { clock.setPlaying(pIsPlaying, now()); });
///     const std::int64_t next = clock.getState().getTickTime(beat + 1);
///
/// 1. Beats are numbered. Between two jumps the position never goes back and never leaps.
/// 2. A jump is at most half a beat, so that no beat is left out; see BeatCursor.
/// 3. Tempos that are heard or set are 10 to 999 BPM; what lies outside is not heard.
///
/// Instants are microseconds on a clock of the host that is never set back, at most 2^52 from 0.
/// Every pNow is the present on that clock; one before an earlier one counts as that. A function
/// that can refuse answers false, and then nothing has changed.
///
/// Threads: one at a time sets it; getState() may be called from any thread at the same time.
class AUDIOANALYZER_EXPORT BeatClock
{
public:
    /// A beat as a tracker tells it.
    struct Beat
    {
        std::int64_t time;       ///< µs; when it sounds or sounded, at most 5 s from the present
        double bpm = 0.0;        ///< the tracker's tempo; 0 = unknown
        double trust = 1.0;      ///< how sure the tracker is, 0 to 1
        bool isVirtual = false;  ///< it was not heard: the clock goes on without it
        int beatInBar = -1;      ///< 0 = the one; -1 = unknown
    };

    BeatClock();
    BeatClock(const BeatClock&) = delete;
    BeatClock& operator=(const BeatClock&) = delete;

    /// What is known now, and what follows from it. Never waits. [any thread] [no allocation]
    BeatClockState getState() const { return m_published.Get(); }

    // ---- The music: BeatClockMusic.cpp
    // -----------------------------------------------------------

    /// A beat of the music, in order of time. [no allocation]
    void Hear(const Beat& pBeat, std::int64_t pNow);
    /// The music plays, which a clock believes from the beginning, or has stopped. [no allocation]
    void setPlaying(bool pIsPlaying, std::int64_t pNow);
    /// Whether the clock goes on while the music has stopped; by default it stops. [no allocation]
    void setGoingOn(bool pIsGoingOn, std::int64_t pNow);
    bool isGoingOn() const { return m_isGoingOn; }

    // ---- The hand: BeatClockHand.cpp
    // -------------------------------------------------------------

    /// From the second tap on, taps set tempo and phase, and put the hand in charge until eight
    /// beats after the last one. False when the tap was the first one, or a bounce. [allocates]
    bool Tap(std::int64_t pNow);
    /// Moves the beats by some µs, positive is later, until the next new song; by half a second in
    /// all while the music is in charge. [no allocation]
    void Nudge(std::int64_t pMicroSeconds, std::int64_t pNow);
    /// A nudge that is held: the clock runs faster by a share, -0.5 to 0.5, of its tempo, until it
    /// is told 0. False outside. [no allocation]
    bool Bend(double pShare, std::int64_t pNow);
    /// The beat nearest to the present is the first one of a bar. [no allocation]
    void MarkOne(std::int64_t pNow);
    /// Multiplies the tempo, by 1/2, 2, 3/2, 2/3 or any other factor of terms from 1 to 64; what is
    /// the one stays the one. While the music is in charge the clock goes on following it at that
    /// factor. False when the tempo would leave its limits, or there is none. [no allocation]
    bool Scale(int pNumerator, int pDenominator, std::int64_t pNow);
    /// Rounds the tempo to whole BPM; music in charge corrects it from there. False when there is
    /// no tempo. [no allocation]
    bool Round(std::int64_t pNow);
    /// Keeps tempo and phase, whatever the music does. False when there is no tempo. [no
    /// allocation]
    bool Hold(std::int64_t pNow);
    /// Holds a tempo, in BPM, 10 to 999; the clock begins if it does not run. False outside. [no
    /// allocation]
    bool HoldAt(double pBPM, std::int64_t pNow);
    /// Gives the clock back to the music, from taps, too. It follows the beats that are heard from
    /// now on, at the simple factor that fits the tempo it has. [no allocation]
    void Release(std::int64_t pNow);

    // ---- Settings: BeatClock.cpp
    // -----------------------------------------------------------------

    /// 2 to 12, 4 by default; what is the one stays it. False outside. [no allocation]
    bool setBeatsPerBar(int pCount);
    int getBeatsPerBar() const { return m_state.beatsPerBar; }
    /// By which share of the tempo the clock may run fast or slow to catch up, 0.001 to 0.5; 0.05,
    /// the default, makes good 50 ms a second. The first beats of a new song, which move the line
    /// most, may use half of the tempo. False outside. [no allocation]
    bool setSlew(double pShare);
    double getSlew() const { return m_slew; }
    /// Added to all instants, for outputs that are late: -500000 to 500000 µs, positive is later.
    /// False outside. [no allocation]
    bool setOffset(std::int64_t pMicroSeconds);
    std::int64_t getOffset() const { return m_state.offset; }  ///< µs

    /// Forgets music and hand, and stands still; settings stay. [no allocation]
    void Restart(std::int64_t pNow);

private:
    // BeatClock.cpp
    std::int64_t _Settle(std::int64_t pNow);
    BeatLine _Target() const;
    double _Factor() const;
    void _Shift(double pMicroSeconds);
    void _Steer(std::int64_t pNow);
    std::int64_t _Jump(std::int64_t pNow);
    void _Begin(std::int64_t pNow);
    void _Approach(std::int64_t pNow);
    void _Stop(std::int64_t pNow);
    void _Post();

    // BeatClockMusic.cpp
    bool _IsUsable(const Beat& pBeat, std::int64_t pNow) const;
    void _TakeBack(const Beat& pBeat);
    void _FindTempo(const Beat& pBeat, std::int64_t pNow);
    void _Follow(const Beat& pBeat, std::int64_t pNow);
    void _CountTempoDoubts(const Beat& pBeat, double pClaimed);
    bool _IsDoubtShared(const Beat& pBeat, double pClaimed) const;
    void _Correct(const Beat& pBeat, double pIndex, std::int64_t pNow);
    void _Lock(const Beat& pBeat, double pPeriod, std::int64_t pNow);
    void _HearOne(const Beat& pBeat);
    void _ForgetDoubts();

    // BeatClockHand.cpp
    void _TakeInHand(BeatClockCharge pCharge);
    void _LetGo(std::int64_t pNow);

    // The line through the beats of the music; while the hand is in charge, the clock's own.
    BeatLine m_music{0, 0.0, 0.0};
    double m_lastIndex = 0.0;  ///< position of the last beat that was followed
    int m_count = 0;           ///< beats that the line is fitted to
    bool m_isLocked = false;   ///< the line is one
    // The clock's position is m_base + factor * that of the music, m_nudge later.
    double m_base = 0.0;             ///< beats
    std::int32_t m_numerator = 1;    ///< of the factor
    std::int32_t m_denominator = 1;  ///< of the factor
    double m_nudge = 0.0;            ///< µs

    // What was heard.
    std::int64_t m_heardTime;      ///< µs; the last beat, followed or not
    std::int64_t m_doubtTime = 0;  ///< µs; the last beat that did not fit
    bool m_isDoubting = false;     ///< there is one
    int m_tempoDoubts = 0;         ///< beats in a row that told another tempo
    bool m_isPlaying = true;
    bool m_isFresh = false;      ///< the music has stopped since: the next beat is believed
    int m_newBeats = 0;          ///< beats to come that are among the first of a song
    bool m_isReturning = false;  ///< the next beat takes the clock back from the hand

    // The hand.
    TapTempo m_taps;
    std::int64_t m_handEnd = 0;  ///< µs; from then on a beat takes the clock back
    double m_bend = 0.0;         ///< share of the tempo
    bool m_isOneMarked = false;  ///< the bar is the hand's, not the tracker's

    // The clock.
    std::int64_t m_present;  ///< µs; the last pNow
    double m_slew = 0.05;    ///< share of the tempo
    bool m_isGoingOn = false;
    BeatClockState m_state;
    Published<BeatClockState> m_published;
};
