// SPDX-License-Identifier: MIT
#pragma once

#include <cli/analyze/AnalyzeOptions.h>
#include <cli/analyze/AnalyzePlan.h>
#include <cli/analyze/FileAnalysis.h>
#include <cli/output/ClickTrack.h>
#include <cli/output/OutputFile.h>
#include <shared/files/AudioSource.h>

#include <QCoreApplication>
#include <QStringList>

#include <functional>
#include <memory>

class NdjsonWriter;

/// Analyses one file and writes what was asked for.
class AnalyzeFile
{
    Q_DECLARE_TR_FUNCTIONS(AnalyzeFile)

public:
    /// Told now and then how far the work is: the fraction done, in [0, 1] or negative when the
    /// length is unknown, and the seconds of audio done. False gives up.
    using Progress = std::function<bool(double pFraction, double pSeconds)>;

    /// Both are not owned.
    AnalyzeFile(const AnalyzeOptions& pOptions, const AnalyzeTask& pTask);
    ~AnalyzeFile();

    /// False when something failed, which getErrors() tells, or was given up. To be called once.
    bool Run(const Progress& pProgress);

    /// One line each, with the file's name.
    QStringList getErrors() const { return m_errors; }
    /// What a person should know about the result; then its summary in one line. Empty after a
    /// failure.
    QStringList getNotes() const { return m_notes; }
    /// The reader of the output has gone.
    bool isReaderGone() const { return m_output.isReaderGone(); }

private:
    bool _OpenSource();
    bool _OpenOutputs();
    bool _Analyze(const Progress& pProgress);
    bool _Report(const Progress& pProgress) const;
    void _WriteResult();
    void _WriteExtras();
    QByteArray _MakeText(const AnalysisResult& pResult) const;
    void _AddSummary(double pElapsed);
    QString _CountBeats() const;
    QString _DescribeMix() const;
    QString _DescribeSilence() const;
    QString _DescribeNoMeter() const;
    bool _FailToRead(const QString& pReason);
    bool _Fail(const QString& pReason);

    const AnalyzeOptions& m_options;
    const AnalyzeTask& m_task;
    OutputFile m_output;
    ClickTrack m_click;
    std::unique_ptr<AudioSource> m_source;
    std::unique_ptr<FileAnalysis> m_analysis;
    std::unique_ptr<NdjsonWriter> m_events;  ///< null unless events are written as they happen
    QStringList m_errors;
    QStringList m_notes;
};
