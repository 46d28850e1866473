// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <cmath>
#include <support/ReferenceDft.h>
#include <support/TestClass.h>

class tst_FastFourierTransform_transform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exponent_isPositive_isIntended();
    void inverseExponent_isNegative_isIntended();
    void constant_isInTheFirstBinAlone_notScaled();
    void alternation_isInTheNyquistBinAlone();
    void harmonic_isInItsBinAlone_data();
    void harmonic_isInItsBinAlone();
    void noise_agreesWithTheSum_data();
    void noise_agreesWithTheSum();
    void samples_agreeWithTheSum();
    void transform_isLinear();
    void realInput_hasAConjugateSymmetricSpectrum();
    void inverse_undoesForward();
};

namespace {

struct Complex
{
    Values real;
    Values imaginary;
};

Complex transform(const Complex& input, bool isInverse)
{
    double* pReal = nullptr;
    double* pImaginary = nullptr;
    size_t count = 0;
    FastFourierTransform::Compute(input.real.data(),
                                  input.imaginary.data(),
                                  input.real.size(),
                                  pReal,
                                  pImaginary,
                                  count,
                                  isInverse);
    Complex result{Values(pReal, pReal + count), Values(pImaginary, pImaginary + count)};
    delete[] pReal;
    delete[] pImaginary;
    return result;
}

/// Distance from the exact sum as a part of the sum's norm.
long double relativeError(const Complex& input, const reference::Dft& dft, bool isInverse)
{
    const Complex output = transform(input, isInverse);
    reference::Spectrum exact = dft.transform(input.real, input.imaginary, isInverse ? -1 : 1);
    if (isInverse) {
        const long double length = static_cast<long double>(input.real.size());
        for (size_t i = 0; i < input.real.size(); ++i) {
            exact.real[i] /= length;
            exact.imaginary[i] /= length;
        }
    }
    return reference::distance(output.real, output.imaginary, exact.real, exact.imaginary) /
           reference::norm(exact.real, exact.imaginary);
}

void addSizes(int first, int last)
{
    QTest::addColumn<int>("length");
    for (int length = first; length <= last; length *= 2)
        QTest::addRow("%d", length) << length;
}

}  // namespace

void tst_FastFourierTransform_transform::exponent_isPositive_isIntended()
{
    const waves::Samples impulse = {0, 1, 0, 0, 0, 0, 0, 0};
    FastFourierTransform fft;
    fft.Compute(impulse.data(), impulse.size());
    const double half = std::sqrt(0.5);
    const double cosines[] = {1, half, 0, -half, -1, -half, 0, half};
    const double sines[] = {0, half, 1, half, 0, -half, -1, -half};
    for (size_t k = 0; k < 8; ++k) {
        QVERIFY(std::fabs(fft.m_pReal[k] - cosines[k]) < 1e-14);
        QVERIFY(std::fabs(fft.m_pImaginary[k] - sines[k]) < 1e-14);
    }
}

void tst_FastFourierTransform_transform::inverseExponent_isNegative_isIntended()
{
    const Complex result = transform({{0, 8, 0, 0, 0, 0, 0, 0}, Values(8)}, true);
    QVERIFY(std::fabs(result.real[2]) < 1e-14);
    QVERIFY(std::fabs(result.imaginary[2] + 1.0) < 1e-14);
    QVERIFY(std::fabs(result.real[1] - std::sqrt(0.5)) < 1e-14);
    QVERIFY(std::fabs(result.imaginary[1] + std::sqrt(0.5)) < 1e-14);
}

void tst_FastFourierTransform_transform::constant_isInTheFirstBinAlone_notScaled()
{
    const waves::Samples block = waves::constant(1024, -3);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    for (size_t k = 0; k < 1024; ++k) {
        QVERIFY(isNear(fft.m_pReal[k], k == 0 ? -3072.0 : 0.0));
        QVERIFY(isNear(fft.m_pImaginary[k], 0.0));
    }
}

void tst_FastFourierTransform_transform::alternation_isInTheNyquistBinAlone()
{
    waves::Samples block(16);
    for (size_t i = 0; i < block.size(); ++i)
        block[i] = i % 2 == 0 ? 5 : -5;
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    for (size_t k = 0; k < 16; ++k) {
        QVERIFY(isNear(fft.m_pReal[k], k == 8 ? 80.0 : 0.0));
        QVERIFY(isNear(fft.m_pImaginary[k], 0.0));
    }
}

void tst_FastFourierTransform_transform::harmonic_isInItsBinAlone_data()
{
    addSizes(1, 4096);
}

// A turn of e^(-2 pi i h n / N) adds up in bin h and cancels out elsewhere. Every harmonic up to
// 256, 25 of them beyond.
void tst_FastFourierTransform_transform::harmonic_isInItsBinAlone()
{
    QFETCH(int, length);
    waves::Random random = makeRandom();
    const size_t size = size_t(length);
    const size_t harmonics = std::min<size_t>(size, 256);
    const size_t tested = size <= 256 ? harmonics : 25;
    for (size_t i = 0; i < tested; ++i) {
        const size_t harmonic = size <= 256 ? i : random.below(size);
        Complex input{Values(size), Values(size)};
        for (size_t n = 0; n < size; ++n) {
            const double turn = static_cast<double>(n * harmonic % size) / length;
            input.real[n] = std::cos(2 * waves::pi * turn);
            input.imaginary[n] = -std::sin(2 * waves::pi * turn);
        }
        Complex expected{Values(size), Values(size)};
        expected.real[harmonic] = length;
        const Complex output = transform(input, false);
        const long double error =
            reference::distance(output.real, output.imaginary, expected.real, expected.imaginary);
        // The input itself is rounded: by 4u a value, less than 4u of the norm, which is N.
        QVERIFY(error <= (reference::roundingBound(size) + 4 * 0x1.0p-53L) * length);
    }
}

void tst_FastFourierTransform_transform::noise_agreesWithTheSum_data()
{
    addSizes(1, 4096);
}

void tst_FastFourierTransform_transform::noise_agreesWithTheSum()
{
    QFETCH(int, length);
    waves::Random random = makeRandom();
    const size_t size = size_t(length);
    const reference::Dft dft(size);
    const Complex input{uniformValues(size, random), uniformValues(size, random)};
    QVERIFY(relativeError(input, dft, false) <= reference::roundingBound(size));
    QVERIFY(relativeError(input, dft, true) <= reference::roundingBound(size));
}

void tst_FastFourierTransform_transform::samples_agreeWithTheSum()
{
    waves::Random random = makeRandom();
    for (size_t count : {1U, 2U, 3U, 100U, 1000U, 1024U}) {
        waves::Samples block = fullScaleNoise(count, random);
        FastFourierTransform fft;
        fft.Compute(block.data(), block.size());
        block.resize(fft.m_length);
        const reference::Spectrum exact =
            reference::Dft(fft.m_length).transform(block, waves::Samples(fft.m_length), 1);
        const long double error =
            reference::distance(realParts(fft), imaginaryParts(fft), exact.real, exact.imaginary);
        QVERIFY(error <= reference::roundingBound(fft.m_length) *
                             reference::norm(exact.real, exact.imaginary));
    }
}

void tst_FastFourierTransform_transform::transform_isLinear()
{
    waves::Random random = makeRandom();
    const size_t size = 512;
    const Complex a{uniformValues(size, random), uniformValues(size, random)};
    const Complex b{uniformValues(size, random), uniformValues(size, random)};
    Complex sum{Values(size), Values(size)};
    for (size_t i = 0; i < size; ++i) {
        sum.real[i] = 2 * a.real[i] - b.real[i];
        sum.imaginary[i] = 2 * a.imaginary[i] - b.imaginary[i];
    }
    const Complex outputA = transform(a, false);
    const Complex outputB = transform(b, false);
    const Complex outputSum = transform(sum, false);
    Complex combined{Values(size), Values(size)};
    for (size_t i = 0; i < size; ++i) {
        combined.real[i] = 2 * outputA.real[i] - outputB.real[i];
        combined.imaginary[i] = 2 * outputA.imaginary[i] - outputB.imaginary[i];
    }
    const long double scale = 2 * reference::norm(outputA.real, outputA.imaginary) +
                              reference::norm(outputB.real, outputB.imaginary);
    // Both sides differ from the exact one by the bound, and by the roundings of the sums.
    QVERIFY(reference::distance(
                outputSum.real, outputSum.imaginary, combined.real, combined.imaginary) <=
            (2 * reference::roundingBound(size) + 4 * 0x1.0p-53L) * scale);
}

void tst_FastFourierTransform_transform::realInput_hasAConjugateSymmetricSpectrum()
{
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(1024, random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    for (size_t k = 1; k < 1024; ++k) {
        QVERIFY(std::fabs(fft.m_pReal[k] - fft.m_pReal[1024 - k]) < 1e-3);
        QVERIFY(std::fabs(fft.m_pImaginary[k] + fft.m_pImaginary[1024 - k]) < 1e-3);
    }
}

void tst_FastFourierTransform_transform::inverse_undoesForward()
{
    waves::Random random = makeRandom();
    for (size_t size = 1; size <= 65536; size *= 4) {
        const Complex input{uniformValues(size, random), uniformValues(size, random)};
        const Complex back = transform(transform(input, false), true);
        QVERIFY(reference::distance(back.real, back.imaginary, input.real, input.imaginary) <=
                2.1L * reference::roundingBound(size) *
                    reference::norm(input.real, input.imaginary));
    }
}

AA_TEST(tst_FastFourierTransform_transform, NoApplication)

#include "tst_FastFourierTransform_transform.moc"
