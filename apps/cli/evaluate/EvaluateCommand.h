// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/EvaluateOptions.h>
#include <cli/evaluate/EvaluatePlan.h>

#include <QCoreApplication>

/// The command "evaluate": holds found beats against annotated ones.
class EvaluateCommand
{
    Q_DECLARE_TR_FUNCTIONS(EvaluateCommand)

public:
    /// pOptions is not owned.
    explicit EvaluateCommand(const EvaluateOptions& pOptions);

    /// Does the work and returns the exit code.
    int Run();

private:
    QString _Evaluate(const EvaluateTask& pTask);
    QByteArray _MakeText() const;

    const EvaluateOptions& m_options;  ///< not owned
    std::vector<EvaluatedRecording> m_recordings;
};
