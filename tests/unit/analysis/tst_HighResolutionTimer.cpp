// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <QtTest>

#include <ctime>
#include <support/FakeClock.h>
#include <support/TestClass.h>
#include <type_traits>
#include <utility>

static_assert(!std::is_polymorphic_v<HighResolutionTimer>);
static_assert(sizeof(HighResolutionTimer) == sizeof(quint64), "one member, the start");

class tst_HighResolutionTimer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void time_isSecondsTimesAMillionPlusMicroseconds_data();
    void time_isSecondsTimesAMillionPlusMicroseconds();
    void time_isTheWallClock();
    void construction_startsNow();
    void construction_readsTheClockOnce();
    void elapsed_isGivenInThreeUnits_data();
    void elapsed_isGivenInThreeUnits();
    void reset_startsAnew();
    void copy_measuresFromTheSameStart();
    void assignment_measuresFromTheSameStart();
    void assignment_toItself_changesNothingAndReturnsTheObject();
    void elapsed_isVeryLarge_whenTheClockIsSetBack();
};

void tst_HighResolutionTimer::time_isSecondsTimesAMillionPlusMicroseconds_data()
{
    QTest::addColumn<quint64>("time");
    QTest::newRow("one second") << quint64(1000000);
    QTest::newRow("below one second") << quint64(999999);
    QTest::newRow("present") << Q_UINT64_C(1700000000123456);
    QTest::newRow("beyond 32-bit seconds") << Q_UINT64_C(5000000000000001);
}

void tst_HighResolutionTimer::time_isSecondsTimesAMillionPlusMicroseconds()
{
    QFETCH(quint64, time);
    const FakeClock clock(time);
    QCOMPARE(HighResolutionTimer::getTime(), time);
}

void tst_HighResolutionTimer::time_isTheWallClock()
{
    const auto before = quint64(std::time(nullptr));
    const quint64 time = HighResolutionTimer::getTime();
    const auto after = quint64(std::time(nullptr));
    // The two clocks may differ by a tick of the coarser one.
    QVERIFY(time / 1000000 + 1 >= before);
    QVERIFY(time / 1000000 <= after + 1);
}

void tst_HighResolutionTimer::construction_startsNow()
{
    FakeClock clock(5000000);
    const HighResolutionTimer timer;
    QCOMPARE(timer.m_startTime, quint64(5000000));
    clock.advance(1);
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(1));
}

void tst_HighResolutionTimer::construction_readsTheClockOnce()
{
    FakeClock clock(5000000);
    clock.setStep(10);
    const HighResolutionTimer timer;
    QCOMPARE(clock.getReadings(), std::uint64_t(1));
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(10));
    QCOMPARE(clock.getReadings(), std::uint64_t(2));
}

void tst_HighResolutionTimer::elapsed_isGivenInThreeUnits_data()
{
    QTest::addColumn<quint64>("microSeconds");
    QTest::addColumn<double>("milliSeconds");
    QTest::addColumn<double>("seconds");
    QTest::newRow("nothing") << quint64(0) << 0.0 << 0.0;
    QTest::newRow("one") << quint64(1) << 0.001 << 0.000001;
    QTest::newRow("one and a half seconds") << quint64(1500000) << 1500.0 << 1.5;
    QTest::newRow("odd") << quint64(1234567) << 1234.567 << 1.234567;
    QTest::newRow("a day") << Q_UINT64_C(86400000000) << 86400000.0 << 86400.0;
}

void tst_HighResolutionTimer::elapsed_isGivenInThreeUnits()
{
    QFETCH(quint64, microSeconds);
    FakeClock clock(1700000000000000);
    const HighResolutionTimer timer;
    clock.advance(microSeconds);
    QCOMPARE(timer.getElapsedMicroSeconds(), microSeconds);
    QTEST(timer.getElapsedMilliSeconds(), "milliSeconds");
    QTEST(timer.getElapsedSeconds(), "seconds");
}

void tst_HighResolutionTimer::reset_startsAnew()
{
    FakeClock clock(1000);
    HighResolutionTimer timer;
    clock.advance(500);
    timer.Reset();
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(0));
    clock.advance(20);
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(20));
}

void tst_HighResolutionTimer::copy_measuresFromTheSameStart()
{
    FakeClock clock(1000);
    HighResolutionTimer timer;
    clock.advance(500);
    const HighResolutionTimer copy(timer);
    QCOMPARE(copy.getElapsedMicroSeconds(), quint64(500));
    timer.Reset();
    QCOMPARE(copy.getElapsedMicroSeconds(), quint64(500));
}

void tst_HighResolutionTimer::assignment_measuresFromTheSameStart()
{
    FakeClock clock(1000);
    const HighResolutionTimer timer;
    clock.advance(500);
    HighResolutionTimer other;
    HighResolutionTimer* const pResult = &(other = timer);
    QCOMPARE(pResult, &other);
    QCOMPARE(other.getElapsedMicroSeconds(), quint64(500));
}

void tst_HighResolutionTimer::assignment_toItself_changesNothingAndReturnsTheObject()
{
    FakeClock clock(1000);
    HighResolutionTimer timer;
    HighResolutionTimer& same = timer;
    clock.advance(500);
    HighResolutionTimer* const pResult = &(timer = same);
    QCOMPARE(pResult, &timer);
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(500));
}

void tst_HighResolutionTimer::elapsed_isVeryLarge_whenTheClockIsSetBack()
{
    FakeClock clock(2000);
    const HighResolutionTimer timer;
    clock.setTime(1000);
    // 2^64 - 1000
    QCOMPARE(timer.getElapsedMicroSeconds(), Q_UINT64_C(18446744073709550616));
    QCOMPARE(timer.getElapsedSeconds(), 18446744073709.550616);
    QCOMPARE(timer.getElapsedMilliSeconds(), 18446744073709550.616);
}

AA_TEST(tst_HighResolutionTimer, NoApplication)
#include "tst_HighResolutionTimer.moc"
