// SPDX-License-Identifier: MIT
#include <desktop/settings/detail/TapTempo.h>

#include <QtTest>

#include <support/TestClass.h>

using desktop::TapTempo;

/// The arithmetic of taps. Times in milliseconds, worked out by hand.
class tst_TapTempo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isThatOfTheMedianInterval_data();
    void tempo_isThatOfTheMedianInterval();
    void tap_isIgnored_whenItBounces();
    void bounce_doesNotMoveTheLastTap();
    void taps_beginAnew_whenTheyAreStale_data();
    void taps_beginAnew_whenTheyAreStale();
    void taps_beginAnew_whenTheClockIsSetBack();
    void taps_areKept_upToNine();
    void clear_forgetsThem();
    void firstTap_counts_whateverTheTime_data();
    void firstTap_counts_whateverTheTime();

private:
    static TapTempo Tapped(const QList<int>& pTimes)
    {
        TapTempo taps;
        for (const int time : pTimes)
            taps.Tap(quint64(time) * 1000);
        return taps;
    }
};

void tst_TapTempo::tempo_isThatOfTheMedianInterval_data()
{
    QTest::addColumn<QList<int>>("times");
    QTest::addColumn<double>("bpm");
    QTest::newRow("none") << QList<int>{} << 0.0;
    QTest::newRow("one") << QList<int>{1000} << 0.0;
    QTest::newRow("two") << QList<int>{1000, 1500} << 120.0;
    // Intervals 500 and 600: the middle of both.
    QTest::newRow("three") << QList<int>{1000, 1500, 2100} << 60000.0 / 550.0;
    // 500, 500, 800: one late finger does not count.
    QTest::newRow("late") << QList<int>{1000, 1500, 2000, 2800} << 120.0;
    // 500, 900, 100, 500: a tap 400 ms late; the two in the middle are 500.
    QTest::newRow("shifted") << QList<int>{1000, 1500, 2400, 2500, 3000} << 120.0;
    // 400, 500, 600, 500, 500.
    QTest::newRow("uneven") << QList<int>{0, 400, 900, 1500, 2000, 2500} << 120.0;
    QTest::newRow("slowest") << QList<int>{0, 3000} << 20.0;
    QTest::newRow("fastest") << QList<int>{0, 100, 200} << 600.0;
}

void tst_TapTempo::tempo_isThatOfTheMedianInterval()
{
    QFETCH(const QList<int>, times);
    QFETCH(const double, bpm);
    const TapTempo taps = Tapped(times);
    QCOMPARE(taps.getCount(), times.size());
    QCOMPARE(taps.getBPM(), bpm);
}

void tst_TapTempo::tap_isIgnored_whenItBounces()
{
    TapTempo taps = Tapped({1000});
    QVERIFY(!taps.Tap(1000000));
    QVERIFY(!taps.Tap(1099999));
    QCOMPARE(taps.getCount(), 1);
    QVERIFY(taps.Tap(1100000));
    QCOMPARE(taps.getCount(), 2);
}

void tst_TapTempo::bounce_doesNotMoveTheLastTap()
{
    TapTempo taps = Tapped({1000, 1050, 1500});
    QCOMPARE(taps.getBPM(), 120.0);
}

void tst_TapTempo::taps_beginAnew_whenTheyAreStale_data()
{
    QTest::addColumn<quint64>("pause");
    QTest::addColumn<int>("count");
    QTest::newRow("just in time") << quint64(3000000) << 4;
    QTest::newRow("a moment late") << quint64(3000001) << 1;
    QTest::newRow("an hour") << quint64(3600000000) << 1;
}

void tst_TapTempo::taps_beginAnew_whenTheyAreStale()
{
    QFETCH(const quint64, pause);
    QFETCH(const int, count);
    TapTempo taps = Tapped({0, 500, 1000});
    QVERIFY(taps.Tap(1000000 + pause));
    QCOMPARE(taps.getCount(), count);
    if (count == 1)
        QCOMPARE(taps.getBPM(), 0.0);
}

void tst_TapTempo::taps_beginAnew_whenTheClockIsSetBack()
{
    TapTempo taps = Tapped({5000, 5500, 6000});
    QVERIFY(taps.Tap(5999999));
    QCOMPARE(taps.getCount(), 1);
    QCOMPARE(taps.getBPM(), 0.0);
    QVERIFY(taps.Tap(6499999));
    QCOMPARE(taps.getBPM(), 120.0);
}

void tst_TapTempo::taps_areKept_upToNine()
{
    // Eight intervals of 500, then as many of 400: the first ones are gone by then.
    TapTempo taps;
    quint64 time = 0;
    for (int i = 0; i < 9; ++i, time += 500000)
        QVERIFY(taps.Tap(time));
    QCOMPARE(taps.getCount(), 9);
    QCOMPARE(taps.getBPM(), 120.0);
    time -= 500000;
    for (int i = 0; i < 8; ++i)
        QVERIFY(taps.Tap(time += 400000));
    QCOMPARE(taps.getCount(), 9);
    QCOMPARE(taps.getBPM(), 150.0);
    // After four of eight, the median lay between 400 and 500: 450.
    TapTempo half;
    time = 0;
    for (int i = 0; i < 9; ++i)
        half.Tap(time += 500000);
    for (int i = 0; i < 4; ++i)
        half.Tap(time += 400000);
    QCOMPARE(half.getBPM(), 60000.0 / 450.0);
}

void tst_TapTempo::clear_forgetsThem()
{
    TapTempo taps = Tapped({1000, 1500});
    taps.Clear();
    QCOMPARE(taps.getCount(), 0);
    QCOMPARE(taps.getBPM(), 0.0);
    QVERIFY(taps.Tap(1500001));
    QCOMPARE(taps.getCount(), 1);
}

void tst_TapTempo::firstTap_counts_whateverTheTime_data()
{
    QTest::addColumn<quint64>("time");
    QTest::newRow("0") << quint64(0);
    QTest::newRow("soon") << quint64(1);
    QTest::newRow("a date") << quint64(1700000000000000);
    QTest::newRow("the last instant") << ~quint64(0);
}

void tst_TapTempo::firstTap_counts_whateverTheTime()
{
    QFETCH(const quint64, time);
    TapTempo taps;
    QVERIFY(taps.Tap(time));
    QCOMPARE(taps.getCount(), 1);
}

AA_TEST(tst_TapTempo, NoApplication)
#include "tst_TapTempo.moc"
