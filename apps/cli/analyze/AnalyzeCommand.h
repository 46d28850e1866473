// SPDX-License-Identifier: MIT
#pragma once

#include <cli/ExitCode.h>
#include <cli/analyze/AnalyzeOptions.h>
#include <cli/analyze/AnalyzePlan.h>
#include <cli/analyze/ProgressBar.h>

#include <QCoreApplication>

/// The command "analyze": analyses files one after the other or side by side.
class AnalyzeCommand
{
    Q_DECLARE_TR_FUNCTIONS(AnalyzeCommand)

public:
    /// pOptions is not owned.
    explicit AnalyzeCommand(const AnalyzeOptions& pOptions);

    /// Does the work and returns the exit code. After a signal the caller ends the program by it.
    int Run();

private:
    bool _MakeFolder();
    void _RunHere();
    bool _RunFile(const AnalyzeTask& pTask, const std::function<bool(double, double)>& pProgress);
    void _RunWorkers();
    bool _Write(const AnalyzeTask& pTask, const QByteArray& pOutput);
    void _Print(const QString& pLine);
    void _PrintFailure(const QString& pLine);

    const AnalyzeOptions& m_options;
    AnalyzePlan m_plan;
    ProgressBar m_bar;
    int m_exitCode = eExitDone;
};
