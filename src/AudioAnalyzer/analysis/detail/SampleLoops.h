// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace detail {

/// Replaces each sample by its magnitude; -32768, which has none in 16 bits, by 32767.
inline void Rectify(qint16* pSamples, std::size_t pCount)
{
    for (std::size_t i = 0; i < pCount; ++i) {
        const qint16 atLeast = std::max<qint16>(pSamples[i], -std::numeric_limits<qint16>::max());
        pSamples[i] = static_cast<qint16>(atLeast < 0 ? -atLeast : atLeast);
    }
}

/// The greatest of pFloor and all samples.
inline qint16 Peak(const qint16* pSamples, std::size_t pCount, qint16 pFloor)
{
    qint16 peak = pFloor;
    for (std::size_t i = 0; i < pCount; ++i)
        peak = std::max(peak, pSamples[i]);
    return peak;
}

/// How many samples reach the threshold.
inline std::size_t CountReaching(const qint16* pSamples, std::size_t pCount, qint16 pThreshold)
{
    std::size_t reaching = 0;
    for (std::size_t i = 0; i < pCount; ++i)
        reaching += pSamples[i] >= pThreshold ? 1 : 0;
    return reaching;
}

/// Whether a block is a pulse: at least a quarter of its samples, rounded down, reach the
/// threshold. Intended: a block of fewer than 4 samples has a quota of 0 and is a pulse when none
/// reaches it.
inline bool IsPulse(const qint16* pSamples, std::size_t pCount, qint16 pThreshold)
{
    const std::size_t quota = pCount / 4;
    const std::size_t reaching = CountReaching(pSamples, pCount, pThreshold);
    return quota == 0 ? reaching == 0 : reaching >= quota;
}

/// The lesser of pSensibility times pAverage, rounded, and pMaximum, cut to 16 bits.
inline qint16 AutomaticThreshold(double pSensibility, qint16 pAverage, qint16 pMaximum)
{
    const double threshold = pSensibility * pAverage;
    if (!(threshold < pMaximum))
        return pMaximum;
    const double lowest = std::numeric_limits<int>::min() + 1.0;
    return static_cast<qint16>(std::min<int>(qRound(std::max(threshold, lowest)), pMaximum));
}

}  // namespace detail
