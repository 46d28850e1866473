// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

/// Interleaved samples of any channel count to the mono 16-bit samples that the analyzer takes.
///
/// Each frame is averaged in floating point, then rounded once and saturated. The converters of
/// AudioResampler, which live capture needs, do not rescale; hosts that read files want this one.
///
/// Threads: any; nothing is stored.
class AudioDownmix
{
public:
    /// A sample of full scale 1 in 16 bits: rounded, halves away from zero, and saturated. NaN
    /// becomes 0. [any thread] [audio path: no allocation]
    static qint16 ToSample16(double pValue)
    {
        const double scaled = pValue * kFullScale;
        const double number = std::isnan(scaled) ? 0.0 : scaled;
        const double clamped = std::min(std::max(number, -kFullScale), kFullScale - 1.0);
        return static_cast<qint16>(clamped + std::copysign(kBelowHalf, clamped));
    }

    /// Mean of the pChannels samples of one frame, at least 1; full scale is 1. [any thread]
    /// [audio path: no allocation]
    template <typename Sample>
    static double MeanOfFrame(const Sample* pFrame, int pChannels)
    {
        double sum = 0.0;
        for (int channel = 0; channel < pChannels; ++channel)
            sum += ToUnit(pFrame[channel]);
        return sum / pChannels;
    }

    /// pCount frames, of float in [-1, 1] or qint16, to as many samples. [any thread] [audio path:
    /// no allocation]
    template <typename Sample>
    static void ToMono(const Sample* pFrames, int pChannels, std::size_t pCount, qint16* pSamples)
    {
        if (pChannels == 1)
            MixEach(pFrames, std::integral_constant<int, 1>(), pCount, pSamples);
        else if (pChannels == 2)
            MixEach(pFrames, std::integral_constant<int, 2>(), pCount, pSamples);
        else
            MixEach(pFrames, pChannels, pCount, pSamples);
    }

private:
    static constexpr double kFullScale = 32768.0;
    static constexpr double kBelowHalf = 0.49999999999999994;  // a half would round it up to 1

    /// A channel count that the compiler knows needs neither loop nor division.
    template <typename Sample, typename Channels>
    static void
    MixEach(const Sample* pFrames, Channels pChannels, std::size_t pCount, qint16* pSamples)
    {
        for (std::size_t i = 0; i < pCount; ++i)
            pSamples[i] = ToSample16(MeanOfFrame(pFrames + i * std::size_t(pChannels), pChannels));
    }

    static double ToUnit(float pSample) { return static_cast<double>(pSample); }
    static double ToUnit(qint16 pSample) { return pSample / kFullScale; }
};
