// SPDX-License-Identifier: MIT
// Butterflies, and passes that do several stages on values in registers. Part of VectorTransform.h.
#pragma once

#include <AudioAnalyzer/dsp/detail/VectorLanes.h>

// NOLINTBEGIN(misc-definitions-in-headers): see VectorLanes.h
namespace {

AA_INLINE void butterfly(Complex& pLow, Complex& pHigh, const Complex& pFactor)
{
    const Vector real = pFactor.real * pHigh.real - pFactor.imaginary * pHigh.imaginary;
    const Vector imaginary = pFactor.imaginary * pHigh.real + pFactor.real * pHigh.imaginary;
    pHigh.real = pLow.real - real;
    pHigh.imaginary = pLow.imaginary - imaginary;
    pLow.real = pLow.real + real;
    pLow.imaginary = pLow.imaginary + imaginary;
}

AA_INLINE Complex headFactor(const double* pHead, Index pFactor)
{
    return {broadcast(pHead[2 * pFactor]), broadcast(pHead[2 * pFactor + 1])};
}

/// The stages of span 2, 4 and 8 over eight values that stand in bit-reversed order; lanes are
/// independent.
AA_INLINE void firstStage(Eight& x, const double* pHead)
{
    const Complex w = headFactor(pHead, 0);
    butterfly(x.v0, x.v1, w);
    butterfly(x.v2, x.v3, w);
    butterfly(x.v4, x.v5, w);
    butterfly(x.v6, x.v7, w);
}

// For values from integers, without imaginary part, and a factor of 1: 1 re - 0 im is re, which is
// never -0.0, and 0 re + 1 im is +0.0, as are the imaginary parts of both results. An infinite or a
// negative zero input, which integers cannot give, would need the whole butterfly.
AA_INLINE void realButterfly(Complex& pLow, Complex& pHigh)
{
    const Vector real = pHigh.real;
    pHigh.real = pLow.real - real;
    pLow.real = pLow.real + real;
}

AA_INLINE void firstStageOfIntegers(Eight& x)
{
    realButterfly(x.v0, x.v1);
    realButterfly(x.v2, x.v3);
    realButterfly(x.v4, x.v5);
    realButterfly(x.v6, x.v7);
}

AA_INLINE void secondAndThirdStage(Eight& x, const double* pHead)
{
    const Complex w40 = headFactor(pHead, 1);
    butterfly(x.v0, x.v2, w40);
    butterfly(x.v4, x.v6, w40);
    const Complex w41 = headFactor(pHead, 2);
    butterfly(x.v1, x.v3, w41);
    butterfly(x.v5, x.v7, w41);
    butterfly(x.v0, x.v4, headFactor(pHead, 3));
    butterfly(x.v1, x.v5, headFactor(pHead, 4));
    butterfly(x.v2, x.v6, headFactor(pHead, 5));
    butterfly(x.v3, x.v7, headFactor(pHead, 6));
}

// ---- Later passes: up to three stages at once ------------------------------------------------

/// Rows of eight neighbouring values, a constant distance apart.
struct Rows
{
    double* pReal;
    double* pImaginary;
    Index distance;

    AA_INLINE Complex at(Index pOffset) const
    {
        return {load(pReal + pOffset), load(pImaginary + pOffset)};
    }
    AA_INLINE void set(Index pOffset, const Complex& pValue) const
    {
        store(pReal + pOffset, pValue.real);
        store(pImaginary + pOffset, pValue.imaginary);
    }
};

/// Where the last pass leaves its values, and what it multiplies them with.
struct Target
{
    Rows rows;
    double scale;
};

/// Where a pass stands: pStages[0] has the factors of its first stage, of which one half of a span
/// is `half` rows; `count` rows in all.
struct Pass
{
    const double* const* pStages;
    Index half;
    Index count;
};

constexpr Index kFactorRow = 2 * kRow;

/// The factors of one stage for one vector of values; factors of the same span are `half` apart.
struct Factors
{
    const double* pFirst;
    Index half;

    AA_INLINE Complex operator[](Index pIndex) const
    {
        const double* pReal = pFirst + pIndex * half;
        return {load(pReal), load(pReal + kRow)};
    }
};

template <bool kIsScaled>
AA_INLINE void put(const Target& pTarget, Index pOffset, const Complex& pValue)
{
    if (kIsScaled)
        pTarget.rows.set(pOffset, {pValue.real * pTarget.scale, pValue.imaginary * pTarget.scale});
    else
        pTarget.rows.set(pOffset, pValue);
}

/// One row position of a pass: where it reads and writes, and its factors.
struct Place
{
    Rows in;
    Index inStep;
    Target out;
    Index outStep;
    Factors factors[3];
};

template <bool kIsScaled>
AA_INLINE void fused1(const Place& p, Index pIn, Index pOut)
{
    Complex v0 = p.in.at(pIn);
    Complex v1 = p.in.at(pIn + p.inStep);
    butterfly(v0, v1, p.factors[0][0]);
    put<kIsScaled>(p.out, pOut, v0);
    put<kIsScaled>(p.out, pOut + p.outStep, v1);
}

template <bool kIsScaled>
AA_INLINE void fused2(const Place& p, Index pIn, Index pOut)
{
    Complex v0 = p.in.at(pIn);
    Complex v1 = p.in.at(pIn + p.inStep);
    Complex v2 = p.in.at(pIn + 2 * p.inStep);
    Complex v3 = p.in.at(pIn + 3 * p.inStep);
    const Complex first = p.factors[0][0];
    butterfly(v0, v1, first);
    butterfly(v2, v3, first);
    butterfly(v0, v2, p.factors[1][0]);
    butterfly(v1, v3, p.factors[1][1]);
    put<kIsScaled>(p.out, pOut, v0);
    put<kIsScaled>(p.out, pOut + p.outStep, v1);
    put<kIsScaled>(p.out, pOut + 2 * p.outStep, v2);
    put<kIsScaled>(p.out, pOut + 3 * p.outStep, v3);
}

template <bool kIsScaled>
AA_INLINE void fused3(const Place& p, Index pIn, Index pOut)
{
    const Index in4 = pIn + 4 * p.inStep;
    Complex v0 = p.in.at(pIn);
    Complex v1 = p.in.at(pIn + p.inStep);
    Complex v2 = p.in.at(pIn + 2 * p.inStep);
    Complex v3 = p.in.at(pIn + 3 * p.inStep);
    Complex v4 = p.in.at(in4);
    Complex v5 = p.in.at(in4 + p.inStep);
    Complex v6 = p.in.at(in4 + 2 * p.inStep);
    Complex v7 = p.in.at(in4 + 3 * p.inStep);
    const Complex first = p.factors[0][0];
    butterfly(v0, v1, first);
    butterfly(v2, v3, first);
    butterfly(v4, v5, first);
    butterfly(v6, v7, first);
    const Complex even = p.factors[1][0];
    butterfly(v0, v2, even);
    butterfly(v4, v6, even);
    const Complex odd = p.factors[1][1];
    butterfly(v1, v3, odd);
    butterfly(v5, v7, odd);
    butterfly(v0, v4, p.factors[2][0]);
    butterfly(v1, v5, p.factors[2][1]);
    butterfly(v2, v6, p.factors[2][2]);
    butterfly(v3, v7, p.factors[2][3]);
    const Index out4 = pOut + 4 * p.outStep;
    put<kIsScaled>(p.out, pOut, v0);
    put<kIsScaled>(p.out, pOut + p.outStep, v1);
    put<kIsScaled>(p.out, pOut + 2 * p.outStep, v2);
    put<kIsScaled>(p.out, pOut + 3 * p.outStep, v3);
    put<kIsScaled>(p.out, out4, v4);
    put<kIsScaled>(p.out, out4 + p.outStep, v5);
    put<kIsScaled>(p.out, out4 + 2 * p.outStep, v6);
    put<kIsScaled>(p.out, out4 + 3 * p.outStep, v7);
}

template <Index kStages, bool kIsScaled>
void runPass(const Rows& pIn, const Target& pOut, const Pass& pPass)
{
    const Pass pass = pPass;
    Place place{pIn, pass.half * pIn.distance, pOut, pass.half * pOut.rows.distance, {}};
    const Index factorStep = pass.half * kFactorRow;
    const Index blockRows = pass.half << kStages;
    for (Index row = 0; row < pass.half; ++row)
        for (Index lane = 0; lane < kRow; lane += kLanes) {
            for (Index s = 0; s < kStages; ++s)
                place.factors[s] = {pass.pStages[s] + row * kFactorRow + lane, factorStep};
            for (Index block = row; block < pass.count; block += blockRows) {
                AA_OPAQUE(place.inStep);
                AA_OPAQUE(place.outStep);
                const Index in = block * pIn.distance + lane;
                const Index out = block * pOut.rows.distance + lane;
                if (kStages == 1)
                    fused1<kIsScaled>(place, in, out);
                else if (kStages == 2)
                    fused2<kIsScaled>(place, in, out);
                else
                    fused3<kIsScaled>(place, in, out);
            }
        }
}

template <bool kIsScaled>
void runPass(Index pStages, const Rows& pIn, const Target& pOut, const Pass& pPass)
{
    if (pStages == 1)
        runPass<1, kIsScaled>(pIn, pOut, pPass);
    else if (pStages == 2)
        runPass<2, kIsScaled>(pIn, pOut, pPass);
    else
        runPass<3, kIsScaled>(pIn, pOut, pPass);
}

// Never one stage alone where it can be avoided: 4 = 2 + 2.
AA_INLINE Index fuse(Index pLeft)
{
    if (AA_STAGES_PER_PASS == 2)
        return pLeft == 3 ? 3 : (pLeft < 2 ? pLeft : 2);
    return pLeft == 4 ? 2 : (pLeft < 3 ? pLeft : 3);
}

/// pStages stages, from pIn over pBetween to pOut; all three may be the same rows.
template <bool kIsScaled>
void runStages(Index pStages, const Rows& pIn, const Rows& pBetween, const Target& pOut, Pass pPass)
{
    const Target between{pBetween, 1.0};
    Rows in = pIn;
    while (pStages > 0) {
        const Index stages = fuse(pStages);
        if (stages == pStages)
            runPass<kIsScaled>(stages, in, pOut, pPass);
        else
            runPass<false>(stages, in, between, pPass);
        in = pBetween;
        pPass.pStages += stages;
        pPass.half <<= stages;
        pStages -= stages;
    }
}

}  // namespace

// NOLINTEND(misc-definitions-in-headers)
