// SPDX-License-Identifier: MIT
#include "ClockBench.h"
#include "ClockHandTest.h"

#include <QtTest>

#include <support/TestClass.h>

/// The clock and the hand. Times in milliseconds, worked out by hand.
class tst_BeatClock_hand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void taps_setTempoAndPhase_fromTheSecondOn();
    void taps_areMeantTogether();
    void taps_moveAClockThatRuns();
    void hand_isInChargeForEightBeats();
    void music_comesBackAtTheTempoOfTheHand();
    void hand_staysInCharge_whileTheMusicHasStopped();
    void nudge_movesTheBeatsForGood();
    void nudge_isHalfASecondAtMost_withMusic();
    void nudge_endsWithTheSong();
    void nudge_isNothing_forAClockThatStands();
    void bend_runsFasterWhileItIsHeld();
    void bend_hasLimits();
    void one_isTheNearestBeat();
    void one_isTheHands_untilANewSong();
};

void tst_BeatClock_hand::taps_setTempoAndPhase_fromTheSecondOn()
{
    PlayingBench bench;
    bench.clock.Restart(5000000);
    QVERIFY(!bench.tap(6000));
    QVERIFY(!bench.state().isRunning());
    QVERIFY(!bench.tap(6050));  // a bounce
    QVERIFY(bench.tap(6600));
    QCOMPARE(bench.bpm(), 100.0);
    QCOMPARE(bench.next(6599), qint64(6600));
    QCOMPARE(bench.next(6600), qint64(7200));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Hand));
    QCOMPARE(bench.state().getSureness(99000000), 1.0);
}

void tst_BeatClock_hand::taps_areMeantTogether()
{
    // Three at a steady beat, then one 40 ms late: the beat is where the others mean it.
    PlayingBench bench;
    for (const qint64 time : {6000, 6400, 6800, 7240})
        bench.tap(time);
    QCOMPARE(bench.bpm(), 150.0);
    QCOMPARE(bench.next(7240), qint64(7600));
}

void tst_BeatClock_hand::taps_moveAClockThatRuns()
{
    PlayingBench bench;
    bench.tap(bench.next120 + 200);
    QVERIFY(bench.tap(bench.next120 + 700));
    QCOMPARE(bench.position(bench.next120 + 700), 9.0);  // it was 9.4
    QCOMPARE(bench.state().epoch, quint32(1));
    QCOMPARE(bench.state().run, quint32(1));
}

// Taps 200 ms beside the music; eight beats are over at 9.7 s.
void tst_BeatClock_hand::hand_isInChargeForEightBeats()
{
    PlayingBench bench;
    bench.tap(5200);
    bench.tap(5700);
    bench.hear(6000, 8, 500);
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Hand));
    QCOMPARE(bench.next(9500), qint64(9700));
    // Then the music is doubted once, and believed.
    bench.beat(10000);
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
    QCOMPARE(bench.next(10000), qint64(10200));
    bench.beat(10500);
    QCOMPARE(bench.next(10500), qint64(11000));
}

// The tracker says 87 BPM, the hand taps twice that.
void tst_BeatClock_hand::music_comesBackAtTheTempoOfTheHand()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 700);
    for (int i = 0; i < 5; ++i)
        bench.clock.Tap((next + i * 350) * 1000);
    const qint64 after = bench.hear(next, 10, 700);
    const BeatClockState state = bench.state();
    QCOMPARE(state.charge, int(BeatClockCharge_Music));
    QCOMPARE(state.numerator, 2);
    QCOMPARE(state.denominator, 1);
    QCOMPARE(state.bpm, 60e3 / 350.0);
    QCOMPARE(bench.next(after - 700), after - 350);
}

void tst_BeatClock_hand::hand_staysInCharge_whileTheMusicHasStopped()
{
    PlayingBench bench;
    bench.tap(5200);
    bench.tap(5700);
    bench.clock.setPlaying(false, 6000000);
    QVERIFY(bench.state().isRunning());
    bench.beat(20000);
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Hand));
    QCOMPARE(bench.next(20000), qint64(20200));
}

void tst_BeatClock_hand::nudge_movesTheBeatsForGood()
{
    PlayingBench bench;
    const double before = bench.position(bench.next120);
    bench.clock.Nudge(10000, bench.next120 * 1000);
    QVERIFY(qAbs(bench.position(bench.next120) - before) < 1e-6);
    QCOMPARE(bench.next(bench.next120 + 400), bench.next120 + 510);
    QCOMPARE(bench.state().epoch, quint32(0));
    const qint64 next = bench.hear(bench.next120 + 500, 8, 500);
    QCOMPARE(bench.next(next - 100), next + 10);
    bench.clock.Nudge(-15000, next * 1000);
    QCOMPARE(bench.next(next + 1100), next + 1495);
}

void tst_BeatClock_hand::nudge_isHalfASecondAtMost_withMusic()
{
    PlayingBench bench;
    bench.clock.setSlew(0.5);
    for (int i = 0; i < 10; ++i)
        bench.clock.Nudge(90000, bench.next120 * 1000);
    // 500 ms is a whole beat, which numbers show.
    QCOMPARE(bench.position(bench.next120 + 10000), 27.0);
    bench.clock.Hold((bench.next120 + 10000) * 1000);
    for (int i = 0; i < 10; ++i)
        bench.clock.Nudge(90000, (bench.next120 + 10000) * 1000);
    QCOMPARE(bench.position(bench.next120 + 20000), 47.0 - 1.8);
}

void tst_BeatClock_hand::nudge_endsWithTheSong()
{
    PlayingBench bench;
    bench.clock.Nudge(30000, bench.next120 * 1000);
    bench.beat(bench.next120 + 200);
    bench.beat(bench.next120 + 700);
    QCOMPARE(bench.next(bench.next120 + 700), bench.next120 + 1200);
}

void tst_BeatClock_hand::nudge_isNothing_forAClockThatStands()
{
    ClockBench bench;
    bench.clock.Nudge(30000, 0);
    bench.clock.MarkOne(0);
    bench.beat(1000);
    QCOMPARE(bench.next(1000), qint64(1500));
}

// A tenth faster for two seconds: 200 ms earlier, from then on too.
void tst_BeatClock_hand::bend_runsFasterWhileItIsHeld()
{
    PlayingBench bench;
    QVERIFY(bench.clock.Bend(0.1, bench.next120 * 1000));
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.position(bench.next120 + 1000), 8.0 + 2.2);
    const qint64 next = bench.hear(bench.next120 + 500, 3, 500);
    QVERIFY(bench.clock.Bend(0.0, next * 1000));
    QVERIFY(qAbs(bench.position(next) - 12.4) < 1e-5);
    QVERIFY(qAbs(bench.position(next + 60000) - 132.4) < 1e-5);
    QCOMPARE(bench.state().epoch, quint32(0));
    QVERIFY(bench.clock.Bend(-0.1, (next + 1000) * 1000));
    QVERIFY(bench.clock.Bend(0.0, (next + 3000) * 1000));
    QVERIFY(qAbs(bench.position(next + 60000) - 132.0) < 1e-5);
}

void tst_BeatClock_hand::bend_hasLimits()
{
    PlayingBench bench;
    QVERIFY(!bench.clock.Bend(0.51, 9000000));
    QVERIFY(!bench.clock.Bend(-0.51, 9000000));
    QVERIFY(!bench.clock.Bend(qQNaN(), 9000000));
    QCOMPARE(bench.next(9000), qint64(9500));
    QVERIFY(bench.clock.Bend(0.5, 9000000));
    QVERIFY(bench.clock.Bend(-0.5, 9000000));
}

void tst_BeatClock_hand::one_isTheNearestBeat()
{
    PlayingBench bench;
    bench.clock.MarkOne((bench.next120 + 240) * 1000);
    QCOMPARE(bench.state().getBeatInBar(8), 0);
    bench.clock.MarkOne((bench.next120 + 260) * 1000);
    QCOMPARE(bench.state().getBeatInBar(9), 0);
    QCOMPARE(bench.state().getBeatInBar(8), 3);
    bench.clock.setBeatsPerBar(7);
    QCOMPARE(bench.state().getBeatInBar(8), 6);
}

void tst_BeatClock_hand::one_isTheHands_untilANewSong()
{
    PlayingBench bench;
    const qint64 next = bench.next120;
    bench.clock.MarkOne((next - 500) * 1000);  // beat 7
    bench.clock.Hear({next * 1000, 120.0, 1.0, false, 0}, next * 1000);
    QCOMPARE(bench.state().getBeatInBar(8), 1);
    bench.clock.Hear({(next + 700) * 1000, 120.0, 1.0, false, 0}, (next + 700) * 1000);
    bench.clock.Hear({(next + 1200) * 1000, 120.0, 1.0, false, 1}, (next + 1200) * 1000);
    QCOMPARE(bench.position(next + 1200), 10.0);
    QCOMPARE(bench.state().getBeatInBar(10), 1);
}

AA_TEST(tst_BeatClock_hand, NoApplication)
#include "tst_BeatClock_hand.moc"
