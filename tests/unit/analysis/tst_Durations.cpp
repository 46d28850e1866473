// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/Durations.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

class tst_Durations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sampleCount_isTheRoundedProduct_data();
    void sampleCount_isTheRoundedProduct();
};

void tst_Durations::sampleCount_isTheRoundedProduct_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("sampleRate");
    QTest::addColumn<quint64>("count");

    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("stop block") << 1.5 << 44100.0 << quint64(66150);
    QTest::newRow("tempo span") << 10.0 << 44100.0 << quint64(441000);
    QTest::newRow("one half rounds up") << 0.5 << 1.0 << quint64(1);
    QTest::newRow("below one half") << 0.25 << 1.75 << quint64(0);
    QTest::newRow("one and a half") << 0.5 << 3.0 << quint64(2);
    QTest::newRow("two and a half") << 0.5 << 5.0 << quint64(3);
    QTest::newRow("one quarter") << 0.25 << 5.0 << quint64(1);
    QTest::newRow("beyond 32 bits") << 100000.0 << 96000.0 << Q_UINT64_C(9600000000);
    QTest::newRow("no time") << 0.0 << 44100.0 << quint64(0);
    QTest::newRow("no rate") << 1.0 << 0.0 << quint64(0);
    QTest::newRow("negative time") << -1.0 << 44100.0 << quint64(0);
    QTest::newRow("negative rate") << 1.0 << -44100.0 << quint64(0);
    QTest::newRow("not a number") << nan << 44100.0 << quint64(0);
    QTest::newRow("endless is bounded") << infinity << 44100.0 << (Q_UINT64_C(1) << 62);
    QTest::newRow("huge is bounded") << 1e300 << 44100.0 << (Q_UINT64_C(1) << 62);
}

void tst_Durations::sampleCount_isTheRoundedProduct()
{
    QFETCH(double, seconds);
    QFETCH(double, sampleRate);
    QFETCH(quint64, count);
    QCOMPARE(detail::SampleCount(seconds, sampleRate), count);
}

AA_TEST(tst_Durations, NoApplication)
#include "tst_Durations.moc"
