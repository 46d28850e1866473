// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cmath>
#include <vector>

namespace cli {

constexpr double kClickSeconds = 0.03;

/// What a click stands for.
enum eClick
{
    eBeatClick,
    eVirtualClick,  ///< of a virtual beat
    eAccent         ///< of the first beat of a bar
};

/// A short click at pRate Hz: a tone that dies away, pitched 1760 Hz for a beat; a fifth higher and
/// louder for the first one of a bar, softer and an octave lower for a virtual one. Values are
/// 16-bit sample steps to be added to the music.
inline std::vector<int> makeClick(int pRate, eClick pClick)
{
    const double frequency = pClick == eVirtualClick ? 880.0 : pClick == eAccent ? 2640.0 : 1760.0;
    const double amplitude = pClick == eVirtualClick ? 9000.0
                             : pClick == eAccent     ? 28000.0
                                                     : 20000.0;
    std::vector<int> click(std::size_t(std::lround(kClickSeconds * pRate)));
    for (std::size_t i = 0; i < click.size(); ++i) {
        const double time = double(i) / pRate;
        const double fade = (1.0 - time / kClickSeconds) * std::exp(-time / 0.01);
        // A cosine, so that the click begins with its full height on the beat's own sample.
        click[i] =
            int(std::lround(amplitude * fade * std::cos(6.283185307179586 * frequency * time)));
    }
    return click;
}

/// A sample in [-1, 1] as 16 bits, rounded and saturated; what was 16 bits before stays the same.
inline qint16 toInt16(float pSample)
{
    if (std::isnan(pSample))
        return 0;
    return qint16(std::lrint(qBound(-32768.0, double(pSample) * 32768.0, 32767.0)));
}

/// Sum of a sample and a click, saturated.
inline qint16 mixClick(qint16 pSample, int pClick)
{
    return qint16(qBound(-32768, pSample + pClick, 32767));
}

}  // namespace cli
