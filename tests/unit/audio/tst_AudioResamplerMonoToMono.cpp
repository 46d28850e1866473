// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMonoToMono.h>

#include "FieldOrder.h"
#include "Resampling.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

namespace {

template <typename T>
Samples16 Convert(const std::vector<T>& pInput)
{
    AudioResamplerMonoToMono<T> resampler;
    return Resample(resampler, pInput);
}

/// Trailing bytes that do not fill a sample are ignored.
template <typename T>
void CompareCounts()
{
    const std::vector<char> bytes(3 * sizeof(T) + sizeof(T));
    for (size_t size = 0; size < bytes.size(); ++size) {
        AudioResamplerMonoToMono<T> resampler;
        const Samples16 samples = ResampleBytes(resampler, bytes.data(), size);
        QCOMPARE(samples.size(), size / sizeof(T));
    }
}

template <typename T>
void CompareUnaligned()
{
    std::vector<char> bytes(1 + 4 * sizeof(T), 0);
    bytes[1] = 1;                 // lowest byte of sample 0
    bytes[4 * sizeof(T)] = 0x40;  // highest byte of sample 3
    AudioResamplerMonoToMono<T> shifted;
    AudioResamplerMonoToMono<T> aligned;
    const std::vector<char> copy(bytes.begin() + 1, bytes.end());
    QCOMPARE(ResampleBytes(shifted, bytes.data() + 1, copy.size()), Resample(aligned, copy));
}

}  // namespace

class tst_AudioResamplerMonoToMono : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resample_scalesSigned8();
    void resample_scalesAndCentersUnsigned8();
    void resample_copiesSigned16();
    void resample_centersUnsigned16();
    void resample_cutsSigned32();
    void resample_cutsAndCentersUnsigned32();
    void resample_countsWholeSamplesOnly();
    void resample_takesUnalignedInput();
    void resample_readsNativeByteOrder_isIntended();
    void resample_leavesInputUntouched();
    void resample_returnsNull_whenNothingWasEverProduced();
    void resample_keepsOldBuffer_whenCountIsZero();
    void buffer_isReused_whenBlockIsNotLarger();
    void buffer_growsToTheCount_whenBlockIsLarger();
    void longBlock_isConvertedWhole();
    void fields_standInOrder();
};

void tst_AudioResamplerMonoToMono::resample_scalesSigned8()
{
    QCOMPARE(Convert<signed char>({0, 1, -1, 127, -128}), (Samples16{0, 256, -256, 32512, -32768}));
}

void tst_AudioResamplerMonoToMono::resample_scalesAndCentersUnsigned8()
{
    QCOMPARE(Convert<unsigned char>({0x00, 0x7F, 0x80, 0x81, 0xFF}),
             (Samples16{-32768, -256, 0, 256, 32512}));
}

void tst_AudioResamplerMonoToMono::resample_copiesSigned16()
{
    const Samples16 samples{0, 1, -1, 32767, -32768, 0x0102};
    QCOMPARE(Convert<short>(samples), samples);
}

void tst_AudioResamplerMonoToMono::resample_centersUnsigned16()
{
    QCOMPARE(Convert<unsigned short>({0, 0x7FFF, 0x8000, 0xFFFF}),
             (Samples16{-32768, -1, 0, 32767}));
}

void tst_AudioResamplerMonoToMono::resample_cutsSigned32()
{
    QCOMPARE(Convert<int>({0x7FFF0000, 0x0000FFFF, -1, std::numeric_limits<int>::min()}),
             (Samples16{32767, 0, -1, -32768}));
}

void tst_AudioResamplerMonoToMono::resample_cutsAndCentersUnsigned32()
{
    QCOMPARE(Convert<unsigned int>({0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF}),
             (Samples16{-32768, -1, 0, 32767}));
}

void tst_AudioResamplerMonoToMono::resample_countsWholeSamplesOnly()
{
    CompareCounts<signed char>();
    CompareCounts<unsigned char>();
    CompareCounts<short>();
    CompareCounts<unsigned short>();
    CompareCounts<int>();
    CompareCounts<unsigned int>();

    const char bytes[] = {1, 0, 2, 0, 3, 0, 4};
    AudioResamplerMonoToMono<short> resampler;
    QCOMPARE(ResampleBytes(resampler, bytes, 7), (Samples16{1, 2, 3}));
}

void tst_AudioResamplerMonoToMono::resample_takesUnalignedInput()
{
    CompareUnaligned<short>();
    CompareUnaligned<unsigned short>();
    CompareUnaligned<int>();
    CompareUnaligned<unsigned int>();
}

void tst_AudioResamplerMonoToMono::resample_readsNativeByteOrder_isIntended()
{
    const unsigned char bytes[] = {0x34, 0x12, 0x00, 0x80};
    AudioResamplerMonoToMono<short> resampler;
    QCOMPARE(ResampleBytes(resampler, bytes, sizeof(bytes)), (Samples16{0x1234, -32768}));
    AudioResamplerMonoToMono<int> wide;
    const unsigned char wideBytes[] = {0x78, 0x56, 0x34, 0x12};
    QCOMPARE(ResampleBytes(wide, wideBytes, sizeof(wideBytes)), (Samples16{0x1234}));
}

void tst_AudioResamplerMonoToMono::resample_leavesInputUntouched()
{
    const std::vector<unsigned char> before{0, 1, 2, 250, 255};
    const std::vector<unsigned char> input = before;
    Convert<unsigned char>(input);
    QCOMPARE(input, before);
}

void tst_AudioResamplerMonoToMono::resample_returnsNull_whenNothingWasEverProduced()
{
    AudioResamplerMonoToMono<short> resampler;
    char byte = 1;
    size_t count = 99;
    QCOMPARE(resampler.Resample(&byte, 1, count), static_cast<qint16*>(nullptr));
    QCOMPARE(count, size_t(0));
    QCOMPARE(resampler.Resample(nullptr, 0, count), static_cast<qint16*>(nullptr));
    QCOMPARE(count, size_t(0));
}

void tst_AudioResamplerMonoToMono::resample_keepsOldBuffer_whenCountIsZero()
{
    AudioResamplerMonoToMono<short> resampler;
    short samples[] = {7, 8};
    size_t count = 0;
    qint16* pFirst = resampler.Resample(reinterpret_cast<char*>(samples), 4, count);
    QCOMPARE(count, size_t(2));
    QCOMPARE(resampler.Resample(nullptr, 0, count), pFirst);
    QCOMPARE(count, size_t(0));
    QCOMPARE(int(pFirst[1]), 8);
}

void tst_AudioResamplerMonoToMono::buffer_isReused_whenBlockIsNotLarger()
{
    AudioResamplerMonoToMono<short> resampler;
    std::vector<char> bytes(8192);
    size_t count = 0;
    qint16* pFirst = resampler.Resample(bytes.data(), 8192, count);
    QCOMPARE(count, size_t(4096));
    QCOMPARE(resampler.m_bufferCapacity, size_t(4096));
    for (size_t size : {4096, 8192, 2, 8191}) {
        QCOMPARE(resampler.Resample(bytes.data(), size, count), pFirst);
        QCOMPARE(count, size / 2);
        QCOMPARE(resampler.m_bufferCapacity, size_t(4096));
    }
}

void tst_AudioResamplerMonoToMono::buffer_growsToTheCount_whenBlockIsLarger()
{
    AudioResamplerMonoToMono<int> resampler;
    std::vector<char> bytes(16384);
    size_t count = 0;
    resampler.Resample(bytes.data(), 8192, count);
    QCOMPARE(resampler.m_bufferCapacity, size_t(2048));
    const qint16* pLarger = resampler.Resample(bytes.data(), 16384, count);
    QCOMPARE(count, size_t(4096));
    QCOMPARE(resampler.m_bufferCapacity, size_t(4096));
    QCOMPARE(pLarger, static_cast<const qint16*>(resampler.m_pBuffer));
}

void tst_AudioResamplerMonoToMono::longBlock_isConvertedWhole()
{
    // Longer than any vector register, and no multiple of one.
    std::vector<int> input(10007);
    for (size_t i = 0; i < input.size(); ++i)
        input[i] = int(i - 5000) * 65536 + 77;
    const Samples16 output = Convert<int>(input);
    QCOMPARE(output.size(), input.size());
    for (size_t i = 0; i < output.size(); ++i)
        QCOMPARE(int(output[i]), int(i) - 5000);
}

void tst_AudioResamplerMonoToMono::fields_standInOrder()
{
    const AudioResamplerMonoToMono<int> r;
    QVERIFY(AreInOrder(r.m_converter, r.m_pBuffer, r.m_bufferCapacity));
    QCOMPARE(r.m_pBuffer, static_cast<qint16*>(nullptr));
    QCOMPARE(r.m_bufferCapacity, size_t(0));
}

AA_TEST(tst_AudioResamplerMonoToMono, NoApplication)
#include "tst_AudioResamplerMonoToMono.moc"
