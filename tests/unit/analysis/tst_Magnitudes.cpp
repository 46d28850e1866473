// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/Magnitudes.h>

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

using waves::Samples;
#include <vector>

class tst_Magnitudes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void magnitude_staysIn16Bits_data();
    void magnitude_staysIn16Bits();
    void samples_areMeasured_data();
    void samples_areMeasured();
    void sum_fits_whenAllSamplesAreExtreme();
    void parts_areCombined();
};

void tst_Magnitudes::magnitude_staysIn16Bits_data()
{
    QTest::addColumn<int>("sample");
    QTest::addColumn<int>("magnitude");
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("positive") << 5 << 5;
    QTest::newRow("negative") << -5 << 5;
    QTest::newRow("greatest") << 32767 << 32767;
    QTest::newRow("least with a magnitude") << -32767 << 32767;
    QTest::newRow("least") << -32768 << -32768;
}

void tst_Magnitudes::magnitude_staysIn16Bits()
{
    QFETCH(int, sample);
    QFETCH(int, magnitude);
    QCOMPARE(int(detail::Magnitude(qint16(sample))), magnitude);
}

void tst_Magnitudes::samples_areMeasured_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<qint64>("sum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("minimum");
    QTest::newRow("one") << Samples{-7} << qint64(7) << 7 << 7;
    QTest::newRow("several") << Samples{3, -9, 0, 4} << qint64(16) << 9 << 0;
    QTest::newRow("with the least") << Samples{10, -32768, 2} << qint64(-32756) << 10 << -32768;
    QTest::newRow("only the least") << Samples{-32768} << qint64(-32768) << -32768 << -32768;
}

void tst_Magnitudes::samples_areMeasured()
{
    QFETCH(Samples, samples);
    QFETCH(qint64, sum);
    QFETCH(int, maximum);
    QFETCH(int, minimum);
    const detail::Magnitudes figures = detail::MeasureMagnitudes(samples.data(), samples.size());
    QCOMPARE(figures.sum, sum);
    QCOMPARE(int(figures.maximum), maximum);
    QCOMPARE(int(figures.minimum), minimum);
}

void tst_Magnitudes::sum_fits_whenAllSamplesAreExtreme()
{
    const Samples greatest(65536, 32767);
    QCOMPARE(detail::MeasureMagnitudes(greatest.data(), 65536).sum, qint64(65536) * 32767);
    const Samples least(65536, -32768);
    QCOMPARE(detail::MeasureMagnitudes(least.data(), 65536).sum, qint64(65536) * -32768);
}

void tst_Magnitudes::parts_areCombined()
{
    const detail::Magnitudes figures = detail::Combine({5000000000, 7, -2}, {-1, 9, 3});
    QCOMPARE(figures.sum, qint64(4999999999));
    QCOMPARE(figures.maximum, qint16(9));
    QCOMPARE(figures.minimum, qint16(-2));
}

AA_TEST(tst_Magnitudes, NoApplication)

#include "tst_Magnitudes.moc"
