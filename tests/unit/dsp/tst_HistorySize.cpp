// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/HistorySize.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>

class tst_HistorySize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void value_isRoundedToASize_data();
    void value_isRoundedToASize();
    void rounding_isThatOfTheToolkit_insideItsRange();
    void size_isDurationInHalfLengths_data();
    void size_isDurationInHalfLengths();
};

void tst_HistorySize::value_isRoundedToASize_data()
{
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::addColumn<double>("value");
    QTest::addColumn<quint64>("size");
    QTest::newRow("0") << 0.0 << quint64(0);
    QTest::newRow("minus 0") << -0.0 << quint64(0);
    QTest::newRow("below half") << 0.49 << quint64(0);
    QTest::newRow("half") << 0.5 << quint64(1);
    QTest::newRow("one and a half") << 1.5 << quint64(2);
    QTest::newRow("two and a half") << 2.5 << quint64(3);
    QTest::newRow("86.13") << 86.13 << quint64(86);
    QTest::newRow("minus half") << -0.5 << quint64(0);
    QTest::newRow("negative") << -86.0 << quint64(0);
    QTest::newRow("greatest int") << 2147483647.49 << quint64(2147483647);
    QTest::newRow("above the int range") << 2147483647.5 << quint64(0);
    QTest::newRow("far above") << 1e300 << quint64(0);
    QTest::newRow("far below") << -1e300 << quint64(0);
    QTest::newRow("infinite") << infinity << quint64(0);
    QTest::newRow("minus infinite") << -infinity << quint64(0);
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << quint64(0);
}

void tst_HistorySize::value_isRoundedToASize()
{
    QFETCH(double, value);
    QFETCH(quint64, size);
    QCOMPARE(quint64(detail::roundToSize(value)), size);
}

void tst_HistorySize::rounding_isThatOfTheToolkit_insideItsRange()
{
    for (int i = -1000; i <= 1000; ++i)
        for (double value : {i / 8.0, std::nextafter(i / 2.0, 1e9), std::nextafter(i / 2.0, -1e9)})
            QCOMPARE(detail::roundToSize(value), size_t(qMax(qRound(value), 0)));
}

void tst_HistorySize::size_isDurationInHalfLengths_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("duration");
    QTest::addColumn<quint64>("blockLength");
    QTest::addColumn<quint64>("size");
    QTest::newRow("1024") << 44100 << 1.0 << quint64(1024) << quint64(86);
    QTest::newRow("513") << 44100 << 1.0 << quint64(513) << quint64(86);
    QTest::newRow("512") << 44100 << 1.0 << quint64(512) << quint64(172);
    QTest::newRow("1025") << 44100 << 1.0 << quint64(1025) << quint64(43);
    QTest::newRow("2") << 8000 << 0.5 << quint64(2) << quint64(4000);
    QTest::newRow("1") << 48000 << 3600.0 << quint64(1) << quint64(0);
    QTest::newRow("2^63 + 1") << 48000 << 1.0 << (quint64(1) << 63) + 1 << quint64(0);
    QTest::newRow("no rate") << 0 << 1.0 << quint64(1024) << quint64(0);
    QTest::newRow("least rate") << std::numeric_limits<int>::min() << 1.0 << quint64(2)
                                << quint64(0);
}

void tst_HistorySize::size_isDurationInHalfLengths()
{
    QFETCH(int, rate);
    QFETCH(double, duration);
    QFETCH(quint64, blockLength);
    QFETCH(quint64, size);
    QCOMPARE(quint64(detail::historySize(rate, duration, blockLength)), size);
}

AA_TEST(tst_HistorySize, NoApplication)

#include "tst_HistorySize.moc"
