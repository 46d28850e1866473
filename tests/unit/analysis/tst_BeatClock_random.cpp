// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatCursor.h>

#include "ClockBench.h"
#include "TestSeed.h"

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>
#include <support/Waves.h>
#include <vector>

namespace {

/// An output that looks at the clock now and then, and what it was told last.
struct Output
{
    BeatCursor cursor;
    quint32 run = 0;
    bool isFirst = true;
    qint64 told = 0;  ///< ticks
};

/// Music that loses its mind: tempos, phases and gaps at random, and a hand that plays with it.
class Stage
{
public:
    explicit Stage(quint64 pSeed) : m_random(pSeed)
    {
        for (const int division : {1, 1, 4, 24, 96})
            m_outputs.push_back({BeatCursor(division, m_random.between(-500000, 500000))});
        for (Output& output : m_outputs)
            output.cursor.Join(m_clock.getState(), m_now);
        m_clock.setSlew(m_random.uniform(0.001, 0.5));
    }

    /// Empty, or what was wrong.
    QString step()
    {
        m_now += qint64(m_random.below(m_random.chance(0.02) ? 9000000 : 200000));
        const BeatClockState before = m_clock.getState();
        act();
        QString fault = compare(before, m_clock.getState());
        for (Output& output : m_outputs)
            if (fault.isEmpty())
                fault = drain(output, m_clock.getState());
        return fault;
    }

    qint64 told() const
    {
        qint64 sum = 0;
        for (const Output& output : m_outputs)
            sum += output.told;
        return sum;
    }
    BeatClockState state() const { return m_clock.getState(); }

private:
    void act()
    {
        if (m_random.chance(0.02)) {
            m_period = m_random.uniform(61000.0, 1500000.0);
            m_beat = m_now;
        }
        while (m_beat + 150000 < m_now) {
            m_beat += qint64(m_period);
            if (m_random.chance(0.9))
                hear(m_beat);
        }
        if (m_random.chance(0.1))
            hear(m_now + m_random.between(-900000, 900000));
        if (m_random.chance(0.1))
            touch();
    }

    void hear(qint64 pTime)
    {
        const double bpm = m_random.chance(0.8) ? 60e6 / m_period : m_random.uniform(-50.0, 1200.0);
        m_clock.Hear({pTime + m_random.between(-20000, 20000),
                      bpm,
                      m_random.uniform(),
                      m_random.chance(0.1),
                      m_random.between(-1, 3)},
                     m_now);
    }

    void touch()
    {
        switch (m_random.below(12)) {
        // clang-format off
        case 0: m_clock.setPlaying(m_random.chance(0.5), m_now); break;
        case 1: m_clock.setGoingOn(m_random.chance(0.5), m_now); break;
        case 2: m_clock.Tap(m_now); break;
        case 3: m_clock.Tap(m_now); break;
        case 4: m_clock.Nudge(m_random.between(-30000, 30000), m_now); break;
        case 5: m_clock.Bend(m_random.chance(0.5) ? 0.0 : m_random.uniform(-0.2, 0.2), m_now); break;
        case 6: m_clock.MarkOne(m_now); break;
        case 7: m_clock.Scale(m_random.between(1, 3), m_random.between(1, 3), m_now); break;
        case 8: m_clock.Round(m_now); break;
        case 9: m_clock.Hold(m_now); break;
        case 10: m_clock.HoldAt(m_random.uniform(5.0, 1005.0), m_now); break;
        default: m_clock.Release(m_now); break;
            // clang-format on
        }
    }

    /// The position does not move but by jumps, which are told, and are half a beat at most.
    QString compare(const BeatClockState& pBefore, const BeatClockState& pAfter) const
    {
        if (pAfter.run != pBefore.run)
            return pAfter.firstBeat > pBefore.getPosition(m_now) || pBefore.run == 0
                       ? QString()
                       : QStringLiteral("a new run has old numbers");
        if (pBefore.run == 0)
            return QString();
        const double jump = std::abs(pAfter.getPosition(m_now) - pBefore.getPosition(m_now));
        const double most =
            pAfter.epoch != pBefore.epoch
                ? 0.5 * double(pAfter.epoch - pBefore.epoch)
                : 1.1 * double(m_jumpless) / std::min(pAfter.period(), pBefore.period());
        if (jump > most + 1e-9)
            return QStringLiteral("a leap of %1 beats").arg(jump);
        const bool isSound = pAfter.sureness >= 0.0 && pAfter.sureness <= 1.0 &&
                             std::isfinite(pAfter.bpm) && pAfter.now.period > 0.0;
        return isSound ? QString() : QStringLiteral("the state is not sound");
    }

    QString drain(Output& pOutput, const BeatClockState& pState) const
    {
        BeatCursor& cursor = pOutput.cursor;
        const bool isNewRun = pState.run != pOutput.run;
        qint64 expected = isNewRun ? pState.firstBeat * cursor.getDivision() : cursor.getTick() + 1;
        qint64 last = cursor.getTickTime();
        while (cursor.Take(pState, m_now)) {
            if (cursor.getTick() != expected)
                return QStringLiteral("tick %1 instead of %2").arg(cursor.getTick()).arg(expected);
            if (cursor.getTickTime() < last || cursor.getTickTime() > m_now)
                return QStringLiteral("tick %1 out of time").arg(expected);
            last = cursor.getTickTime();
            pOutput.run = pState.run;
            ++expected;
            ++pOutput.told;
        }
        return QString();
    }

    static constexpr int m_jumpless = 6;  ///< µs; several small corrections in one step, rounded
    waves::Random m_random;
    BeatClock m_clock;
    std::vector<Output> m_outputs;
    qint64 m_now = 1000000;
    qint64 m_beat = 1000000;
    double m_period = 500000.0;  ///< µs
};

}  // namespace

/// What holds whatever music and hand do: no tick twice, none lost, time never back, no leap.
class tst_BeatClock_random : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outputs_getEveryTickOnceAndInOrder();
    void speed_staysWithinTheSlew();
};

void tst_BeatClock_random::outputs_getEveryTickOnceAndInOrder()
{
    waves::Random seeds(testSeed());
    qint64 told = 0;
    quint32 runs = 0;
    quint32 epochs = 0;
    for (int run = 0; run < 60; ++run) {
        const quint64 seed = seeds.next();
        Stage stage(seed);
        for (int i = 0; i < 2000; ++i) {
            const QString fault = stage.step();
            QVERIFY2(fault.isEmpty(),
                     qPrintable(QStringLiteral("%1, run %2, step %3").arg(fault).arg(run).arg(i)));
        }
        told += stage.told();
        runs += stage.state().run;
        epochs += stage.state().epoch;
    }
    // The stage does what it is there for.
    QVERIFY(told > 1000000);
    QVERIFY(runs > 120);
    QVERIFY(epochs > 1000);
}

// Music that is uneven by a 25th of a beat, every other beat of which may be missed: the clock is
// never faster or slower than its slew allows, behind the first beats, and takes no beat for a new
// song.
void tst_BeatClock_random::speed_staysWithinTheSlew()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 300; ++run) {
        ClockBench bench;
        const double slew = random.uniform(0.002, 0.3);
        bench.clock.setSlew(slew);
        const double period = random.uniform(61000.0, 2000000.0);
        double position = -1.0;
        int heard = 0;
        for (int i = 0; i < 100; ++i) {
            const double place = i + random.uniform(-0.04, 0.04);
            const qint64 now = 1000000 + qRound64(place * period);
            if (i % 2 == 0 || random.chance(0.6)) {
                bench.clock.Hear({now, 60e6 / period}, now);
                ++heard;
            }
            const BeatClockState state = bench.state();
            const double speed = state.then.period / state.now.period;
            const double most = (heard > 6 ? slew : std::max(slew, 0.5)) + 1e-4;
            QVERIFY(speed > 1.0 - most && speed < 1.0 + most);
            QVERIFY(state.getPosition(now) > position);
            position = state.getPosition(now);
        }
        QCOMPARE(bench.state().epoch, quint32(0));
    }
}

AA_TEST(tst_BeatClock_random, NoApplication)
#include "tst_BeatClock_random.moc"
