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
/// wrapped. Division by a number that only run time knows is what makes the plain way slow.
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

/// Frames of pChannels samples, 2 to 2^31, whose sums fit into Sum.
template <typename T, typename Sum>
void AverageFrames(const char* pData, std::size_t pFrames, std::size_t pChannels, short* pOut)
{
    switch (pChannels) {
    case 2:
        return AverageFrames<T, Sum, 2>(pData, pFrames, pChannels, pOut);
    case 3:
        return AverageFrames<T, Sum, 3>(pData, pFrames, pChannels, pOut);
    case 4:
        return AverageFrames<T, Sum, 4>(pData, pFrames, pChannels, pOut);
    case 6:
        return AverageFrames<T, Sum, 6>(pData, pFrames, pChannels, pOut);
    case 8:
        return AverageFrames<T, Sum, 8>(pData, pFrames, pChannels, pOut);
    default:
        return AverageFrames<T, Sum, 0>(pData, pFrames, pChannels, pOut);
    }
}

}  // namespace detail
