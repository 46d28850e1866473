// SPDX-License-Identifier: MIT
#include "ClockBench.h"
#include "ClockHandTest.h"

#include <QtTest>

#include <support/TestClass.h>

/// Other tempi by hand: factors, whole ones, and one that is held.
class tst_BeatClock_hold : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scale_doubles();
    void scale_halves_onTheOne();
    void scale_byThreeHalvesAndBack_isNothing();
    void scale_isFollowed();
    void scale_isRefused_outsideTheLimits();
    void round_takesTheNearestWholeTempo();
    void hold_keepsTheTempo_whateverTheMusicDoes();
    void hold_isRefused_withoutATempo();
    void heldTempo_startsTheClock();
    void heldTempo_goesOnFromWhereTheClockIs();
    void taps_setAHeldTempo();
    void release_givesTheClockBack();
    void release_stopsTheClock_whenTheMusicHasStopped();
};

// The beat at 5 s is number 8, and a one.
void tst_BeatClock_hold::scale_doubles()
{
    PlayingBench bench;
    QVERIFY(bench.clock.Scale(2, 1, 5000000));
    const BeatClockState state = bench.state();
    QCOMPARE(state.bpm, 240.0);
    QCOMPARE(state.numerator, 2);
    QCOMPARE(bench.position(5000), 8.0);
    QCOMPARE(state.getBeatInBar(8), 0);
    QCOMPARE(bench.next(5000), qint64(5250));
    QCOMPARE(state.epoch, quint32(0));
}

// At the beat at 5.5 s, number 9: the one at 5 s stays a beat, so the next is at 6 s.
void tst_BeatClock_hold::scale_halves_onTheOne()
{
    PlayingBench bench;
    bench.clock.MarkOne(5000000);
    QVERIFY(bench.clock.Scale(1, 2, 5500000));
    QCOMPARE(bench.bpm(), 60.0);
    QCOMPARE(bench.next(5500), qint64(6000));
    const qint64 beat = bench.state().getNextTick(5500000);
    QCOMPARE(beat, qint64(10));
    QCOMPARE(bench.state().getBeatInBar(beat), 1);
    QCOMPARE(bench.state().denominator, 2);
}

void tst_BeatClock_hold::scale_byThreeHalvesAndBack_isNothing()
{
    PlayingBench bench;
    QVERIFY(bench.clock.Scale(3, 2, 5000000));
    QCOMPARE(bench.bpm(), 180.0);
    QCOMPARE(bench.next(5000), qint64(5333));
    QVERIFY(bench.clock.Scale(2, 3, 5000000));
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.next(5000), qint64(5500));
    QCOMPARE(bench.state().getBeatInBar(8), 0);
    QCOMPARE(bench.state().numerator, 1);
    QCOMPARE(bench.state().denominator, 1);
}

void tst_BeatClock_hold::scale_isFollowed()
{
    PlayingBench bench;
    bench.clock.Scale(1, 2, 5000000);
    const qint64 next = bench.hear(5000, 40, 505);
    QVERIFY(qAbs(bench.bpm() - 30e3 / 505.0) < 0.01);
    // Beats of the clock fall on every other one of the music.
    const double position = bench.state().then.getPosition(next * 1000);
    QVERIFY(qAbs(position - 8.0 - 20.0) < 0.01);
    QCOMPARE(bench.state().epoch, quint32(0));
}

void tst_BeatClock_hold::scale_isRefused_outsideTheLimits()
{
    ClockBench standing;
    QVERIFY(!standing.clock.Scale(2, 1, 0));
    PlayingBench bench;
    QVERIFY(!bench.clock.Scale(0, 1, 5000000));
    QVERIFY(!bench.clock.Scale(1, 0, 5000000));
    QVERIFY(!bench.clock.Scale(65, 1, 5000000));
    QVERIFY(!bench.clock.Scale(9, 1, 5000000));   // 1080 BPM
    QVERIFY(!bench.clock.Scale(1, 13, 5000000));  // 9.2 BPM
    QVERIFY(bench.clock.Scale(63, 64, 5000000));
    QVERIFY(!bench.clock.Scale(63, 64, 5000000));  // 3969/4096
    QCOMPARE(bench.bpm(), 120.0 * 63.0 / 64.0);
}

void tst_BeatClock_hold::round_takesTheNearestWholeTempo()
{
    ClockBench bench;
    QVERIFY(!bench.clock.Round(0));
    QVERIFY(bench.clock.HoldAt(127.6, 1000000));
    const double before = bench.position(3000);
    QVERIFY(bench.clock.Round(3000000));
    QCOMPARE(bench.bpm(), 128.0);
    QVERIFY(qAbs(bench.position(3000) - before) < 1e-6);
    QVERIFY(qAbs(bench.position(63000) - before - 128.0) < 1e-5);
    // Music goes on from there.
    PlayingBench playing;
    playing.hear(playing.next120, 20, 503);
    QVERIFY(playing.clock.Round(20000000));
    QCOMPARE(playing.bpm(), 119.0);
    QVERIFY(playing.clock.Scale(2, 1, 20000000));
    QVERIFY(playing.clock.Round(20000000));
    QCOMPARE(playing.bpm(), 238.0);
}

void tst_BeatClock_hold::hold_keepsTheTempo_whateverTheMusicDoes()
{
    PlayingBench bench;
    QVERIFY(bench.clock.Hold(5000000));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Held));
    bench.hear(5130, 40, 430);
    bench.clock.setPlaying(false, 30000000);
    QVERIFY(bench.state().isRunning());
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.next(100000), qint64(100500));
    QCOMPARE(bench.state().epoch, quint32(0));
}

void tst_BeatClock_hold::hold_isRefused_withoutATempo()
{
    ClockBench bench;
    QVERIFY(!bench.clock.Hold(0));
    QVERIFY(!bench.clock.HoldAt(9.9, 0));
    QVERIFY(!bench.clock.HoldAt(1000.0, 0));
    QVERIFY(!bench.clock.HoldAt(qQNaN(), 0));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
}

void tst_BeatClock_hold::heldTempo_startsTheClock()
{
    ClockBench bench;
    QVERIFY(bench.clock.HoldAt(125.0, 2000000));
    QCOMPARE(bench.next(1999), qint64(2000));
    QCOMPARE(bench.next(2000), qint64(2480));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Held));
}

void tst_BeatClock_hold::heldTempo_goesOnFromWhereTheClockIs()
{
    PlayingBench bench;
    QVERIFY(bench.clock.HoldAt(60.0, 5250000));
    QCOMPARE(bench.position(5250), 8.5);
    QCOMPARE(bench.next(5250), qint64(5750));
    QCOMPARE(bench.next(5750), qint64(6750));
}

void tst_BeatClock_hold::taps_setAHeldTempo()
{
    PlayingBench bench;
    bench.clock.Hold(5000000);
    bench.tap(6000);
    bench.tap(6400);
    QCOMPARE(bench.bpm(), 150.0);
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Held));
    bench.hear(6600, 40, 500);
    QCOMPARE(bench.bpm(), 150.0);
}

// The held grid is 200 ms beside the music, which is doubted once.
void tst_BeatClock_hold::release_givesTheClockBack()
{
    PlayingBench bench;
    bench.clock.Hold(5000000);
    const qint64 next = bench.hear(5200, 8, 500);
    QCOMPARE(bench.next(next - 100), next + 300);
    bench.clock.Release((next - 1) * 1000);
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
    bench.beat(next);
    QCOMPARE(bench.next(next), next + 300);
    bench.beat(next + 500);
    QCOMPARE(bench.next(next + 500), next + 1000);
    bench.clock.Release((next + 600) * 1000);
    QCOMPARE(bench.next(next + 600), next + 1000);
}

void tst_BeatClock_hold::release_stopsTheClock_whenTheMusicHasStopped()
{
    PlayingBench bench;
    bench.clock.Hold(5000000);
    bench.clock.setPlaying(false, 6000000);
    bench.clock.Release(7000000);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.next(6999), qint64(7000));
    QCOMPARE(bench.next(7000), ClockBench::kNever);
    bench.clock.setPlaying(true, 8000000);
    bench.beat(9100, 100.0);
    QCOMPARE(bench.bpm(), 100.0);
    QCOMPARE(bench.next(9100), qint64(9700));
}

AA_TEST(tst_BeatClock_hold, NoApplication)
#include "tst_BeatClock_hold.moc"
