// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/MeterFollower.h>
#include <AudioAnalyzer/analysis/Pulse.h>

#include <shared/beats/AnalysisResult.h>

#include <QObject>

/// Tells in seconds what followers tell in samples: beats in order of time, each once, tempos,
/// pulses, silences. It keeps nothing of them; a BeatLog does.
///
/// Threads: the analyzer's thread only.
class BeatRelay : public QObject
{
    Q_OBJECT

public:
    /// Whose beats are relayed.
    enum eSource
    {
        eFollower,  ///< the follower's
        eTold       ///< those of Tell(): what is heard live has instants already
    };

    /// pFollower is not owned, outlives the relay and has told nothing yet. The pulses are its own
    /// in any case.
    explicit BeatRelay(const BeatFollower& pFollower, eSource pSource = eFollower);
    /// Beats, tempos and whether it plays are pMeter's, the pulses pFollower's. The same holds for
    /// both.
    BeatRelay(const BeatFollower& pFollower, const MeterFollower& pMeter);

    /// From now on position 0 lies at pTime seconds and positions count pSampleRate Hz. To be
    /// called before the first sample, and whenever the follower is restarted.
    void Restart(int pSampleRate, double pTime = 0.0);

    int getSampleRate() const { return m_sampleRate; }  ///< Hz; 0 before Restart()

    /// From now on beats, tempos and whether it plays are those of Tell() and TellPlaying() alone.
    void LeaveFollower();
    /// A beat in its time, and the tempo if it is another by a thousandth or more.
    void Tell(const LoggedBeat& pBeat);
    /// From pTime seconds on.
    void TellPlaying(double pTime, bool pIsPlaying);

Q_SIGNALS:
    /// In order of time, each once; pBeat is valid during the emission.
    void OnBeat(const LoggedBeat& pBeat);
    /// For each pulse, when it is heard. pTime: its start in seconds.
    void OnPulse(double pTime, const Pulse& pPulse);
    /// The tempo in force from pTime seconds on, 0 = unknown: for each beat window that was closed,
    /// or at each beat that changes it.
    void OnTempo(double pTime, double pBPM);
    /// The music counts as playing, or as stopped, from pTime seconds on; emitted at the first
    /// block and at each change.
    void OnPlayingChanged(double pTime, bool pIsPlaying);

private:
    template <typename Follower>
    void _Follow(const Follower& pFollower);
    void _FollowPulses(const BeatFollower& pFollower);
    void _TellBeat(const BeatFollower::Beat& pBeat);
    void _TellMeterBeat(const MeterTracker::Beat& pBeat);
    double _TimeOf(quint64 pIndex) const;

    const BeatFollower& m_follower;  ///< not owned
    int m_sampleRate = 0;            ///< Hz
    double m_toldBPM = 0.0;          ///< of the last tempo that Tell() brought
    double m_start = 0.0;            ///< time of position 0, seconds
};
