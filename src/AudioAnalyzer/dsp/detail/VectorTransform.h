// SPDX-License-Identifier: MIT
// The transform in vectors of AA_LANES doubles, with AA_STAGES_PER_PASS stages at once in
// registers. Each TransformKernel*.cpp defines the two and includes this file once, with the
// compiler options of its processor.
//
// Everything is in an unnamed namespace, and nothing of the standard library is called: a function
// that the linker could share with other files must never carry instructions of one processor only.
//
// The arithmetic is that of runBlock() in Butterflies.h, operation by operation: a lane does one
// butterfly, and neither the compiler options nor this code fuse or reorder anything. So the result
// has the same bits. What is different is when a butterfly is done and where its factor comes from:
//
//  - Factors are tabulated (TwiddleTables.h): the recurrence needs both factors before, which no
//    vector can wait for.
//  - The first pass reads the input through the reversed index, neighbouring values in neighbouring
//    lanes, does three stages, and turns eight rows by eight lanes into whole lines of the output.
//    No value is scattered alone, and the reversal costs no pass of its own.
//  - Later passes do two or three stages on values in registers. At 1024 points that is four trips
//    through memory instead of eleven.
//  - From 2^14 points on, the first pass takes the columns so that the blocks of 2^(b - 6) values
//    which it fills are finished while the cache has them. The last six stages then run down
//    columns of eight values, through a copy of 8 kB and with factors in the order of their use:
//    two passes over all memory in place of seventeen.
//
// Measured on a Cascade Lake processor at 2.5 GHz, forward and inverse alike: 1024 points take
// 2.7 us with eight lanes, 4.2 us with four, 7 us with two, and 26 us one after the other; 131072
// points 0.9, 1.4, 2.3 and 7 ms. FFTW takes 2.6 us and 1.1 ms there.
#pragma once

#include <AudioAnalyzer/dsp/detail/TransformKernel.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>
#include <AudioAnalyzer/dsp/detail/VectorPasses.h>

// NOLINTBEGIN(misc-definitions-in-headers): see VectorLanes.h
namespace {

using detail::TwiddleTables;

// ---- First pass: bit reversal and three stages --------------------------------------------------

AA_INLINE Index reverse64(Index v)
{
    v = __builtin_bswap64(v);
    v = (v >> 4 & 0x0f0f0f0f0f0f0f0f) | (v & 0x0f0f0f0f0f0f0f0f) << 4;
    v = (v >> 2 & 0x3333333333333333) | (v & 0x3333333333333333) << 2;
    return (v >> 1 & 0x5555555555555555) | (v & 0x5555555555555555) << 1;
}

AA_INLINE Index reverse(Index pIndex, Index pBits)
{
    return pBits > 0 ? reverse64(pIndex) >> (64 - pBits) : 0;
}

/// One array of the input. Behind its `count` values come zeros; the vector across the end is kept
/// ready in `tail`.
template <typename T, bool kIsWhole>
struct Source
{
    const T* pValues;
    Index count;
    T tail[kLanes];
    T zeros[kLanes];

    Source(const T* pFirst, Index pCount) : pValues(pFirst), count(pCount), tail{}, zeros{}
    {
        for (Index i = pCount - pCount % kLanes; i < pCount; ++i)
            tail[i % kLanes] = pFirst[i];
    }

    AA_INLINE Vector at(Index pIndex) const
    {
        const T* p = pValues + pIndex;
        if (!kIsWhole && pIndex + kLanes > count)
            p = pIndex < count ? tail : zeros;
        return load(p);
    }
};

/// Imaginary parts of a real input. kIsInteger: its real parts are integers, and the first factor
/// is 1.
template <bool kIsInteger>
struct NoSource
{
    AA_INLINE Vector at(Index) const { return Vector{}; }
};

template <typename Imaginary>
AA_INLINE void firstStages(Eight& x, const double* pHead, const Imaginary&)
{
    firstStage(x, pHead);
    secondAndThirdStage(x, pHead);
}

AA_INLINE void firstStages(Eight& x, const double* pHead, const NoSource<true>&)
{
    firstStageOfIntegers(x);
    secondAndThirdStage(x, pHead);
}

template <typename Real, typename Imaginary>
AA_INLINE Complex loadComplex(const Real& pReal, const Imaginary& pImaginary, Index pIndex)
{
    return {pReal.at(pIndex), pImaginary.at(pIndex)};
}

// ---- The whole transform ------------------------------------------------------------------------

constexpr Index kHeadBits = TwiddleTables::kHeadBits;
constexpr Index kColumnBits = TwiddleTables::kColumnBits;

/// Stages done block by block while the values are still in the cache.
AA_INLINE Index blockBits(Index pBits)
{
    return pBits < TwiddleTables::kLargeBits ? kHeadBits : pBits - kColumnBits;
}

AA_INLINE void finishBlock(const TwiddleTables& pTwiddles, Index pBlockBits, const Rows& pRows)
{
    const Pass pass{pTwiddles.stage + kHeadBits + 1, 1, (Index(1) << pBlockBits) / kRow};
    runStages<false>(pBlockBits - kHeadBits, pRows, pRows, {pRows, 1.0}, pass);
}

template <typename Real, typename Imaginary>
void gather(const TwiddleTables& pTwiddles,
            Index pBits,
            const Real& pInReal,
            const Imaginary& pInImaginary,
            double* pReal,
            double* pImaginary)
{
    const Index inner = blockBits(pBits);
    const Index columnBits = pBits - inner;
    const Index columns = Index(1) << columnBits;
    const Index groups = (Index(1) << inner) / 8;
    Index eighth = groups * columns;
    Index row[kLanes];  // of a lane's block, apart from that of lane 0
    for (Index lane = 0; lane < kLanes; ++lane)
        row[lane] = reverse(lane, columnBits) << inner;
    for (Index column = 0; column < columns; column += kLanes) {
        const Index block = reverse(column, columnBits) << inner;
        for (Index group = 0; group < groups; ++group) {
            AA_OPAQUE(eighth);
            // Value i of a group comes from the bit-reversed i-th eighth of the input.
            const Index even = column + (reverse(group, inner - 3) << columnBits);
            const Index odd = even + eighth;
            Eight x = {loadComplex(pInReal, pInImaginary, even),
                       loadComplex(pInReal, pInImaginary, even + 4 * eighth),
                       loadComplex(pInReal, pInImaginary, even + 2 * eighth),
                       loadComplex(pInReal, pInImaginary, odd + 5 * eighth),
                       loadComplex(pInReal, pInImaginary, odd),
                       loadComplex(pInReal, pInImaginary, odd + 4 * eighth),
                       loadComplex(pInReal, pInImaginary, odd + 2 * eighth),
                       loadComplex(pInReal, pInImaginary, even + 7 * eighth)};
            firstStages(x, pTwiddles.head, pInImaginary);
            const Index to = block + 8 * group;
            storeTransposed(pReal + to, pImaginary + to, row, x);
        }
        if (inner > kHeadBits)
            for (Index lane = 0; lane < kLanes; ++lane)
                finishBlock(pTwiddles,
                            inner,
                            {pReal + block + row[lane], pImaginary + block + row[lane], kRow});
    }
}

template <typename T>
constexpr bool kIsInteger = static_cast<T>(0.5) == 0;

template <bool kIsWhole, typename T>
void gather(const TwiddleTables& pTwiddles,
            Index pBits,
            const T* pInReal,
            const T* pInImaginary,
            Index pCount,
            double* pReal,
            double* pImaginary)
{
    const Source<T, kIsWhole> real(pInReal, pCount);
    const bool isFirstFactorOne = pTwiddles.head[0] == 1.0 && pTwiddles.head[1] == 0.0;
    if (pInImaginary) {
        const Source<T, kIsWhole> imaginary(pInImaginary, pCount);
        gather(pTwiddles, pBits, real, imaginary, pReal, pImaginary);
        // NOLINTNEXTLINE(bugprone-branch-clone): the same for doubles only.
    } else if (kIsInteger<T> && isFirstFactorOne) {
        gather(pTwiddles, pBits, real, NoSource<kIsInteger<T>>(), pReal, pImaginary);
    } else {
        gather(pTwiddles, pBits, real, NoSource<false>(), pReal, pImaginary);
    }
}

template <typename T>
void gather(const TwiddleTables& pTwiddles,
            Index pBits,
            const T* pInReal,
            const T* pInImaginary,
            Index pCount,
            double* pReal,
            double* pImaginary)
{
    if (pCount >> pBits)
        gather<true>(pTwiddles, pBits, pInReal, pInImaginary, pCount, pReal, pImaginary);
    else
        gather<false>(pTwiddles, pBits, pInReal, pInImaginary, pCount, pReal, pImaginary);
}

template <bool kIsScaled>
void finishSmall(const TwiddleTables& pTwiddles, Index pBits, const Target& pOut)
{
    const Pass pass{pTwiddles.stage + kHeadBits + 1, 1, (Index(1) << pBits) / kRow};
    runStages<kIsScaled>(pBits - kHeadBits, pOut.rows, pOut.rows, pOut, pass);
}

/// The last stages column by column: rows of eight values, each row from another block.
template <bool kIsScaled>
void finishLarge(const TwiddleTables& pTwiddles, Index pBits, const Target& pOut)
{
    alignas(64) double real[kRow << kColumnBits];
    alignas(64) double imaginary[kRow << kColumnBits];
    const Rows between{real, imaginary, kRow};
    const Index width = Index(1) << (pBits - kColumnBits);
    const double* pFactors = pTwiddles.columns[pBits];
    for (Index column = 0; column < width; column += kRow) {
        const double* stages[kColumnBits];
        for (Index s = 0; s < kColumnBits; ++s) {
            stages[s] = pFactors;
            pFactors += kFactorRow << s;
        }
        const Rows rows{pOut.rows.pReal + column, pOut.rows.pImaginary + column, width};
        const Target out{rows, pOut.scale};
        runStages<kIsScaled>(kColumnBits, rows, between, out, {stages, 1, Index(1) << kColumnBits});
    }
}

template <bool kIsScaled>
void finish(const TwiddleTables& pTwiddles, Index pBits, const Target& pOut)
{
    if (pBits < TwiddleTables::kLargeBits)
        finishSmall<kIsScaled>(pTwiddles, pBits, pOut);
    else
        finishLarge<kIsScaled>(pTwiddles, pBits, pOut);
}

void finish(const TwiddleTables& pTwiddles, Index pBits, const Target& pOut)
{
    if (pOut.scale == 1.0)
        finish<false>(pTwiddles, pBits, pOut);
    else
        finish<true>(pTwiddles, pBits, pOut);
}

template <typename T>
void transform(const TwiddleTables& pTwiddles,
               Index pBits,
               const T* pReal,
               const T* pImaginary,
               Index pCount,
               double* pOutReal,
               double* pOutImaginary,
               double pScale)
{
    gather(pTwiddles, pBits, pReal, pImaginary, pCount, pOutReal, pOutImaginary);
    finish(pTwiddles, pBits, {{pOutReal, pOutImaginary, kRow}, pScale});
}

void toShorts(const double* pValues, Index pCount, short* pOut)
{
    Index i = 0;
    for (; i + kLanes <= pCount; i += kLanes)
        storeTruncated(pOut + i, load(pValues + i));
    for (; i < pCount; ++i)
        pOut[i] = static_cast<short>(static_cast<int>(pValues[i]));
}

/// The first pass on values that stand in bit-reversed order already.
void firstPassInPlace(const double* pHead, Index pLength, double* pReal, double* pImaginary)
{
    Index laneOffset[kLanes];
    for (Index lane = 0; lane < kLanes; ++lane)
        laneOffset[lane] = 8 * lane;
    for (Index row = 0; row < pLength; row += 8 * kLanes) {
        Complex values[8];
        for (Index i = 0; i < 8; ++i)
            for (Index lane = 0; lane < kLanes; ++lane) {
                values[i].real[lane] = pReal[row + 8 * lane + i];
                values[i].imaginary[lane] = pImaginary[row + 8 * lane + i];
            }
        Eight x = {
            values[0], values[1], values[2], values[3], values[4], values[5], values[6], values[7]};
        firstStage(x, pHead);
        secondAndThirdStage(x, pHead);
        storeTransposed(pReal + row, pImaginary + row, laneOffset, x);
    }
}

void inPlace(
    const TwiddleTables& pTwiddles, Index pBits, double* pReal, double* pImaginary, double pScale)
{
    const Index length = Index(1) << pBits;
    firstPassInPlace(pTwiddles.head, length, pReal, pImaginary);
    const Index inner = blockBits(pBits);
    if (inner > kHeadBits)
        for (Index block = 0; block < length; block += Index(1) << inner)
            finishBlock(pTwiddles, inner, {pReal + block, pImaginary + block, kRow});
    finish(pTwiddles, pBits, {{pReal, pImaginary, kRow}, pScale});
}

}  // namespace

// NOLINTEND(misc-definitions-in-headers)

#undef AA_INLINE
#undef AA_OPAQUE
#undef AA_SHUFFLE
