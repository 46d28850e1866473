// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <cli/plot/BeliefTrace.h>

#include <QtTest>

#include <cmath>
#include <numeric>
#include <support/TestClass.h>

class tst_BeliefTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmpty_whenNothingIsAppended();
    void tempi_areTheTrackers();
    void beliefs_areSharesOfOne();
    void columns_areMerged_whenFull();
};

void tst_BeliefTrace::isEmpty_whenNothingIsAppended()
{
    QVERIFY(BeliefTrace().getColumns().empty());
    QVERIFY(BeliefTrace().getTempi().empty());
}

// From 190 BPM down, in steps of 1.5 %, to 60 BPM: ln(190 / 60) / ln(1.015) = 77.4 steps.
void tst_BeliefTrace::tempi_areTheTrackers()
{
    BeliefTrace trace;
    trace.Append(0.0, MeterTracker(8000));
    const std::vector<double>& tempi = trace.getTempi();
    QCOMPARE(tempi.size(), std::size_t(78));
    QVERIFY(std::fabs(tempi[0] - 190.0) < 1e-3);
    for (std::size_t i = 1; i < tempi.size(); ++i)
        QVERIFY(std::fabs(tempi[i - 1] / tempi[i] - 1.015) < 1e-5);
}

void tst_BeliefTrace::beliefs_areSharesOfOne()
{
    BeliefTrace trace;
    MeterTracker tracker(8000);
    for (int i = 0; i < 3; ++i) {
        trace.Append(i, tracker);
        const std::vector<qint16> samples(8000);
        tracker.Push(samples.data(), samples.size());
    }
    QCOMPARE(trace.getColumns().size(), std::size_t(3));
    for (const BeliefTrace::Column& column : trace.getColumns()) {
        const double sum = std::accumulate(column.beliefs.begin(), column.beliefs.end(), 0.0);
        QVERIFY2(std::fabs(sum - 1.0) < 1e-4, qPrintable(QString::number(sum)));
        QCOMPARE(column.confidence, 0.0F);
    }
    QCOMPARE(trace.getColumns()[2].time, 2.0);
}

// 512 columns are kept; the next block makes 256 of two blocks and begins another one, and the
// block behind it joins that.
void tst_BeliefTrace::columns_areMerged_whenFull()
{
    BeliefTrace trace;
    MeterTracker tracker(8000);
    for (int i = 0; i < 512; ++i)
        trace.Append(i, tracker);
    QCOMPARE(trace.getColumns().size(), std::size_t(512));
    const float before = trace.getColumns()[0].beliefs[10];
    trace.Append(512, tracker);
    trace.Append(513, tracker);
    QCOMPARE(trace.getColumns().size(), std::size_t(257));
    QCOMPARE(trace.getColumns()[1].time, 2.0);
    QCOMPARE(trace.getColumns()[256].time, 512.0);
    for (const BeliefTrace::Column& column : trace.getColumns())
        QVERIFY(std::fabs(column.beliefs[10] - before) < 1e-6F);
}

AA_TEST(tst_BeliefTrace, QCoreApplication)
#include "tst_BeliefTrace.moc"
