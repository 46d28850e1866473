// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/plot/LevelTrace.h>
#include <shared/beats/BeatLog.h>
#include <shared/beats/BeatRelay.h>
#include <shared/files/AudioSource.h>
#include <shared/settings/AnalysisOptions.h>

#include <QCoreApplication>

#include <functional>

/// Analyses one recording from front to end, as fast as the machine can.
///
/// The same audio and options give the same events on every run and machine (AnalysisPump).
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
    /// and when the observer ended it, with an empty error. To be called once.
    bool Run(const BatchObserver& pObserver);

    const BeatRelay& getRelay() const { return m_relay; }
    BeatLog& getLog() { return m_log; }
    const Configuration& getConfiguration() const { return m_configuration; }
    const LevelTrace& getLevels() const { return m_levels; }
    quint64 getSampleCount() const { return m_pump.getSampleCount(); }  ///< of the source so far
    int getPeak() const { return m_peak; }  ///< greatest 16-bit magnitude so far
    QString getError() const { return m_error; }

private:
    bool _AnalyzeSource(const BatchObserver& pObserver);
    bool _CheckSource();
    void _TraceLevel(const qint16* pSamples, unsigned int pCount);

    AnalysisOptions m_options;
    AudioSource& m_source;  ///< not owned
    Configuration m_configuration;
    AnalysisPump m_pump;
    BeatRelay m_relay{m_pump.getFollower()};
    BeatLog m_log{m_relay};
    LevelTrace m_levels;
    int m_peak = 0;
    QString m_error;
};
