// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>

namespace plain {

/// The upper 16 bits of a value of 8 to 64 bits, re-centred when the type has no sign.
template <typename T>
short toSample16(T pValue)
{
    constexpr int kBits = 8 * sizeof(T);
    using Wide =
        typename std::conditional<std::is_signed<T>::value, long long, unsigned long long>::type;
    const Wide value = pValue;
    const Wide shifted = kBits >= 16 ? value >> (kBits >= 16 ? kBits - 16 : 0) : value * 256;
    const unsigned long long centred =
        static_cast<unsigned long long>(shifted) ^ (std::is_signed<T>::value ? 0 : 0x8000);
    return static_cast<short>(static_cast<unsigned short>(centred));
}

template <typename T>
void monoToMono(const char* pData, std::size_t pCount, short* pOut)
{
    for (std::size_t i = 0; i < pCount; ++i) {
        T sample;
        std::memcpy(&sample, pData + i * sizeof(T), sizeof(T));
        pOut[i] = toSample16(sample);
    }
}

/// Frames of pChannels samples; the average is of the accumulator's type and converted as such.
template <typename T, typename Accumulator>
void multiToMono(const char* pData, std::size_t pFrames, std::size_t pChannels, short* pOut)
{
    for (std::size_t frame = 0; frame < pFrames; ++frame) {
        Accumulator sum = 0;
        for (std::size_t channel = 0; channel < pChannels; ++channel) {
            T sample;
            std::memcpy(&sample, pData, sizeof(T));
            pData += sizeof(T);
            sum = static_cast<Accumulator>(sum + sample);
        }
        pOut[frame] =
            toSample16(static_cast<Accumulator>(sum / static_cast<Accumulator>(pChannels)));
    }
}

}  // namespace plain
