// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <support/TestClass.h>

/// The transform equals the plain recurrence bit for bit, whatever makes it fast.
class tst_FastFourierTransform_bitExact : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void butterflies_equalThePlainOnes_data();
    void butterflies_equalThePlainOnes();
    void object_equalsThePlainTransform_data();
    void object_equalsThePlainTransform();
};

namespace {

// The plain transform, written for comparison only: one loop a step, nothing shared or rearranged.
void plainButterflies(Values& real, Values& imag, bool isInverse)
{
    const size_t n = real.size();
    for (size_t m = 2; m <= n; m = 2 * m) {
        const size_t h = m / 2;
        const double a = (isInverse ? 6.283185307179586 : -6.283185307179586) / double(m);
        const double c1 = std::cos(a), s1 = std::sin(a);
        const double c2 = std::cos(a + a), s2 = std::sin(a + a);
        for (size_t b = 0; b < n; b += m) {
            double w1[2] = {c1, s1};
            double w2[2] = {c2, s2};
            for (size_t j = 0; j < h; ++j) {
                const double wr = 2.0 * c1 * w1[0] - w2[0];
                const double wi = 2.0 * c1 * w1[1] - w2[1];
                w2[0] = w1[0];
                w2[1] = w1[1];
                w1[0] = wr;
                w1[1] = wi;
                const size_t k = b + j + h;
                const double tr = wr * real[k] - wi * imag[k];
                const double ti = wi * real[k] + wr * imag[k];
                real[k] = real[b + j] - tr;
                imag[k] = imag[b + j] - ti;
                real[b + j] = real[b + j] + tr;
                imag[b + j] = imag[b + j] + ti;
            }
        }
    }
    for (size_t i = 0; isInverse && i < n; ++i) {
        real[i] = real[i] / double(n);
        imag[i] = imag[i] / double(n);
    }
}

size_t mirrored(size_t index, size_t length)
{
    size_t result = 0;
    for (size_t low = 1, high = length / 2; high > 0; low *= 2, high /= 2)
        result += (index & low) != 0 ? high : 0;
    return result;
}

Values scattered(const Values& values)
{
    Values result(values.size());
    for (size_t i = 0; i < values.size(); ++i)
        result[mirrored(i, values.size())] = values[i];
    return result;
}

/// Also tells -0.0 from 0.0.
bool areSameBits(const double* pValues, const Values& expected)
{
    return std::memcmp(pValues, expected.data(), expected.size() * sizeof(double)) == 0;
}

void addLengths(size_t last)
{
    QTest::addColumn<quint64>("length");
    for (size_t length = 1; length <= last; length *= 2)
        QTest::addRow("%zu", length) << quint64(length);
}

}  // namespace

void tst_FastFourierTransform_bitExact::butterflies_equalThePlainOnes_data()
{
    addLengths(4096);
}

void tst_FastFourierTransform_bitExact::butterflies_equalThePlainOnes()
{
    QFETCH(quint64, length);
    waves::Random random = makeRandom();
    for (bool isInverse : {false, true, false, true}) {
        Values real = uniformValues(length, random);
        Values imaginary = uniformValues(length, random);
        Values plainReal = real;
        Values plainImaginary = imaginary;
        FastFourierTransform::_Compute(real.data(), imaginary.data(), length, isInverse);
        plainButterflies(plainReal, plainImaginary, isInverse);
        QVERIFY(areSameBits(real.data(), plainReal));
        QVERIFY(areSameBits(imaginary.data(), plainImaginary));
    }
}

void tst_FastFourierTransform_bitExact::object_equalsThePlainTransform_data()
{
    addLengths(131072);
}

void tst_FastFourierTransform_bitExact::object_equalsThePlainTransform()
{
    QFETCH(quint64, length);
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(length, random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    Values real = scattered(Values(block.begin(), block.end()));
    Values imaginary(length);
    plainButterflies(real, imaginary, false);
    QVERIFY(areSameBits(fft.m_pReal, real));
    QVERIFY(areSameBits(fft.m_pImaginary, imaginary));

    inverse(fft);
    real = scattered(real);
    imaginary = scattered(imaginary);
    plainButterflies(real, imaginary, true);
    QVERIFY(areSameBits(fft.m_pInverseReal, real));
    QVERIFY(areSameBits(fft.m_pInverseImaginary, imaginary));
}

AA_TEST(tst_FastFourierTransform_bitExact, NoApplication)

#include "tst_FastFourierTransform_bitExact.moc"
