// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/api/Clock.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>
#include <support/TestClass.h>

namespace {

struct ClockDeleter
{
    void operator()(AudioClock* pClock) const { AudioClock_Destroy(pClock); }
};
using ClockHandle = std::unique_ptr<AudioClock, ClockDeleter>;

constexpr qint64 kFar = (Q_INT64_C(1) << 52) + 1;  ///< µs; no instant

BeatClockState StateOf(const ClockHandle& pClock)
{
    BeatClockState state = {};
    [&] { QCOMPARE(AudioClock_GetState(pClock.get(), &state), AudioAnalysisError_None); }();
    return state;
}

/// A clock that has heard eight beats of 120 BPM; the next is beat 8, at 5 s.
ClockHandle Playing()
{
    ClockHandle clock(AudioClock_Create());
    for (int i = 0; i < 8; ++i) {
        const AudioClockBeat beat = {1000000 + i * 500000, 120.0, 1.0, 0, -1};
        [&] {
            QCOMPARE(AudioClock_Hear(clock.get(), &beat, beat.time), AudioAnalysisError_None);
        }();
    }
    return clock;
}

}  // namespace

/// The C interface of the beat clock, which is a thin layer over the class.
class tst_Clock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clock_followsBeats();
    void clock_stopsWithTheMusic();
    void hand_doesWhatTheClassDoes();
    void taps_setTheTempo();
    void settings_areKept_data();
    void settings_areKept();
    void nullIsRefused();
    void numbersOutsideTheirLimits_areRefused();
    void refusals_changeNothing();
    void stateOfNothing_answersNothing();
};

void tst_Clock::clock_followsBeats()
{
    const ClockHandle clock = Playing();
    const BeatClockState state = StateOf(clock);
    QCOMPARE(AudioClock_IsRunning(&state), 1);
    QCOMPARE(state.bpm, 120.0);
    QCOMPARE(qint64(AudioClock_GetBeat(&state, 5250000, 0)), qint64(8));
    QCOMPARE(AudioClock_GetPhase(&state, 5250000, 0), 0.5);
    QCOMPARE(AudioClock_GetPhase(&state, 5250000, -125000), 0.75);
    QCOMPARE(AudioClock_GetBeatInBar(&state, 9), 1);
    QCOMPARE(qint64(AudioClock_GetNextTick(&state, 5000000, 24, 0)), qint64(8 * 24 + 1));
    QCOMPARE(qint64(AudioClock_GetTickTime(&state, 8 * 24 + 12, 24, 0)), qint64(5250000));
    QCOMPARE(qint64(AudioClock_GetTickTime(&state, 8, 1, 40000)), qint64(5040000));
    QCOMPARE(AudioClock_GetSureness(&state, 4500000), state.sureness);
    // Virtual beats are none.
    const AudioClockBeat beat = {5200000, 150.0, 1.0, 1, -1};
    QCOMPARE(AudioClock_Hear(clock.get(), &beat, 5200000), AudioAnalysisError_None);
    QCOMPARE(qint64(StateOf(clock).heardTime), qint64(4500000));
}

void tst_Clock::clock_stopsWithTheMusic()
{
    const ClockHandle clock = Playing();
    QCOMPARE(AudioClock_SetPlaying(clock.get(), 0, 5100000), AudioAnalysisError_None);
    BeatClockState state = StateOf(clock);
    QCOMPARE(AudioClock_IsRunning(&state), 0);
    QCOMPARE(state.isPlaying, 0);
    QCOMPARE(qint64(AudioClock_GetTickTime(&state, 9, 1, 0)), qint64(BEATCLOCK_NEVER));
    QCOMPARE(AudioClock_SetPlaying(clock.get(), 1, 6000000), AudioAnalysisError_None);
    QCOMPARE(AudioClock_Restart(clock.get(), 7000000), AudioAnalysisError_None);
    QCOMPARE(AudioClock_Hold(clock.get(), 90.0, 8000000), AudioAnalysisError_None);
    state = StateOf(clock);
    QCOMPARE(AudioClock_IsRunning(&state), 1);
    QCOMPARE(state.bpm, 90.0);
    QCOMPARE(state.run, quint32(2));
}

// The same calls on both sides give the same state.
void tst_Clock::hand_doesWhatTheClassDoes()
{
    const ClockHandle clock = Playing();
    BeatClock twin;
    for (int i = 0; i < 8; ++i)
        twin.Hear({1000000 + i * 500000, 120.0}, 1000000 + i * 500000);
    const auto check = [&](AudioAnalysisError pError) {
        QCOMPARE(pError, AudioAnalysisError_None);
        const BeatClockState here = StateOf(clock);
        const BeatClockState there = twin.getState();
        for (const qint64 time : {5000000, 7777777, 60000000})
            QCOMPARE(here.getPosition(time), there.getPosition(time));
        QCOMPARE(here.bpm, there.bpm);
        QCOMPARE(here.charge, there.charge);
        QCOMPARE(qint64(here.oneBeat), qint64(there.oneBeat));
        QCOMPARE(here.numerator, there.numerator);
    };
    twin.Nudge(7000, 5100000);
    check(AudioClock_Nudge(clock.get(), 7000, 5100000));
    twin.Bend(-0.2, 5200000);
    check(AudioClock_Bend(clock.get(), -0.2, 5200000));
    twin.Bend(0.0, 5300000);
    check(AudioClock_Bend(clock.get(), 0.0, 5300000));
    twin.MarkOne(5600000);
    check(AudioClock_MarkOne(clock.get(), 5600000));
    QCOMPARE(AudioClock_GetBeatInBar(&static_cast<const BeatClockState&>(StateOf(clock)), 9), 0);
    twin.Scale(3, 2, 5700000);
    check(AudioClock_Scale(clock.get(), 3, 2, 5700000));
    twin.Hold(5800000);
    check(AudioClock_Hold(clock.get(), 0.0, 5800000));
    twin.HoldAt(127.3, 5900000);
    check(AudioClock_Hold(clock.get(), 127.3, 5900000));
    twin.Round(6000000);
    check(AudioClock_Round(clock.get(), 6000000));
    QCOMPARE(StateOf(clock).bpm, 127.0);
    twin.Release(6100000);
    check(AudioClock_Release(clock.get(), 6100000));
}

void tst_Clock::taps_setTheTempo()
{
    const ClockHandle clock(AudioClock_Create());
    QCOMPARE(AudioClock_Tap(clock.get(), 1000000), AudioAnalysisError_None);
    QCOMPARE(StateOf(clock).run, quint32(0));
    QCOMPARE(AudioClock_Tap(clock.get(), 1400000), AudioAnalysisError_None);
    QCOMPARE(StateOf(clock).bpm, 150.0);
    QCOMPARE(StateOf(clock).charge, int(BeatClockCharge_Hand));
}

void tst_Clock::settings_areKept_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<double>("initial");
    QTest::addColumn<QList<double>>("good");
    QTest::addColumn<QList<double>>("bad");
    QTest::newRow("bar") << int(AudioClockSetting_BeatsPerBar) << 4.0 << QList<double>{2, 3, 12}
                         << QList<double>{1, 13, 3.5, -4, 1e300, qQNaN(), qInf()};
    QTest::newRow("slew") << int(AudioClockSetting_Slew) << 0.05 << QList<double>{0.001, 0.5}
                          << QList<double>{0.0, 0.51, -0.05, qQNaN()};
    QTest::newRow("offset") << int(AudioClockSetting_Offset) << 0.0
                            << QList<double>{-500000, 500000, 1}
                            << QList<double>{-500001, 500001, 0.5, 1e300, qQNaN(), -qInf()};
    QTest::newRow("goes on") << int(AudioClockSetting_GoesOn) << 0.0 << QList<double>{1, 0}
                             << QList<double>{2, -1, 0.5, qQNaN()};
}

void tst_Clock::settings_areKept()
{
    QFETCH(const int, setting);
    QFETCH(const QList<double>, good);
    QFETCH(const QList<double>, bad);
    const ClockHandle clock(AudioClock_Create());
    double value = -7.0;
    QCOMPARE(AudioClock_Get(clock.get(), setting, &value), AudioAnalysisError_None);
    QTEST(value, "initial");
    for (const double kept : good) {
        QCOMPARE(AudioClock_Set(clock.get(), setting, kept, 0), AudioAnalysisError_None);
        for (const double refused : bad)
            QCOMPARE(AudioClock_Set(clock.get(), setting, refused, 0), AudioAnalysisError_Range);
        QCOMPARE(AudioClock_Get(clock.get(), setting, &value), AudioAnalysisError_None);
        QCOMPARE(value, kept);
    }
}

void tst_Clock::nullIsRefused()
{
    const ClockHandle clock(AudioClock_Create());
    const AudioClockBeat beat = {0, 120.0, 1.0, 0, -1};
    BeatClockState state;
    double value = 0.0;
    QCOMPARE(AudioClock_Destroy(nullptr), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Restart(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Set(nullptr, 0, 4.0, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Get(nullptr, 0, &value), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Get(clock.get(), 0, nullptr), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Hear(nullptr, &beat, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Hear(clock.get(), nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_SetPlaying(nullptr, 1, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Tap(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Nudge(nullptr, 1, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Bend(nullptr, 0.0, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_MarkOne(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Scale(nullptr, 2, 1, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Round(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Hold(nullptr, 0.0, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_Release(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_GetState(nullptr, &state), AudioAnalysisError_Null);
    QCOMPARE(AudioClock_GetState(clock.get(), nullptr), AudioAnalysisError_Null);
}

void tst_Clock::numbersOutsideTheirLimits_areRefused()
{
    const ClockHandle clock = Playing();
    AudioClock* const pClock = clock.get();
    const AudioClockBeat far = {kFar, 120.0, 1.0, 0, -1};
    const AudioClockBeat beat = {5000000, 120.0, 1.0, 0, -1};
    QCOMPARE(AudioClock_Set(pClock, -1, 4.0, 0), AudioAnalysisError_Unknown);
    QCOMPARE(AudioClock_Set(pClock, 4, 4.0, 0), AudioAnalysisError_Unknown);
    double value = 0.0;
    QCOMPARE(AudioClock_Get(pClock, 4, &value), AudioAnalysisError_Unknown);
    QCOMPARE(AudioClock_Hear(pClock, &far, 5000000), AudioAnalysisError_Range);
    for (const qint64 now : {kFar, -kFar, std::numeric_limits<qint64>::min()}) {
        QCOMPARE(AudioClock_Hear(pClock, &beat, now), AudioAnalysisError_Range);
        QCOMPARE(AudioClock_Restart(pClock, now), AudioAnalysisError_Range);
        QCOMPARE(AudioClock_SetPlaying(pClock, 0, now), AudioAnalysisError_Range);
        QCOMPARE(AudioClock_Tap(pClock, now), AudioAnalysisError_Range);
        QCOMPARE(AudioClock_Hold(pClock, 0.0, now), AudioAnalysisError_Range);
    }
    QCOMPARE(AudioClock_Nudge(pClock, 500001, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Nudge(pClock, -500001, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Bend(pClock, qQNaN(), 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Bend(pClock, 0.6, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Scale(pClock, 0, 0, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Scale(pClock, 64, 1, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Hold(pClock, 1000.0, 5000000), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Hold(pClock, qQNaN(), 5000000), AudioAnalysisError_Range);
    const ClockHandle standing(AudioClock_Create());
    QCOMPARE(AudioClock_Hold(standing.get(), 0.0, 0), AudioAnalysisError_Range);
    QCOMPARE(AudioClock_Round(standing.get(), 0), AudioAnalysisError_Range);
}

void tst_Clock::refusals_changeNothing()
{
    const ClockHandle clock = Playing();
    AudioClock_Hold(clock.get(), 5000.0, 9000000);
    AudioClock_Scale(clock.get(), 64, 1, 9000000);
    AudioClock_Tap(clock.get(), kFar);
    const BeatClockState state = StateOf(clock);
    QCOMPARE(state.charge, int(BeatClockCharge_Music));
    QCOMPARE(state.bpm, 120.0);
    // Nor has the present moved: a beat at 5 s is not in the past.
    AudioClock_SetPlaying(clock.get(), 0, 5100000);
    QCOMPARE(qint64(StateOf(clock).endTime), qint64(5100000));
}

void tst_Clock::stateOfNothing_answersNothing()
{
    const ClockHandle clock = Playing();
    const BeatClockState state = StateOf(clock);
    const BeatClockState empty = {};
    QCOMPARE(AudioClock_IsRunning(nullptr), 0);
    QCOMPARE(AudioClock_IsRunning(&empty), 0);
    QCOMPARE(qint64(AudioClock_GetBeat(nullptr, 0, 0)), qint64(-1));
    QCOMPARE(qint64(AudioClock_GetBeat(&state, kFar, 0)), qint64(-1));
    QCOMPARE(qint64(AudioClock_GetBeat(&state, 0, 500001)), qint64(-1));
    QCOMPARE(AudioClock_GetPhase(nullptr, 0, 0), -1.0);
    QCOMPARE(AudioClock_GetPhase(&state, -kFar, 0), -1.0);
    QCOMPARE(AudioClock_GetBeatInBar(nullptr, 0), -1);
    QCOMPARE(AudioClock_GetBeatInBar(&empty, 0), -1);
    QCOMPARE(AudioClock_GetBeatInBar(&state, kFar), -1);
    QCOMPARE(qint64(AudioClock_GetNextTick(nullptr, 0, 1, 0)), qint64(-1));
    QCOMPARE(qint64(AudioClock_GetNextTick(&state, 0, 0, 0)), qint64(-1));
    QCOMPARE(qint64(AudioClock_GetNextTick(&state, 0, 10001, 0)), qint64(-1));
    QCOMPARE(qint64(AudioClock_GetTickTime(nullptr, 0, 1, 0)), qint64(BEATCLOCK_NEVER));
    QCOMPARE(qint64(AudioClock_GetTickTime(&state, 0, -1, 0)), qint64(BEATCLOCK_NEVER));
    QCOMPARE(qint64(AudioClock_GetTickTime(&state, 0, 1, -500001)), qint64(BEATCLOCK_NEVER));
    QVERIFY(AudioClock_GetTickTime(&state, kFar - 1, 1, 0) > kFar);
    QCOMPARE(AudioClock_GetSureness(nullptr, 0), -1.0);
    QCOMPARE(AudioClock_GetSureness(&state, kFar), -1.0);
}

AA_TEST(tst_Clock, NoApplication)
#include "tst_Clock.moc"
