// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

/// The low pBits bits of pIndex in reverse order; higher bits are ignored, no bits give 0.
inline std::size_t reverseBits(std::size_t pIndex, std::size_t pBits)
{
    std::size_t reversed = 0;
    for (; pBits > 0; --pBits) {
        reversed = 2 * reversed + (pIndex & 1);
        pIndex >>= 1;
    }
    return reversed;
}

/// Spreads pCount values over the 2^pBits values of pOut, each to its bit-reversed position as a
/// double; the positions of the missing ones, and all of them for a null pValues, become 0.
template <typename T>
void scatterBitReversed(const T* pValues, std::size_t pCount, std::size_t pBits, double* pOut)
{
    const std::size_t length = std::size_t(1) << pBits;
    const std::size_t given = pValues ? pCount : 0;
    for (std::size_t i = 0; i < given; ++i)
        pOut[reverseBits(i, pBits)] = static_cast<double>(pValues[i]);
    for (std::size_t i = given; i < length; ++i)
        pOut[reverseBits(i, pBits)] = 0.0;
}

}  // namespace detail
