// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/analysis/MeterDecoder.h>
#include <AudioAnalyzer/analysis/MeterFollower.h>
#include <AudioAnalyzer/audio/ChannelMix.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/plot/BeliefTrace.h>
#include <cli/plot/LevelTrace.h>
#include <shared/beats/BeatLog.h>
#include <shared/beats/BeatRelay.h>
#include <shared/files/AudioSource.h>
#include <shared/settings/AnalysisOptions.h>

#include <QCoreApplication>

#include <functional>
#include <optional>
#include <vector>

/// Analyses one recording from front to end, as fast as the machine can.
///
/// The engine tells levels and pulses, and the tracker that the options name beats, tempos and
/// silences. The same audio and options give the same events on every run and machine.
class FileAnalysis
{
    Q_DECLARE_TR_FUNCTIONS(FileAnalysis)

public:
    /// Told of each batch once it has been analysed: its frames as they came, interleaved, and
    /// their number. False ends the analysis.
    using BatchObserver = std::function<bool(const float* pFrames, std::size_t pCount)>;

    /// pSource is not owned and must be open. pOptions must be ones that Apply() accepts.
    /// pIsLookingAhead: the automatic tracker decides at the end, with the whole in mind; then its
    /// events come in Run(), behind those of the engine.
    FileAnalysis(const AnalysisOptions& pOptions,
                 AudioSource& pSource,
                 bool pIsLookingAhead = false);

    /// Analyses the whole source. False when it is too short or damaged, which getError() tells,
    /// and when the observer ended it, with an empty error. To be called once.
    bool Run(const BatchObserver& pObserver);

    const BeatRelay& getRelay() const { return m_relay; }
    BeatLog& getLog() { return m_log; }
    const Configuration& getConfiguration() const { return m_configuration; }
    const AnalysisOptions& getOptions() const { return m_options; }
    const LevelTrace& getLevels() const { return m_levels; }
    /// Of the automatic tracker; empty with the other one.
    const BeliefTrace& getBeliefs() const { return m_beliefs; }
    /// How the automatic tracker hears the channels.
    const ChannelMix& getMix() const { return m_mix; }
    quint64 getSampleCount() const { return m_pump.getSampleCount(); }  ///< of the source so far
    int getPeak() const { return m_peak; }  ///< greatest 16-bit magnitude so far
    QString getError() const { return m_error; }

private:
    bool _AnalyzeSource(const BatchObserver& pObserver);
    bool _CheckSource();
    void _Track(std::size_t pCount);
    void _TellDecoding();
    void _WatchPeak(const qint16* pSamples, std::size_t pCount);
    void _TraceLevel(const qint16* pSamples, unsigned int pCount);

    AnalysisOptions m_options;
    AudioSource& m_source;  ///< not owned
    Configuration m_configuration;
    AnalysisPump m_pump;
    ChannelMix m_mix;
    std::vector<qint16> m_heard;            ///< by the automatic tracker, of one batch; reused
    MeterTracker m_tracker;                 ///< hears nothing unless it is the one that is named
    std::optional<MeterDecoder> m_decoder;  ///< hears in its place
    MeterFollower m_meter;
    BeatRelay m_relay;
    BeatLog m_log{m_relay};
    LevelTrace m_levels;
    BeliefTrace m_beliefs;
    int m_peak = 0;
    QString m_error;
};
