// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cmath>
#include <cstddef>

namespace detail {

/// A sample of full scale 1 in 16 bits: rounded, halves away from zero, and saturated. NaN becomes
/// 0.
inline qint16 ToSample16(double pValue)
{
    const double scaled = std::round(pValue * 32768.0);
    if (std::isnan(scaled))
        return 0;
    if (scaled >= 32767.0)
        return 32767;
    return scaled <= -32768.0 ? qint16(-32768) : static_cast<qint16>(scaled);
}

/// Mean of the pChannels samples of one frame.
inline double MeanOfFrame(const float* pFrame, int pChannels)
{
    double sum = 0.0;
    for (int channel = 0; channel < pChannels; ++channel)
        sum += static_cast<double>(pFrame[channel]);
    return sum / pChannels;
}

/// pCount interleaved frames to mono 16-bit samples.
inline void Downmix(const float* pFrames, int pChannels, std::size_t pCount, qint16* pSamples)
{
    for (std::size_t i = 0; i < pCount; ++i)
        pSamples[i] = ToSample16(MeanOfFrame(pFrames + i * std::size_t(pChannels), pChannels));
}

}  // namespace detail
