// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/TransformKernels.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <reference/PlainFourier.h>
#include <support/TestClass.h>

/// Every kernel that this machine can run gives the bits of the textbook transform, for every
/// input. Only NaNs need not be the same ones.
class tst_Kernels_bitIdentity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fastest_isTheLastSupportedOne();
    void shorts_areTransformedAlike_atEveryCount();
    void spectrum_isInvertedAlike_atEveryCount();
    void shorts_areTransformedAlike_atEveryLength_data() { addLengths(); }
    void shorts_areTransformedAlike_atEveryLength();
    void doubles_areTransformedAlike_atEveryLength_data() { addLengths(); }
    void doubles_areTransformedAlike_atEveryLength();
    void samples_areTruncatedAlike_data() { addKernels(); }
    void samples_areTruncatedAlike();
    void object_isAlike_atEveryCount();
    void staticTransform_isAlike_atEveryCount();

private:
    void addKernels();
    void addLengths();

    std::vector<const detail::TransformKernel*> m_kernels;  ///< that this machine can run
};

namespace {

using detail::TransformKernel;
using Shorts = std::vector<short>;

constexpr size_t kLastCount = 4096;
constexpr int kLastBits = 18;

const TransformKernel& kernelAt(int index)
{
    return *detail::kTransformKernels[index];
}

/// A machine that lacks a kernel says so; nobody can check it there.
bool canRun(const TransformKernel& kernel)
{
    const bool isSupported = detail::isSupported(kernel);
    if (!isSupported)
        qInfo("This processor cannot run the kernel \"%s\".", kernel.name);
    return isSupported;
}

size_t bitsFor(size_t count)
{
    size_t bits = 0;
    while ((size_t(1) << bits) < count)
        ++bits;
    return bits;
}

bool areSame(const Values& values, const Values& expected)
{
    if (std::memcmp(values.data(), expected.data(), expected.size() * sizeof(double)) == 0)
        return true;
    for (size_t i = 0; i < expected.size(); ++i) {
        const bool areNaN = values[i] != values[i] && expected[i] != expected[i];
        if (!areNaN && std::memcmp(&values[i], &expected[i], sizeof(double)) != 0) {
            qInfo("value %zu is %a, not %a", i, values[i], expected[i]);
            return false;
        }
    }
    return true;
}

bool areSame(const plain::Spectrum& spectrum, const plain::Spectrum& expected)
{
    return areSame(spectrum.real, expected.real) && areSame(spectrum.imaginary, expected.imaginary);
}

double scaleOf(size_t length, bool isInverse)
{
    return isInverse ? 1.0 / static_cast<double>(length) : 1.0;
}

plain::Spectrum run(const TransformKernel& kernel, const Shorts& real, const Shorts* pImaginary)
{
    const size_t bits = bitsFor(real.size());
    const size_t length = size_t(1) << bits;
    plain::Spectrum out{Values(length, 7.0), Values(length, 7.0)};
    kernel.fromShorts(detail::twiddleTables(false, bits),
                      bits,
                      real.data(),
                      pImaginary ? pImaginary->data() : nullptr,
                      real.size(),
                      out.real.data(),
                      out.imaginary.data(),
                      1.0);
    return out;
}

plain::Spectrum
run(const TransformKernel& kernel, const Values& real, const Values* pImaginary, bool isInverse)
{
    const size_t bits = bitsFor(real.size());
    const size_t length = size_t(1) << bits;
    plain::Spectrum out{Values(length, 7.0), Values(length, 7.0)};
    kernel.fromDoubles(detail::twiddleTables(isInverse, bits),
                       bits,
                       real.data(),
                       pImaginary ? pImaginary->data() : nullptr,
                       real.size(),
                       out.real.data(),
                       out.imaginary.data(),
                       scaleOf(length, isInverse));
    return out;
}

/// The values as they stand, taken to be in bit-reversed order.
plain::Spectrum runInPlace(const TransformKernel& kernel, plain::Spectrum values, bool isInverse)
{
    const size_t length = values.real.size();
    const size_t bits = bitsFor(length);
    kernel.inPlace(detail::twiddleTables(isInverse, bits),
                   bits,
                   values.real.data(),
                   values.imaginary.data(),
                   scaleOf(length, isInverse));
    return values;
}

std::vector<Shorts> extremeShorts(size_t count, waves::Random& random)
{
    Shorts alternating(count);
    Shorts impulse(count);
    Shorts least(count, -32768);
    for (size_t i = 0; i < count; ++i)
        alternating[i] = i % 2 == 0 ? 32767 : -32768;
    impulse[random.below(count)] = -32768;
    return {fullScaleNoise(count, random), alternating, impulse, least, Shorts(count)};
}

/// One of the values that break careless arithmetic.
double awkwardValue(waves::Random& random)
{
    using Limits = std::numeric_limits<double>;
    const double values[] = {0.0,
                             -0.0,
                             Limits::infinity(),
                             -Limits::infinity(),
                             Limits::quiet_NaN(),
                             Limits::denorm_min(),
                             -37 * Limits::denorm_min(),
                             Limits::min(),
                             Limits::max(),
                             -Limits::max(),
                             1.0,
                             -32768.0};
    return values[random.below(std::size(values))];
}

constexpr int kKindCount = 5;

/// Uniform values, zeros of both signs, subnormal ones, awkward ones, or one awkward among uniform.
Values extremeValues(int kind, size_t count, waves::Random& random)
{
    Values values = uniformValues(count, random);
    for (double& value : values)
        if (kind == 1)
            value = std::copysign(0.0, value);
        else if (kind == 2)
            value = value / 32768.0 * std::numeric_limits<double>::min();
        else if (kind == 3)
            value = awkwardValue(random);
    if (kind == 4)
        values[random.below(count)] = awkwardValue(random);
    return values;
}

}  // namespace

void tst_Kernels_bitIdentity::addKernels()
{
    QTest::addColumn<int>("kernel");
    for (int i = 0; detail::kTransformKernels[i]; ++i)
        QTest::newRow(kernelAt(i).name) << i;
}

void tst_Kernels_bitIdentity::addLengths()
{
    QTest::addColumn<int>("bits");
    for (int bits = int(TransformKernel::kMinBits); bits <= kLastBits; ++bits)
        QTest::addRow("%d", 1 << bits) << bits;
}

void tst_Kernels_bitIdentity::initTestCase()
{
    for (int i = 0; detail::kTransformKernels[i]; ++i)
        if (canRun(kernelAt(i)))
            m_kernels.push_back(&kernelAt(i));
}

void tst_Kernels_bitIdentity::fastest_isTheLastSupportedOne()
{
    QVERIFY(detail::isSupported(kernelAt(0)));
    const TransformKernel* pLast = nullptr;
    for (int i = 0; detail::kTransformKernels[i]; ++i)
        if (detail::isSupported(kernelAt(i)))
            pLast = &kernelAt(i);
    QCOMPARE(&detail::fastestTransformKernel(), pLast);
    qInfo("This processor uses the kernel \"%s\".", pLast->name);
}

void tst_Kernels_bitIdentity::shorts_areTransformedAlike_atEveryCount()
{
    waves::Random random = makeRandom();
    for (size_t count = (size_t(1) << TransformKernel::kMinBits) / 2 + 1; count <= kLastCount;
         ++count) {
        const Shorts samples = fullScaleNoise(count, random);
        const plain::Spectrum expected =
            plain::transform<short>(samples.data(), nullptr, count, false);
        for (const TransformKernel* pKernel : m_kernels)
            QVERIFY2(areSame(run(*pKernel, samples, nullptr), expected),
                     QByteArray::number(qulonglong(count)));
    }
}

void tst_Kernels_bitIdentity::spectrum_isInvertedAlike_atEveryCount()
{
    waves::Random random = makeRandom();
    for (size_t count = (size_t(1) << TransformKernel::kMinBits) / 2 + 1; count <= kLastCount;
         ++count) {
        const Values real = uniformValues(count, random);
        const Values imaginary = uniformValues(count, random);
        const plain::Spectrum expected =
            plain::transform(real.data(), imaginary.data(), count, true);
        for (const TransformKernel* pKernel : m_kernels)
            QVERIFY2(areSame(run(*pKernel, real, &imaginary, true), expected),
                     QByteArray::number(qulonglong(count)));
    }
}

void tst_Kernels_bitIdentity::shorts_areTransformedAlike_atEveryLength()
{
    QFETCH(int, bits);
    waves::Random random = makeRandom();
    const size_t length = size_t(1) << bits;
    // Whole, one short, and with more than an eighth of padding.
    for (const size_t count : {length, length - 1, length / 2 + 1 + random.below(length / 4)}) {
        for (const Shorts& samples : extremeShorts(count, random)) {
            const plain::Spectrum expected =
                plain::transform<short>(samples.data(), nullptr, count, false);
            for (const TransformKernel* pKernel : m_kernels)
                QVERIFY2(areSame(run(*pKernel, samples, nullptr), expected), pKernel->name);
        }
        const Shorts real = fullScaleNoise(count, random);
        const Shorts imaginary = fullScaleNoise(count, random);
        const plain::Spectrum expected =
            plain::transform(real.data(), imaginary.data(), count, false);
        for (const TransformKernel* pKernel : m_kernels)
            QVERIFY2(areSame(run(*pKernel, real, &imaginary), expected), pKernel->name);
    }
}

void tst_Kernels_bitIdentity::doubles_areTransformedAlike_atEveryLength()
{
    QFETCH(int, bits);
    waves::Random random = makeRandom();
    const size_t length = size_t(1) << bits;
    for (const bool isInverse : {false, true}) {
        for (int kind = 0; kind < kKindCount; ++kind) {
            const Values real = extremeValues(kind, length, random);
            const Values imaginary = extremeValues(random.between(0, 4), length, random);
            const plain::Spectrum expected =
                plain::transform(real.data(), imaginary.data(), length, isInverse);
            plain::Spectrum inPlace{real, imaginary};
            plain::transformReversed(inPlace, isInverse);
            for (const TransformKernel* pKernel : m_kernels) {
                QVERIFY2(areSame(run(*pKernel, real, &imaginary, isInverse), expected),
                         pKernel->name);
                QVERIFY2(areSame(runInPlace(*pKernel, {real, imaginary}, isInverse), inPlace),
                         pKernel->name);
            }
        }
        const size_t count = length - 1 - random.below(length / 2 - 1);
        const Values padded = uniformValues(count, random);
        const plain::Spectrum expected =
            plain::transform<double>(padded.data(), nullptr, count, isInverse);
        for (const TransformKernel* pKernel : m_kernels)
            QVERIFY2(areSame(run(*pKernel, padded, nullptr, isInverse), expected), pKernel->name);
    }
}

void tst_Kernels_bitIdentity::samples_areTruncatedAlike()
{
    QFETCH(int, kernel);
    if (!canRun(kernelAt(kernel)))
        return;
    waves::Random random = makeRandom();
    Values values = {0.0, -0.0, 0.9, -0.9, 32767.9, -32768.9, 32768.0, 40000.7, -40000.7};
    values.insert(values.end(), {2147483647.9, -2147483648.9, 65536.0, 1e-310, 99.9999});
    while (values.size() < 200)
        values.push_back(random.uniform(-2147483648.0, 2147483647.0));
    for (size_t count = 0; count <= values.size(); ++count) {
        Shorts samples(count + 1, 77);
        kernelAt(kernel).toShorts(values.data(), count, samples.data());
        for (size_t i = 0; i < count; ++i)
            QCOMPARE(samples[i], plain::toSample(values[i]));
        QCOMPARE(samples[count], short(77));
    }
}

void tst_Kernels_bitIdentity::object_isAlike_atEveryCount()
{
    waves::Random random = makeRandom();
    FastFourierTransform fft;
    for (size_t count = 1; count <= kLastCount; ++count) {
        const Shorts samples = fullScaleNoise(count, random);
        const plain::Spectrum expected =
            plain::transform<short>(samples.data(), nullptr, count, false);
        fft.Compute(samples.data(), count);
        QVERIFY(areSame({realParts(fft), imaginaryParts(fft)}, expected));

        const plain::Spectrum back = plain::transform(
            expected.real.data(), expected.imaginary.data(), expected.real.size(), true);
        Shorts expectedSamples(count);
        std::transform(back.real.begin(),
                       back.real.begin() + std::ptrdiff_t(count),
                       expectedSamples.begin(),
                       plain::toSample);
        QVERIFY(inverse(fft) == expectedSamples);
    }
}

void tst_Kernels_bitIdentity::staticTransform_isAlike_atEveryCount()
{
    waves::Random random = makeRandom();
    double* pReal = nullptr;
    double* pImaginary = nullptr;
    size_t length = 0;
    for (size_t count = 1; count <= kLastCount; ++count) {
        const bool isInverse = random.chance(0.5);
        const Values real = extremeValues(random.between(0, 4), count, random);
        const Values imaginary = uniformValues(count, random);
        const Values* pGiven = random.chance(0.5) ? &imaginary : nullptr;
        const double* pGivenValues = pGiven ? pGiven->data() : nullptr;
        FastFourierTransform::Compute(
            real.data(), pGivenValues, count, pReal, pImaginary, length, isInverse);
        QVERIFY(areSame({Values(pReal, pReal + length), Values(pImaginary, pImaginary + length)},
                        plain::transform(real.data(), pGivenValues, count, isInverse)));
    }
    delete[] pReal;
    delete[] pImaginary;
}

AA_TEST(tst_Kernels_bitIdentity, NoApplication)

#include "tst_Kernels_bitIdentity.moc"
