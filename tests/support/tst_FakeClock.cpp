// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <QtTest>

#include <ctime>
#include <support/FakeClock.h>
#include <support/TestClass.h>
#include <sys/time.h>

class tst_FakeClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gettimeofday_readsTheFakeTime_whileAFakeClockLives();
    void library_readsTheFakeTime_whileAFakeClockLives();
    void clock_movesOn_whenAdvancedOrStepped();
    void readings_areCounted();
    void gettimeofday_readsTheSystemTime_withoutAFakeClock();
};

void tst_FakeClock::gettimeofday_readsTheFakeTime_whileAFakeClockLives()
{
    const FakeClock clock(12000345);
    timeval time = {};
    QCOMPARE(gettimeofday(&time, nullptr), 0);
    QCOMPARE(qint64(time.tv_sec), qint64(12));
    QCOMPARE(qint64(time.tv_usec), qint64(345));
}

void tst_FakeClock::library_readsTheFakeTime_whileAFakeClockLives()
{
    const FakeClock clock(1700000000000001);
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1700000000000001));
}

void tst_FakeClock::clock_movesOn_whenAdvancedOrStepped()
{
    FakeClock clock(100);
    clock.advance(50);
    QCOMPARE(HighResolutionTimer::getTime(), quint64(150));
    clock.setTime(1000);
    clock.setStep(7);
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1007));
}

void tst_FakeClock::readings_areCounted()
{
    const FakeClock clock(100);
    QCOMPARE(clock.getReadings(), std::uint64_t(0));
    HighResolutionTimer::getTime();
    HighResolutionTimer::getTime();
    QCOMPARE(clock.getReadings(), std::uint64_t(2));
}

void tst_FakeClock::gettimeofday_readsTheSystemTime_withoutAFakeClock()
{
    const std::time_t before = std::time(nullptr);
    const auto seconds = std::time_t(HighResolutionTimer::getTime() / 1000000);
    QVERIFY2(seconds >= before && seconds <= before + 10, "not the system's time");
}

AA_TEST(tst_FakeClock, NoApplication)
#include "tst_FakeClock.moc"
