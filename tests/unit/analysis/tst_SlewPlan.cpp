// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/SlewPlan.h>

#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

/// The way to a target of 120 BPM, which is at beat 2 after one second.
class tst_SlewPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void way_takesAsLongAsTheSlewAllows_data();
    void way_takesAsLongAsTheSlewAllows();
    void way_isTheTarget_whenItIsThere();
    void way_isSteadyAndEndsOnTheTarget_forRandomGaps();
};

void tst_SlewPlan::way_takesAsLongAsTheSlewAllows_data()
{
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("slew");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<double>("beats");
    // A tenth of a beat is 50 ms: one second at a share of 0.05. Two beats pass, and the gap.
    QTest::newRow("behind") << 1.9 << 0.05 << qint64(2000000) << 2.1;
    QTest::newRow("ahead") << 2.1 << 0.05 << qint64(2000000) << 1.9;
    QTest::newRow("half a beat ahead") << 2.5 << 0.5 << qint64(1500000) << 0.5;
    QTest::newRow("1 ms behind") << 1.998 << 0.1 << qint64(1010000) << 0.022;
}

void tst_SlewPlan::way_takesAsLongAsTheSlewAllows()
{
    QFETCH(const double, position);
    QFETCH(const double, slew);
    QFETCH(const qint64, end);
    QFETCH(const double, beats);
    const detail::SlewPlan plan = detail::PlanSlew({0, 0.0, 500000.0}, position, 1000000, slew);
    QCOMPARE(qint64(plan.now.time), qint64(1000000));
    QCOMPARE(plan.now.position, position);
    // One microsecond more when the gap is no whole number of them.
    QVERIFY(plan.then.time - end >= 0 && plan.then.time - end <= 1);
    QVERIFY(qAbs(plan.now.period - double(end - 1000000) / beats) < 10.0);
    QCOMPARE(plan.then.period, 500000.0);
}

void tst_SlewPlan::way_isTheTarget_whenItIsThere()
{
    for (const double position : {2.0, 2.0 + 0.9e-6, 2.0 - 0.9e-6}) {  // 0.45 µs
        const detail::SlewPlan plan = detail::PlanSlew({0, 0.0, 500000.0}, position, 1000000, 0.05);
        QCOMPARE(plan.now.position, 2.0);
        QCOMPARE(plan.now.period, 500000.0);
        QCOMPARE(qint64(plan.then.time), qint64(1000000));
    }
}

void tst_SlewPlan::way_isSteadyAndEndsOnTheTarget_forRandomGaps()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 20000; ++run) {
        const BeatLine target = {qint64(random.below(1000000000)),
                                 random.uniform(0.0, 100000.0),
                                 random.uniform(60061.0, 6e6)};
        const qint64 now = target.time + qint64(random.below(20000000)) - 10000000;
        const double slew = random.uniform(0.001, 0.5);
        const double position = target.getPosition(now) + random.uniform(-1.0, 1.0);
        const detail::SlewPlan plan = detail::PlanSlew(target, position, now, slew);
        QVERIFY(qAbs(plan.now.getPosition(now) - position) * target.period < 0.6);
        QVERIFY(qAbs(plan.now.getPosition(plan.then.time) - plan.then.position) < 1e-6);
        QVERIFY(qAbs(target.getPosition(plan.then.time) - plan.then.position) < 1e-6);
        const double speed = target.period / plan.now.period;
        QVERIFY(speed > 1.0 - slew - 1e-6 && speed < 1.0 + slew + 1e-6);
    }
}

AA_TEST(tst_SlewPlan, NoApplication)
#include "tst_SlewPlan.moc"
