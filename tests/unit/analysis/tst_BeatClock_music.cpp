// SPDX-License-Identifier: MIT
#include "ClockBench.h"
#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

/// The clock and the music. Times in milliseconds, worked out by hand.
class tst_BeatClock_music : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clock_standsStill_beforeTheFirstBeat();
    void firstBeat_startsTheClock_withItsTempo();
    void firstTwoBeats_startTheClock_withoutATempo();
    void firstBeat_isTheNextOne_whenItIsToldLate();
    void firstBeat_isTheOneForetold();
    void beatThatIsLate_isApproachedBySlewing();
    void beatsBehindTheFirst_areApproachedGently();
    void beats_areFollowed_atATempoThatWasToldWrong();
    void tempo_isThatOfUnevenBeats();
    void missedBeats_changeNothing();
    void virtualBeats_changeNothing();
    void strayBeat_changesNothing();
    void secondBeatInOnePlace_changesNothing();
    void twoBeatsOfANewSong_moveTheClockAtOnce();
    void anotherTempo_isBelieved_atTheSecondBeatThatKeepsIt();
    void doubleTempo_isBelieved_atTheSecondBeat();
    void tempoThatIsToldButNotKept_isNotBelieved();
    void sureness_risesWithBeatsAndFadesWithout();
    void tracker_marksTheOne();
};

void tst_BeatClock_music::clock_standsStill_beforeTheFirstBeat()
{
    const ClockBench bench;
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.bpm(), 0.0);
    QCOMPARE(bench.next(1000), ClockBench::kNever);
    QCOMPARE(bench.state().run, quint32(0));
    QCOMPARE(bench.state().isPlaying, 1);
    QCOMPARE(bench.state().getSureness(0), 0.0);
}

void tst_BeatClock_music::firstBeat_startsTheClock_withItsTempo()
{
    ClockBench bench;
    bench.beat(1000, 150.0);
    QVERIFY(bench.state().isRunning());
    QCOMPARE(bench.bpm(), 150.0);
    QCOMPARE(bench.position(1000), 0.0);
    QCOMPARE(bench.next(999), qint64(1000));
    QCOMPARE(bench.next(1000), qint64(1400));
    QCOMPARE(bench.state().run, quint32(1));
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
}

void tst_BeatClock_music::firstTwoBeats_startTheClock_withoutATempo()
{
    ClockBench bench;
    bench.beat(1000, 0.0);
    QVERIFY(!bench.state().isRunning());
    bench.beat(1400, 0.0);
    QCOMPARE(bench.bpm(), 150.0);
    QCOMPARE(bench.next(1400), qint64(1800));
    // Too far apart for any tempo: the second one is a first one.
    ClockBench slow;
    slow.beat(1000, 0.0);
    slow.beat(8000, 0.0);
    QVERIFY(!slow.state().isRunning());
    slow.beat(8500, 0.0);
    QCOMPARE(slow.bpm(), 120.0);
}

void tst_BeatClock_music::firstBeat_isTheNextOne_whenItIsToldLate()
{
    ClockBench bench;
    bench.clock.Hear({1000000, 120.0}, 1140000);
    QCOMPARE(bench.next(1140), qint64(1500));
    QCOMPARE(bench.position(1500), 0.0);
}

void tst_BeatClock_music::firstBeat_isTheOneForetold()
{
    ClockBench bench;
    bench.clock.Hear({1000000, 120.0}, 930000);
    QCOMPARE(bench.next(930), qint64(1000));
    QCOMPARE(bench.position(1000), 0.0);
}

// The second one, 25 ms late. The tempo that was told counts for one beat before the first, so of a
// line through three, 5/6 of the lateness go into its phase and 1/2 into its period. The clock is
// some 21 ms ahead of it, and makes them good at half its tempo, as the first beats may.
void tst_BeatClock_music::beatThatIsLate_isApproachedBySlewing()
{
    ClockBench bench;
    bench.beat(1000);
    const double before = bench.position(1525);
    bench.beat(1525);
    QVERIFY(qAbs(bench.position(1525) - before) < 1e-6);
    const BeatClockState state = bench.state();
    QCOMPARE(state.epoch, quint32(0));
    QCOMPARE(qint64(state.then.getTime(1.0)), qint64(1520833));
    QCOMPARE(state.then.period, 512500.0);
    QCOMPARE(state.bpm, 60e3 / 512.5);
    const double speed = state.then.period / state.now.period;
    QVERIFY(qAbs(speed - 0.5) < 1e-4);
}

// The five behind the one that a song begins with are its first.
void tst_BeatClock_music::beatsBehindTheFirst_areApproachedGently()
{
    for (const int heard : {5, 6}) {
        ClockBench bench;
        const qint64 next = bench.hear(1000, heard, 500);
        bench.beat(next + 25);
        const BeatClockState state = bench.state();
        QCOMPARE(state.epoch, quint32(0));
        const double speed = state.then.period / state.now.period;
        QVERIFY2(qAbs(speed - (heard == 5 ? 0.5 : 0.95)) < 1e-4,
                 qPrintable(QString::number(speed)));
    }
}

void tst_BeatClock_music::beats_areFollowed_atATempoThatWasToldWrong()
{
    ClockBench bench;
    for (int i = 0; i < 24; ++i)
        bench.beat(1000 + i * 490, i == 0 ? 120.0 : 0.0);
    QCOMPARE(bench.state().epoch, quint32(0));
    QVERIFY(qAbs(bench.bpm() - 60e3 / 490.0) < 0.05);
    QVERIFY(qAbs(bench.position(1000 + 24 * 490) - 24.0) < 0.005);
}

// Up to 15 ms off: the line of 16 has a tempo within a third of a percent, and beats within 10 ms.
void tst_BeatClock_music::tempo_isThatOfUnevenBeats()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 200; ++run) {
        ClockBench bench;
        const double period = random.uniform(300.0, 900.0);
        for (int i = 0; i < 40; ++i)
            bench.beat(qRound64(1000.0 + i * period + random.uniform(-15.0, 15.0)), 60e3 / period);
        QCOMPARE(bench.state().epoch, quint32(0));
        QVERIFY(qAbs(bench.bpm() * period / 60e3 - 1.0) < 3.0 * 15.0 / 16.0 / period);
        const double place = bench.state().then.getPosition(qRound64((1000.0 + 40 * period) * 1e3));
        QVERIFY(qAbs(place - 40.0) * period < 20.0);
    }
}

void tst_BeatClock_music::missedBeats_changeNothing()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next + 30 * 500);
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.state().epoch, quint32(0));
    QCOMPARE(bench.next(next + 30 * 500), next + 31 * 500);
    QCOMPARE(bench.position(next + 30 * 500), 38.0);
}

void tst_BeatClock_music::virtualBeats_changeNothing()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    for (int i = 0; i < 8; ++i)
        bench.clock.Hear({(next + i * 420) * 1000, 143.0, 1.0, true}, (next + i * 420) * 1000);
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.next(next + 3600), next + 4000);
    QCOMPARE(bench.state().epoch, quint32(0));
}

void tst_BeatClock_music::strayBeat_changesNothing()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next - 300);
    bench.beat(next);
    bench.beat(next + 230);
    bench.beat(next + 500);
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.state().epoch, quint32(0));
    QCOMPARE(bench.next(next + 500), next + 1000);
}

void tst_BeatClock_music::secondBeatInOnePlace_changesNothing()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next);
    bench.beat(next + 60);
    QCOMPARE(bench.next(next + 60), next + 500);
    QCOMPARE(bench.bpm(), 120.0);
}

// Same tempo, 200 ms later: the first is doubted, the second is believed.
void tst_BeatClock_music::twoBeatsOfANewSong_moveTheClockAtOnce()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next + 200);
    QCOMPARE(bench.next(next + 200), next + 500);
    QCOMPARE(bench.state().epoch, quint32(0));
    bench.beat(next + 700);
    QCOMPARE(bench.next(next + 700), next + 1200);
    QCOMPARE(bench.state().epoch, quint32(1));
    // 9.4 became 9: beat 9 is told already, and 10 comes next.
    QCOMPARE(bench.position(next + 700), 9.0);
    QCOMPARE(bench.state().run, quint32(1));
}

// Beats of 400 ms, the first of them half a beat off.
void tst_BeatClock_music::anotherTempo_isBelieved_atTheSecondBeatThatKeepsIt()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next + 250, 150.0);
    QCOMPARE(bench.bpm(), 120.0);
    bench.beat(next + 650, 150.0);
    QCOMPARE(bench.bpm(), 150.0);
    QCOMPARE(bench.next(next + 650), next + 1050);
}

void tst_BeatClock_music::doubleTempo_isBelieved_atTheSecondBeat()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.beat(next - 250, 240.0);
    QCOMPARE(bench.bpm(), 120.0);
    bench.beat(next, 240.0);
    QCOMPARE(bench.bpm(), 240.0);
    QCOMPARE(bench.next(next), next + 250);
}

void tst_BeatClock_music::tempoThatIsToldButNotKept_isNotBelieved()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    for (int i = 0; i < 20; ++i)
        bench.beat(next + i * 500, 143.0);
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.state().epoch, quint32(0));
}

void tst_BeatClock_music::sureness_risesWithBeatsAndFadesWithout()
{
    ClockBench bench;
    bench.beat(1000);
    QCOMPARE(bench.state().getSureness(1000000), 0.25);
    bench.beat(1500);
    QCOMPARE(bench.state().getSureness(1500000), 0.25 + 0.75 / 8);
    const qint64 next = bench.hear(2000, 40, 500);
    const BeatClockState state = bench.state();
    QVERIFY(state.sureness > 0.99);
    QCOMPARE(state.getSureness((next + 500) * 1000), state.sureness * 7.0 / 8.0);
    QVERIFY(state.getSureness((next + 60000) * 1000) < 0.001);
    // A tracker that is not sure makes no sure clock.
    ClockBench unsure;
    for (int i = 0; i < 40; ++i)
        unsure.clock.Hear({i * 500000, 120.0, 0.3}, i * 500000);
    QVERIFY(qAbs(unsure.state().sureness - 0.3) < 0.01);
}

void tst_BeatClock_music::tracker_marksTheOne()
{
    ClockBench bench;
    bench.clock.Hear({1000000, 120.0, 1.0, false, 2}, 1000000);
    QCOMPARE(bench.state().getBeatInBar(0), 2);
    bench.clock.Hear({1500000, 120.0, 1.0, false, 3}, 1500000);
    bench.clock.Hear({2000000, 120.0, 1.0, false, 0}, 2000000);
    QCOMPARE(bench.state().getBeatInBar(2), 0);
    bench.clock.Hear({2500000, 120.0, 1.0, false, 3}, 2500000);  // it thinks better of it
    QCOMPARE(bench.state().getBeatInBar(3), 3);
    bench.beat(3000);
    QCOMPARE(bench.state().getBeatInBar(4), 0);
}

AA_TEST(tst_BeatClock_music, NoApplication)
#include "tst_BeatClock_music.moc"
