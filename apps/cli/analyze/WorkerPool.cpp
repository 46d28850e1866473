// SPDX-License-Identifier: MIT
#include <cli/Interrupt.h>
#include <cli/analyze/WorkerPool.h>

#include <QProcess>
#include <QTimer>

namespace {

constexpr int kTickMs = 100;
constexpr int kFarewellMs = 2000;

QStringList InputsOf(const std::vector<AnalyzeTask>& pTasks)
{
    QStringList inputs;
    for (const AnalyzeTask& task : pTasks)
        inputs.append(task.input);
    return inputs;
}

}  // namespace

WorkerPool::WorkerPool(const AnalyzeOptions& pOptions,
                       const std::vector<AnalyzeTask>& pTasks,
                       ProgressBar& pBar)
    : m_options(pOptions), m_tasks(pTasks), m_bar(pBar), m_progress(InputsOf(pTasks)),
      m_workers(pTasks.size())
{
}

WorkerPool::~WorkerPool()
{
    for (Worker& worker : m_workers) {
        if (worker.process == nullptr)
            continue;
        worker.process->disconnect(this);
        worker.process->terminate();
        if (worker.process->state() != QProcess::NotRunning &&
            !worker.process->waitForFinished(kFarewellMs)) {
            worker.process->kill();
            worker.process->waitForFinished();
        }
    }
}

void WorkerPool::Run(const Receiver& pReceiver)
{
    m_receiver = pReceiver;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, this, &WorkerPool::_OnTick);
    ticker.start(kTickMs);
    _StartNext();
    m_loop.exec();
}

QStringList WorkerPool::makeArguments(const AnalyzeOptions& pOptions, const AnalyzeTask& pTask)
{
    QStringList arguments{QStringLiteral("analyze"),
                          QStringLiteral("--worker"),
                          QStringLiteral("--format"),
                          getOutputFormat(pOptions.format).name};
    if (pOptions.isRealOnly)
        arguments.append(QStringLiteral("--real-only"));
    if (pOptions.isLookingAhead)
        arguments.append(QStringLiteral("--look-ahead"));
    if (pOptions.isPartial)
        arguments.append(QStringLiteral("--partial"));
    if (pOptions.rawRate > 0) {
        arguments += {QStringLiteral("--raw"),
                      QStringLiteral("%1:%2").arg(pOptions.rawRate).arg(pOptions.rawChannels)};
    }
    return arguments + pOptions.analysisArguments + QStringList{QStringLiteral("--"), pTask.input};
}

void WorkerPool::_StartNext()
{
    while (m_started < m_tasks.size() && m_running < std::size_t(m_options.jobs)) {
        const std::size_t task = m_started++;
        ++m_running;
        m_workers[task].process = std::make_unique<QProcess>();
        QProcess& process = *m_workers[task].process;
        if (m_tasks[task].input == QLatin1String("-"))
            process.setInputChannelMode(QProcess::ForwardedInputChannel);
        else
            process.setStandardInputFile(QProcess::nullDevice());
        connect(
            &process, &QProcess::readyReadStandardError, this, [this, task] { _OnMessages(task); });
        connect(&process,
                QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished),
                this,
                [this, task] { _OnFinished(task); });
        // Queued: start() may tell of its failure before the loop runs. Other errors end in
        // finished().
        connect(
            &process,
            &QProcess::errorOccurred,
            this,
            [this, task](QProcess::ProcessError pError) {
                if (pError == QProcess::FailedToStart)
                    _OnFinished(task);
            },
            Qt::QueuedConnection);
        process.start(QCoreApplication::applicationFilePath(),
                      makeArguments(m_options, m_tasks[task]));
    }
}

void WorkerPool::_OnMessages(std::size_t pTask)
{
    Worker& worker = m_workers[pTask];
    worker.messages += worker.process->readAllStandardError();
    for (int end = 0; (end = worker.messages.indexOf('\n')) >= 0;) {
        const QByteArray line = worker.messages.left(end);
        worker.messages.remove(0, end + 1);
        if (line.startsWith(kProgressMark))
            m_progress.Set(pTask, line.mid(1).toDouble());
        else
            worker.result.messages.append(QString::fromLocal8Bit(line));
    }
}

void WorkerPool::_OnFinished(std::size_t pTask)
{
    Worker& worker = m_workers[pTask];
    _OnMessages(pTask);
    worker.result.output = worker.process->readAllStandardOutput();
    worker.result.isDone = worker.process->error() != QProcess::FailedToStart &&
                           worker.process->exitStatus() == QProcess::NormalExit &&
                           worker.process->exitCode() == 0;
    if (!worker.result.isDone && worker.result.messages.isEmpty()) {
        worker.result.messages.append(
            tr("audio-analyzer: %1: the analysis of this file was cut short (%2); try again")
                .arg(m_tasks[pTask].input, worker.process->errorString()));
    }
    worker.isFinished = true;
    // This is called by a signal of the process.
    worker.process.release()->deleteLater();
    --m_running;
    m_progress.Set(pTask, 1.0);
    _Deliver();
    if (m_loop.isRunning())
        _StartNext();
}

/// Hands over, in order, what is ready.
void WorkerPool::_Deliver()
{
    while (m_delivered < m_tasks.size() && m_workers[m_delivered].isFinished) {
        const std::size_t task = m_delivered++;
        const WorkerResult result = std::move(m_workers[task].result);
        m_workers[task].result = {};
        if (!m_receiver(m_tasks[task], result)) {
            m_started = m_tasks.size();
            m_loop.quit();
            return;
        }
    }
    if (m_delivered == m_tasks.size())
        m_loop.quit();
}

void WorkerPool::_OnTick()
{
    if (interrupt::getSignal() != 0) {
        m_started = m_tasks.size();
        m_loop.quit();
        return;
    }
    m_bar.Show(tr("%1 of %2 files").arg(m_delivered).arg(m_tasks.size()), m_progress.getFraction());
}

#include "moc_WorkerPool.cpp"
