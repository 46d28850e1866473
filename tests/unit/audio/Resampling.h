// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/AudioResampler.h>

#include <cstddef>
#include <vector>

using Samples16 = std::vector<qint16>;

/// Runs pBytes bytes at pData through a converter and copies the result.
inline Samples16 ResampleBytes(AudioResampler& pResampler, const void* pData, size_t pBytes)
{
    // Resample() takes its input as writable bytes, although it only reads them.
    char* pBytesIn = const_cast<char*>(static_cast<const char*>(pData));
    size_t count = 12345;
    const qint16* pSamples = pResampler.Resample(pBytesIn, pBytes, count);
    return count == 0 ? Samples16() : Samples16(pSamples, pSamples + count);
}

template <typename T>
Samples16 Resample(AudioResampler& pResampler, const std::vector<T>& pInput)
{
    return ResampleBytes(pResampler, pInput.data(), pInput.size() * sizeof(T));
}
