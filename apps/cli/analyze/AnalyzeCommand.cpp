// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/Interrupt.h>
#include <cli/analyze/AnalyzeCommand.h>
#include <cli/analyze/AnalyzeFile.h>
#include <cli/analyze/TotalProgress.h>
#include <cli/analyze/WorkerPool.h>
#include <cli/output/OutputFile.h>
#include <cli/output/TextWriters.h>

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace {

/// The bar would run into events that appear on the same terminal.
bool WantsBar(const AnalyzeOptions& pOptions)
{
    const bool isOutputInTheWay = pOptions.format == eNdjsonFormat && pOptions.output.isEmpty() &&
                                  ::isatty(STDOUT_FILENO) == 1;
    return !pOptions.isQuiet && !pOptions.isWorker && !isOutputInTheWay && console::isTerminal();
}

}  // namespace

AnalyzeCommand::AnalyzeCommand(const AnalyzeOptions& pOptions)
    : m_options(pOptions), m_bar(WantsBar(pOptions))
{
}

int AnalyzeCommand::Run()
{
    if (!m_plan.Make(m_options)) {
        console::PrintError(m_plan.getError());
        return eExitUsage;
    }
    if (!_MakeFolder())
        return eExitFailed;
    if (m_options.jobs > 1 && m_plan.getTasks().size() > 1)
        _RunWorkers();
    else
        _RunHere();
    m_bar.Clear();
    return m_exitCode;
}

bool AnalyzeCommand::_MakeFolder()
{
    const QString folder = m_plan.getFolder();
    if (folder.isEmpty() || QFileInfo(folder).isDir() || QDir().mkdir(folder))
        return true;
    console::PrintError(
        tr("-o %1: this folder cannot be made; name one in a folder that exists and "
           "may be written to")
            .arg(folder));
    return false;
}

void AnalyzeCommand::_RunHere()
{
    TotalProgress progress(m_options.inputs);
    const std::size_t count = m_plan.getTasks().size();
    for (std::size_t i = 0; i < count; ++i) {
        const AnalyzeTask& task = m_plan.getTasks()[i];
        const QString label =
            count == 1 ? task.input : tr("%1/%2 %3").arg(i + 1).arg(count).arg(task.input);
        const bool goesOn = _RunFile(task, [&](double pFraction, double pSeconds) {
            if (pFraction < 0.0) {
                m_bar.ShowSeconds(label, pSeconds);
            } else {
                progress.Set(i, pFraction);
                m_bar.Show(label, progress.getFraction());
            }
            return interrupt::getSignal() == 0;
        });
        if (!goesOn)
            return;
        progress.Set(i, 1.0);
    }
}

/// False when the work is not to go on with the next file.
bool AnalyzeCommand::_RunFile(const AnalyzeTask& pTask,
                              const std::function<bool(double, double)>& pProgress)
{
    double told = 0.0;
    AnalyzeFile file(m_options, pTask);
    const bool isDone = file.Run([&](double pFraction, double pSeconds) {
        constexpr double kWorkerStep = 0.01;
        if (m_options.isWorker && pFraction >= told + kWorkerStep) {
            told = pFraction;
            // The process that waits for this one may have ended.
            if (!console::PrintRaw(WorkerPool::kProgressMark +
                                   QByteArray::number(pFraction, 'f', 3) + '\n'))
                return false;
        }
        return pProgress(pFraction, pSeconds);
    });
    if (!isDone)
        m_exitCode = file.isReaderGone() ? eExitPipeClosed : eExitFailed;
    if (interrupt::getSignal() != 0 || file.isReaderGone())
        return false;
    for (const QString& error : file.getErrors())
        _PrintFailure(tr("audio-analyzer: %1").arg(error));
    for (const QString& note : file.getNotes())
        _Print(note);
    return true;
}

void AnalyzeCommand::_RunWorkers()
{
    WorkerPool pool(m_options, m_plan.getTasks(), m_bar);
    pool.Run([this](const AnalyzeTask& pTask, const WorkerResult& pResult) {
        if (interrupt::getSignal() != 0)
            return false;
        if (!pResult.isDone)
            m_exitCode = eExitFailed;
        const bool goesOn = !pResult.isDone || _Write(pTask, pResult.output);
        for (const QString& message : pResult.messages)
            if (pResult.isDone)
                _Print(message);
            else
                _PrintFailure(message);
        return goesOn;
    });
}

/// False when the work is not to go on.
bool AnalyzeCommand::_Write(const AnalyzeTask& pTask, const QByteArray& pOutput)
{
    m_bar.Clear();
    OutputFile output;
    const QByteArray heading = pTask.hasHeading ? makeHeading(pTask.input) : QByteArray();
    if (output.Open(pTask.output) && output.Write(heading + pOutput) && output.Commit())
        return true;
    m_exitCode = output.isReaderGone() ? eExitPipeClosed : eExitFailed;
    if (!output.isReaderGone())
        _PrintFailure(tr("audio-analyzer: %1: %2").arg(pTask.input, output.getError()));
    return !output.isReaderGone();
}

void AnalyzeCommand::_Print(const QString& pLine)
{
    m_bar.Clear();
    if (!m_options.isQuiet)
        console::PrintLine(pLine);
}

void AnalyzeCommand::_PrintFailure(const QString& pLine)
{
    m_bar.Clear();
    console::PrintLine(pLine);
}
