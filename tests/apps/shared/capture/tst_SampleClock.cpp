// SPDX-License-Identifier: MIT
#include <shared/capture/detail/ArrivalLog.h>
#include <shared/capture/detail/SampleClock.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::ArrivalLog;
using shared::SampleClock;

namespace {

constexpr quint64 kClockStart = 1000000000;  // µs
constexpr quint64 kClockBlock = 480;         // samples, 10 ms at 48000 Hz

/// pSeconds of blocks that take pBlockMicroseconds each.
void Play(SampleClock& pClock, quint64& pNow, double pSeconds, quint64 pBlockMicroseconds)
{
    for (int i = 0; i < int(pSeconds * 100.0); ++i) {
        pNow += pBlockMicroseconds;
        pClock.Add(kClockBlock, pNow);
    }
}

}  // namespace

class tst_SampleClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drift_isNothing_whenTheDeviceKeepsTime();
    void drift_isTheLagAndItsRate_data();
    void drift_isTheLagAndItsRate();
    void drift_isUnknown_untilAWindowHasPassed();
    void drift_ignoresBlocksThatAreLateByChance();
    void drift_showsAGap();
    void drift_isSeenAtOnce_whenTheClockIsSetBack();
    void start_forgetsEverythingButTheRate();
    void span_doesNotOverflow_afterYears();
    void arrival_isThatOfTheBlock_data();
    void arrival_isThatOfTheBlock();
    void arrival_isTheOldest_forWhatIsNoLongerKept();
};

void tst_SampleClock::drift_isNothing_whenTheDeviceKeepsTime()
{
    SampleClock clock(48000);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 10.0, 10000);
    QCOMPARE(clock.getDrift(), qint64(0));
    QCOMPARE(clock.getPpm(), 0.0);
    QCOMPARE(clock.getCount(), quint64(480000));
}

void tst_SampleClock::drift_isTheLagAndItsRate_data()
{
    QTest::addColumn<quint64>("block");  // µs
    QTest::addColumn<double>("ppm");
    // A block of 10 ms takes 1 µs more or less: 100 parts in a million.
    QTest::newRow("slow") << quint64(10001) << 100.0;
    QTest::newRow("fast") << quint64(9999) << -100.0;
    QTest::newRow("very slow") << quint64(10010) << 1000.0;
}

void tst_SampleClock::drift_isTheLagAndItsRate()
{
    QFETCH(quint64, block);
    QFETCH(double, ppm);
    SampleClock clock(48000);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 100.0, block);
    QVERIFY2(std::fabs(clock.getPpm() - ppm) < std::fabs(ppm) * 0.05,
             QByteArray::number(clock.getPpm()).constData());
    // After 100 s; the least late block of the last window is up to a window old.
    const double microseconds = ppm * 100.0;
    QVERIFY(std::fabs(double(clock.getDrift()) - microseconds) <= std::fabs(ppm) * 2.1);
}

void tst_SampleClock::drift_isUnknown_untilAWindowHasPassed()
{
    SampleClock clock(48000);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 1.98, 10050);
    QCOMPARE(clock.getDrift(), qint64(0));
    Play(clock, now, 0.03, 10050);
    QVERIFY(clock.getDrift() > 0);
    QCOMPARE(clock.getPpm(), 0.0);
}

void tst_SampleClock::drift_ignoresBlocksThatAreLateByChance()
{
    SampleClock clock(48000);
    clock.Start(kClockStart);
    for (quint64 block = 1; block <= 1000; ++block)
        clock.Add(kClockBlock, kClockStart + block * 10000 + (block % 7) * 3000);
    QCOMPARE(clock.getDrift(), qint64(0));
}

void tst_SampleClock::drift_showsAGap()
{
    SampleClock clock(48000);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 4.0, 10000);
    now += 70000;
    Play(clock, now, 6.0, 10000);
    QCOMPARE(clock.getDrift(), qint64(70000));
}

void tst_SampleClock::drift_isSeenAtOnce_whenTheClockIsSetBack()
{
    SampleClock clock(48000);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 1.0, 10000);
    now -= 60000000;
    Play(clock, now, 0.01, 10000);
    QCOMPARE(clock.getDrift(), qint64(-60000000));
}

void tst_SampleClock::start_forgetsEverythingButTheRate()
{
    SampleClock clock(44100);
    quint64 now = kClockStart;
    clock.Start(now);
    Play(clock, now, 10.0, 11000);
    QVERIFY(clock.getDrift() != 0);
    clock.Start(now);
    QCOMPARE(clock.getDrift(), qint64(0));
    QCOMPARE(clock.getPpm(), 0.0);
    QCOMPARE(clock.getCount(), quint64(0));
    QCOMPARE(clock.getSampleRate(), 44100);
}

void tst_SampleClock::span_doesNotOverflow_afterYears()
{
    // Ten years at 192 kHz: 315576000 s.
    const SampleClock clock(192000);
    QCOMPARE(clock.getSpan(quint64(192000) * 315576000 + 96000), qint64(315576000500000));
}

void tst_SampleClock::arrival_isThatOfTheBlock_data()
{
    QTest::addColumn<quint64>("index");
    QTest::addColumn<quint64>("arrival");
    // Blocks [0, 100) at 10, [100, 250) at 20, [250, 300) at 30.
    QTest::newRow("first") << quint64(0) << quint64(10);
    QTest::newRow("last of the first") << quint64(99) << quint64(10);
    QTest::newRow("first of the second") << quint64(100) << quint64(20);
    QTest::newRow("last") << quint64(299) << quint64(30);
    QTest::newRow("still to come") << quint64(300) << quint64(0);
}

void tst_SampleClock::arrival_isThatOfTheBlock()
{
    QFETCH(quint64, index);
    ArrivalLog log;
    log.Add(100, 10);
    log.Add(250, 20);
    log.Add(300, 30);
    QTEST(log.getArrival(index), "arrival");
    log.Clear();
    QCOMPARE(log.getArrival(index), quint64(0));
}

void tst_SampleClock::arrival_isTheOldest_forWhatIsNoLongerKept()
{
    ArrivalLog log;
    for (quint64 block = 1; block <= ArrivalLog::kLongest + 5; ++block)
        log.Add(block * 10, block);
    QCOMPARE(log.getArrival(0), quint64(6));
    QCOMPARE(log.getArrival((ArrivalLog::kLongest + 5) * 10 - 1),
             quint64(ArrivalLog::kLongest + 5));
}

AA_TEST(tst_SampleClock, NoApplication)
#include "tst_SampleClock.moc"
