// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

/// Hz to bins for the filters. pHalf is N/2, the number of bins up to pNyquist Hz.
namespace detail {

/// Bins that a high-pass removes from the bottom; needs 0 < pLow < pNyquist.
inline std::size_t highPassCut(int pLow, int pNyquist, std::size_t pHalf)
{
    return static_cast<std::size_t>(pLow) * pHalf / static_cast<std::size_t>(pNyquist);
}

/// Bins that a low-pass keeps at the bottom; needs pHigh > 0 and pNyquist > 0.
inline std::size_t lowPassKeep(int pHigh, int pNyquist, std::size_t pHalf)
{
    const std::size_t high = static_cast<std::size_t>(std::min(pNyquist, pHigh));
    return high * pHalf / static_cast<std::size_t>(pNyquist) + 1;
}

// Intended: the band-pass works in floating point, the other two in integers. They agree for
// ordinary values; where the rounded quotient falls just short of a whole bin, the band-pass cuts
// one bin less.

inline double binsPerHz(int pNyquist, std::size_t pHalf)
{
    return static_cast<double>(pHalf) / static_cast<double>(pNyquist);
}

/// Bins that a band-pass removes from the bottom; needs pLow < pNyquist and pNyquist > 0.
inline std::size_t bandPassCut(int pLow, int pNyquist, std::size_t pHalf)
{
    return static_cast<std::size_t>(std::max(pLow, 0) * binsPerHz(pNyquist, pHalf));
}

/// Bins that a band-pass leaves below its upper edge; needs pHigh > 0 and pNyquist > 0.
inline std::size_t bandPassKeep(int pHigh, int pNyquist, std::size_t pHalf)
{
    return static_cast<std::size_t>(std::min(pNyquist, pHigh) * binsPerHz(pNyquist, pHalf)) + 1;
}

}  // namespace detail
