// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/Pulse.h>

#include <QObject>
#include <QtGlobal>

#include <limits>
#include <optional>
#include <vector>

class AudioAnalyzer;

/// Tells the beats of an analyzer in order of time, each once, at the sample where they lie.
///
/// OnBeat() of the analyzer says that a beat falls due now, on the machine's clock. A host that
/// analyses a recording, or draws beats on a time line, wants to know instead at which sample each
/// beat is. The analyzer announces a pulse when it hears it and chooses the beat among the pulses
/// of a beat window when that window has passed, at the latest before it reports the tempo. So the
/// follower keeps the pulses of the open window and looks for the one that has become a beat. A
/// pulse in the very block that closes its window arrives after the tempo and is a beat already.
///
/// Indexes count from 0 at the first sample after Follow(), or after Restart().
///
/// Threads: that of the analyzer's calls; signals are emitted from inside AudioAnalyzer::Analyze().
class AUDIOANALYZER_EXPORT BeatFollower : public QObject
{
    Q_OBJECT

public:
    struct Beat
    {
        quint64 index;    ///< of its first sample
        bool isVirtual;   ///< stands in for a beat window that held no pulse
        qint16 loudness;  ///< 16-bit magnitude of the chosen pulse; the threshold if virtual
        double accuracy;  ///< of the analyzer when the beat was chosen, (0, 1]
        double bpm;       ///< tempo reported with the beat, BPM; 0 = unknown
    };

    explicit BeatFollower(QObject* pParent = nullptr);

    /// Connects to an analyzer, which is not owned, that is about to be given its first sample. To
    /// be called once, and again when that analyzer is gone. [allocates]
    void Follow(AudioAnalyzer* pAnalyzer);
    /// The analysis was stopped and started: indexes count from 0 again. [no allocation]
    void Restart();
    /// The audio ends here, in samples: what lies there or behind is no longer told. To learn the
    /// last beats, give the analyzer getSettlingSampleCount() samples of silence behind the end.
    void setEnd(quint64 pSampleCount);

    /// Samples analysed in whole blocks, at most up to the end that was set.
    quint64 getSampleCount() const;
    /// How many samples of silence, at pSampleRate Hz, close any beat window that may be open.
    quint64 getSettlingSampleCount(int pSampleRate) const;
    /// Whether music plays; false before the first block. [any time]
    bool isPlaying() const { return m_isPlaying; }

Q_SIGNALS:
    /// In order of time, each once; before the tempo of its window, unless its pulse came after
    /// that. [valid during the emission]
    void OnBeatFound(const BeatFollower::Beat& pBeat);
    /// For each pulse, when it is heard; virtual beats are none.
    void OnPulseFound(const Pulse& pPulse);
    /// A beat window was closed in the block at pIndex; pBPM is the tempo in force, 0 = unknown.
    void OnTempoFound(quint64 pIndex, double pBPM);
    /// The music counts as playing, or as stopped, from pIndex on; emitted at the first block and
    /// at each change.
    void OnPlayingChanged(quint64 pIndex, bool pIsPlaying);

private:
    void _OnSpectrum();
    void _OnPulse(const Pulse& pPulse);
    void _OnTempo(double pBPM);
    void _OnBlockEnd(unsigned int pCount);
    Beat _MakeBeat(const Pulse& pPulse, double pBPM) const;
    void _TellBeat(Beat pBeat);
    void _SetPlaying(bool pIsPlaying);

    AudioAnalyzer* m_pAnalyzer = nullptr;                 ///< not owned
    quint64 m_blockIndex = 0;                             ///< first sample of the present block
    quint64 m_end = std::numeric_limits<quint64>::max();  ///< samples
    std::vector<Pulse> m_windowPulses;  ///< pulses since the last window was closed
    std::optional<Beat> m_virtualBeat;  ///< waits for the tempo of its window
    double m_lastBPM = 0.0;             ///< last tempo reported
    bool m_isBlockHeard = false;        ///< the present block was analysed: music plays
    bool m_isPlaying = false;
    bool m_isPlayingKnown = false;  ///< a block has been seen
};
