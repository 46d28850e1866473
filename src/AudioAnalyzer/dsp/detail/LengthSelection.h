// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

/// log2 of the smallest power of two that is not below pCount; 0 for a count of 0 or 1.
inline std::size_t selectBitCount(std::size_t pCount)
{
    std::size_t bits = 0;
    for (std::size_t rest = pCount > 0 ? pCount - 1 : 0; rest > 0; rest >>= 1)
        ++bits;
    return bits;
}

/// The power of two of pBitCount bits.
inline std::size_t lengthOfBits(std::size_t pBitCount)
{
    return std::size_t(1) << pBitCount;
}

}  // namespace detail
