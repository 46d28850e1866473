// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>

#include <QSemaphore>
#include <QtTest>

#include <atomic>
#include <support/TestClass.h>
#include <thread>
#include <vector>

using shared::ClockThread;

namespace {

/// Counts what it is told, in the clock's thread; others read it when they have waited.
class Counter : public shared::ClockListener
{
public:
    void OnTick(const shared::ClockTick& pTick, const BeatClockState&) override
    {
        const bool isFirst = count == 0;
        const bool isInTime = pTick.lateness >= 0 && ClockThread::getTime() >= pTick.time;
        faults += isInTime && (isFirst || pTick.number > last) ? 0 : 1;
        skipped += isFirst ? 0 : pTick.number - last - 1;
        isElsewhere = std::this_thread::get_id() != owner;
        last = pTick.number;
        ++count;
        told.release();
    }
    void OnRunningChanged(bool pIsRunning, const BeatClockState&) override
    {
        isRunning = pIsRunning;
        changed.release();
    }

    QSemaphore told;     ///< a ticket for each tick
    QSemaphore changed;  ///< a ticket for each change
    std::atomic<bool> isRunning{false};
    std::atomic<bool> isElsewhere{false};
    std::atomic<int> faults{0};
    std::atomic<qint64> skipped{0};  ///< ticks; a machine that stands still for a second loses some
    std::atomic<qint64> count{0};
    std::atomic<qint64> last{0};
    const std::thread::id owner = std::this_thread::get_id();
};

}  // namespace

/// The thread on the machine's own clock. Nothing here depends on how late it wakes.
class tst_ClockThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void time_neverGoesBack();
    void ticks_comeInAThreadOfTheirOwn_neverEarly();
    void clockThatIsSetLater_isFollowed();
    void nothingComes_whenItHasStopped();
    void thread_canBeStartedAgain();
    void outputs_comeAndGo_withoutATickLost();
    void priority_isWhatTheSystemGrants();
};

void tst_ClockThread::time_neverGoesBack()
{
    const qint64 first = ClockThread::getTime();
    QVERIFY(first > 0);
    QVERIFY(ClockThread::getTime() >= first);
}

void tst_ClockThread::ticks_comeInAThreadOfTheirOwn_neverEarly()
{
    BeatClock clock;
    clock.HoldAt(600.0, ClockThread::getTime());
    Counter counter;
    ClockThread thread(clock);
    thread.Add(counter, 24);
    QVERIFY(!thread.isStarted());
    thread.Start();
    QVERIFY(thread.isStarted());
    counter.told.acquire(100);
    thread.Stop();
    QCOMPARE(counter.faults.load(), 0);
    QVERIFY(counter.skipped <= qint64(thread.getLostCount()));
    QVERIFY(counter.isElsewhere);
    QVERIFY(counter.isRunning);
}

void tst_ClockThread::clockThatIsSetLater_isFollowed()
{
    BeatClock clock;
    Counter counter;
    ClockThread thread(clock);
    thread.Add(counter, 4);
    thread.Start();
    clock.HoldAt(600.0, ClockThread::getTime());
    counter.changed.acquire();
    QVERIFY(counter.isRunning);
    counter.told.acquire(3);
    clock.Restart(ClockThread::getTime());
    counter.changed.acquire();
    QVERIFY(!counter.isRunning);
    thread.Stop();
    QCOMPARE(counter.faults.load(), 0);
}

void tst_ClockThread::nothingComes_whenItHasStopped()
{
    BeatClock clock;
    clock.HoldAt(999.0, ClockThread::getTime());
    Counter counter;
    {
        ClockThread thread(clock);
        thread.Add(counter, 96);
        thread.Start();
        thread.Start();
        counter.told.acquire();
        thread.Stop();
        thread.Stop();
        QVERIFY(!thread.isStarted());
        const qint64 count = counter.count;
        // Ticks fall due, as a state says, and nobody is told.
        const BeatClockState state = clock.getState();
        const qint64 tick = state.getNextTick(ClockThread::getTime(), 96);
        while (ClockThread::getTime() < state.getTickTime(tick + 3, 96))
            std::this_thread::yield();
        QCOMPARE(counter.count.load(), count);
        thread.Start();
        counter.told.acquire();
    }
    // The destructor has stopped it.
    QVERIFY(counter.count > 0);
}

void tst_ClockThread::thread_canBeStartedAgain()
{
    BeatClock clock;
    clock.HoldAt(600.0, ClockThread::getTime());
    Counter counter;
    ClockThread thread(clock);
    thread.Add(counter, 24);
    for (int i = 0; i < 20; ++i) {
        counter.count = 0;
        thread.Start();
        counter.told.acquire(counter.told.available() + 1);
        thread.Stop();
    }
    QCOMPARE(counter.faults.load(), 0);
}

void tst_ClockThread::outputs_comeAndGo_withoutATickLost()
{
    BeatClock clock;
    clock.HoldAt(600.0, ClockThread::getTime());
    Counter steady;
    ClockThread thread(clock);
    thread.Add(steady, 24);
    thread.Start();
    for (int i = 0; i < 10; ++i) {
        Counter guest;
        thread.Add(guest, 96, -50000);
        guest.told.acquire(5);
        thread.setOffset(guest, 20000);
        steady.told.acquire(1);
        thread.Remove(guest);
        QCOMPARE(guest.faults.load(), 0);
    }
    thread.Stop();
    QCOMPARE(steady.faults.load(), 0);
    QVERIFY(steady.skipped <= qint64(thread.getLostCount()));
}

// Whatever it grants here, the thread runs, and says it.
void tst_ClockThread::priority_isWhatTheSystemGrants()
{
    BeatClock clock;
    clock.HoldAt(600.0, ClockThread::getTime());
    Counter counter;
    ClockThread thread(clock);
    thread.Add(counter, 24);
    QVERIFY(!thread.isRealTime());
    thread.Start();
    counter.told.acquire();
    bool isGranted = false;
    std::thread([&isGranted] {
        sched_param parameter = {};
        parameter.sched_priority = 15;
        isGranted = pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameter) == 0;
    }).join();
    QCOMPARE(thread.isRealTime(), isGranted);
    thread.Stop();
}

AA_TEST(tst_ClockThread, QCoreApplication)
#include "tst_ClockThread.moc"
