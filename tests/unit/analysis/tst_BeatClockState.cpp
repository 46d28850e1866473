// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>

#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

namespace {

constexpr qint64 kNever = BEATCLOCK_NEVER;

/// Beat 10 at 1 s, then two beats of 400 ms to catch up, and beats of 500 ms from 1.8 s on.
BeatClockState CatchingUp()
{
    BeatClockState state = {};
    state.now = {1000000, 10.0, 400000.0};
    state.then = {1800000, 12.0, 500000.0};
    state.endTime = kNever;
    state.oneBeat = 10;
    state.beatsPerBar = 4;
    state.bpm = 120.0;
    state.heardTime = 1000000;
    state.sureness = 0.8;
    return state;
}

}  // namespace

/// What follows from a state. Times in microseconds, worked out by hand.
class tst_BeatClockState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticks_areDueOnTheirLines_data();
    void ticks_areDueOnTheirLines();
    void nextTick_isTheFirstBehindAnInstant_data();
    void nextTick_isTheFirstBehindAnInstant();
    void beatAndPhase_areThoseOfTheInstant_data();
    void beatAndPhase_areThoseOfTheInstant();
    void offsets_areAdded();
    void bar_isCountedFromTheOne_data();
    void bar_isCountedFromTheOne();
    void nothingIsDue_behindTheEnd();
    void nothingIsDue_withoutATempo();
    void sureness_fadesWhileTheMusicIsInCharge();
    void ticks_areCountedWithoutGaps_forRandomStates();
};

void tst_BeatClockState::ticks_areDueOnTheirLines_data()
{
    QTest::addColumn<qint64>("tick");
    QTest::addColumn<int>("division");
    QTest::addColumn<qint64>("time");
    QTest::newRow("beat") << qint64(10) << 1 << qint64(1000000);
    QTest::newRow("before") << qint64(9) << 1 << qint64(600000);
    QTest::newRow("fast beat") << qint64(11) << 1 << qint64(1400000);
    QTest::newRow("last of the fast") << qint64(12) << 1 << qint64(1800000);
    QTest::newRow("steady beat") << qint64(13) << 1 << qint64(2300000);
    QTest::newRow("half a beat") << qint64(21) << 2 << qint64(1200000);
    QTest::newRow("a 24th, rounded up") << qint64(241) << 24 << qint64(1016667);
    QTest::newRow("six of 24") << qint64(12 * 24 + 6) << 24 << qint64(1925000);
    QTest::newRow("far") << qint64(1000012) << 1 << qint64(500001800000);
    QTest::newRow("below zero") << qint64(-1) << 2 << qint64(1000000 - 4200000);
}

void tst_BeatClockState::ticks_areDueOnTheirLines()
{
    QFETCH(const qint64, tick);
    QFETCH(const int, division);
    QFETCH(const qint64, time);
    QCOMPARE(qint64(CatchingUp().getTickTime(tick, division)), time);
}

void tst_BeatClockState::nextTick_isTheFirstBehindAnInstant_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<int>("division");
    QTest::addColumn<qint64>("tick");
    QTest::newRow("on a beat") << qint64(1400000) << 1 << qint64(12);
    QTest::newRow("just before") << qint64(1399999) << 1 << qint64(11);
    QTest::newRow("on the last fast one") << qint64(1800000) << 1 << qint64(13);
    QTest::newRow("just before that") << qint64(1799999) << 1 << qint64(12);
    QTest::newRow("on a rounded tick") << qint64(1016667) << 24 << qint64(242);
    QTest::newRow("between it and its place") << qint64(1016666) << 24 << qint64(241);
    QTest::newRow("long ago") << qint64(-3200000) << 2 << qint64(0);
}

void tst_BeatClockState::nextTick_isTheFirstBehindAnInstant()
{
    QFETCH(const qint64, time);
    QFETCH(const int, division);
    QFETCH(const qint64, tick);
    QCOMPARE(qint64(CatchingUp().getNextTick(time, division)), tick);
}

void tst_BeatClockState::beatAndPhase_areThoseOfTheInstant_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<qint64>("beat");
    QTest::addColumn<double>("phase");
    QTest::newRow("on a beat") << qint64(1000000) << qint64(10) << 0.0;
    QTest::newRow("half of a fast one") << qint64(1200000) << qint64(10) << 0.5;
    QTest::newRow("a quarter of a steady one") << qint64(1925000) << qint64(12) << 0.25;
    QTest::newRow("before") << qint64(900000) << qint64(9) << 0.75;
}

void tst_BeatClockState::beatAndPhase_areThoseOfTheInstant()
{
    QFETCH(const qint64, time);
    QFETCH(const qint64, beat);
    QFETCH(const double, phase);
    QCOMPARE(qint64(CatchingUp().getBeat(time)), beat);
    QCOMPARE(CatchingUp().getPhase(time), phase);
    QCOMPARE(CatchingUp().getPosition(time), double(beat) + phase);
}

void tst_BeatClockState::offsets_areAdded()
{
    BeatClockState state = CatchingUp();
    state.offset = -300000;
    QCOMPARE(qint64(state.getTickTime(11)), qint64(1100000));
    QCOMPARE(qint64(state.getTickTime(11, 1, 250000)), qint64(1350000));
    QCOMPARE(qint64(state.getTickTime(22, 2, -100000)), qint64(1000000));
    QCOMPARE(qint64(state.getNextTick(1100000)), qint64(12));
    QCOMPARE(qint64(state.getNextTick(1099999)), qint64(11));
    QCOMPARE(qint64(state.getBeat(1350000, 250000)), qint64(11));
    QCOMPARE(state.getPosition(1150000, 250000), 10.5);
}

void tst_BeatClockState::bar_isCountedFromTheOne_data()
{
    QTest::addColumn<int>("beatsPerBar");
    QTest::addColumn<qint64>("beat");
    QTest::addColumn<int>("place");
    QTest::newRow("one") << 4 << qint64(10) << 0;
    QTest::newRow("four") << 4 << qint64(13) << 3;
    QTest::newRow("next one") << 4 << qint64(14) << 0;
    QTest::newRow("before") << 4 << qint64(9) << 3;
    QTest::newRow("long before") << 4 << qint64(-6) << 0;
    QTest::newRow("waltz") << 3 << qint64(12) << 2;
    QTest::newRow("twelve") << 12 << qint64(9) << 11;
    QTest::newRow("two") << 2 << qint64(13) << 1;
}

void tst_BeatClockState::bar_isCountedFromTheOne()
{
    QFETCH(const int, beatsPerBar);
    QFETCH(const qint64, beat);
    BeatClockState state = CatchingUp();
    state.beatsPerBar = beatsPerBar;
    QTEST(int(state.getBeatInBar(beat)), "place");
}

void tst_BeatClockState::nothingIsDue_behindTheEnd()
{
    BeatClockState state = CatchingUp();
    QVERIFY(state.isRunning());
    state.endTime = 1400000;
    QVERIFY(!state.isRunning());
    QCOMPARE(qint64(state.getTickTime(11)), qint64(1400000));
    QCOMPARE(qint64(state.getTickTime(11, 1, 400000)), qint64(1800000));
    QCOMPARE(qint64(state.getTickTime(12)), kNever);
    QCOMPARE(qint64(state.getTickTime(12, 1, -500000)), kNever);
    QCOMPARE(state.getPosition(9000000), 11.0);
    QCOMPARE(qint64(state.getBeat(9000000)), qint64(11));
    QCOMPARE(state.getPhase(9000000), 0.0);
    QCOMPARE(qint64(state.getNextTick(9000000, 24)), qint64(11 * 24 + 1));
}

void tst_BeatClockState::nothingIsDue_withoutATempo()
{
    const BeatClockState state = {};
    QVERIFY(!state.isRunning());
    QCOMPARE(qint64(state.getTickTime(0)), kNever);
    QCOMPARE(state.getPosition(1000000), 0.0);
    QCOMPARE(qint64(state.getBeat(1000000)), qint64(0));
    QCOMPARE(qint64(state.getNextTick(1000000, 24)), qint64(1));
    QCOMPARE(state.getSureness(1000000), 0.0);
}

void tst_BeatClockState::sureness_fadesWhileTheMusicIsInCharge()
{
    BeatClockState state = CatchingUp();
    QCOMPARE(state.getSureness(1900000), 0.8);
    QCOMPARE(state.getSureness(2000000), 0.7);
    state.charge = BeatClockCharge_Hand;
    QCOMPARE(state.getSureness(2000000), 1.0);
    state.charge = BeatClockCharge_Held;
    QCOMPARE(state.getSureness(2000000), 1.0);
}

// The next tick of every instant is due behind it, and the one before is not.
void tst_BeatClockState::ticks_areCountedWithoutGaps_forRandomStates()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 20000; ++run) {
        BeatClockState state = CatchingUp();
        const double period = random.uniform(60061.0, 6e6);
        const qint64 start = random.chance(0.5) ? 0 : Q_INT64_C(1700000000000000);
        const qint64 length = qint64(random.below(3000000));
        state.now = {start, random.uniform(-100.0, 1e6), period * random.uniform(0.7, 1.9)};
        state.then = {start + length, state.now.getPosition(start + length), period};
        state.offset = random.between(-500000, 500000);
        const int division = random.between(1, 96);
        const qint64 offset = random.between(-500000, 500000);
        const qint64 time = start + qint64(random.below(8000000)) - 2000000;
        const qint64 tick = state.getNextTick(time, division, offset);
        QVERIFY(state.getTickTime(tick, division, offset) > time);
        QVERIFY(state.getTickTime(tick - 1, division, offset) <= time);
        QCOMPARE(
            qint64(state.getNextTick(state.getTickTime(tick, division, offset), division, offset)),
            tick + 1);
        QVERIFY(state.getPhase(time, offset) >= 0.0 && state.getPhase(time, offset) < 1.0);
    }
}

AA_TEST(tst_BeatClockState, NoApplication)
#include "tst_BeatClockState.moc"
