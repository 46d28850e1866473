// SPDX-License-Identifier: MIT
#pragma once

#include <cli/analyze/AnalyzeOptions.h>
#include <cli/analyze/AnalyzePlan.h>
#include <cli/analyze/ProgressBar.h>
#include <cli/analyze/TotalProgress.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QEventLoop>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class QProcess;

/// What a worker made of one file.
struct WorkerResult
{
    bool isDone = false;
    QByteArray output;
    QStringList messages;  ///< its lines for the person at the terminal
};

/// Analyses files side by side, each in a process of its own that runs this program on the one
/// file.
///
/// A worker writes its output to standard output and its messages to standard error, among lines
/// that begin with kProgressMark and tell the fraction done. A worker that dies spoils its own file
/// only.
class WorkerPool : public QObject
{
    Q_OBJECT

public:
    /// Receives the results in the order of the tasks. False gives up.
    using Receiver = std::function<bool(const AnalyzeTask& pTask, const WorkerResult& pResult)>;

    /// No name of a file holds this character, so no message begins with it.
    static constexpr char kProgressMark = '\0';

    /// pOptions and pTasks are not owned.
    WorkerPool(const AnalyzeOptions& pOptions,
               const std::vector<AnalyzeTask>& pTasks,
               ProgressBar& pBar);
    /// Ends the workers that still run.
    ~WorkerPool() override;

    /// Returns when all results have been received, or the receiver or a signal gave up.
    void Run(const Receiver& pReceiver);

    /// Arguments that let this program do one task as a worker.
    static QStringList makeArguments(const AnalyzeOptions& pOptions, const AnalyzeTask& pTask);

private:
    struct Worker
    {
        std::unique_ptr<QProcess> process;
        QByteArray messages;  ///< received so far, without complete progress lines
        bool isFinished = false;
        WorkerResult result;
    };

    void _StartNext();
    void _OnMessages(std::size_t pTask);
    void _OnFinished(std::size_t pTask);
    void _Deliver();
    void _OnTick();

    const AnalyzeOptions& m_options;
    const std::vector<AnalyzeTask>& m_tasks;
    ProgressBar& m_bar;
    TotalProgress m_progress;
    Receiver m_receiver;
    std::vector<Worker> m_workers;  ///< one for each task
    std::size_t m_started = 0;      ///< tasks
    std::size_t m_running = 0;      ///< workers
    std::size_t m_delivered = 0;    ///< results
    QEventLoop m_loop;
};
