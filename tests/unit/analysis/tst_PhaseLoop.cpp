// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>

#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>
#include <vector>

/// What a beat changes, worked out by hand and by the textbook's line of least squares.
class tst_PhaseLoop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isTenTo999();
    void gains_areThoseOfLeastSquares_data();
    void gains_areThoseOfLeastSquares();
    void beat_movesPhaseAndPeriod_data();
    void beat_movesPhaseAndPeriod();
    void line_isTheBestThroughAllBeats();
    void period_staysWithinLimits();
    void intervals_areWholePeriods_data();
    void intervals_areWholePeriods();
    void sureness_rises_byAnEighthOfWhatIsMissing();
    void sureness_fades_fromTheSecondBeatOn();
};

void tst_PhaseLoop::tempo_isTenTo999()
{
    QVERIFY(detail::IsTempo(10.0));
    QVERIFY(detail::IsTempo(999.0));
    QVERIFY(!detail::IsTempo(9.999));
    QVERIFY(!detail::IsTempo(999.001));
    QVERIFY(!detail::IsTempo(0.0));
    QVERIFY(!detail::IsTempo(-120.0));
    QVERIFY(!detail::IsTempo(qQNaN()));
    QVERIFY(!detail::IsTempo(qInf()));
}

void tst_PhaseLoop::gains_areThoseOfLeastSquares_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("phase");
    QTest::addColumn<double>("period");
    // Two beats: the line goes through both.
    QTest::newRow("2") << 2 << 1.0 << 1.0;
    QTest::newRow("3") << 3 << 5.0 / 6 << 1.0 / 2;
    QTest::newRow("4") << 4 << 7.0 / 10 << 3.0 / 10;
    QTest::newRow("16") << 16 << 31.0 / 136 << 3.0 / 136;
}

void tst_PhaseLoop::gains_areThoseOfLeastSquares()
{
    QFETCH(const int, count);
    const detail::LoopGains gains = detail::GainsOf(count);
    QTEST(gains.phase, "phase");
    QTEST(gains.period, "period");
}

void tst_PhaseLoop::beat_movesPhaseAndPeriod_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<double>("index");
    QTest::addColumn<double>("steps");
    QTest::addColumn<qint64>("beatTime");
    QTest::addColumn<double>("period");
    // A line of 500 ms through 0; half of the error goes into the phase, a fifth into the period.
    QTest::newRow("in time") << qint64(500000) << 1.0 << 1.0 << qint64(500000) << 500000.0;
    QTest::newRow("10 ms late") << qint64(510000) << 1.0 << 1.0 << qint64(505000) << 502000.0;
    QTest::newRow("10 ms early") << qint64(490000) << 1.0 << 1.0 << qint64(495000) << 498000.0;
    QTest::newRow("after two") << qint64(1020000) << 2.0 << 2.0 << qint64(1010000) << 502000.0;
    QTest::newRow("after five") << qint64(2450000) << 5.0 << 5.0 << qint64(2475000) << 498000.0;
}

void tst_PhaseLoop::beat_movesPhaseAndPeriod()
{
    QFETCH(const qint64, time);
    QFETCH(const double, index);
    QFETCH(const double, steps);
    QFETCH(const qint64, beatTime);
    QFETCH(const double, period);
    const BeatLine line = detail::FollowBeat({0, 0.0, 500000.0}, time, index, steps, {0.5, 0.2});
    QCOMPARE(qint64(line.getTime(index)), beatTime);
    QCOMPARE(line.period, period);
}

// The sums of the textbook, over beats that are up to 30 ms off.
void tst_PhaseLoop::line_isTheBestThroughAllBeats()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 500; ++run) {
        const double period = random.uniform(100000.0, 3000000.0);
        std::vector<qint64> times;
        BeatLine line = {};
        for (int n = 0; n < detail::kBestMemory; ++n) {
            times.push_back(qRound64(n * period + random.uniform(-30000.0, 30000.0)));
            if (n == 1)
                line = {times[1], 1.0, double(times[1] - times[0])};
            if (n > 1)
                line = detail::FollowBeat(line, times.back(), n, 1.0, detail::GainsOf(n + 1));
        }
        double mean = 0.0;
        double slope = 0.0;
        double square = 0.0;
        const double middle = (double(times.size()) - 1.0) / 2.0;
        for (std::size_t n = 0; n < times.size(); ++n) {
            mean += double(times[n]) / double(times.size());
            slope += (double(n) - middle) * double(times[n]);
            square += (double(n) - middle) * (double(n) - middle);
        }
        QVERIFY(qAbs(line.period - slope / square) < 1e-3);
        QVERIFY(qAbs(double(line.getTime(0.0)) - (mean - middle * slope / square)) < 1.0);
    }
}

void tst_PhaseLoop::period_staysWithinLimits()
{
    const BeatLine slow = detail::FollowBeat({0, 0.0, 6e6}, 6500000, 1.0, 1.0, {1.0, 1.0});
    QCOMPARE(slow.period, 6e6);
    const BeatLine fast = detail::FollowBeat({0, 0.0, 60061.0}, 50000, 1.0, 1.0, {1.0, 1.0});
    QCOMPARE(fast.period, 60e6 / 999.0);
}

void tst_PhaseLoop::intervals_areWholePeriods_data()
{
    QTest::addColumn<double>("interval");
    QTest::addColumn<bool>("isWhole");
    // Periods of 500 ms, a tenth of one allowed, four at most.
    QTest::newRow("one") << 500.0 << true;
    QTest::newRow("late by a tenth") << 550.0 << true;
    QTest::newRow("later") << 551.0 << false;
    QTest::newRow("early") << 450.0 << true;
    QTest::newRow("earlier") << 449.0 << false;
    QTest::newRow("half") << 250.0 << false;
    QTest::newRow("none") << 0.0 << false;
    QTest::newRow("three") << 1460.0 << true;
    QTest::newRow("four") << 2050.0 << true;
    QTest::newRow("five") << 2500.0 << false;
}

void tst_PhaseLoop::intervals_areWholePeriods()
{
    QFETCH(const double, interval);
    QTEST(detail::IsWholePeriods(interval, 500.0, 0.1, 4.0), "isWhole");
}

void tst_PhaseLoop::sureness_rises_byAnEighthOfWhatIsMissing()
{
    QCOMPARE(detail::SurenessAfter(0.0, 0.0, 1.0), 0.125);
    QCOMPARE(detail::SurenessAfter(0.5, 0.0, 1.0), 0.5625);
    QCOMPARE(detail::SurenessAfter(0.5, 0.1, 1.0), 0.5);  // half a window off: half a hit
    QCOMPARE(detail::SurenessAfter(0.5, -0.1, 1.0), 0.5);
    QCOMPARE(detail::SurenessAfter(0.8, 0.2, 1.0), 0.7);  // none
    QCOMPARE(detail::SurenessAfter(0.8, 0.4, 1.0), 0.7);
    QCOMPARE(detail::SurenessAfter(0.8, 0.0, 0.0), 0.7);  // the tracker guesses
}

void tst_PhaseLoop::sureness_fades_fromTheSecondBeatOn()
{
    QCOMPARE(detail::FadedSureness(0.8, -3.0), 0.8);
    QCOMPARE(detail::FadedSureness(0.8, 0.0), 0.8);
    QCOMPARE(detail::FadedSureness(0.8, 1.99), 0.8);
    QCOMPARE(detail::FadedSureness(0.8, 2.0), 0.7);
    QCOMPARE(detail::FadedSureness(0.8, 3.5), 0.6125);
    QVERIFY(detail::FadedSureness(1.0, 1e300) < 1e-10);
}

AA_TEST(tst_PhaseLoop, NoApplication)
#include "tst_PhaseLoop.moc"
