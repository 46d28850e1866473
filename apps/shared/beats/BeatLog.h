// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/Pulse.h>

#include <shared/beats/AnalysisResult.h>

#include <QObject>

class AudioAnalyzer;

/// Writes down what a BeatFollower tells of an analyzer: beats in order of time, each once, tempos,
/// pulses, silences.
///
/// Positions count from 0 at the first sample after Follow(), or after Restart().
///
/// Threads: the analyzer's thread only.
class BeatLog : public QObject
{
    Q_OBJECT

public:
    explicit BeatLog(QObject* pParent = nullptr);

    /// Connects to an analyzer, which is not owned, that is about to be given its first sample at
    /// pSampleRate Hz. To be called once, and again when that analyzer is gone.
    void Follow(AudioAnalyzer* pAnalyzer, int pSampleRate);
    /// The analysis was stopped and started: its positions count from 0 again, and this 0 lies at
    /// pTime seconds.
    void Restart(double pTime);
    /// The audio ends here, in samples: what lies there or behind is no longer logged.
    void setEnd(quint64 pSampleCount);
    /// Ends the log at the end that was set, else at the last block.
    void Finish();

    /// Complete after Finish().
    const AnalysisResult& getResult() const { return m_result; }
    AnalysisResult& getResult() { return m_result; }
    bool isPlaying() const { return m_follower.isPlaying(); }
    /// Samples of silence behind the end that close any open beat window.
    quint64 getSettlingSampleCount() const
    {
        return m_follower.getSettlingSampleCount(m_result.sampleRate);
    }

Q_SIGNALS:
    /// In order of time, each once; pBeat is valid during the emission.
    void OnBeatLogged(const LoggedBeat& pBeat);
    /// For each pulse, when it is heard. pTime: its start in seconds.
    void OnPulseLogged(double pTime, const Pulse& pPulse);
    /// A beat window was closed at pTime seconds; pBPM is the tempo in force, 0 = unknown.
    void OnTempoLogged(double pTime, double pBPM);
    /// The music counts as playing, or as stopped, from pTime seconds on; emitted at the first
    /// block and at each change.
    void OnPlayingChanged(double pTime, bool pIsPlaying);

private:
    void _LogBeat(const BeatFollower::Beat& pBeat);
    void _LogPulse(const Pulse& pPulse);
    void _LogTempo(quint64 pIndex, double pBPM);
    void _LogPlaying(quint64 pIndex, bool pIsPlaying);
    double _TimeOf(quint64 pIndex) const;

    BeatFollower m_follower;
    AnalysisResult m_result;
    double m_start = 0.0;         ///< time of position 0, seconds
    double m_silenceStart = 0.0;  ///< seconds; while not playing
};
