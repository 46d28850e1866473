// SPDX-License-Identifier: MIT
#include "ClockBench.h"

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// A bench whose clock follows music of 120 BPM from 1 s on; the beat at m_next is to come.
struct PlayingBench : ClockBench
{
    PlayingBench() { next120 = hear(1000, 8, 500); }

    bool tap(qint64 pTime) { return clock.Tap(pTime * 1000); }

    qint64 next120 = 0;  ///< ms; beat 8
};

}  // namespace

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

// The beat at 5 s is number 8, and a one.
void tst_BeatClock_hand::scale_doubles()
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
void tst_BeatClock_hand::scale_halves_onTheOne()
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

void tst_BeatClock_hand::scale_byThreeHalvesAndBack_isNothing()
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

void tst_BeatClock_hand::scale_isFollowed()
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

void tst_BeatClock_hand::scale_isRefused_outsideTheLimits()
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

void tst_BeatClock_hand::round_takesTheNearestWholeTempo()
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

void tst_BeatClock_hand::hold_keepsTheTempo_whateverTheMusicDoes()
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

void tst_BeatClock_hand::hold_isRefused_withoutATempo()
{
    ClockBench bench;
    QVERIFY(!bench.clock.Hold(0));
    QVERIFY(!bench.clock.HoldAt(9.9, 0));
    QVERIFY(!bench.clock.HoldAt(1000.0, 0));
    QVERIFY(!bench.clock.HoldAt(qQNaN(), 0));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
}

void tst_BeatClock_hand::heldTempo_startsTheClock()
{
    ClockBench bench;
    QVERIFY(bench.clock.HoldAt(125.0, 2000000));
    QCOMPARE(bench.next(1999), qint64(2000));
    QCOMPARE(bench.next(2000), qint64(2480));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Held));
}

void tst_BeatClock_hand::heldTempo_goesOnFromWhereTheClockIs()
{
    PlayingBench bench;
    QVERIFY(bench.clock.HoldAt(60.0, 5250000));
    QCOMPARE(bench.position(5250), 8.5);
    QCOMPARE(bench.next(5250), qint64(5750));
    QCOMPARE(bench.next(5750), qint64(6750));
}

void tst_BeatClock_hand::taps_setAHeldTempo()
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
void tst_BeatClock_hand::release_givesTheClockBack()
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

void tst_BeatClock_hand::release_stopsTheClock_whenTheMusicHasStopped()
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

AA_TEST(tst_BeatClock_hand, NoApplication)
#include "tst_BeatClock_hand.moc"
