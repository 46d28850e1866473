// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatCursor.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// Beat 0 at 1 s, then one every 500 ms.
BeatClockState Steady()
{
    BeatClockState state = {};
    state.now = {1000000, 0.0, 500000.0};
    state.then = state.now;
    state.endTime = BEATCLOCK_NEVER;
    state.run = 1;
    return state;
}

/// The same, some µs later.
BeatClockState Moved(qint64 pBy)
{
    BeatClockState state = Steady();
    state.now.time += pBy;
    state.then = state.now;
    return state;
}

}  // namespace

class tst_BeatCursor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticks_areTakenOnceWhenTheyAreDue();
    void ticks_behindAreTakenOneByOne();
    void join_leavesOutWhatIsPast();
    void join_beforeTheFirstRun_waitsForIt();
    void tick_isNotTakenAgain_whenTheClockGoesBack();
    void tick_isNotLost_whenTheClockLeaps();
    void instants_neverGoBack();
    void newRun_beginsWithItsFirstBeat();
    void nothingIsTaken_whileTheClockStands();
    void lateOutput_getsTheBeatsBeforeTheEnd();
    void offset_movesTheNextTick();
};

void tst_BeatCursor::ticks_areTakenOnceWhenTheyAreDue()
{
    const BeatClockState state = Steady();
    BeatCursor cursor;
    cursor.Join(state, 900000);
    QCOMPARE(qint64(cursor.getTime(state)), qint64(1000000));
    QVERIFY(!cursor.Take(state, 999999));
    QVERIFY(cursor.Take(state, 1000000));
    QCOMPARE(qint64(cursor.getTick()), qint64(0));
    QCOMPARE(qint64(cursor.getTickTime()), qint64(1000000));
    QVERIFY(!cursor.Take(state, 1000000));
    QCOMPARE(qint64(cursor.getTime(state)), qint64(1500000));
}

void tst_BeatCursor::ticks_behindAreTakenOneByOne()
{
    const BeatClockState state = Steady();
    BeatCursor cursor(4);
    cursor.Join(state, 900000);
    for (qint64 tick = 0; tick <= 8; ++tick) {
        QVERIFY(cursor.Take(state, 2000000));
        QCOMPARE(qint64(cursor.getTick()), tick);
        QCOMPARE(qint64(cursor.getTickTime()), 1000000 + tick * 125000);
    }
    QVERIFY(!cursor.Take(state, 2000000));
}

void tst_BeatCursor::join_leavesOutWhatIsPast()
{
    const BeatClockState state = Steady();
    BeatCursor cursor(2);
    cursor.Join(state, 2250000);
    QVERIFY(!cursor.Take(state, 2499999));
    QVERIFY(cursor.Take(state, 2500000));
    QCOMPARE(qint64(cursor.getTick()), qint64(6));
}

void tst_BeatCursor::join_beforeTheFirstRun_waitsForIt()
{
    BeatCursor cursor(2);
    cursor.Join(BeatClockState(), 100);
    QCOMPARE(qint64(cursor.getTime(BeatClockState())), qint64(BEATCLOCK_NEVER));
    QVERIFY(!cursor.Take(BeatClockState(), 5000000));
    QVERIFY(cursor.Take(Steady(), 1000000));
    QCOMPARE(qint64(cursor.getTick()), qint64(0));
}

void tst_BeatCursor::tick_isNotTakenAgain_whenTheClockGoesBack()
{
    BeatCursor cursor;
    cursor.Join(Steady(), 1400000);
    QVERIFY(cursor.Take(Steady(), 1500000));
    QCOMPARE(qint64(cursor.getTick()), qint64(1));
    QVERIFY(!cursor.Take(Moved(200000), 1700000));  // beat 1 would be due here once more
    QVERIFY(cursor.Take(Moved(200000), 2200000));
    QCOMPARE(qint64(cursor.getTick()), qint64(2));
}

void tst_BeatCursor::tick_isNotLost_whenTheClockLeaps()
{
    BeatCursor cursor;
    cursor.Join(Steady(), 1400000);
    QVERIFY(cursor.Take(Steady(), 1500000));
    QVERIFY(cursor.Take(Moved(-200000), 1810000));  // beat 2 was due at 1.8 s
    QCOMPARE(qint64(cursor.getTick()), qint64(2));
    QCOMPARE(qint64(cursor.getTickTime()), qint64(1800000));
    QVERIFY(!cursor.Take(Moved(-200000), 2299999));
}

void tst_BeatCursor::instants_neverGoBack()
{
    BeatCursor cursor;
    cursor.Join(Steady(), 1400000);
    QVERIFY(cursor.Take(Steady(), 1500000));
    QVERIFY(cursor.Take(Moved(-900000), 1500000));  // beat 2 would have been due at 1.1 s
    QCOMPARE(qint64(cursor.getTick()), qint64(2));
    QCOMPARE(qint64(cursor.getTickTime()), qint64(1500000));
}

void tst_BeatCursor::newRun_beginsWithItsFirstBeat()
{
    BeatCursor cursor(24);
    cursor.Join(Steady(), 1400000);
    BeatClockState state = Moved(0);
    state.now = {8000000, 40.0, 500000.0};
    state.then = state.now;
    state.run = 2;
    state.firstBeat = 40;
    QVERIFY(!cursor.Take(state, 7999999));
    QVERIFY(cursor.Take(state, 8000000));
    QCOMPARE(qint64(cursor.getTick()), qint64(40 * 24));
    QVERIFY(!cursor.Take(state, 8020832));
    QVERIFY(cursor.Take(state, 8020833));
    QCOMPARE(qint64(cursor.getTick()), qint64(40 * 24 + 1));
}

void tst_BeatCursor::nothingIsTaken_whileTheClockStands()
{
    BeatClockState state = Steady();
    state.endTime = 1600000;
    BeatCursor cursor;
    cursor.Join(state, 1600000);
    QCOMPARE(qint64(cursor.getTime(state)), qint64(BEATCLOCK_NEVER));
    QVERIFY(!cursor.Take(state, 9000000));
}

void tst_BeatCursor::lateOutput_getsTheBeatsBeforeTheEnd()
{
    BeatClockState state = Steady();
    BeatCursor cursor(1, 300000);
    cursor.Join(state, 1600000);
    state.endTime = 1600000;
    QVERIFY(!cursor.Take(state, 1799999));
    QVERIFY(cursor.Take(state, 1800000));
    QCOMPARE(qint64(cursor.getTick()), qint64(1));
    QVERIFY(!cursor.Take(state, 9000000));
}

void tst_BeatCursor::offset_movesTheNextTick()
{
    BeatCursor cursor(1, -200000);
    cursor.Join(Steady(), 1000000);
    QCOMPARE(qint64(cursor.getTime(Steady())), qint64(1300000));
    QVERIFY(cursor.Take(Steady(), 1300000));
    cursor.setOffset(-500000);
    QCOMPARE(qint64(cursor.getTime(Steady())), qint64(1500000));
    cursor.setOffset(500000);
    QCOMPARE(qint64(cursor.getTime(Steady())), qint64(2500000));
    QCOMPARE(cursor.getDivision(), 1);
    QCOMPARE(qint64(cursor.getOffset()), qint64(500000));
}

AA_TEST(tst_BeatCursor, NoApplication)
#include "tst_BeatCursor.moc"
