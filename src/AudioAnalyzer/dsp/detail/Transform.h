// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

/// Whole transforms of length 2^pBitCount: the plain path for short ones, this processor's kernel
/// for the others, the same bits either way. The inverse is divided by the length. Inputs and
/// outputs may not overlap.

/// Makes whatever transforms of this length share in the process. Called before, it keeps the
/// functions below from allocating.
void prepareTransform(std::size_t pBitCount);

/// Transforms pCount values, padded with zeros. pImaginary may be null: all zeros.
void transform(const short* pReal,
               const short* pImaginary,
               std::size_t pCount,
               std::size_t pBitCount,
               bool pInverse,
               double* pOutReal,
               double* pOutImaginary);
void transform(const double* pReal,
               const double* pImaginary,
               std::size_t pCount,
               std::size_t pBitCount,
               bool pInverse,
               double* pOutReal,
               double* pOutImaginary);

/// Transforms in place what stands in bit-reversed order.
void transformReversed(double* pReal, double* pImaginary, std::size_t pBitCount, bool pInverse);

/// Values, each within the range of an int, truncated toward zero and cut to their low 16 bits.
void truncateToSamples(const double* pValues, std::size_t pCount, short* pOut);

}  // namespace detail
