// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>

#include <QtTest>

#include <memory>
#include <support/FakeClock.h>
#include <support/TestClass.h>
#include <thread>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<HighResolutionTimerOverride>);
static_assert(!std::is_copy_assignable_v<HighResolutionTimerOverride>);

class tst_HighResolutionTimerOverride : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clock_readsTheOverride_whileItLives();
    void clock_standsStill_untilItIsSet();
    void clock_mayGoBack();
    void zero_isRefused();
    void stopwatch_followsTheOverride();
    void overrides_nest();
    void outerOverride_mayMove_underAnInnerOne();
    void override_isInForceOnItsThreadOnly();
    void threads_haveOverridesOfTheirOwn();
    void wallClock_isNotRead_underAnOverride();
    void wallClock_isBack_afterAnException();
};

void tst_HighResolutionTimerOverride::clock_readsTheOverride_whileItLives()
{
    const FakeClock wallClock(900);
    QVERIFY(!HighResolutionTimerOverride::getCurrent());
    QCOMPARE(HighResolutionTimer::getTime(), quint64(900));
    {
        const HighResolutionTimerOverride clock(123456789);
        QCOMPARE(HighResolutionTimerOverride::getCurrent(), &clock);
        QCOMPARE(HighResolutionTimer::getTime(), quint64(123456789));
        QCOMPARE(clock.getTime(), quint64(123456789));
    }
    QVERIFY(!HighResolutionTimerOverride::getCurrent());
    QCOMPARE(HighResolutionTimer::getTime(), quint64(900));
}

void tst_HighResolutionTimerOverride::clock_standsStill_untilItIsSet()
{
    HighResolutionTimerOverride clock(1000);
    QTest::qSleep(2);
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
    QVERIFY(clock.setTime(1001));
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1001));
    QVERIFY(clock.setTime(1001));
    QVERIFY(clock.setTime(~quint64(0)));
    QCOMPARE(HighResolutionTimer::getTime(), ~quint64(0));
}

void tst_HighResolutionTimerOverride::clock_mayGoBack()
{
    HighResolutionTimerOverride clock(1000);
    QVERIFY(clock.setTime(1));
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1));
}

void tst_HighResolutionTimerOverride::zero_isRefused()
{
    HighResolutionTimerOverride clock(1000);
    QVERIFY(!clock.setTime(0));
    QCOMPARE(clock.getTime(), quint64(1000));
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
}

void tst_HighResolutionTimerOverride::stopwatch_followsTheOverride()
{
    HighResolutionTimerOverride clock(1000000);
    const HighResolutionTimer timer;
    clock.setTime(3500000);
    QCOMPARE(timer.getElapsedMicroSeconds(), quint64(2500000));
    QCOMPARE(timer.getElapsedMilliSeconds(), 2500.0);
    QCOMPARE(timer.getElapsedSeconds(), 2.5);
}

void tst_HighResolutionTimerOverride::overrides_nest()
{
    const HighResolutionTimerOverride outer(1000);
    {
        const HighResolutionTimerOverride middle(2000);
        {
            const HighResolutionTimerOverride inner(3000);
            QCOMPARE(HighResolutionTimerOverride::getCurrent(), &inner);
            QCOMPARE(HighResolutionTimer::getTime(), quint64(3000));
        }
        QCOMPARE(HighResolutionTimerOverride::getCurrent(), &middle);
        QCOMPARE(HighResolutionTimer::getTime(), quint64(2000));
    }
    QCOMPARE(HighResolutionTimerOverride::getCurrent(), &outer);
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
}

void tst_HighResolutionTimerOverride::outerOverride_mayMove_underAnInnerOne()
{
    HighResolutionTimerOverride outer(1000);
    {
        const HighResolutionTimerOverride inner(2000);
        QVERIFY(outer.setTime(1500));
        QCOMPARE(outer.getTime(), quint64(1500));
        QCOMPARE(HighResolutionTimer::getTime(), quint64(2000));
    }
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1500));
}

void tst_HighResolutionTimerOverride::override_isInForceOnItsThreadOnly()
{
    const HighResolutionTimerOverride clock(1000);
    const HighResolutionTimerOverride* pSeen = &clock;
    quint64 time = 0;
    std::thread([&] {
        pSeen = HighResolutionTimerOverride::getCurrent();
        time = HighResolutionTimer::getTime();
    }).join();
    QVERIFY(!pSeen);
    QVERIFY(time > Q_UINT64_C(1600000000000000));  // the wall clock, years past 2020
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
}

void tst_HighResolutionTimerOverride::threads_haveOverridesOfTheirOwn()
{
    quint64 inThread = 0;
    quint64 afterwards = 0;
    const HighResolutionTimerOverride clock(1000);
    std::thread([&] {
        {
            const HighResolutionTimerOverride own(77);
            inThread = HighResolutionTimer::getTime();
        }
        afterwards = HighResolutionTimer::getTime();
    }).join();
    QCOMPARE(inThread, quint64(77));
    QVERIFY(afterwards > Q_UINT64_C(1600000000000000));
    QCOMPARE(HighResolutionTimer::getTime(), quint64(1000));
}

void tst_HighResolutionTimerOverride::wallClock_isNotRead_underAnOverride()
{
    const FakeClock wallClock(900);
    const HighResolutionTimerOverride clock(1000);
    HighResolutionTimer::getTime();
    QCOMPARE(wallClock.getReadings(), std::uint64_t(0));
}

void tst_HighResolutionTimerOverride::wallClock_isBack_afterAnException()
{
    const FakeClock wallClock(900);
    try {
        const HighResolutionTimerOverride clock(1000);
        throw 1;
    } catch (int) {
    }
    QCOMPARE(HighResolutionTimer::getTime(), quint64(900));
}

AA_TEST(tst_HighResolutionTimerOverride, NoApplication)
#include "tst_HighResolutionTimerOverride.moc"
