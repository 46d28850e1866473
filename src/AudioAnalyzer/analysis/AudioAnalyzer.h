// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>
#include <AudioAnalyzer/analysis/AudioValues.h>
#include <AudioAnalyzer/analysis/Pulse.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <QAudioFormat>
#include <QObject>

#include <cstddef>
#include <list>
#include <memory>
#include <optional>

class BandPassThreshold;
class Configuration;

/// Finds pulses, beats and the tempo in mono 16-bit samples.
///
/// Analyze() takes batches of any size. Each batch first goes to stop detection, which decides once
/// per stop block whether music plays; then it is cut into pulse blocks of at most one fortieth of
/// a second. A block is filtered to the band of the selected profile and rectified; it is a pulse
/// when a quarter of its samples reach the threshold. Pulses inside the predicted beat window are
/// candidates; when the window has passed, the loudest candidate is the beat, or else a virtual
/// beat stands in at the predicted place. The indexes of recent beats give the tempo, and a timer
/// sends OnBeat() one period after the chosen pulse.
///
/// Vocabulary: an index is an absolute sample index, counted from the last Stop(); a volume or
/// threshold is a 16-bit sample magnitude; tempos are in BPM, 0 meaning unknown; times are
/// microseconds on the clock of HighResolutionTimer, 0 meaning not set.
///
/// Signals are emitted synchronously. A receiver may call Start(), Stop(), Reset() and the setters;
/// it must not delete the analyzer or call Analyze().
///
/// Threads: the owner's thread only, which must run an event loop for OnBeat().
class AUDIOANALYZER_EXPORT AudioAnalyzer : public QObject
{
    Q_OBJECT

public:
    // ---- Core: AudioAnalyzer.cpp ----------------------------------------------------------------

    /// pConfiguration is not owned and must outlive the analyzer. pFormat: format of the samples
    /// given to Analyze(); a sample rate below 20 Hz gives no pulse blocks, so nothing is ever
    /// detected.
    AudioAnalyzer(Configuration* pConfiguration, const QAudioFormat& pFormat, QObject* pParent);
    /// Stops the analysis first.
    ~AudioAnalyzer() override;

    /// Starts the analysis at the present time; false when it runs already. [event loop]
    bool Start();
    /// Ends the analysis and forgets the position, the beats and the volumes' window; false when it
    /// does not run. The fixed and the last tempo, the accuracy and the volumes stay. [event loop]
    bool Stop();
    /// Emits OnAnalysisStopped() and returns true when the analysis does not run; false when it
    /// does.
    bool PauseAnalysis();
    bool isAnalyzing() const;
    /// Whether music plays: the analysis runs and its last stop block was no silence. A search that
    /// begins anew counts as stopped until the next one.
    bool isPlaying() const;

    Configuration* getConfiguration() const;
    /// Spectrum of the last filtered block, getAmplitudesCount() values owned by the analyzer; null
    /// before the first. [valid until the next Analyze]
    const double* getAmplitudes() const;
    quint64 getAmplitudesCount() const;
    /// Time of the last successful Start(), µs; 0 while not started.
    quint64 getAnalysisStartTime() const;
    quint64 getPulseBlockSize() const;  ///< samples
    /// The block being assembled: raw samples, the first of them overwritten by the pending
    /// remainder. [valid until the analyzer is deleted]
    AudioValues getCurrentPulseBlock() const;

    // ---- Instance: api/AudioAnalyzerInstance.cpp ------------------------------------------------

    /// The process-wide analyzer. The first call makes it from the configuration file and the
    /// selected input device; null when there is no such device or it cannot record, and the next
    /// call tries again. It lives until init() replaces it; so does its configuration. [event loop]
    static AudioAnalyzer* getInstance();
    /// Replaces the process-wide analyzer; the arguments go to the constructor, unchecked.
    /// [event loop]
    static void init(Configuration* pConfiguration, const QAudioFormat& pFormat, QObject* pParent);

    // ---- Pulses: AudioAnalyzerPulses.cpp --------------------------------------------------------

    /// Processes one pulse block of count samples whose first has the absolute index.
    /// [audio path: allocates one record per pulse and one list node per candidate]
    void DetectPulses(short* samples, unsigned long count, unsigned long index);
    /// Filters to the band of the selected profile. Sets filtered to filteredCount samples owned by
    /// the filter. [audio path: no allocation] [valid until the next block]
    void ApplyFilter(short* samples,
                     unsigned long count,
                     short*& filtered,
                     unsigned long& filteredCount);
    /// Replaces each sample by its magnitude, -32768 by 32767, in place. [audio path: no
    /// allocation]
    void FullWaveRectify(short* samples, unsigned long count);
    /// The threshold in force: the configured one, or sensibility times average volume, at most the
    /// profile's maximal threshold.
    qint16 getThreshold() const;

    // ---- Beats: AudioAnalyzerBeats.cpp ----------------------------------------------------------

    double getFixedBPM() const;     ///< BPM within the profile's range; 0 = none
    double getComputedBPM() const;  ///< BPM within the profile's range; 0 = unknown
    double getCurrentBPM() const;   ///< the fixed tempo, else the computed one; 0 = unknown
    /// Imposes a tempo in BPM; 0 or less lifts it. Always true. While it holds, no OnBeat() is
    /// sent.
    bool setFixedBPM(double pBPM);
    /// Whether the last tempo is kept across gaps and resets (it is by default).
    void setConsistencyAllowed(bool pIsAllowed);
    /// Whether a timer sends OnBeat() (it does by default). A host without an event loop, or one
    /// that takes its beats from a BeatFollower, needs none.
    void setBeatTimerAllowed(bool pIsAllowed);
    /// In (0, 1]: falls with every beat window that holds no pulse.
    double getAccuracy() const;
    /// Seconds since the accuracy fell below one half; 0 while it is not.
    double getInaccuracyElapsedSeconds() const;
    /// Whether OnBeat() may be sent: music plays in a started analysis, or virtual beats are shown
    /// while it is stopped.
    bool isSendingBeats() const;
    /// Predicts the next beat and sets the window around it. [audio path: no allocation]
    void ComputeNextBeatStartIndexes();
    /// Closes the beat window once it has passed; called once per pulse block. count: processed
    /// samples; index: the block's first sample. [audio path: see docs/realtime.md]
    void
    DetectBeats(unsigned long count, unsigned long index, short averageVolume, short threshold);

    // ---- Stops and volumes: AudioAnalyzerStops.cpp ----------------------------------------------

    /// Gathers count samples into the stop block and, when it is complete, decides whether the
    /// music has stopped. [audio path: allocates when the stop block is rebuilt]
    void DetectStops(const short* samples, unsigned long count);
    /// Lets the next batch rebuild the stop block at the configuration's duration; the argument is
    /// not used. Always true.
    bool setStopDetectionDuration(double pSeconds);
    /// Length of the volumes' window in seconds; false when refused or unchanged. [allocates]
    bool setAverageVolumeCalculationDuration(double pSeconds);
    qint16 getAverageVolume() const;  ///< over the window; -1 without samples
    qint16 getCurrentVolume() const;  ///< loudest sample since the beat window was set up
    qint16 getMaximalVolume() const;  ///< loudest sample of this and the previous beat window

Q_SIGNALS:
    /// Spectrum of a block before its filter. [valid during the emission]
    void OnAmplitudesComputed(const double* pAmplitudes, unsigned int pAmplitudesCount);
    void OnAnalysisStarted();
    void OnAnalysisStopped();
    /// End of a pulse block. pIndex: its absolute index, cut to 32 bits. The samples are the
    /// rectified filtered ones while music plays, else the raw block. [valid during the emission]
    void OnAudioSamplesAnalyzed(unsigned int pIndex, qint16* pAudioSamples, unsigned int pCount);
    /// A beat falls due now.
    void OnBeat();
    /// A beat window was closed; the tempo in force, 0 = unknown, changed or not.
    void OnBPMChanged(double pBPM);
    /// A pulse or a virtual beat. Keep a copy, which shares the record, to learn its final type.
    void OnPulseDetected(const Pulse& pPulse);

public Q_SLOTS:
    /// Analyses pCount mono samples at the analyzer's rate; they may be changed by receivers only.
    /// Works whether or not the analysis is started. [audio path: see docs/realtime.md]
    void Analyze(qint16* pAudioSamples, size_t pCount);
    /// Forgets tempo, beats, accuracy and volumes, and counts the music as stopped until stop
    /// detection says otherwise. The position and the fixed tempo stay. Emits nothing. [event loop]
    void Reset();

private Q_SLOTS:
    void _OnBeat();

private:
    static AudioAnalyzer* m_pInstance;

    double _ClampToProfile(double pBPM) const;
    std::optional<Pulse> _ChooseBeat(unsigned long pCount, short pAverageVolume, short pThreshold);
    Pulse _ChooseLoudestCandidate();
    std::optional<Pulse>
    _MakeVirtualBeat(unsigned long pCount, short pAverageVolume, short pThreshold);
    void _WatchAccuracy();
    void _MeasureTempo();
    void _ReportTempo();
    void _ArmBeatTimer(const Pulse& pBeat);
    void _ForgetBeatIndexes();
    quint64 _PredictBeatLength(double pDefaultBPM) const;
    bool _BuildStopBlock();
    void _TrackPulse(const Pulse& pPulse, unsigned long pFilteredCount);
    void _ReportBlock(unsigned long pIndex, short* pSamples, unsigned long pCount);
    void _DecideStop(const short* pSamples);

    QAudioFormat m_format;  ///< of the samples given to Analyze()
    double m_samplesPerMinute;
    int m_sampleRate;             ///< Hz
    double m_accuracy;            ///< (0, 1]
    const double* m_pAmplitudes;  ///< last spectrum, owned by m_filterFFT; or null
    quint64 m_amplitudesCount;
    quint64 m_analysisStartTime;  ///< µs; 0 = not started
    quint64 m_sampleIndex;        ///< first sample of the next pulse block
    bool m_isAnalyzing;
    bool m_isConsistencyAllowed;       ///< keep the last tempo across gaps and resets
    bool m_isStopped;                  ///< silence
    std::list<quint64> m_beatIndexes;  ///< recent beats, in the order they happened
    double m_computedBPM;              ///< BPM measured from m_beatIndexes; 0 = unknown
    Configuration* m_pConfiguration;   ///< not owned
    quint64 m_missedBeatsCount;        ///< beat windows in a row without a pulse
    quint64 m_beatLength;              ///< samples per beat; 0 = unknown
    AudioSamplesStats m_volumeStats;   ///< rectified filtered samples
    double m_fixedBPM;                 ///< BPM imposed by the host; 0 = none
    double m_lastBPM;                  ///< last tempo above 0 that was reported, BPM
    quint64 m_inaccuracyStartTime;     ///< µs; 0 = not inaccurate
    quint64 m_lastBeatIndex;           ///< last beat, real or virtual
    bool m_isLastBeatVirtual;
    quint64 m_lastPulseIndex;            ///< start of the last pulse
    quint64 m_virtualBeatIndex;          ///< last virtual beat; 0 after a real one
    qint16 m_currentVolume;              ///< loudest sample since the beat window was set up
    qint16 m_previousVolume;             ///< m_currentVolume of the window before
    quint64 m_beatWindowEnd;             ///< inclusive
    quint64 m_beatWindowStart;           ///< inclusive
    quint64 m_nextBeatIndex;             ///< predicted beat
    std::list<Pulse> m_candidatePulses;  ///< pulses inside the beat window
    qint16* m_pPulseBlock;               ///< owned, m_pulseBlockSize samples
    quint64 m_pulseBlockFill;            ///< samples
    quint64 m_pulseBlockSize;            ///< samples
    FastFourierTransform m_filterFFT;
    qint16* m_pStopBlock;     ///< owned, m_stopBlockSize samples; null = to be built
    quint64 m_stopBlockFill;  ///< samples
    quint64 m_stopBlockSize;  ///< samples
    FastFourierTransform m_stopFFT;

    std::unique_ptr<BandPassThreshold> m_pStopDecision;  ///< spares m_stopFFT most blocks
    std::list<quint64> m_freeBeatNodes;  ///< nodes that m_beatIndexes uses again: no allocation
    bool m_isBeatTimerAllowed = true;    ///< a timer sends OnBeat()
};
