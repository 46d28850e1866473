// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputRunner.h>

#include <QtTest>

#include <apps/shared/outputs/ReceiverLog.h>
#include <memory>
#include <support/AllocationGuard.h>
#include <support/TestClass.h>

/// What an output takes of the clock's thread.
class tst_OutputAllocation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clocksThread_allocatesNothing();
};

// Not even where the queue is full, since the receiver is not there.
void tst_OutputAllocation::clocksThread_allocatesNothing()
{
    BeatClock clock;
    clock.HoldAt(120.0, shared::ClockThread::getTime());
    ReceiverLog log;
    shared::OutputRunner runner(
        std::make_unique<LoggedReceiver>(log),
        [](const BeatClockState& pState) { return pState.sureness; },
        [](const QString&) {});
    const BeatClockState state = clock.getState();
    std::size_t count = 0;
    {
        const AllocationGuard guard;
        runner.OnRunningChanged(true, state);
        for (int i = 0; i < 1000; ++i) {
            runner.OnTick({i, i, 0, 0, 0, 0, 0}, state);
            runner.Hear({});
        }
        runner.OnRunningChanged(false, state);
        count = AllocationGuard::getCount();
    }
    QCOMPARE(count, std::size_t(0));
}

AA_TEST(tst_OutputAllocation, NoApplication)
#include "tst_OutputAllocation.moc"
