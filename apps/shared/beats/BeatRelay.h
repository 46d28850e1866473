// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/Pulse.h>

#include <shared/beats/AnalysisResult.h>

#include <QObject>

/// Tells in seconds what a BeatFollower tells in samples: beats in order of time, each once,
/// tempos, pulses, silences. It keeps nothing of them; a BeatLog does.
///
/// Threads: the analyzer's thread only.
class BeatRelay : public QObject
{
    Q_OBJECT

public:
    /// pFollower is not owned, outlives the relay and has told nothing yet.
    explicit BeatRelay(const BeatFollower& pFollower);

    /// From now on position 0 lies at pTime seconds and positions count pSampleRate Hz. To be
    /// called before the first sample, and whenever the follower is restarted.
    void Restart(int pSampleRate, double pTime = 0.0);

    int getSampleRate() const { return m_sampleRate; }  ///< Hz; 0 before Restart()

Q_SIGNALS:
    /// In order of time, each once; pBeat is valid during the emission.
    void OnBeat(const LoggedBeat& pBeat);
    /// For each pulse, when it is heard. pTime: its start in seconds.
    void OnPulse(double pTime, const Pulse& pPulse);
    /// A beat window was closed at pTime seconds; pBPM is the tempo in force, 0 = unknown.
    void OnTempo(double pTime, double pBPM);
    /// The music counts as playing, or as stopped, from pTime seconds on; emitted at the first
    /// block and at each change.
    void OnPlayingChanged(double pTime, bool pIsPlaying);

private:
    void _TellBeat(const BeatFollower::Beat& pBeat);
    double _TimeOf(quint64 pIndex) const;

    int m_sampleRate = 0;  ///< Hz
    double m_start = 0.0;  ///< time of position 0, seconds
};
