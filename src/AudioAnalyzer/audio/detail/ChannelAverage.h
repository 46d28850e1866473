// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/detail/NativeSample.h>

#include <cstddef>
#include <type_traits>

namespace detail {

/// Sum of a frame's samples in type Sum. kChannels: their number, so that the loop over frames
/// works on whole vectors; 0 when only pChannels tells it.
template <typename T, typename Sum, std::size_t kChannels>
Sum SumChannels(const char* pFrame, std::size_t pChannels)
{
    const std::size_t channels = kChannels > 0 ? kChannels : pChannels;
    Sum sum = 0;
    for (std::size_t i = 0; i < channels; ++i)
        sum = static_cast<Sum>(sum + NativeSample<T>(pFrame, i));
    return sum;
}

/// Whether the sum of so many samples, at least 1, fits into the accumulator, which is twice as
/// wide as a sample.
template <typename T>
bool IsSumExact(std::size_t pChannels)
{
    constexpr int kBits = 8 * sizeof(T) < 32 ? 8 * sizeof(T) : 31;
    return pChannels > 0 && pChannels <= std::size_t(1) << kBits;
}

/// What the converter of type Acc makes of a frame's average, from the sum, which must not have
/// wrapped. Division by a number that only run time knows is what makes the plain way slow: 0.4
/// GB/s of stereo input instead of 6 and more.
///
/// Of an accumulator above 16 bits only those bits are left that lie above every average: its sign,
/// or nothing. The average, truncated toward zero, is negative when the sum reaches -channels.
template <typename T, std::size_t kChannels, typename Sum>
short ConvertAverage(Sum pSum, std::size_t pChannels)
{
    constexpr int kCenter = std::is_signed<T>::value ? 0 : 0x8000;
    if constexpr (sizeof(T) > 1 && std::is_signed<T>::value)
        return pSum <= -static_cast<Sum>(pChannels) ? short(-1) : short(0);
    else if constexpr (sizeof(T) > 1)
        return static_cast<short>(kCenter);
    else if constexpr (kChannels > 0)
        return static_cast<short>(pSum / static_cast<int>(kChannels) ^ kCenter);
    else
        return static_cast<short>(pSum / static_cast<int>(pChannels) ^ kCenter);
}

template <typename T, typename Sum, std::size_t kChannels>
void AverageFrames(const char* pData, std::size_t pFrames, std::size_t pChannels, short* pOut)
{
    const std::size_t channels = kChannels > 0 ? kChannels : pChannels;
    for (std::size_t i = 0; i < pFrames; ++i) {
        const char* pFrame = pData + i * channels * sizeof(T);
        const Sum sum = SumChannels<T, Sum, kChannels>(pFrame, channels);
        pOut[i] = ConvertAverage<T, kChannels>(sum, channels);
    }
}

/// Six bytes a frame fit no vector; as three sums of two they do: with AVX2,
/// 3.7 -> 5.6 GB/s.
template <typename T>
void AverageSixBytes(const char* pData, std::size_t pFrames, short* pOut)
{
    constexpr std::size_t kBlock = 256;
    short pairs[3 * kBlock];
    for (std::size_t first = 0; first < pFrames; first += kBlock) {
        const std::size_t frames = pFrames - first < kBlock ? pFrames - first : kBlock;
        for (std::size_t i = 0; i < 3 * frames; ++i)
            pairs[i] = SumChannels<T, short, 2>(pData + 6 * first + 2 * i, 2);
        for (std::size_t i = 0; i < frames; ++i) {
            // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): they are set.
            const int sum = pairs[3 * i] + pairs[3 * i + 1] + pairs[3 * i + 2];
            pOut[first + i] = ConvertAverage<T, 6>(sum, 6);
        }
    }
}

template <typename T, typename Sum, std::size_t kChannels>
void AverageKnown(const char* pData, std::size_t pFrames, short* pOut)
{
    if constexpr (sizeof(T) == 1 && kChannels == 6)
        AverageSixBytes<T>(pData, pFrames, pOut);
    else
        AverageFrames<T, Sum, kChannels>(pData, pFrames, kChannels, pOut);
}

#if defined(__x86_64__)

/// Three channels need shuffles that the first x86-64 has not: bytes go from 2.7 to 9 GB/s, 16 bits
/// from 5.7 to 8.4; of two channels, 16 bits from 5.8 to 14.
template <typename T, typename Sum, std::size_t kChannels>
__attribute__((target("avx2"), flatten)) void
AverageKnownAvx2(const char* pData, std::size_t pFrames, short* pOut)
{
    AverageKnown<T, Sum, kChannels>(pData, pFrames, pOut);
}

inline bool HasAvx2()
{
    return __builtin_cpu_supports("avx2");
}

#else

template <typename T, typename Sum, std::size_t kChannels>
void AverageKnownAvx2(const char* pData, std::size_t pFrames, short* pOut)
{
    AverageKnown<T, Sum, kChannels>(pData, pFrames, pOut);
}

inline bool HasAvx2()
{
    return false;
}

#endif

template <typename T, typename Sum, std::size_t kChannels>
void AverageFrames(const char* pData, std::size_t pFrames, short* pOut)
{
    if (HasAvx2())
        AverageKnownAvx2<T, Sum, kChannels>(pData, pFrames, pOut);
    else
        AverageKnown<T, Sum, kChannels>(pData, pFrames, pOut);
}

/// Frames of pChannels samples, 2 to 2^31, whose sums fit into Sum.
template <typename T, typename Sum>
void AverageFrames(const char* pData, std::size_t pFrames, std::size_t pChannels, short* pOut)
{
    switch (pChannels) {
    case 2:
        return AverageFrames<T, Sum, 2>(pData, pFrames, pOut);
    case 3:
        return AverageFrames<T, Sum, 3>(pData, pFrames, pOut);
    case 4:
        return AverageFrames<T, Sum, 4>(pData, pFrames, pOut);
    case 6:
        return AverageFrames<T, Sum, 6>(pData, pFrames, pOut);
    case 8:
        return AverageFrames<T, Sum, 8>(pData, pFrames, pOut);
    default:
        return AverageFrames<T, Sum, 0>(pData, pFrames, pChannels, pOut);
    }
}

}  // namespace detail
