// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <new>
#include <support/TestClass.h>

/// Compute<T>(), which works on the caller's arrays.
class tst_FastFourierTransform_static : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void compute_allocatesThenReuses_whenLengthStays();
    void compute_replacesBoth_whenLengthChanges();
    void compute_replacesBoth_whenOneIsNull_data();
    void compute_replacesBoth_whenOneIsNull();
    void compute_replacesArrays_whenCountIsWrong();
    void compute_givesOneZero_whenCountIsZero();
    void compute_padsWithZeros_whenArraysAreReused();
    void compute_takesImaginaryInputs_ofBothTypes();
    void compute_takesImaginaryInputsAsZero_whenNull();
    void compute_equalsTheObjectsTransform();
    void compute_divides_whenInverse();
    void compute_leavesNullArrays_whenAllocationFails();
    void butterflies_divideOnlyTheInverse();
    void butterflies_takeALengthOfZeroAndOne();

private:
    template <typename T>
    void transform(const std::vector<T>& real, bool isInverse)
    {
        FastFourierTransform::Compute<T>(
            real.data(), nullptr, real.size(), m_pReal, m_pImaginary, m_count, isInverse);
    }
    template <typename T>
    void transform(const std::vector<T>& real, const std::vector<T>& imaginary, bool isInverse)
    {
        FastFourierTransform::Compute(
            real.data(), imaginary.data(), real.size(), m_pReal, m_pImaginary, m_count, isInverse);
    }
    Values real() const { return Values(m_pReal, m_pReal + m_count); }
    Values imaginary() const { return Values(m_pImaginary, m_pImaginary + m_count); }

    double* m_pReal = nullptr;
    double* m_pImaginary = nullptr;
    size_t m_count = 0;
};

void tst_FastFourierTransform_static::init()
{
    m_pReal = nullptr;
    m_pImaginary = nullptr;
    m_count = 0;
}

void tst_FastFourierTransform_static::cleanup()
{
    delete[] m_pReal;
    delete[] m_pImaginary;
}

void tst_FastFourierTransform_static::compute_allocatesThenReuses_whenLengthStays()
{
    transform(waves::Samples{1, 2, 3}, false);
    QCOMPARE(m_count, size_t(4));
    QVERIFY(m_pReal && m_pImaginary);
    QVERIFY(isNear(m_pReal[0], 6.0));
    const double* pReal = m_pReal;
    const double* pImaginary = m_pImaginary;
    transform(waves::Samples{1, 2, 3, 4}, false);
    QCOMPARE(m_count, size_t(4));
    QVERIFY(m_pReal == pReal);
    QVERIFY(m_pImaginary == pImaginary);
    QVERIFY(isNear(m_pReal[0], 10.0));
}

void tst_FastFourierTransform_static::compute_replacesBoth_whenLengthChanges()
{
    for (size_t count : {4U, 5U, 1000U, 2U, 1U}) {
        transform(Values(count, 1.0), false);
        QCOMPARE(m_count, count == 5 ? size_t(8) : count == 1000 ? size_t(1024) : count);
        m_pReal[m_count - 1] = 1.0;
        m_pImaginary[m_count - 1] = 1.0;
    }
}

void tst_FastFourierTransform_static::compute_replacesBoth_whenOneIsNull_data()
{
    QTest::addColumn<bool>("isRealNull");
    QTest::newRow("real") << true;
    QTest::newRow("imaginary") << false;
}

void tst_FastFourierTransform_static::compute_replacesBoth_whenOneIsNull()
{
    QFETCH(bool, isRealNull);
    // One value too few: a reused array shows under the sanitizers, and the freed one as no leak.
    (isRealNull ? m_pImaginary : m_pReal) = new double[3];
    m_count = 4;
    transform(Values{1.0, 2.0, 3.0, 4.0}, false);
    QVERIFY(m_pReal && m_pImaginary);
    QCOMPARE(m_count, size_t(4));
    QVERIFY(isNear(m_pReal[0], 10.0));
    QVERIFY(isNear(m_pReal[3], -2.0));
    QVERIFY(isNear(m_pImaginary[3], 2.0));
}

void tst_FastFourierTransform_static::compute_replacesArrays_whenCountIsWrong()
{
    m_pReal = new double[2];
    m_pImaginary = new double[2];
    m_count = 2;
    transform(Values{1.0, 2.0, 3.0, 4.0}, false);
    QCOMPARE(m_count, size_t(4));
    QVERIFY(isNear(m_pReal[2], -2.0));
}

void tst_FastFourierTransform_static::compute_givesOneZero_whenCountIsZero()
{
    FastFourierTransform::Compute<short>(
        nullptr, nullptr, 0, m_pReal, m_pImaginary, m_count, false);
    QCOMPARE(m_count, size_t(1));
    QCOMPARE(real(), Values({0.0}));
    QCOMPARE(imaginary(), Values({0.0}));
}

void tst_FastFourierTransform_static::compute_padsWithZeros_whenArraysAreReused()
{
    waves::Random random = makeRandom();
    const Values longReal = uniformValues(8, random);
    const Values longImaginary = uniformValues(8, random);
    transform(longReal, longImaginary, false);
    Values shortReal = uniformValues(5, random);
    Values shortImaginary = uniformValues(5, random);
    transform(shortReal, shortImaginary, false);
    const Values reusedReal = real();
    const Values reusedImaginary = imaginary();
    shortReal.resize(8);
    shortImaginary.resize(8);
    transform(shortReal, shortImaginary, false);
    QCOMPARE(reusedReal, real());
    QCOMPARE(reusedImaginary, imaginary());
}

void tst_FastFourierTransform_static::compute_takesImaginaryInputs_ofBothTypes()
{
    // i at sample 1 of 4: X[k] = i e^(+i pi k / 2) = i, -1, -i, 1.
    const waves::Samples shorts = {0, 1, 0, 0};
    const waves::Samples noShorts(4);
    transform(noShorts, shorts, false);
    const double reals[] = {0.0, -1.0, 0.0, 1.0};
    const double imaginaries[] = {1.0, 0.0, -1.0, 0.0};
    for (size_t k = 0; k < 4; ++k) {
        QVERIFY(isNear(m_pReal[k], reals[k]));
        QVERIFY(isNear(m_pImaginary[k], imaginaries[k]));
    }
    const Values fromShorts = imaginary();
    const Values doubles = {0.0, 1.0, 0.0, 0.0};
    transform(Values(4), doubles, false);
    QCOMPARE(imaginary(), fromShorts);
}

void tst_FastFourierTransform_static::compute_takesImaginaryInputsAsZero_whenNull()
{
    waves::Random random = makeRandom();
    const Values input = uniformValues(100, random);
    const Values zeros(100);
    transform(input, true);
    const Values withoutReal = real();
    const Values withoutImaginary = imaginary();
    transform(input, zeros, true);
    QCOMPARE(withoutReal, real());
    QCOMPARE(withoutImaginary, imaginary());
}

void tst_FastFourierTransform_static::compute_equalsTheObjectsTransform()
{
    waves::Random random = makeRandom();
    FastFourierTransform fft;
    for (size_t count : {1U, 2U, 3U, 1000U, 1025U}) {
        const waves::Samples block = fullScaleNoise(count, random);
        fft.Compute(block.data(), block.size());
        transform(block, false);
        QCOMPARE(real(), realParts(fft));
        QCOMPARE(imaginary(), imaginaryParts(fft));
        transform(Values(block.begin(), block.end()), false);
        QCOMPARE(real(), realParts(fft));
        QCOMPARE(imaginary(), imaginaryParts(fft));
    }
}

void tst_FastFourierTransform_static::compute_divides_whenInverse()
{
    transform(waves::Samples{8, 0, 0, 0, 0, 0, 0, 0}, true);
    QCOMPARE(real(), Values(8, 1.0));
    transform(waves::Samples{8, 0, 0, 0, 0, 0, 0, 0}, false);
    QCOMPARE(real(), Values(8, 8.0));
}

void tst_FastFourierTransform_static::compute_leavesNullArrays_whenAllocationFails()
{
    transform(Values{1.0, 2.0}, false);
    const double value = 1.0;
    QVERIFY_EXCEPTION_THROWN(
        FastFourierTransform::Compute<double>(
            &value, nullptr, size_t(1) << 60, m_pReal, m_pImaginary, m_count, false),
        std::bad_alloc);
    QVERIFY(!m_pReal);
    QVERIFY(!m_pImaginary);
    transform(Values{1.0, 2.0}, false);
    QCOMPARE(m_count, size_t(2));
    QVERIFY(isNear(m_pReal[1], -1.0));
}

void tst_FastFourierTransform_static::butterflies_divideOnlyTheInverse()
{
    double real[] = {3.0, 0.0, 0.0, 0.0};
    double imaginary[] = {-5.0, 0.0, 0.0, 0.0};
    FastFourierTransform::_Compute(real, imaginary, 4, false);
    QVERIFY(real[0] == 3.0 && real[3] == 3.0);
    QVERIFY(imaginary[0] == -5.0 && imaginary[3] == -5.0);
    double inverseReal[] = {3.0, 0.0, 0.0, 0.0};
    double inverseImaginary[] = {-5.0, 0.0, 0.0, 0.0};
    FastFourierTransform::_Compute(inverseReal, inverseImaginary, 4, true);
    QVERIFY(inverseReal[0] == 0.75 && inverseReal[3] == 0.75);
    QVERIFY(inverseImaginary[0] == -1.25 && inverseImaginary[3] == -1.25);
}

void tst_FastFourierTransform_static::butterflies_takeALengthOfZeroAndOne()
{
    FastFourierTransform::_Compute(nullptr, nullptr, 0, false);
    FastFourierTransform::_Compute(nullptr, nullptr, 0, true);
    double real = 3.5;
    double imaginary = -2.5;
    FastFourierTransform::_Compute(&real, &imaginary, 1, false);
    FastFourierTransform::_Compute(&real, &imaginary, 1, true);
    QVERIFY(real == 3.5);
    QVERIFY(imaginary == -2.5);
}

AA_TEST(tst_FastFourierTransform_static, NoApplication)

#include "tst_FastFourierTransform_static.moc"
