// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>

namespace detail {

/// Magnitude in 16 bits: -32768 stays -32768.
inline qint16 Magnitude(qint16 pSample)
{
    return static_cast<qint16>(pSample < 0 ? -pSample : pSample);
}

/// Sum and extremes of magnitudes. They can be put together from parts in any order, the sums being
/// whole numbers.
struct Magnitudes
{
    qint64 sum;
    qint16 maximum;
    qint16 minimum;
};

/// Of pCount samples, 1 to 65536.
inline Magnitudes MeasureMagnitudes(const qint16* pSamples, std::size_t pCount)
{
    // 32 bits hold the sum, which lets the loop work on whole vectors of samples.
    qint32 sum = 0;
    qint16 maximum = Magnitude(pSamples[0]);
    qint16 minimum = maximum;
    for (std::size_t i = 0; i < pCount; ++i) {
        const qint16 magnitude = Magnitude(pSamples[i]);
        sum += magnitude;
        maximum = std::max(maximum, magnitude);
        minimum = std::min(minimum, magnitude);
    }
    return {sum, maximum, minimum};
}

inline Magnitudes Combine(const Magnitudes& pFirst, const Magnitudes& pSecond)
{
    return {pFirst.sum + pSecond.sum,
            std::max(pFirst.maximum, pSecond.maximum),
            std::min(pFirst.minimum, pSecond.minimum)};
}

}  // namespace detail
