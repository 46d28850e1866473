// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cmath>
#include <cstddef>

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
        const double scaled = std::round(pValue * kFullScale);
        if (std::isnan(scaled))
            return 0;
        if (scaled >= 32767.0)
            return 32767;
        return scaled <= -kFullScale ? qint16(-32768) : static_cast<qint16>(scaled);
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
        for (std::size_t i = 0; i < pCount; ++i)
            pSamples[i] = ToSample16(MeanOfFrame(pFrames + i * std::size_t(pChannels), pChannels));
    }

private:
    static constexpr double kFullScale = 32768.0;

    static double ToUnit(float pSample) { return static_cast<double>(pSample); }
    static double ToUnit(qint16 pSample) { return pSample / kFullScale; }
};
