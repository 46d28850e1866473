// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/Pulse.h>

#include <QObject>

#include <common/AnalysisResult.h>
#include <limits>
#include <optional>
#include <vector>

class AudioAnalyzer;

/// Writes down what an analyzer reports: beats in order of time, each once, tempos, pulses,
/// silences.
///
/// The analyzer announces a pulse when it hears it and chooses the beat among the pulses of a beat
/// window when that window has passed, at the latest before it reports the tempo. So the log keeps
/// the pulses of the open window and looks for the one that has become a beat. A pulse in the very
/// block that closes its window arrives after the tempo and is a beat already.
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
    bool isPlaying() const { return m_isPlaying; }

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
    void _OnSpectrum();
    void _OnPulse(const Pulse& pPulse);
    void _OnTempo(double pBPM);
    void _OnBlockEnd(unsigned int pCount);
    LoggedBeat _MakeBeat(const Pulse& pPulse, double pBPM) const;
    void _LogPulse(const Pulse& pPulse);
    void _LogBeat(const LoggedBeat& pBeat);
    void _SetPlaying(bool pIsPlaying);
    double _TimeOf(quint64 pIndex) const;

    AudioAnalyzer* m_pAnalyzer = nullptr;  ///< not owned
    AnalysisResult m_result;
    double m_start = 0.0;                                 ///< time of position 0, seconds
    quint64 m_blockIndex = 0;                             ///< first sample of the present block
    quint64 m_end = std::numeric_limits<quint64>::max();  ///< samples
    std::vector<Pulse> m_windowPulses;        ///< pulses since the last window was closed
    std::optional<LoggedBeat> m_virtualBeat;  ///< waits for the tempo of its window
    double m_lastBPM = 0.0;                   ///< last tempo reported
    bool m_isBlockHeard = false;              ///< the present block was analysed: music plays
    bool m_isPlaying = false;
    bool m_isPlayingKnown = false;  ///< a block has been seen
    double m_silenceStart = 0.0;    ///< seconds; while not playing
};
