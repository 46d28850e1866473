// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cmath>
#include <cstddef>
#include <limits>

namespace detail {

constexpr std::size_t kLeastBeatsForTempo = 5;

/// Samples of one beat at pBPM, rounded; 0 when that is no 32-bit number (a tempo of 0, for
/// example).
inline quint64 BeatLength(double pSamplesPerMinute, double pBPM)
{
    const double samples = pSamplesPerMinute / pBPM;
    if (!(std::fabs(samples) < std::numeric_limits<int>::max()))
        return 0;
    return static_cast<quint64>(static_cast<qint64>(qRound(samples)));
}

/// Mean tempo, in BPM, of pCount beats from pFirst to pLast; 0 for fewer than five beats, or when
/// they are less than one sample apart. The mean interval is in whole samples.
inline double
TempoOfBeats(quint64 pFirst, quint64 pLast, std::size_t pCount, double pSamplesPerMinute)
{
    if (pCount < kLeastBeatsForTempo)
        return 0.0;
    // The differences between neighbours add up to the difference between the ends.
    const quint64 intervals = pCount - 1;
    const quint64 span = pLast - pFirst;
    if (span < intervals)
        return 0.0;
    const quint64 wholeSamples = span / intervals;
    return pSamplesPerMinute / static_cast<double>(wholeSamples);
}

}  // namespace detail
