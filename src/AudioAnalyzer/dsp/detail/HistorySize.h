// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/LengthSelection.h>

#include <cstddef>
#include <limits>

namespace detail {

/// Rounds to the nearest integer, halves up; 0 for what is negative, no number or above the int
/// range.
inline std::size_t roundToSize(double pValue)
{
    const double raised = pValue + 0.5;
    const bool isInRange = pValue >= 0.0 && raised < std::numeric_limits<int>::max() + 1.0;
    return isInRange ? static_cast<std::size_t>(raised) : 0;
}

/// Half-lengths of the transform of pBlockLength samples (not 0) that fit into pDuration seconds at
/// pRate Hz.
inline std::size_t historySize(int pRate, double pDuration, std::size_t pBlockLength)
{
    // A block of one sample has no half-length: its shift of -1 counts modulo 64, which leaves 0.
    const std::size_t shift = (selectBitCount(pBlockLength) - 1) % 64;
    return roundToSize(pRate * pDuration / static_cast<double>(lengthOfBits(shift)));
}

}  // namespace detail
