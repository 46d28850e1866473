// SPDX-License-Identifier: MIT
#include <desktop/stage/detail/FlashPlan.h>

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>
#include <vector>

using desktop::FlashPlan;

/// How strongly beats light a whole window.
class tst_FlashPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void one_isBrighter();
    void soft_neverFlashesFully();
    void fastBeats_flashThreeTimesASecondAtMost_data();
    void fastBeats_flashThreeTimesASecondAtMost();
    void leapingBeats_flashThreeTimesASecondAtMost();
    void withoutALimit_everyBeatFlashes();
};

void tst_FlashPlan::one_isBrighter()
{
    FlashPlan plan;
    QCOMPARE(plan.Choose(0, 1, 120.0), desktop::eOneFlash);
    QCOMPARE(plan.Choose(500, 2, 120.0), desktop::eBeatFlash);
    QCOMPARE(plan.Choose(1000, 3, 120.0), desktop::eBeatFlash);
    QCOMPARE(plan.Choose(1500, 4, 120.0), desktop::eBeatFlash);
    QCOMPARE(plan.Choose(2000, 1, 120.0), desktop::eOneFlash);
}

void tst_FlashPlan::soft_neverFlashesFully()
{
    FlashPlan plan;
    plan.isSoft = true;
    for (int beat = 0; beat < 8; ++beat)
        QCOMPARE(plan.Choose(beat * 500, beat % 4 + 1, 120.0), desktop::eSoftFlash);
}

void tst_FlashPlan::fastBeats_flashThreeTimesASecondAtMost_data()
{
    QTest::addColumn<double>("tempo");
    QTest::addColumn<int>("flashes");  // of 48 beats
    QTest::newRow("80") << 80.0 << 48;
    QTest::newRow("the last that is not limited") << 180.0 << 48;
    QTest::newRow("the first that is") << 180.5 << 24;
    QTest::newRow("300") << 300.0 << 24;
    QTest::newRow("400") << 400.0 << 12;
    QTest::newRow("999") << 999.0 << 6;
}

void tst_FlashPlan::fastBeats_flashThreeTimesASecondAtMost()
{
    QFETCH(const double, tempo);
    QFETCH(const int, flashes);
    FlashPlan plan;
    int full = 0;
    // Bars of eight, since a stride may be longer than four.
    for (int beat = 0; beat < 48; ++beat) {
        const auto time = qint64(beat * 60000.0 / tempo);
        full += plan.Choose(time, beat % 8 + 1, tempo) != desktop::eSoftFlash;
    }
    QCOMPARE(full, flashes);
}

/// A hand that marks the one anew with every beat asks for more than is good.
void tst_FlashPlan::leapingBeats_flashThreeTimesASecondAtMost()
{
    FlashPlan plan;
    std::vector<qint64> times;
    for (qint64 time = 0; time < 10000; time += 100)
        if (plan.Choose(time, 1, 120.0) != desktop::eSoftFlash)
            times.push_back(time);
    QVERIFY(times.size() >= 30);
    for (std::size_t i = 3; i < times.size(); ++i)
        QVERIFY(times[i] - times[i - 3] >= FlashPlan::kSpanMs);
}

void tst_FlashPlan::withoutALimit_everyBeatFlashes()
{
    FlashPlan plan;
    plan.isLimited = false;
    for (int beat = 0; beat < 16; ++beat)
        QVERIFY(plan.Choose(beat * 200, beat % 4 + 1, 300.0) != desktop::eSoftFlash);
}

AA_TEST(tst_FlashPlan, NoApplication)
#include "tst_FlashPlan.moc"
