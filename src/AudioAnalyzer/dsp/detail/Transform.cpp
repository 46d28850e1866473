// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/PlainTransform.h>
#include <AudioAnalyzer/dsp/detail/Transform.h>
#include <AudioAnalyzer/dsp/detail/TransformKernels.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>

namespace detail {

namespace {

bool isPlain(std::size_t pBitCount)
{
    return pBitCount < TransformKernel::kMinBits;
}

// The division by the length may be a multiplication: the length is a power of two, so its inverse
// is exact, and both operations round the same real number once, down to the subnormal ones.
double scaleOf(std::size_t pBitCount, bool pInverse)
{
    return pInverse ? 1.0 / static_cast<double>(std::size_t(1) << pBitCount) : 1.0;
}

}  // namespace

void prepareTransform(std::size_t pBitCount)
{
    if (isPlain(pBitCount))
        return;
    twiddleTables(false, pBitCount);
    twiddleTables(true, pBitCount);
}

void transform(const short* pReal,
               const short* pImaginary,
               std::size_t pCount,
               std::size_t pBitCount,
               bool pInverse,
               double* pOutReal,
               double* pOutImaginary)
{
    if (isPlain(pBitCount))
        plainTransform(pReal, pImaginary, pCount, pBitCount, pInverse, pOutReal, pOutImaginary);
    else
        fastestTransformKernel().fromShorts(twiddleTables(pInverse, pBitCount),
                                            pBitCount,
                                            pReal,
                                            pImaginary,
                                            pCount,
                                            pOutReal,
                                            pOutImaginary,
                                            scaleOf(pBitCount, pInverse));
}

void transform(const double* pReal,
               const double* pImaginary,
               std::size_t pCount,
               std::size_t pBitCount,
               bool pInverse,
               double* pOutReal,
               double* pOutImaginary)
{
    if (isPlain(pBitCount))
        plainTransform(pReal, pImaginary, pCount, pBitCount, pInverse, pOutReal, pOutImaginary);
    else
        fastestTransformKernel().fromDoubles(twiddleTables(pInverse, pBitCount),
                                             pBitCount,
                                             pReal,
                                             pImaginary,
                                             pCount,
                                             pOutReal,
                                             pOutImaginary,
                                             scaleOf(pBitCount, pInverse));
}

void transformReversed(double* pReal, double* pImaginary, std::size_t pBitCount, bool pInverse)
{
    if (isPlain(pBitCount))
        plainTransformReversed(pReal, pImaginary, pBitCount, pInverse);
    else
        fastestTransformKernel().inPlace(twiddleTables(pInverse, pBitCount),
                                         pBitCount,
                                         pReal,
                                         pImaginary,
                                         scaleOf(pBitCount, pInverse));
}

void truncateToSamples(const double* pValues, std::size_t pCount, short* pOut)
{
    fastestTransformKernel().toShorts(pValues, pCount, pOut);
}

}  // namespace detail
