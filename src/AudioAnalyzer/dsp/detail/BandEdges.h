// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

namespace detail {

/// Lower edge in Hz of bin pIndex, one of pCount bins up to pHalfRate Hz.
inline double lowerEdge(int pIndex, double pHalfRate, std::size_t pCount)
{
    return pIndex * pHalfRate / static_cast<double>(pCount);
}

/// Upper edge in Hz as it is reported: just below the next bin's lower edge, so that bands do not
/// touch, but never below the own lower edge.
inline double upperEdge(double pLower, double pNextLower)
{
    return std::max(pNextLower - 0.001, pLower);
}

}  // namespace detail
