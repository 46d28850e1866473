// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockOutputs.h>

#include <QtTest>

#include <apps/shared/clock/TickLog.h>
#include <support/TestClass.h>

namespace {

constexpr qint64 kWall = 1700000000000000;  ///< µs since the epoch, at 0

/// A clock of 120 BPM whose beat 0 is at 1 s, and its outputs, driven by hand. Times in ms.
struct Bench
{
    Bench() { clock.HoldAt(120.0, 1000000); }

    /// Answers when the next step is wanted, in µs.
    qint64 step(qint64 pTime)
    {
        return outputs.Step(clock.getState(), pTime * 1000, kWall + pTime * 1000);
    }

    BeatClock clock;
    shared::ClockOutputs outputs;
    TickLog log;
};

}  // namespace

/// What each output is told, step by step.
class tst_ClockOutputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticks_areToldWhenTheyAreDue();
    void outputs_haveTheirOwnDivisionsAndOffsets();
    void tick_saysWhereAndWhenItIs();
    void step_restsUntilTheNextTick_orAWhile();
    void newOutput_isToldWhatComes();
    void outputs_beginAnew_whenTheyLeft();
    void removedOutput_isToldNothing();
    void offset_countsFromTheNextStep();
    void clockThatStops_isTold();
    void lateOutput_getsItsLastTicks();
    void clockThatBeginsAnew_isTold_evenBetweenTwoSteps();
    void oldTicks_areLostAndCounted();
};

void tst_ClockOutputs::ticks_areToldWhenTheyAreDue()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(900);
    QCOMPARE(bench.log.take(), QStringLiteral("runs"));
    bench.step(999);
    QCOMPARE(bench.log.take(), QString());
    bench.step(1000);
    QCOMPARE(bench.log.take(), QStringLiteral("0@1000"));
    bench.step(1000);
    bench.step(1499);
    QCOMPARE(bench.log.take(), QString());
    bench.step(2003);
    QCOMPARE(bench.log.take(), QStringLiteral("1@1500 2@2000"));
}

void tst_ClockOutputs::outputs_haveTheirOwnDivisionsAndOffsets()
{
    Bench bench;
    TickLog early;
    bench.outputs.Add(bench.log, 2, 0);
    bench.outputs.Add(early, 1, -200000);
    bench.step(900);
    bench.step(1300);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 0@1000 1@1250"));
    QCOMPARE(early.take(), QStringLiteral("runs 1@1300"));
}

void tst_ClockOutputs::tick_saysWhereAndWhenItIs()
{
    Bench bench;
    bench.outputs.Add(bench.log, 4, 0);
    bench.step(3000);
    bench.step(3378);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 17@3125 18@3250 19@3375"));
    const shared::ClockTick tick = bench.log.ticks.back();
    QCOMPARE(qint64(tick.beat), qint64(4));
    QCOMPARE(tick.place, 3);
    QCOMPARE(tick.beatInBar, 0);
    QCOMPARE(qint64(tick.lateness), qint64(3000));
    QCOMPARE(qint64(tick.wallTime), kWall + 3375000);
    bench.step(3500);
    QCOMPARE(qint64(bench.log.ticks.back().beat), qint64(5));
    QCOMPARE(bench.log.ticks.back().place, 0);
    QCOMPARE(bench.log.ticks.back().beatInBar, 1);
}

void tst_ClockOutputs::step_restsUntilTheNextTick_orAWhile()
{
    Bench bench;
    QCOMPARE(bench.step(900), qint64(905000));
    bench.outputs.Add(bench.log, 1, 0);
    QCOMPARE(bench.step(900), qint64(905000));
    QCOMPARE(bench.step(996), qint64(1000000));
    QCOMPARE(bench.step(1000), qint64(1005000));
}

void tst_ClockOutputs::newOutput_isToldWhatComes()
{
    Bench bench;
    TickLog later;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(1100);
    bench.outputs.Add(later, 1, 0);
    bench.step(1700);
    bench.step(2000);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 1@1500 2@2000"));
    QCOMPARE(later.take(), QStringLiteral("runs 2@2000"));
}

void tst_ClockOutputs::outputs_beginAnew_whenTheyLeft()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(1100);
    bench.outputs.Leave();
    bench.step(1700);
    bench.step(2000);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 2@2000"));
}

void tst_ClockOutputs::removedOutput_isToldNothing()
{
    Bench bench;
    TickLog other;
    bench.outputs.Add(bench.log, 1, 0);
    bench.outputs.Add(other, 1, 0);
    bench.step(900);
    QVERIFY(bench.outputs.Remove(other));
    QVERIFY(!bench.outputs.Remove(other));
    bench.step(1000);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 0@1000"));
    QCOMPARE(other.take(), QStringLiteral("runs"));
}

void tst_ClockOutputs::offset_countsFromTheNextStep()
{
    Bench bench;
    TickLog other;
    bench.outputs.Add(bench.log, 1, 0);
    bench.outputs.Add(other, 1, 0);
    bench.step(1100);
    bench.outputs.setOffset(bench.log, -100000);
    QCOMPARE(bench.step(1399), qint64(1400000));
    bench.step(1400);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 1@1400"));
    QCOMPARE(other.take(), QStringLiteral("runs"));
}

void tst_ClockOutputs::clockThatStops_isTold()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(900);
    bench.clock.Restart(1100000);
    bench.step(1600);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 0@1000 stands"));
    bench.step(2600);
    QCOMPARE(bench.log.take(), QString());
}

void tst_ClockOutputs::lateOutput_getsItsLastTicks()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 300000);
    bench.step(900);
    bench.clock.Restart(1100000);
    bench.step(1200);
    QCOMPARE(bench.log.take(), QStringLiteral("runs"));
    bench.step(1300);
    QCOMPARE(bench.log.take(), QStringLiteral("0@1300 stands"));
}

void tst_ClockOutputs::clockThatBeginsAnew_isTold_evenBetweenTwoSteps()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(1000);
    bench.clock.Restart(1100000);
    bench.clock.HoldAt(60.0, 1200000);
    const qint64 first = bench.clock.getState().firstBeat;
    QVERIFY(first > 1);
    bench.step(1200);
    QCOMPARE(bench.log.take(), QStringLiteral("runs stands runs %1@1200").arg(first));
}

void tst_ClockOutputs::oldTicks_areLostAndCounted()
{
    Bench bench;
    bench.outputs.Add(bench.log, 1, 0);
    bench.step(1000);
    QCOMPARE(bench.outputs.getLostCount(), quint64(0));
    // Beats 1 to 18 fell due between 1.5 s and 10 s; those from 9 s on are still wanted.
    bench.step(10000);
    QCOMPARE(bench.log.take(), QStringLiteral("runs 16@9000 17@9500 18@10000"));
    QCOMPARE(bench.outputs.getLostCount(), quint64(15));
}

AA_TEST(tst_ClockOutputs, NoApplication)
#include "tst_ClockOutputs.moc"
