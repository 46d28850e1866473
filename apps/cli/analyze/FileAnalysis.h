// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/plot/LevelTrace.h>
#include <shared/beats/BeatLog.h>
#include <shared/files/AudioSource.h>
#include <shared/settings/AnalysisOptions.h>

#include <QCoreApplication>

#include <functional>
#include <vector>

/// Analyses one recording from front to end, as fast as the machine can.
///
/// The clock is derived from the samples and starts at the same time in every run, so the same
/// audio and options give the same events on every run and machine. While the object lives, the
/// thread's clock is its own.
///
/// Behind the end the analyzer is given silence until the last beat window has closed, since a beat
/// is only chosen then. Nothing that lies in that silence is logged.
class FileAnalysis
{
    Q_DECLARE_TR_FUNCTIONS(FileAnalysis)

public:
    /// Told of each batch once it has been analysed: its frames as they came, interleaved, and
    /// their number. False ends the analysis.
    using BatchObserver = std::function<bool(const float* pFrames, std::size_t pCount)>;

    /// pSource is not owned and must be open. pOptions must be ones that Apply() accepts.
    FileAnalysis(const AnalysisOptions& pOptions, AudioSource& pSource);

    /// Analyses the whole source. False when it is too short or damaged, which getError() tells,
    /// and when the observer ended it, with an empty error. To be called once. The events of the
    /// thread are processed now and then, so that beat timers do not pile up.
    bool Run(const BatchObserver& pObserver);

    BeatLog& getLog() { return m_log; }
    const Configuration& getConfiguration() const { return m_configuration; }
    const LevelTrace& getLevels() const { return m_levels; }
    quint64 getSampleCount() const { return m_sampleCount; }  ///< samples of the source so far
    int getPeak() const { return m_peak; }                    ///< greatest 16-bit magnitude so far
    QString getError() const { return m_error; }

private:
    bool _AnalyzeSource(const BatchObserver& pObserver);
    bool _CheckSource();
    void _Feed(std::size_t pCount);
    void _FeedSilence();
    void _TraceLevel(qint16* pSamples, unsigned int pCount);

    AnalysisOptions m_options;
    AudioSource& m_source;                ///< not owned
    HighResolutionTimerOverride m_clock;  ///< outlives the analyzer
    Configuration m_configuration;
    AudioAnalyzer m_analyzer;
    BeatLog m_log;
    LevelTrace m_levels;
    std::vector<qint16> m_batch;  ///< one pulse block
    quint64 m_sampleCount = 0;    ///< samples of the source so far
    quint64 m_fedCount = 0;     ///< samples given to the analyzer, silence behind the end included
    quint64 m_tracedCount = 0;  ///< samples whose level has been traced
    int m_peak = 0;
    QString m_error;
};
