// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputRunner.h>

#include <QtTest>

#include <apps/shared/outputs/ReceiverLog.h>
#include <memory>
#include <support/TestClass.h>

using shared::ClockThread;
using shared::OutputRunner;

namespace {

/// A runner that is told by hand, on the machine's own clock.
struct RunnerBench
{
    RunnerBench() { clock.HoldAt(120.0, ClockThread::getTime()); }

    void start()
    {
        runner = std::make_unique<OutputRunner>(
            std::make_unique<LoggedReceiver>(log),
            [](const BeatClockState&) { return 0.5; },
            [](const QString&) {});
        runner->Start();
        log.opened.acquire();
    }
    void beat()
    {
        shared::ClockTick tick = {};
        tick.beat = ++sent;
        tick.time = ClockThread::getTime();
        runner->OnTick(tick, clock.getState());
    }
    /// Until the receiver blocks in one; on a busy machine the first may be too old.
    void beatUntilItBlocks()
    {
        log.onBeat = [this] {
            entered.release();
            mayGo.acquire();
        };
        start();
        while (!entered.tryAcquire()) {
            beat();
            std::this_thread::yield();
        }
    }

    BeatClock clock;
    ReceiverLog log;
    QSemaphore entered;
    QSemaphore mayGo;
    int sent = 0;  ///< beats
    std::unique_ptr<OutputRunner> runner;
};

}  // namespace

/// A receiver's own thread. What a test waits for comes, however busy the machine is.
class tst_OutputRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clock_isNeverHeldUp_byAReceiverThatBlocks();
    void receiver_isClosed_whenItEnds();
    void receiver_isClosed_evenIfItBlocks();
    void sound_isHeard();
    void beats_reachIt_fromTheClocksThread();
    void stop_withoutStart_doesNothing();
};

void tst_OutputRunner::clock_isNeverHeldUp_byAReceiverThatBlocks()
{
    RunnerBench bench;
    bench.beatUntilItBlocks();
    // Were one of these to wait for the receiver, the test would hang.
    for (int i = 0; i < 1000; ++i)
        bench.beat();
    bench.mayGo.release(1000);
    bench.runner->Stop();
    // More do not fit into the queue.
    QVERIFY(bench.log.beats.available() <= 65);
    QCOMPARE(bench.log.beats.available() + int(bench.runner->getLostCount()), bench.sent);
    QCOMPARE(bench.log.lines.last(), QStringLiteral("close"));
}

void tst_OutputRunner::receiver_isClosed_whenItEnds()
{
    RunnerBench bench;
    bench.start();
    QCOMPARE(bench.log.closed.available(), 0);
    bench.runner.reset();
    QCOMPARE(bench.log.closed.available(), 1);
    QCOMPARE(bench.log.lines.last(), QStringLiteral("close"));
}

void tst_OutputRunner::receiver_isClosed_evenIfItBlocks()
{
    RunnerBench bench;
    bench.beatUntilItBlocks();
    bench.runner->Leave();
    QCOMPARE(bench.log.closed.available(), 0);
    bench.mayGo.release(1000);
    bench.runner->Stop();
    QCOMPARE(bench.log.closed.available(), 1);
}

void tst_OutputRunner::sound_isHeard()
{
    RunnerBench bench;
    bench.start();
    shared::OutputSound sound = {};
    sound.level = 0.5;
    // One that comes too late on a busy machine is not told.
    while (bench.log.beats.available() == 0) {
        sound.time = ClockThread::getTime();
        bench.runner->Hear(sound);
        std::this_thread::yield();
    }
    bench.runner->Stop();
    QVERIFY(bench.log.lines.contains(QStringLiteral("sound0.5")));
}

void tst_OutputRunner::beats_reachIt_fromTheClocksThread()
{
    RunnerBench bench;
    bench.log.division = 24;
    bench.clock.HoldAt(600.0, ClockThread::getTime());
    bench.start();
    ClockThread thread(bench.clock);
    thread.Add(*bench.runner, 24);
    thread.Start();
    bench.log.beats.acquire(3);
    QVERIFY(bench.runner->isOpen());
    QCOMPARE(bench.runner->isRealTime(), thread.isRealTime());
    thread.Stop();
    bench.runner->Stop();
    const QString told = bench.log.take();
    QVERIFY(told.startsWith(QStringLiteral("open stands plays")) ||
            told.startsWith(QStringLiteral("open plays")));
    QVERIFY(told.contains(QStringLiteral("600BPM")));
}

void tst_OutputRunner::stop_withoutStart_doesNothing()
{
    ReceiverLog log;
    {
        OutputRunner runner(
            std::make_unique<LoggedReceiver>(log),
            [](const BeatClockState&) { return 0.5; },
            [](const QString&) {});
        runner.Stop();
    }
    QVERIFY(log.lines.isEmpty());
}

AA_TEST(tst_OutputRunner, QCoreApplication)
#include "tst_OutputRunner.moc"
