// SPDX-License-Identifier: MIT
#pragma once

#include <cli/analyze/AnalyzeOptions.h>

#include <QCoreApplication>
#include <QString>

#include <vector>

/// One file to be analysed.
struct AnalyzeTask
{
    QString input;            ///< "-" = standard input
    QString output;           ///< "-" = standard output
    bool hasHeading = false;  ///< a "# file" line goes before its output
    bool isTagged = false;    ///< its events name the file
};

/// Decides what is written where before any work is done, and refuses what would overwrite
/// something or mix up outputs. Touches nothing.
class AnalyzePlan
{
    Q_DECLARE_TR_FUNCTIONS(AnalyzePlan)

public:
    /// False when the options do not make sense together; getError() says why.
    bool Make(const AnalyzeOptions& pOptions);

    const std::vector<AnalyzeTask>& getTasks() const { return m_tasks; }
    /// Folder for the outputs, which may have to be made; empty = none.
    QString getFolder() const { return m_folder; }
    QString getError() const { return m_error; }

private:
    bool _CheckInputs(const AnalyzeOptions& pOptions);
    bool _CheckExtras(const AnalyzeOptions& pOptions);
    bool _CheckStream(const AnalyzeOptions& pOptions);
    void _MakeTasks(const AnalyzeOptions& pOptions);
    bool _CheckOutputs(const AnalyzeOptions& pOptions);
    bool _Fail(const QString& pReason);

    std::vector<AnalyzeTask> m_tasks;
    QString m_folder;
    QString m_error;
};
