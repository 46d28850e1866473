// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMultiToMono.h>

#include "FieldOrder.h"
#include "Resampling.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

namespace {

template <typename T>
using Accumulator = std::conditional_t<
    sizeof(T) == 1,
    std::conditional_t<std::is_signed_v<T>, short, unsigned short>,
    std::conditional_t<sizeof(T) == 2,
                       std::conditional_t<std::is_signed_v<T>, int, unsigned int>,
                       std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>>>;

template <typename T>
using Resampler = AudioResamplerMultiToMono<T, Accumulator<T>>;

template <typename T>
Samples16 Convert(size_t pChannelCount, const std::vector<T>& pInput)
{
    Resampler<T> resampler(pChannelCount);
    return Resample(resampler, pInput);
}

/// Every length up to four frames gives its whole frames.
template <typename T>
void CompareCounts(size_t pChannelCount)
{
    const size_t frameSize = pChannelCount * sizeof(T);
    const std::vector<char> bytes(4 * frameSize);
    for (size_t size = 0; size <= bytes.size(); ++size) {
        Resampler<T> resampler(pChannelCount);
        QCOMPARE(ResampleBytes(resampler, bytes.data(), size).size(), size / frameSize);
    }
}

}  // namespace

class tst_AudioResamplerMultiToMono : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signed8_isAveragedAndNotScaled_isIntended_data();
    void signed8_isAveragedAndNotScaled_isIntended();
    void unsigned8_isAveragedAndFlipped_isIntended();
    void signed16_becomesItsSign_isIntended();
    void unsigned16_isAlwaysTheLowest_isIntended();
    void signed32_becomesItsSign_isIntended();
    void unsigned32_isAlwaysTheLowest_isIntended();
    void sum_wrapsInTheAccumulator_whenChannelsAreMany();
    void frames_advanceByTheirChannels();
    void resample_countsWholeFramesOnly();
    void resample_takesUnalignedInput();
    void resample_producesNothing_whenThereIsNoChannel();
    void resample_producesNothing_whenChannelCountWasNegative_isIntended();
    void resample_returnsNull_whenNothingWasEverProduced();
    void buffer_isReused_whenBlockIsNotLarger();
    void buffer_growsToTheCount_whenBlockIsLarger();
    void fields_standInOrder();
};

void tst_AudioResamplerMultiToMono::signed8_isAveragedAndNotScaled_isIntended_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("converted");
    QTest::newRow("average") << 100 << 50 << 75;
    QTest::newRow("truncated down to zero") << 1 << 0 << 0;
    QTest::newRow("truncated up to zero") << -1 << 0 << 0;
    QTest::newRow("truncated toward zero") << -3 << 0 << -1;
    QTest::newRow("largest") << 127 << 127 << 127;
    QTest::newRow("smallest") << -128 << -128 << -128;
    QTest::newRow("cancelled") << 127 << -127 << 0;
}

void tst_AudioResamplerMultiToMono::signed8_isAveragedAndNotScaled_isIntended()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QFETCH(int, converted);
    QCOMPARE(
        Convert<signed char>(2, {static_cast<signed char>(left), static_cast<signed char>(right)}),
        Samples16{static_cast<qint16>(converted)});
}

void tst_AudioResamplerMultiToMono::unsigned8_isAveragedAndFlipped_isIntended()
{
    // 0, 1 (1.5 truncated), 128 and 255, each less 32768.
    QCOMPARE(Convert<unsigned char>(2, {0, 0, 1, 2, 128, 128, 255, 255}),
             (Samples16{-32768, -32767, -32640, -32513}));
}

void tst_AudioResamplerMultiToMono::signed16_becomesItsSign_isIntended()
{
    QCOMPARE(Convert<short>(2, {32767, 32767, 0, 0, -1, 0, -1, -1, -32768, -32768, 100, -100}),
             (Samples16{0, 0, 0, -1, -1, 0}));
}

void tst_AudioResamplerMultiToMono::unsigned16_isAlwaysTheLowest_isIntended()
{
    QCOMPARE(Convert<unsigned short>(2, {0, 0, 0x8000, 0x8000, 0xFFFF, 0xFFFF}),
             Samples16(3, -32768));
}

void tst_AudioResamplerMultiToMono::signed32_becomesItsSign_isIntended()
{
    const int max = std::numeric_limits<int>::max();
    const int min = std::numeric_limits<int>::min();
    QCOMPARE(Convert<int>(2, {max, max, 0, 0, -1, 0, -1, -1, min, min, max, min}),
             (Samples16{0, 0, 0, -1, -1, 0}));
}

void tst_AudioResamplerMultiToMono::unsigned32_isAlwaysTheLowest_isIntended()
{
    QCOMPARE(Convert<unsigned int>(2, {0, 0, 0x80000000, 0x80000000, 0xFFFFFFFF, 0xFFFFFFFF}),
             Samples16(3, -32768));
}

void tst_AudioResamplerMultiToMono::sum_wrapsInTheAccumulator_whenChannelsAreMany()
{
    // 300 * 127 = 38100, as a short -27436; / 300 = -91.45, truncated to -91.
    QCOMPARE(Convert(300, std::vector<signed char>(300, 127)), Samples16{-91});
    // 300 * 255 = 76500, modulo 65536 = 10964; / 300 = 36; 36 - 32768.
    QCOMPARE(Convert(300, std::vector<unsigned char>(300, 255)), Samples16{-32732});
    // 70000 * 32767 = 2293690000, as an int -2001277296; its average is negative.
    QCOMPARE(Convert(70000, std::vector<short>(70000, 32767)), Samples16{-1});
    // 65536 channels, 0 when cut to 16 bits, divide all the same: 65536 * 1 wraps to 0.
    QCOMPARE(Convert(65536, std::vector<signed char>(65536, 1)), Samples16{0});
}

void tst_AudioResamplerMultiToMono::frames_advanceByTheirChannels()
{
    QCOMPARE(Convert<signed char>(3, {1, 2, 3, 10, 20, 30, -6, -6, -6}), (Samples16{2, 20, -6}));
    QCOMPARE(Convert<signed char>(1, {5, -5}), (Samples16{5, -5}));
    std::vector<signed char> input;
    Samples16 expected;
    for (int i = 0; i < 10007; ++i) {
        const int average = i % 200 - 100;
        input.push_back(static_cast<signed char>(average - 3));
        input.push_back(static_cast<signed char>(average + 3));
        expected.push_back(static_cast<qint16>(average));
    }
    QCOMPARE(Convert(2, input), expected);
}

void tst_AudioResamplerMultiToMono::resample_countsWholeFramesOnly()
{
    for (size_t channelCount : {2, 3, 6}) {
        CompareCounts<signed char>(channelCount);
        CompareCounts<unsigned char>(channelCount);
        CompareCounts<short>(channelCount);
        CompareCounts<unsigned short>(channelCount);
        CompareCounts<int>(channelCount);
        CompareCounts<unsigned int>(channelCount);
    }
}

void tst_AudioResamplerMultiToMono::resample_takesUnalignedInput()
{
    const std::vector<char> bytes{0, -1, -1, -1, -1, 1, 0, 1, 0};
    Resampler<short> resampler(2);
    QCOMPARE(ResampleBytes(resampler, bytes.data() + 1, 8), (Samples16{-1, 0}));
    Resampler<int> wide(1);
    QCOMPARE(ResampleBytes(wide, bytes.data() + 1, 8), (Samples16{-1, 0}));
}

void tst_AudioResamplerMultiToMono::resample_producesNothing_whenThereIsNoChannel()
{
    QCOMPARE(Convert<short>(0, {1, 2, 3}), Samples16());
    QCOMPARE(Convert<unsigned int>(0, {1, 2, 3}), Samples16());
}

void tst_AudioResamplerMultiToMono::
    resample_producesNothing_whenChannelCountWasNegative_isIntended()
{
    const size_t negative = static_cast<size_t>(-2);
    QCOMPARE(Convert(negative, std::vector<signed char>(1000)), Samples16());
    QCOMPARE(Convert(negative, std::vector<short>(1000)), Samples16());
    QCOMPARE(Convert(negative, std::vector<int>(1000)), Samples16());
}

void tst_AudioResamplerMultiToMono::resample_returnsNull_whenNothingWasEverProduced()
{
    Resampler<short> resampler(2);
    char bytes[4] = {};
    size_t count = 99;
    QCOMPARE(resampler.Resample(bytes, 3, count), static_cast<qint16*>(nullptr));
    QCOMPARE(count, size_t(0));
    qint16* pFirst = resampler.Resample(bytes, 4, count);
    QVERIFY(pFirst);
    QCOMPARE(count, size_t(1));
    QCOMPARE(resampler.Resample(bytes, 3, count), pFirst);
    QCOMPARE(count, size_t(0));
}

void tst_AudioResamplerMultiToMono::buffer_isReused_whenBlockIsNotLarger()
{
    Resampler<short> resampler(2);
    std::vector<char> bytes(8192);
    size_t count = 0;
    qint16* pFirst = resampler.Resample(bytes.data(), 8192, count);
    QCOMPARE(count, size_t(2048));
    for (size_t size : {4096, 8192, 4, 8191}) {
        QCOMPARE(resampler.Resample(bytes.data(), size, count), pFirst);
        QCOMPARE(count, size / 4);
        QCOMPARE(resampler.m_bufferCapacity, size_t(2048));
    }
}

void tst_AudioResamplerMultiToMono::buffer_growsToTheCount_whenBlockIsLarger()
{
    Resampler<signed char> resampler(2);
    std::vector<char> bytes(16384);
    size_t count = 0;
    resampler.Resample(bytes.data(), 8192, count);
    QCOMPARE(resampler.m_bufferCapacity, size_t(4096));
    const qint16* pLarger = resampler.Resample(bytes.data(), 16384, count);
    QCOMPARE(count, size_t(8192));
    QCOMPARE(resampler.m_bufferCapacity, size_t(8192));
    QCOMPARE(pLarger, static_cast<const qint16*>(resampler.m_pBuffer));
}

void tst_AudioResamplerMultiToMono::fields_standInOrder()
{
    const Resampler<int> r(2);
    QVERIFY(AreInOrder(
        r.m_frameSize, r.m_channelCount, r.m_converter, r.m_pBuffer, r.m_bufferCapacity));
}

AA_TEST(tst_AudioResamplerMultiToMono, NoApplication)
#include "tst_AudioResamplerMultiToMono.moc"
