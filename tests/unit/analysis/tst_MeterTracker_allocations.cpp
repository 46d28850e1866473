// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include "MeterMusic.h"

#include <QtTest>

#include <support/AllocationGuard.h>
#include <support/TestClass.h>

class tst_MeterTracker_allocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void push_allocatesNothing_fromTheFirstSampleOn_data();
    void push_allocatesNothing_fromTheFirstSampleOn();
    void hand_allocatesNothing();
};

void tst_MeterTracker_allocations::push_allocatesNothing_fromTheFirstSampleOn_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("portion");
    for (const int rate : {8000, 44100, 48000, 96000})
        for (const int portion : {1, 64, 1024, 10007})
            QTest::addRow("%d Hz, %d", rate, portion) << rate << portion;
}

void tst_MeterTracker_allocations::push_allocatesNothing_fromTheFirstSampleOn()
{
    QFETCH(int, rate);
    QFETCH(int, portion);
    const std::vector<qint16> samples = MeterMusic(rate).play(127.0, 4.0).rest(2.0).samples();
    MeterTracker tracker(rate);
    int beats = 0;
    QObject::connect(&tracker, &MeterTracker::OnBeatForeseen, [&] { ++beats; });
    const AllocationGuard guard;
    for (std::size_t i = 0; i < samples.size(); i += std::size_t(portion))
        tracker.Push(&samples[i], std::min(std::size_t(portion), samples.size() - i));
    QCOMPARE(guard.getCount(), std::size_t(0));
    QVERIFY(beats > 4);
}

void tst_MeterTracker_allocations::hand_allocatesNothing()
{
    const std::vector<qint16> samples = MeterMusic(44100).play(120.0, 5.0).samples();
    MeterTracker tracker(44100);
    tracker.Push(samples.data(), samples.size());
    const AllocationGuard guard;
    tracker.Tap(tracker.getSampleCount());
    tracker.Multiply(0.5);
    tracker.setDownbeat(44100);
    tracker.setTempoRange(100.0, 150.0);
    tracker.Reset();
    QCOMPARE(guard.getCount(), std::size_t(0));
}

AA_TEST(tst_MeterTracker_allocations, QCoreApplication)
#include "tst_MeterTracker_allocations.moc"
