// SPDX-License-Identifier: MIT
#include "ClockBench.h"
#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

/// Music that stops, begins anew, or is of no use.
class tst_BeatClock_stops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void musicThatStops_stopsTheClock();
    void musicThatStops_doesNotStopTheClock_whenItGoesOn();
    void clockThatWentOn_stops_whenItIsToldTo();
    void newSong_startsTheClockAtOnce();
    void newSong_isBelievedAtItsFirstBeat_whenTheClockWentOn();
    void beatsOfNoUse_areNotHeard();
    void present_neverGoesBack();
    void restart_forgetsMusicButNotSettings();
    void settings_haveLimits();
};

void tst_BeatClock_stops::musicThatStops_stopsTheClock()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, (next + 250) * 1000);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.state().isPlaying, 0);
    QCOMPARE(bench.next(next - 1), next);
    QCOMPARE(bench.next(next), ClockBench::kNever);
    QCOMPARE(bench.position(next + 60000), 8.5);
    QCOMPARE(bench.bpm(), 120.0);
}

void tst_BeatClock_stops::musicThatStops_doesNotStopTheClock_whenItGoesOn()
{
    ClockBench bench;
    bench.clock.setGoingOn(true, 0);
    QVERIFY(bench.clock.isGoingOn());
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, (next + 250) * 1000);
    QVERIFY(bench.state().isRunning());
    QCOMPARE(bench.next(next + 60000), next + 60500);
}

void tst_BeatClock_stops::clockThatWentOn_stops_whenItIsToldTo()
{
    ClockBench bench;
    bench.clock.setGoingOn(true, 0);
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, next * 1000);
    bench.clock.setGoingOn(false, (next + 1000) * 1000);
    QCOMPARE(bench.next(next + 999), next + 1000);
    QCOMPARE(bench.next(next + 1000), ClockBench::kNever);
}

// Numbers go on behind all that an output half a second ahead may have told.
void tst_BeatClock_stops::newSong_startsTheClockAtOnce()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, next * 1000);
    bench.clock.setPlaying(true, (next + 2000) * 1000);
    QVERIFY(!bench.state().isRunning());
    bench.beat(next + 3210, 100.0);
    const BeatClockState state = bench.state();
    QCOMPARE(state.run, quint32(2));
    QCOMPARE(state.bpm, 100.0);
    QVERIFY(state.firstBeat > 8 + 17);  // a second at 999 BPM is less than 17 beats
    QCOMPARE(bench.position(next + 3210), double(state.firstBeat));
    QCOMPARE(state.getBeatInBar(state.firstBeat), 0);
    QCOMPARE(bench.next(next + 3210), next + 3810);
}

void tst_BeatClock_stops::newSong_isBelievedAtItsFirstBeat_whenTheClockWentOn()
{
    ClockBench bench;
    bench.clock.setGoingOn(true, 0);
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, next * 1000);
    bench.clock.setPlaying(true, (next + 2000) * 1000);
    bench.beat(next + 3210, 100.0);
    QCOMPARE(bench.state().run, quint32(1));
    QCOMPARE(bench.next(next + 3210), next + 3810);
    QCOMPARE(bench.position(next + 3210), 14.0);  // it was 14.42
}

void tst_BeatClock_stops::beatsOfNoUse_areNotHeard()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    const qint64 now = next * 1000;
    bench.clock.Hear({now - 500000, 120.0}, now);   // the last one again
    bench.clock.Hear({now - 700000, 120.0}, now);   // before it
    bench.clock.Hear({now + 5000001, 150.0}, now);  // far away
    bench.clock.Hear({now, qQNaN(), qQNaN()}, now);
    bench.clock.Hear({now + 500000, qInf(), 7.0}, now + 500000);
    bench.clock.Hear({now + 1000000, 5.0, -1.0}, now + 1000000);
    QCOMPARE(bench.bpm(), 120.0);
    QCOMPARE(bench.next(next + 1000), next + 1500);
    QVERIFY(bench.state().sureness >= 0.0 && bench.state().sureness <= 1.0);
}

void tst_BeatClock_stops::present_neverGoesBack()
{
    ClockBench bench;
    const qint64 next = bench.hear(1000, 8, 500);
    bench.clock.setPlaying(false, 2000);
    QCOMPARE(qint64(bench.state().endTime), (next - 500) * 1000);
}

void tst_BeatClock_stops::restart_forgetsMusicButNotSettings()
{
    ClockBench bench;
    QVERIFY(bench.clock.setBeatsPerBar(3));
    QVERIFY(bench.clock.setOffset(-1000));
    const qint64 next = bench.hear(1000, 8, 500);
    QVERIFY(bench.clock.Scale(2, 1, next * 1000));
    QVERIFY(bench.clock.Hold(next * 1000));
    bench.clock.Restart(next * 1000);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.state().charge, int(BeatClockCharge_Music));
    QCOMPARE(bench.clock.getBeatsPerBar(), 3);
    QCOMPARE(qint64(bench.clock.getOffset()), qint64(-1000));
    bench.beat(next + 100, 100.0);
    QCOMPARE(bench.bpm(), 100.0);
    QCOMPARE(bench.state().run, quint32(2));
}

void tst_BeatClock_stops::settings_haveLimits()
{
    BeatClock clock;
    QVERIFY(!clock.setBeatsPerBar(1));
    QVERIFY(!clock.setBeatsPerBar(13));
    QCOMPARE(clock.getBeatsPerBar(), 4);
    QVERIFY(clock.setBeatsPerBar(2));
    QVERIFY(clock.setBeatsPerBar(12));
    QCOMPARE(clock.getState().beatsPerBar, 12);
    QVERIFY(!clock.setSlew(0.0009));
    QVERIFY(!clock.setSlew(0.51));
    QVERIFY(!clock.setSlew(qQNaN()));
    QCOMPARE(clock.getSlew(), 0.05);
    QVERIFY(clock.setSlew(0.001));
    QVERIFY(clock.setSlew(0.5));
    QVERIFY(!clock.setOffset(500001));
    QVERIFY(!clock.setOffset(-500001));
    QVERIFY(clock.setOffset(500000));
    QVERIFY(clock.setOffset(-500000));
    QCOMPARE(qint64(clock.getState().offset), qint64(-500000));
    QVERIFY(!clock.isGoingOn());
}

AA_TEST(tst_BeatClock_stops, NoApplication)
#include "tst_BeatClock_stops.moc"
