// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <link/HeardLine.h>

/// A Link session as it is at the instant of a beat.
struct LinkView
{
    std::size_t peers = 0;  ///< others in it
    double bpm = 0.0;
    double phase = 0.0;  ///< beats, from 0 to below the quantum
};

/// What to commit to the session.
struct LinkChange
{
    enum ePhase
    {
        eKeep,
        eRequest,  ///< the session is ours alone: nobody hears the jump
        eForce     ///< for all peers
    };

    double bpm = 0.0;  ///< the tempo to set; 0: as it is
    ePhase phase = eKeep;
    double beat = 0.0;  ///< which one falls at the instant of the beat, unless eKeep

    bool isNone() const { return bpm == 0.0 && phase == eKeep; }
};

/// Whether a session cannot tell two tempos apart, in BPM: it keeps them in whole µs a beat.
bool isSameTempo(double pLeft, double pRight);

/// Decides from the beats of the music what a Link session shall be told, and when.
///
/// The session keeps its tempo until beats have been sure for some time in a row, again after
/// somebody else has set it. Only real changes of tempo are told. Where others are in the session
/// its phase is nudged: a slightly different tempo, held until the beats agree.
class LinkSteering
{
public:
    struct Options
    {
        int quantum = 4;          ///< beats that peers agree on, from 1
        double confidence = 0.5;  ///< from which a beat is sure, 0 to 1
        int beats = 8;            ///< so many sure ones in a row
        bool isForced = false;    ///< a beat that is off is moved at once, for all peers
    };

    explicit LinkSteering(const Options& pOptions);

    /// pSession: at the instant of pBeat. What it answers is taken to be committed. [allocates]
    LinkChange Hear(const HeardBeat& pBeat, const LinkView& pSession);
    /// Ends a nudge when no beat has come for a while; to be called now and then. pNow: seconds of
    /// the system's monotonic clock.
    LinkChange Wait(double pNow, const LinkView& pSession);
    /// Ends a nudge that is under way.
    LinkChange Finish(const LinkView& pSession);

    bool isSure() const { return m_streak >= m_options.beats; }
    bool isNudging() const { return m_bend != 0.0; }
    /// By how many beats the session was ahead of the last sure beat; whole beats are the bar's.
    double getError() const { return m_error; }
    const Options& getOptions() const { return m_options; }

private:
    void _Count(const HeardBeat& pBeat);
    void _Notice(const LinkView& pSession);
    void _FollowTempo(double pSessionBPM);
    void _FollowPhase(const LinkView& pSession, LinkChange& pChange);
    void _Nudge();
    double _getMedian() const;
    LinkChange _SetTempo(double pSessionBPM);

    const Options m_options;
    HeardBeat m_last;
    int m_streak = 0;             ///< sure beats in a row
    std::deque<double> m_tempos;  ///< BPM of the last of them
    double m_expected = 0.0;  ///< BPM the session has unless somebody else sets it; 0: not seen yet
    double m_tempo = 0.0;     ///< BPM of the music as told; 0: not told yet
    double m_bend = 0.0;      ///< share by which a nudge is faster
    double m_error = 0.0;     ///< beats, see getError()
};
