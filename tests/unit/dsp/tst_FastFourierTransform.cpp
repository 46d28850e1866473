// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <new>
#include <support/TestClass.h>
#include <type_traits>

class tst_FastFourierTransform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void object_isEmpty_whenConstructed();
    void object_cannotBeCopied();
    void members_standInTheirOrder();
    void compute_selectsLength_data();
    void compute_selectsLength();
    void compute_returnsEveryCount_throughTheInverse_data();
    void compute_returnsEveryCount_throughTheInverse();
    void compute_padsWithZeros_whenCountIsNoPowerOfTwo();
    void compute_marksSpectrumStale();
    void compute_leavesItsInput();
    void compute_reusesArrays_whileLengthStays();
    void compute_replacesArrays_whenLengthChanges();
    void compute_leavesNoArrays_whenEmptyAndCountIsZero();
    void compute_takesNullSamples_whenCountIsZero();
    void compute_shrinksToLengthOne_whenSizedAndCountIsZero();
    void compute_allocatesLengthOne_forASingleSample();
    void compute_leavesAnEmptyUsableObject_whenAllocationFails();
    void computeInverse_givesNothing_beforeTheFirstBlock();
    void bitReversedIndex_isReversed_data();
    void bitReversedIndex_isReversed();
    void reset_returnsToConstructedState();
    void reset_isHarmless_whenEmpty();
    void compute_allocatesAfresh_afterReset();
};

static void verifyEmpty(const FastFourierTransform& fft)
{
    QVERIFY(!fft.m_pAmplitudes);
    QCOMPARE(fft.m_amplitudesCount, size_t(0));
    QCOMPARE(fft.m_bitCount, size_t(0));
    QVERIFY(fft.m_isSpectrumStale);
    QVERIFY(!fft.m_pImaginary);
    QVERIFY(!fft.m_pReal);
    QCOMPARE(fft.m_length, size_t(0));
    QVERIFY(!fft.m_pInverseImaginary);
    QVERIFY(!fft.m_pInverseReal);
    QVERIFY(!fft.m_pMaximums);
    QVERIFY(!fft.m_isHistoryFull);
    QCOMPARE(fft.m_historyPosition, size_t(0));
    QCOMPARE(fft.m_historySize, size_t(0));
    QVERIFY(!fft.m_pBands);
    QCOMPARE(fft.m_bandsCapacity, size_t(0));
    QVERIFY(!fft.m_pInverseSamples);
    QCOMPARE(fft.m_sampleCount, size_t(0));
}

void tst_FastFourierTransform::object_isEmpty_whenConstructed()
{
    const FastFourierTransform fft;
    verifyEmpty(fft);
}

void tst_FastFourierTransform::object_cannotBeCopied()
{
    QVERIFY(!std::is_copy_constructible<FastFourierTransform>::value);
    QVERIFY(!std::is_copy_assignable<FastFourierTransform>::value);
    QVERIFY(!std::is_polymorphic<FastFourierTransform>::value);
}

void tst_FastFourierTransform::members_standInTheirOrder()
{
    const FastFourierTransform fft;
    const void* members[] = {&fft.m_pAmplitudes,
                             &fft.m_amplitudesCount,
                             &fft.m_bitCount,
                             &fft.m_isSpectrumStale,
                             &fft.m_pImaginary,
                             &fft.m_pReal,
                             &fft.m_length,
                             &fft.m_pInverseImaginary,
                             &fft.m_pInverseReal,
                             &fft.m_pMaximums,
                             &fft.m_isHistoryFull,
                             &fft.m_historyPosition,
                             &fft.m_historySize,
                             &fft.m_pBands,
                             &fft.m_bandsCapacity,
                             &fft.m_pInverseSamples,
                             &fft.m_sampleCount};
    QVERIFY(members[0] == &fft);
    QVERIFY(std::is_sorted(std::begin(members), std::end(members), std::less<const void*>()));
}

void tst_FastFourierTransform::compute_selectsLength_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("length");
    QTest::newRow("1") << 1 << 0 << 1;
    QTest::newRow("2") << 2 << 1 << 2;
    QTest::newRow("3") << 3 << 2 << 4;
    QTest::newRow("4") << 4 << 2 << 4;
    QTest::newRow("5") << 5 << 3 << 8;
    QTest::newRow("513") << 513 << 10 << 1024;
    QTest::newRow("1000") << 1000 << 10 << 1024;
    QTest::newRow("1024") << 1024 << 10 << 1024;
    QTest::newRow("1025") << 1025 << 11 << 2048;
    QTest::newRow("1.5 s at 44100") << 66150 << 17 << 131072;
}

void tst_FastFourierTransform::compute_selectsLength()
{
    QFETCH(int, count);
    QFETCH(int, bits);
    QFETCH(int, length);
    const waves::Samples block = waves::constant(size_t(count), 1);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    QCOMPARE(fft.m_bitCount, size_t(bits));
    QCOMPARE(fft.m_length, size_t(length));
    QCOMPARE(fft.m_sampleCount, size_t(count));
    // The bin of 0 Hz sums the samples: ones, and zeros behind them.
    QVERIFY(isNear(fft.m_pReal[0], count));
    QVERIFY(isNear(fft.m_pImaginary[0], 0.0));
}

void tst_FastFourierTransform::compute_returnsEveryCount_throughTheInverse_data()
{
    QTest::addColumn<int>("count");
    for (int count : {0, 1, 2, 3, 1000, 1024, 1025})
        QTest::addRow("%d", count) << count;
}

void tst_FastFourierTransform::compute_returnsEveryCount_throughTheInverse()
{
    QFETCH(int, count);
    waves::Samples block(static_cast<size_t>(count));
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    short* pSamples = nullptr;
    size_t returned = 99;
    fft.ComputeInverse(pSamples, returned);
    QCOMPARE(returned, size_t(count));
    QVERIFY(pSamples == fft.m_pInverseSamples);
    QCOMPARE(pSamples == nullptr, count == 0);
}

void tst_FastFourierTransform::compute_padsWithZeros_whenCountIsNoPowerOfTwo()
{
    waves::Random random = makeRandom();
    for (size_t count : {3U, 5U, 600U, 1000U, 1023U}) {
        waves::Samples block = fullScaleNoise(count, random);
        FastFourierTransform used;
        const waves::Samples loud = waves::constant(1024, 32767);
        used.Compute(loud.data(), loud.size());
        used.Compute(block.data(), block.size());
        const size_t length = used.m_length;

        block.resize(length);
        FastFourierTransform padded;
        padded.Compute(block.data(), block.size());
        QCOMPARE(realParts(used), realParts(padded));
        QCOMPARE(imaginaryParts(used), imaginaryParts(padded));
    }
}

void tst_FastFourierTransform::compute_marksSpectrumStale()
{
    const waves::Samples block = waves::constant(8, 5);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    fft.getAmplitudes();
    QVERIFY(!fft.m_isSpectrumStale);
    fft.Compute(block.data(), block.size());
    QVERIFY(fft.m_isSpectrumStale);
    fft.getAmplitudes();
    inverse(fft);
    QVERIFY(!fft.m_isSpectrumStale);
}

void tst_FastFourierTransform::compute_leavesItsInput()
{
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(1000, random);
    const waves::Samples copy = block;
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    inverse(fft);
    QVERIFY(block == copy);
}

void tst_FastFourierTransform::compute_reusesArrays_whileLengthStays()
{
    const waves::Samples block = waves::constant(1024, 7);
    FastFourierTransform fft;
    fft.Compute(block.data(), 1024);
    const void* before[] = {fft.m_pImaginary,
                            fft.m_pReal,
                            fft.m_pInverseImaginary,
                            fft.m_pInverseReal,
                            fft.m_pInverseSamples};
    for (size_t count : {600U, 1024U, 513U}) {
        fft.Compute(block.data(), count);
        QCOMPARE(fft.m_length, size_t(1024));
        const void* after[] = {fft.m_pImaginary,
                               fft.m_pReal,
                               fft.m_pInverseImaginary,
                               fft.m_pInverseReal,
                               fft.m_pInverseSamples};
        QVERIFY(std::equal(std::begin(before), std::end(before), std::begin(after)));
    }
}

void tst_FastFourierTransform::compute_replacesArrays_whenLengthChanges()
{
    const waves::Samples block = waves::constant(4096, 7);
    FastFourierTransform fft;
    for (size_t count : {1024U, 1025U, 3U, 4096U, 2U}) {
        fft.Compute(block.data(), count);
        // Writes to both ends of every array; the sanitizers see one that is too short.
        for (double* pArray :
             {fft.m_pReal, fft.m_pImaginary, fft.m_pInverseReal, fft.m_pInverseImaginary}) {
            pArray[0] = 1.0;
            pArray[fft.m_length - 1] = 1.0;
        }
        fft.m_pInverseSamples[fft.m_length - 1] = 1;
        QCOMPARE(fft.m_length, size_t(1) << fft.m_bitCount);
        QVERIFY(fft.m_length >= count && fft.m_length < 2 * count);
    }
}

void tst_FastFourierTransform::compute_leavesNoArrays_whenEmptyAndCountIsZero()
{
    const short sample = 1;
    FastFourierTransform fft;
    fft.m_isSpectrumStale = false;
    fft.Compute(&sample, 0);
    verifyEmpty(fft);
    QVERIFY(inverse(fft).empty());
}

void tst_FastFourierTransform::compute_takesNullSamples_whenCountIsZero()
{
    const waves::Samples block = waves::constant(4, 7);
    FastFourierTransform fft;
    fft.Compute(nullptr, 0);
    verifyEmpty(fft);
    fft.Compute(block.data(), block.size());
    fft.Compute(nullptr, 0);
    QVERIFY(inverse(fft).empty());
}

void tst_FastFourierTransform::compute_shrinksToLengthOne_whenSizedAndCountIsZero()
{
    const waves::Samples block = waves::constant(1024, 7);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    fft.Compute(block.data(), 0);
    QCOMPARE(fft.m_length, size_t(1));
    QCOMPARE(fft.m_bitCount, size_t(0));
    QCOMPARE(fft.m_sampleCount, size_t(0));
    QCOMPARE(realParts(fft), Values({0.0}));
    QCOMPARE(imaginaryParts(fft), Values({0.0}));
    const double* pReal = fft.m_pReal;
    fft.Compute(block.data(), 1);
    QVERIFY(fft.m_pReal == pReal);
    QCOMPARE(realParts(fft), Values({7.0}));
    QCOMPARE(inverse(fft), waves::Samples({7}));
}

void tst_FastFourierTransform::compute_allocatesLengthOne_forASingleSample()
{
    const short sample = -32768;
    FastFourierTransform fft;
    fft.Compute(&sample, 1);
    QCOMPARE(fft.m_length, size_t(1));
    QCOMPARE(realParts(fft), Values({-32768.0}));
    QCOMPARE(imaginaryParts(fft), Values({0.0}));
    QCOMPARE(inverse(fft), waves::Samples({-32768}));
    fft.Reset();
    fft.Compute(&sample, 1);
    QCOMPARE(inverse(fft), waves::Samples({-32768}));
}

void tst_FastFourierTransform::compute_leavesAnEmptyUsableObject_whenAllocationFails()
{
    const waves::Samples block = waves::constant(8, 7);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    QVERIFY_EXCEPTION_THROWN(fft.Compute(block.data(), size_t(1) << 60), std::bad_alloc);
    QCOMPARE(fft.m_length, size_t(0));
    fft.HighPassFilter(50000, 44100);
    QVERIFY(inverse(fft).empty());
    fft.Compute(block.data(), block.size());
    QCOMPARE(fft.m_length, size_t(8));
    QVERIFY(isNear(fft.m_pReal[0], 56.0));
}

void tst_FastFourierTransform::computeInverse_givesNothing_beforeTheFirstBlock()
{
    FastFourierTransform fft;
    short sample = 0;
    short* pSamples = &sample;
    size_t count = 99;
    fft.ComputeInverse(pSamples, count);
    QVERIFY(!pSamples);
    QCOMPARE(count, size_t(0));
    verifyEmpty(fft);
}

void tst_FastFourierTransform::bitReversedIndex_isReversed_data()
{
    QTest::addColumn<quint64>("index");
    QTest::addColumn<int>("bits");
    QTest::addColumn<quint64>("reversed");
    QTest::newRow("no bits") << quint64(5) << 0 << quint64(0);
    QTest::newRow("one") << quint64(1) << 1 << quint64(1);
    QTest::newRow("001") << quint64(1) << 3 << quint64(4);
    QTest::newRow("110") << quint64(6) << 3 << quint64(3);
    QTest::newRow("high bits ignored") << quint64(0xff01) << 8 << quint64(0x80);
    QTest::newRow("all") << quint64(1023) << 10 << quint64(1023);
}

void tst_FastFourierTransform::bitReversedIndex_isReversed()
{
    QFETCH(quint64, index);
    QFETCH(int, bits);
    QFETCH(quint64, reversed);
    QCOMPARE(quint64(FastFourierTransform::_ComputeBitReversedIndex(index, size_t(bits))),
             reversed);
}

void tst_FastFourierTransform::reset_returnsToConstructedState()
{
    const waves::Samples block = waves::constant(8, 7);
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(1);
    fft.Compute(block.data(), block.size());
    FrequencyBandAmplitude* pBands = nullptr;
    QCOMPARE(fft.FindMaximalAmplitudes(2, 8000, pBands, 0.0), size_t(2));
    QVERIFY(fft.m_isHistoryFull);
    fft.Reset();
    verifyEmpty(fft);
}

void tst_FastFourierTransform::reset_isHarmless_whenEmpty()
{
    FastFourierTransform fft;
    fft.Reset();
    fft.Reset();
    verifyEmpty(fft);
    QVERIFY(inverse(fft).empty());
}

void tst_FastFourierTransform::compute_allocatesAfresh_afterReset()
{
    const waves::Samples block = waves::constant(16, 3);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    fft.Reset();
    fft.Compute(block.data(), block.size());
    QCOMPARE(fft.m_length, size_t(16));
    QVERIFY(fft.m_pReal && fft.m_pImaginary && fft.m_pInverseReal && fft.m_pInverseImaginary);
    QVERIFY(isNear(fft.m_pReal[0], 48.0));
    QCOMPARE(inverse(fft).size(), size_t(16));
}

AA_TEST(tst_FastFourierTransform, NoApplication)

#include "tst_FastFourierTransform.moc"
