// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <cmath>
#include <support/ReferenceDft.h>
#include <support/TestClass.h>

class tst_FastFourierTransform_inverse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sample_isTruncatedAndWraps_isIntended_data();
    void sample_isTruncatedAndWraps_isIntended();
    void block_comesBack_data();
    void block_comesBack();
    void impulse_hasAConstantSpectrum_exactly();
    void spectrum_staysAsItIs_andMayBeInvertedAgain();
    void tail_isDropped_whenCountIsBelowLength();
    void imaginaryParts_takePart_andImaginaryOutputIsDropped();
    void output_isTheRealPartOfTheSum_afterAFilter();
};

void tst_FastFourierTransform_inverse::sample_isTruncatedAndWraps_isIntended_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("sample");
    QTest::newRow("no rounding up") << 99.9999 << 99;
    QTest::newRow("no rounding down") << -99.9999 << -99;
    QTest::newRow("toward zero from below") << -0.9 << 0;
    QTest::newRow("toward zero from above") << 0.9 << 0;
    QTest::newRow("whole") << -1.0 << -1;
    QTest::newRow("greatest") << 32767.9 << 32767;
    QTest::newRow("least") << -32768.9 << -32768;
    QTest::newRow("wraps above") << 32768.0 << -32768;
    QTest::newRow("wraps below") << -32769.0 << 32767;
    QTest::newRow("not saturated") << 40000.7 << -25536;
    QTest::newRow("not saturated, negative") << -40000.7 << 25536;
    QTest::newRow("whole turn") << 65536.5 << 0;
    QTest::newRow("greatest int") << 2147483647.5 << -1;
    QTest::newRow("least int") << -2147483648.5 << 0;
}

void tst_FastFourierTransform_inverse::sample_isTruncatedAndWraps_isIntended()
{
    QFETCH(double, value);
    QFETCH(int, sample);
    FastFourierTransform fft;
    // A lone bin of 0 Hz becomes a constant; lengths are powers of two, so nothing is rounded.
    for (size_t length : {1U, 2U, 8U}) {
        Values real(length);
        real[0] = value * static_cast<double>(length);
        loadSpectrum(fft, real);
        QCOMPARE(inverse(fft), waves::constant(length, qint16(sample)));
    }
}

void tst_FastFourierTransform_inverse::block_comesBack_data()
{
    QTest::addColumn<int>("count");
    for (int count : {1, 2, 3, 7, 8, 100, 1000, 1024, 1025, 5000, 66150})
        QTest::addRow("%d", count) << count;
}

void tst_FastFourierTransform_inverse::block_comesBack()
{
    QFETCH(int, count);
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(size_t(count), random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    const waves::Samples back = inverse(fft);
    QCOMPARE(back.size(), block.size());
    // Noise spreads the error evenly, so a sample's part of the whole bound is that of full scale.
    const double bound =
        32768.0 * static_cast<double>(2.1L * reference::roundingBound(fft.m_length));
    QVERIFY(bound < 0.2);
    for (size_t i = 0; i < block.size(); ++i) {
        // Rounding may leave a value just short of the whole number, which truncation then misses.
        const int shrunk = block[i] - (block[i] > 0) + (block[i] < 0);
        QVERIFY(back[i] == block[i] || back[i] == shrunk);
        QVERIFY(std::fabs(fft.m_pInverseReal[i] - block[i]) <= bound);
        QVERIFY(std::fabs(fft.m_pInverseImaginary[i]) <= bound);
    }
}

void tst_FastFourierTransform_inverse::impulse_hasAConstantSpectrum_exactly()
{
    // Every butterfly adds 0 to it, so nothing is rounded.
    for (size_t length : {1U, 2U, 4U, 1024U}) {
        waves::Samples block(length);
        block[0] = -12345;
        FastFourierTransform fft;
        fft.Compute(block.data(), block.size());
        QCOMPARE(realParts(fft), Values(length, -12345.0));
        QCOMPARE(imaginaryParts(fft), Values(length, 0.0));
    }
}

void tst_FastFourierTransform_inverse::spectrum_staysAsItIs_andMayBeInvertedAgain()
{
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(600, random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    const Values real = realParts(fft);
    const Values imaginary = imaginaryParts(fft);
    const waves::Samples first = inverse(fft);
    QCOMPARE(realParts(fft), real);
    QCOMPARE(imaginaryParts(fft), imaginary);
    QCOMPARE(inverse(fft), first);
}

void tst_FastFourierTransform_inverse::tail_isDropped_whenCountIsBelowLength()
{
    FastFourierTransform fft;
    loadSpectrum(fft, {80.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
    fft.m_sampleCount = 5;
    std::fill_n(fft.m_pInverseSamples, 8, qint16(77));
    QCOMPARE(inverse(fft), waves::constant(5, 10));
    QCOMPARE(fft.m_pInverseSamples[5], qint16(77));
}

void tst_FastFourierTransform_inverse::imaginaryParts_takePart_andImaginaryOutputIsDropped()
{
    // X[1] = 4i of N = 4 is x[n] = i e^(-i pi n / 2) = i, 1, -i, -1.
    FastFourierTransform fft;
    loadSpectrum(fft, {2.0, 0.0, 0.0, 0.0}, {0.0, 4000.0, 0.0, 0.0});
    QCOMPARE(inverse(fft), waves::Samples({0, 1000, 0, -999}));
}

void tst_FastFourierTransform_inverse::output_isTheRealPartOfTheSum_afterAFilter()
{
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(1000, random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    fft.BandPassFilter(200, 5000, 44100);
    const Values real = realParts(fft);
    const Values imaginary = imaginaryParts(fft);
    const waves::Samples back = inverse(fft);

    const reference::Spectrum sum = reference::Dft(1024).transform(real, imaginary, -1);
    const double bound = static_cast<double>(reference::roundingBound(1024) *
                                             reference::norm(sum.real, sum.imaginary) / 1024);
    QVERIFY(bound < 0.01);
    for (size_t i = 0; i < back.size(); ++i) {
        const double expected = static_cast<double>(sum.real[i] / 1024);
        QVERIFY(std::fabs(fft.m_pInverseReal[i] - expected) <= bound);
        QCOMPARE(back[i], qint16(fft.m_pInverseReal[i]));
    }
}

AA_TEST(tst_FastFourierTransform_inverse, NoApplication)

#include "tst_FastFourierTransform_inverse.moc"
