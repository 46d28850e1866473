// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/evaluate/EvaluateCommand.h>
#include <cli/evaluate/EvaluationFiles.h>
#include <cli/output/OutputFile.h>

EvaluateCommand::EvaluateCommand(const EvaluateOptions& pOptions) : m_options(pOptions) {}

int EvaluateCommand::Run()
{
    EvaluatePlan plan;
    if (!plan.Make(m_options.reference, m_options.estimate)) {
        console::PrintError(plan.getError());
        return eExitUsage;
    }
    int exitCode = eExitDone;
    for (const EvaluateTask& task : plan.getTasks()) {
        const QString error = _Evaluate(task);
        if (error.isEmpty())
            continue;
        console::PrintError(error);
        exitCode = eExitFailed;
    }
    if (m_recordings.empty())
        return eExitFailed;
    OutputFile output;
    if (output.Open(QStringLiteral("-")) && output.Write(_MakeText()))
        return exitCode;
    if (!output.isReaderGone())
        console::PrintError(output.getError());
    return output.isReaderGone() ? eExitPipeClosed : eExitFailed;
}

/// Returns what went wrong, or an empty text.
QString EvaluateCommand::_Evaluate(const EvaluateTask& pTask)
{
    EvaluatedRecording recording;
    recording.name = getRecordingName(pTask.reference);
    BeatReference reference;
    QString error = readReference(pTask.reference, reference, recording.genre);
    if (!error.isEmpty())
        return error;
    if (pTask.estimate.isEmpty())
        return tr("%1: has no estimate in %2").arg(pTask.reference, m_options.estimate);
    if (!reference.beats.empty() && reference.beats.back() < m_options.from)
        return tr("%1: has no beat from %2 s on; lower --from")
            .arg(pTask.reference)
            .arg(m_options.from);
    BeatEstimate estimate;
    if (pTask.estimate.endsWith(getTempoSuffix()))
        error = readTempoFile(pTask.estimate, estimate.tempo);
    else
        error = readBeatFile(pTask.estimate, estimate.beats.emplace());
    if (!error.isEmpty())
        return error;
    recording.evaluation = evaluateBeats(reference, estimate, m_options.from);
    m_recordings.push_back(recording);
    return {};
}

QByteArray EvaluateCommand::_MakeText() const
{
    switch (m_options.format) {
    case eEvaluationJson:
        return makeEvaluationJson(m_recordings, m_options.from);
    case eEvaluationCsv:
        return makeEvaluationCsv(m_recordings);
    case eEvaluationText:
        break;
    }
    return makeEvaluationText(m_recordings, m_options.from);
}
