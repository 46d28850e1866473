// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <future>
#include <poll.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <unistd.h>

class tst_VirtualTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clocks_standStill_betweenWaits();
    void clocks_moveTogether_byWhatWasWaitedFor();
    void timers_fireInOrderAndOnTime();
    void thread_isWaitedFor();
    void file_comesBeforeTheTime();
};

void tst_VirtualTime::clocks_standStill_betweenWaits()
{
    const quint64 start = HighResolutionTimer::getTime();
    const auto steady = std::chrono::steady_clock::now();
    volatile unsigned work = 0;
    for (unsigned i = 0; i < 1000000; ++i)
        work = work + i;
    QCOMPARE(HighResolutionTimer::getTime(), start);
    QVERIFY(std::chrono::steady_clock::now() == steady);
}

void tst_VirtualTime::clocks_moveTogether_byWhatWasWaitedFor()
{
    const quint64 start = HighResolutionTimer::getTime();
    const auto steady = std::chrono::steady_clock::now();
    QElapsedTimer timer;
    timer.start();
    QTest::qSleep(3600000);
    QCOMPARE(timer.elapsed(), qint64(3600000));
    QCOMPARE(HighResolutionTimer::getTime() - start, quint64(3600000000));
    QVERIFY(std::chrono::steady_clock::now() - steady == std::chrono::hours(1));
}

void tst_VirtualTime::timers_fireInOrderAndOnTime()
{
    QElapsedTimer clock;
    clock.start();
    QList<qint64> times;
    for (const int delay : {5000, 20, 700})
        QTimer::singleShot(delay, Qt::PreciseTimer, this, [&] { times.append(clock.elapsed()); });
    QTRY_COMPARE_WITH_TIMEOUT(times.size(), 3, 10000);
    const QList<qint64> delays = {20, 700, 5000};
    for (int i = 0; i < delays.size(); ++i)
        // A wait of QTest's own may lie over the timer's instant.
        QVERIFY(times[i] >= delays[i] && times[i] <= delays[i] + 10);
}

void tst_VirtualTime::thread_isWaitedFor()
{
    std::atomic<bool> isDone{false};
    const auto work = std::async(std::launch::async, [&] {
        volatile int count = 0;
        for (int i = 0; i < 20000000; ++i)
            count = count + 1;
        isDone = true;
    });
    QElapsedTimer clock;
    clock.start();
    QTest::qSleep(1);
    QVERIFY(isDone);
    QCOMPARE(clock.elapsed(), qint64(1));
}

void tst_VirtualTime::file_comesBeforeTheTime()
{
    int ends[2] = {};
    QCOMPARE(pipe(ends), 0);
    QCOMPARE(write(ends[1], "x", 1), ssize_t(1));
    QElapsedTimer clock;
    clock.start();
    pollfd file = {ends[0], POLLIN, 0};
    QCOMPARE(poll(&file, 1, 1000), 1);
    QCOMPARE(clock.elapsed(), qint64(0));
    char byte = 0;
    QCOMPARE(read(ends[0], &byte, 1), ssize_t(1));
    QCOMPARE(poll(&file, 1, 1000), 0);
    QCOMPARE(clock.elapsed(), qint64(1000));
    close(ends[0]);
    close(ends[1]);
}

AA_TEST(tst_VirtualTime, InVirtualTime<QCoreApplication>)
#include "tst_VirtualTime.moc"
