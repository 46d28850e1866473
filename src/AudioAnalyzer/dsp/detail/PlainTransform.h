// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/BitReversal.h>
#include <AudioAnalyzer/dsp/detail/Butterflies.h>

#include <cstddef>

/// The transform as it is defined, one value after the other. Every faster one gives its bits.
namespace detail {

inline void
plainTransformReversed(double* pReal, double* pImaginary, std::size_t pBitCount, bool pInverse)
{
    const std::size_t length = std::size_t(1) << pBitCount;
    runButterflies(pReal, pImaginary, length, pInverse);
    if (!pInverse)
        return;
    const double divisor = static_cast<double>(length);
    for (std::size_t i = 0; i < length; ++i) {
        pReal[i] /= divisor;
        pImaginary[i] /= divisor;
    }
}

template <typename T>
void plainTransform(const T* pReal,
                    const T* pImaginary,
                    std::size_t pCount,
                    std::size_t pBitCount,
                    bool pInverse,
                    double* pOutReal,
                    double* pOutImaginary)
{
    scatterBitReversed(pReal, pCount, pBitCount, pOutReal);
    scatterBitReversed(pImaginary, pCount, pBitCount, pOutImaginary);
    plainTransformReversed(pOutReal, pOutImaginary, pBitCount, pInverse);
}

}  // namespace detail
