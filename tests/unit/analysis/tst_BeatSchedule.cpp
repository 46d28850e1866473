// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatSchedule.h>

#include "TestSeed.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>
#include <support/Waves.h>

class tst_BeatSchedule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void instant_isTheFirstWholePeriodThatIsNotPast_data();
    void instant_isTheFirstWholePeriodThatIsNotPast();
    void instant_equalsRepeatedAddition_forRandomTimes();
    void instant_isReachedAtOnce_fromTheEpoch();
    void instant_ends_withoutAPeriod();
    void delay_isInWholeMilliSeconds();
};

void tst_BeatSchedule::instant_isTheFirstWholePeriodThatIsNotPast_data()
{
    QTest::addColumn<quint64>("start");
    QTest::addColumn<quint64>("period");
    QTest::addColumn<quint64>("now");
    QTest::addColumn<quint64>("instant");

    QTest::newRow("next period") << quint64(1000) << quint64(500) << quint64(1200) << quint64(1500);
    QTest::newRow("exactly now") << quint64(1000) << quint64(500) << quint64(1500) << quint64(1500);
    QTest::newRow("just past") << quint64(1000) << quint64(500) << quint64(1501) << quint64(2000);
    QTest::newRow("just before") << quint64(1000) << quint64(500) << quint64(1999) << quint64(2000);
    QTest::newRow("at least one period")
        << quint64(1000) << quint64(500) << quint64(1000) << quint64(1500);
    QTest::newRow("start in the future")
        << quint64(1000) << quint64(500) << quint64(3) << quint64(1500);
    QTest::newRow("many periods") << quint64(0) << quint64(7) << quint64(100) << quint64(105);
    QTest::newRow("period of one") << quint64(5) << quint64(1) << quint64(77) << quint64(77);
}

void tst_BeatSchedule::instant_isTheFirstWholePeriodThatIsNotPast()
{
    QFETCH(quint64, start);
    QFETCH(quint64, period);
    QFETCH(quint64, now);
    QTEST(detail::NextBeatInstant(start, period, now), "instant");
}

void tst_BeatSchedule::instant_equalsRepeatedAddition_forRandomTimes()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 20000; ++run) {
        const quint64 start = random.below(100000);
        const quint64 period = 1 + random.below(run % 2 == 0 ? 40 : 20000);
        const quint64 now = random.below(start + 300 * period);
        quint64 instant = start;
        do
            instant += period;
        while (instant < now);
        QCOMPARE(detail::NextBeatInstant(start, period, now), instant);
    }
}

void tst_BeatSchedule::instant_isReachedAtOnce_fromTheEpoch()
{
    // Half-second periods from the epoch on end in .0 or .5 seconds.
    QCOMPARE(detail::NextBeatInstant(2500000, 500000, Q_UINT64_C(1700000000123456)),
             Q_UINT64_C(1700000000500000));
    QCOMPARE(detail::NextBeatInstant(0, 1, Q_UINT64_C(1700000000123456)),
             Q_UINT64_C(1700000000123456));
}

void tst_BeatSchedule::instant_ends_withoutAPeriod()
{
    QCOMPARE(detail::NextBeatInstant(1000, 0, 2000), quint64(1000));
}

void tst_BeatSchedule::delay_isInWholeMilliSeconds()
{
    QCOMPARE(detail::DelayInMilliSeconds(1000, 1000), 0);
    QCOMPARE(detail::DelayInMilliSeconds(1999, 1000), 0);
    QCOMPARE(detail::DelayInMilliSeconds(2000, 1000), 1);
    QCOMPARE(detail::DelayInMilliSeconds(500999, 1000), 499);
    QCOMPARE(detail::DelayInMilliSeconds(1000, 2000), 0);
    QCOMPARE(detail::DelayInMilliSeconds(std::numeric_limits<quint64>::max(), 0),
             std::numeric_limits<int>::max());
}

AA_TEST(tst_BeatSchedule, NoApplication)
#include "tst_BeatSchedule.moc"
