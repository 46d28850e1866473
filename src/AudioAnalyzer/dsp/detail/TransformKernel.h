// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

struct TwiddleTables;

/// One compiled variant of the vectorised transform, for lengths of at least kMinBits bits. Every
/// variant gives the bits of the plain butterflies for every input.
///
/// All functions: 2^pBits values; pTwiddles complete up to that stage, of the wanted direction; the
/// result in natural order, divided by the length when pScale is not 1. Inputs and outputs may not
/// overlap.
struct TransformKernel
{
    static constexpr std::size_t kMinBits = 6;

    const char* name;

    /// Transforms pCount values, padded with zeros. pImaginary may be null: all zeros.
    void (*fromShorts)(const TwiddleTables& pTwiddles,
                       std::size_t pBits,
                       const short* pReal,
                       const short* pImaginary,
                       std::size_t pCount,
                       double* pOutReal,
                       double* pOutImaginary,
                       double pScale);
    void (*fromDoubles)(const TwiddleTables& pTwiddles,
                        std::size_t pBits,
                        const double* pReal,
                        const double* pImaginary,
                        std::size_t pCount,
                        double* pOutReal,
                        double* pOutImaginary,
                        double pScale);
    /// Transforms in place what already stands in bit-reversed order.
    void (*inPlace)(const TwiddleTables& pTwiddles,
                    std::size_t pBits,
                    double* pReal,
                    double* pImaginary,
                    double pScale);
    /// Truncates values, each within the range of an int, toward zero and cuts them to 16 bits.
    void (*toShorts)(const double* pValues, std::size_t pCount, short* pOut);
};

}  // namespace detail
