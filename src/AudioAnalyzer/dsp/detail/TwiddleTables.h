// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

/// The factors of one direction, made by TwiddleRecurrence and so the same bits. Eight factors
/// together are eight real parts, then eight imaginary parts. Each table begins at a cache line.
struct TwiddleTables
{
    static constexpr std::size_t kHeadBits = 3;    ///< stages in `head`
    static constexpr std::size_t kLargeBits = 14;  ///< from here on a length has `columns`
    static constexpr std::size_t kColumnBits = 6;  ///< stages in `columns`
    static constexpr std::size_t kMaxBits = 48;

    /// The stages of span 2, 4 and 8, of 1, 2 and 4 factors; real and imaginary part alternate.
    double head[14];
    /// stage[s]: the factors of span 2^s in their order.
    const double* stage[kMaxBits + 1];
    /// columns[b]: the last six stages of length 2^b in the order in which they are used, since a
    /// walk through their six tables, a step of many pages each, costs more than the arithmetic.
    /// For each eight neighbouring values of a block of 2^(b - 6): the eights that belong to them
    /// in the first of these stages, one, then those of the second, two, and so on.
    const double* columns[kMaxBits + 1];
};

/// The tables of one direction, with all that length 2^pBitCount needs. They belong to the process,
/// are never changed once they are there, and may be read by any thread. [allocates when no
/// transform of this length was made before in the process]
const TwiddleTables& twiddleTables(bool pInverse, std::size_t pBitCount);

}  // namespace detail
