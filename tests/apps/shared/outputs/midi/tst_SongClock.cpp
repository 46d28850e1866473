// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/detail/SongClock.h>

#include <QtTest>

#include <apps/shared/outputs/midi/MidiBench.h>
#include <support/TestClass.h>

using midi_bench::kTick;
using shared::detail::SongClock;

namespace {

/// A song clock that is told ticks by their numbers, and what it sends: bytes, and ms after the
/// tick was due where that is not 0.
struct SongBench
{
    /// At the instant it is due, or pLateness µs later.
    QString tell(qint64 pNumber, qint64 pOne = 0, qint64 pLateness = 0)
    {
        return take(midi_bench::tick(pNumber, pOne), pLateness);
    }
    QString take(const shared::ClockTick& pTick, qint64 pLateness = 0)
    {
        QStringList texts;
        for (const auto& event : song.Tick(pTick, state, pTick.time + pLateness)) {
            const qint64 time = event.time - pTick.time;
            texts += midi_bench::bytes(event.message) +
                     (time == 0 ? QString() : QStringLiteral("+%1").arg(double(time) / 1000.0));
            clocks += event.message.bytes[0] == 0xF8 ? 1 : 0;
        }
        return texts.join(QLatin1Char(' '));
    }
    /// Ticks from pFirst up to before pEnd: what was sent, with runs of clocks as their number.
    QString pass(qint64 pFirst, qint64 pEnd, qint64 pOne = 0)
    {
        QStringList texts;
        int run = 0;
        for (qint64 number = pFirst; number < pEnd; ++number) {
            const QString text = tell(number, pOne);
            run += text == QLatin1String("f8") ? 1 : 0;
            if (text == QLatin1String("f8") || text.isEmpty())
                continue;
            if (run > 0)
                texts += QStringLiteral("%1x").arg(run);
            run = 0;
            texts += text;
        }
        if (run > 0)
            texts += QStringLiteral("%1x").arg(run);
        return texts.join(QLatin1String(", "));
    }

    BeatClockState state = midi_bench::state();
    SongClock song{false};
    int clocks = 0;
};

}  // namespace

class tst_SongClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void start_comesBeforeTheFirstClock_onTheOne();
    void nothingComes_beforeTheOne();
    void clocksComeBeforeTheOne_whereTheyAreWanted();
    void clock_comesWithEachTick();
    void stop_comesOnce();
    void lostTick_isMadeUpForBetweenTwo_data();
    void lostTick_isMadeUpForBetweenTwo();
    void lateTicks_keepTheirDistance();
    void ticksToldTogether_areNeverBunched();
    void jump_isFollowedByPosition_withTheNextSixteenth();
    void movedOne_becomesTheBarOfTheSong();
    void barOfAnotherLength_isThatOfTheSong();
    void position_beginsAnew_withABar_data();
    void position_beginsAnew_withABar();
    void randomLosses_shiftNothing();
};

void tst_SongClock::start_comesBeforeTheFirstClock_onTheOne()
{
    SongBench bench;
    QVERIFY(!bench.song.isStarted());
    QCOMPARE(bench.tell(96), QStringLiteral("fa f8"));
    QVERIFY(bench.song.isStarted());
}

void tst_SongClock::nothingComes_beforeTheOne()
{
    SongBench bench;
    // Beats 1 to 3 of a bar that began with beat 0, from the middle of beat 1 on.
    QCOMPARE(bench.pass(37, 96), QString());
    QCOMPARE(bench.tell(96), QStringLiteral("fa f8"));
}

void tst_SongClock::clocksComeBeforeTheOne_whereTheyAreWanted()
{
    SongBench bench;
    bench.song = SongClock(true);
    QCOMPARE(bench.pass(90, 96), QStringLiteral("6x"));
    QCOMPARE(bench.tell(96), QStringLiteral("fa f8"));
}

void tst_SongClock::clock_comesWithEachTick()
{
    SongBench bench;
    // 16 beats of 24, the first clock behind the start.
    QCOMPARE(bench.pass(0, 384), QStringLiteral("fa f8, 383x"));
}

void tst_SongClock::stop_comesOnce()
{
    SongBench bench;
    QVERIFY(bench.song.End(0).empty());
    bench.pass(0, 30);
    const auto events = bench.song.End(777);
    QCOMPARE(events.size(), std::size_t(1));
    QCOMPARE(midi_bench::bytes(events[0].message), QStringLiteral("fc"));
    QCOMPARE(events[0].time, qint64(777));
    QVERIFY(bench.song.End(888).empty());
    QCOMPARE(bench.pass(30, 96), QString());
    QCOMPARE(bench.tell(96), QStringLiteral("fa f8"));
}

void tst_SongClock::lostTick_isMadeUpForBetweenTwo_data()
{
    QTest::addColumn<int>("lost");
    QTest::addColumn<QString>("sent");
    // As many ticks bring one more, half a tick of 20 ms later, as were lost.
    QTest::newRow("1") << 1 << "f8 f8+10, 20x";
    QTest::newRow("2") << 2 << "f8 f8+10, f8 f8+10, 18x";
    QTest::newRow("5") << 5 << "f8 f8+10, f8 f8+10, f8 f8+10, f8 f8+10, f8 f8+10, 12x";
}

void tst_SongClock::lostTick_isMadeUpForBetweenTwo()
{
    QFETCH(const int, lost);
    QFETCH(const QString, sent);
    SongBench bench;
    bench.pass(0, 50);
    QCOMPARE(bench.pass(50 + lost, 72), sent);
    QCOMPARE(bench.clocks, 72);
}

void tst_SongClock::lateTicks_keepTheirDistance()
{
    SongBench bench;
    bench.pass(0, 50);
    // Told at 1030 ms instead of 1000, ten behind the next, which comes at once; its clock waits
    // for 10 ms.
    QCOMPARE(bench.tell(50, 0, 30000), QStringLiteral("f8+30"));
    QCOMPARE(bench.tell(51, 0, 10000), QStringLiteral("f8+20"));
    QCOMPARE(bench.tell(52), QStringLiteral("f8+10"));
    QCOMPARE(bench.tell(53), QStringLiteral("f8"));
    QCOMPARE(bench.clocks, 54);
}

void tst_SongClock::ticksToldTogether_areNeverBunched()
{
    SongBench bench;
    bench.pass(0, 50);
    // The clock has gone ahead by three ticks: these are due when the last one was, 49.
    for (const qint64 number : {50, 51, 52})
        QCOMPARE(bench.take(midi_bench::tick(number, 0, 49 * kTick)), QString());
    const auto after = [](qint64 pNumber) {
        return midi_bench::tick(pNumber, 0, (pNumber - 3) * kTick);
    };
    for (const qint64 number : {53, 54, 55})
        QCOMPARE(bench.take(after(number)), QStringLiteral("f8 f8+10"));
    QCOMPARE(bench.take(after(56)), QStringLiteral("f8"));
    QCOMPARE(bench.clocks, 57);
}

void tst_SongClock::jump_isFollowedByPosition_withTheNextSixteenth()
{
    SongBench bench;
    bench.pass(0, 50);
    // Ticks 50 to 56 are lost, so 57 is seven behind 50. Sixteenth 10 is tick 60.
    QCOMPARE(bench.tell(57), QStringLiteral("fc"));
    QCOMPARE(bench.pass(58, 60), QString());
    QCOMPARE(bench.tell(60), QStringLiteral("f20a00 fb f8"));
    QCOMPARE(bench.pass(61, 96), QStringLiteral("35x"));
    // On a sixteenth itself at once: tick 120 is sixteenth 20.
    QCOMPARE(bench.tell(120), QStringLiteral("fc f21400 fb f8"));
}

void tst_SongClock::movedOne_becomesTheBarOfTheSong()
{
    SongBench bench;
    bench.pass(0, 48);
    // Beat 2 is the one from now on. It is the first beat of the song's second bar, sixteenth 16.
    QCOMPARE(bench.tell(48, 2), QStringLiteral("fc f21000 fb f8"));
    QCOMPARE(bench.pass(49, 400, 2), QStringLiteral("351x"));
}

void tst_SongClock::barOfAnotherLength_isThatOfTheSong()
{
    SongBench bench;
    bench.pass(0, 384);
    // Beats 16 to 25 begin no bar, 26 begins one of five, at tick 624. The song's next bar of
    // 120 ticks begins at 720, sixteenth 120.
    bench.state = midi_bench::state(5);
    for (qint64 number = 384; number < 624; ++number) {
        auto tick = midi_bench::tick(number);
        tick.beatInBar = 1;
        QCOMPARE(bench.take(tick), QStringLiteral("f8"));
    }
    QCOMPARE(bench.tell(624, 26), QStringLiteral("fc f27800 fb f8"));
}

void tst_SongClock::position_beginsAnew_withABar_data()
{
    QTest::addColumn<int>("beatsPerBar");
    QTest::addColumn<qint64>("beat");
    QTest::addColumn<QString>("position");
    // 14 bits hold 16384 sixteenths: 1024 bars of four beats; 1365 bars of three, 16380 sixteenths.
    QTest::newRow("last of 4") << 4 << qint64(4095) << "f27c7f";
    QTest::newRow("first of 4") << 4 << qint64(4096) << "f20000";
    QTest::newRow("last of 3") << 3 << qint64(4094) << "f2787f";
    QTest::newRow("first of 3") << 3 << qint64(4095) << "f20000";
}

void tst_SongClock::position_beginsAnew_withABar()
{
    QFETCH(const int, beatsPerBar);
    QFETCH(const qint64, beat);
    QFETCH(const QString, position);
    SongBench bench;
    bench.state = midi_bench::state(beatsPerBar);
    bench.tell(0);
    // Not the one, so that only the jump counts.
    auto tick = midi_bench::tick(beat * 24);
    tick.beatInBar = 1;
    QCOMPARE(bench.take(tick), QStringLiteral("fc %1 fb f8").arg(position));
}

/// Whatever is lost, and however late the rest is told: a receiver that counts clocks, and obeys
/// positions, ends where the music is, and no two clocks are nearer than half a tick.
void tst_SongClock::randomLosses_shiftNothing()
{
    const quint32 seed = qEnvironmentVariableIsSet("SEED") ? qEnvironmentVariableIntValue("SEED")
                                                           : QRandomGenerator::global()->generate();
    qInfo("SEED=%u", seed);
    QRandomGenerator random(seed);
    SongClock song(false);
    const BeatClockState state = midi_bench::state();
    qint64 position = 0;  // ticks of the song
    qint64 lastClock = -kTick;
    qint64 now = 0;
    bool isGoing = false;
    for (qint64 number = 0; number < 20000; ++number) {
        const bool isSettling = number % 1000 >= 900 || number == 0;
        if (!isSettling && random.bounded(20) == 0)
            number += random.bounded(10);
        now = std::max(now, number * kTick + (isSettling ? 0 : random.bounded(int(kTick))));
        for (const auto& event : song.Tick(midi_bench::tick(number), state, now)) {
            now = std::max<qint64>(now, event.time);
            const int status = event.message.bytes[0];
            if (status == 0xF2)
                position = 6 * (event.message.bytes[1] + 128 * event.message.bytes[2]);
            if (status == 0xF8) {
                QVERIFY(isGoing);
                QVERIFY2(event.time - lastClock >= kTick / 2, qPrintable(QString::number(number)));
                lastClock = event.time;
                ++position;
            }
            isGoing = status == 0xFC ? false : status == 0xFA || status == 0xFB || isGoing;
        }
        if (number % 1000 == 999)
            QCOMPARE(position, number + 1);
    }
}

AA_TEST(tst_SongClock, NoApplication)

#include "tst_SongClock.moc"
