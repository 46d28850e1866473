// SPDX-License-Identifier: MIT
// Vectors of AA_LANES doubles, written with the vector extensions that both GCC and clang have.
// Part of VectorTransform.h.
#pragma once

#include <cstddef>

// Each kernel includes these headers once, with options of its own; the vector types are GCC's.
// NOLINTBEGIN(misc-definitions-in-headers, modernize-use-using)
#define AA_INLINE inline __attribute__((always_inline))
// Keeps the compiler from making one pointer per row out of a distance.
#define AA_OPAQUE(pValue) __asm__("" : "+r"(pValue))

namespace {

using detail::TwiddleTables;
using Index = std::size_t;

constexpr Index kLanes = AA_LANES;
constexpr Index kRow = 8;  ///< values in a row: a cache line of doubles

typedef double Vector __attribute__((vector_size(kLanes * sizeof(double))));
typedef double UnalignedVector
    __attribute__((vector_size(kLanes * sizeof(double)), aligned(sizeof(double)), may_alias));
typedef int IntVector __attribute__((vector_size(kLanes * sizeof(int))));
typedef short ShortVector __attribute__((vector_size(kLanes * sizeof(short))));

struct Complex
{
    Vector real;
    Vector imaginary;
};

AA_INLINE Vector load(const double* pValues)
{
    return *reinterpret_cast<const UnalignedVector*>(pValues);
}

AA_INLINE Vector load(const short* pValues)
{
    ShortVector values;
    __builtin_memcpy(&values, pValues, sizeof values);
    return __builtin_convertvector(__builtin_convertvector(values, IntVector), Vector);
}

AA_INLINE void store(double* pValues, Vector pVector)
{
    *reinterpret_cast<UnalignedVector*>(pValues) = pVector;
}

AA_INLINE void storeTruncated(short* pOut, Vector pVector)
{
    const ShortVector values =
        __builtin_convertvector(__builtin_convertvector(pVector, IntVector), ShortVector);
    __builtin_memcpy(pOut, &values, sizeof values);
}

AA_INLINE Vector broadcast(double pValue)
{
    return pValue - Vector{};
}

// Named members instead of arrays: compilers keep them in registers at every optimisation level.
struct Eight
{
    Complex v0, v1, v2, v3, v4, v5, v6, v7;
};

// ---- Transposition ---------------------------------------------------------------------------

#define AA_SHUFFLE __builtin_shufflevector

/// Eight vectors, one for each of eight values, become kLanes rows of eight; row i goes to
/// pOut + pRow[i].
#if AA_LANES == 8
AA_INLINE void storeTransposed(double* pOut,
                               const Index (&pRow)[8],
                               Vector v0,
                               Vector v1,
                               Vector v2,
                               Vector v3,
                               Vector v4,
                               Vector v5,
                               Vector v6,
                               Vector v7)
{
    const Vector a0 = AA_SHUFFLE(v0, v1, 0, 8, 2, 10, 4, 12, 6, 14);
    const Vector a1 = AA_SHUFFLE(v0, v1, 1, 9, 3, 11, 5, 13, 7, 15);
    const Vector a2 = AA_SHUFFLE(v2, v3, 0, 8, 2, 10, 4, 12, 6, 14);
    const Vector a3 = AA_SHUFFLE(v2, v3, 1, 9, 3, 11, 5, 13, 7, 15);
    const Vector a4 = AA_SHUFFLE(v4, v5, 0, 8, 2, 10, 4, 12, 6, 14);
    const Vector a5 = AA_SHUFFLE(v4, v5, 1, 9, 3, 11, 5, 13, 7, 15);
    const Vector a6 = AA_SHUFFLE(v6, v7, 0, 8, 2, 10, 4, 12, 6, 14);
    const Vector a7 = AA_SHUFFLE(v6, v7, 1, 9, 3, 11, 5, 13, 7, 15);
    // Pairs of values by now; a0 has those of lanes 0, 2, 4 and 6.
    const Vector b0 = AA_SHUFFLE(a0, a2, 0, 1, 8, 9, 4, 5, 12, 13);
    const Vector b1 = AA_SHUFFLE(a1, a3, 0, 1, 8, 9, 4, 5, 12, 13);
    const Vector b2 = AA_SHUFFLE(a0, a2, 2, 3, 10, 11, 6, 7, 14, 15);
    const Vector b3 = AA_SHUFFLE(a1, a3, 2, 3, 10, 11, 6, 7, 14, 15);
    const Vector b4 = AA_SHUFFLE(a4, a6, 0, 1, 8, 9, 4, 5, 12, 13);
    const Vector b5 = AA_SHUFFLE(a5, a7, 0, 1, 8, 9, 4, 5, 12, 13);
    const Vector b6 = AA_SHUFFLE(a4, a6, 2, 3, 10, 11, 6, 7, 14, 15);
    const Vector b7 = AA_SHUFFLE(a5, a7, 2, 3, 10, 11, 6, 7, 14, 15);
    // Halves; b0 has lanes 0 and 4.
    store(pOut + pRow[0], AA_SHUFFLE(b0, b4, 0, 1, 2, 3, 8, 9, 10, 11));
    store(pOut + pRow[1], AA_SHUFFLE(b1, b5, 0, 1, 2, 3, 8, 9, 10, 11));
    store(pOut + pRow[2], AA_SHUFFLE(b2, b6, 0, 1, 2, 3, 8, 9, 10, 11));
    store(pOut + pRow[3], AA_SHUFFLE(b3, b7, 0, 1, 2, 3, 8, 9, 10, 11));
    store(pOut + pRow[4], AA_SHUFFLE(b0, b4, 4, 5, 6, 7, 12, 13, 14, 15));
    store(pOut + pRow[5], AA_SHUFFLE(b1, b5, 4, 5, 6, 7, 12, 13, 14, 15));
    store(pOut + pRow[6], AA_SHUFFLE(b2, b6, 4, 5, 6, 7, 12, 13, 14, 15));
    store(pOut + pRow[7], AA_SHUFFLE(b3, b7, 4, 5, 6, 7, 12, 13, 14, 15));
}
#elif AA_LANES == 4
AA_INLINE void
storeTransposed4(double* pOut, const Index (&pRow)[4], Vector v0, Vector v1, Vector v2, Vector v3)
{
    const Vector a0 = AA_SHUFFLE(v0, v1, 0, 4, 2, 6);
    const Vector a1 = AA_SHUFFLE(v0, v1, 1, 5, 3, 7);
    const Vector a2 = AA_SHUFFLE(v2, v3, 0, 4, 2, 6);
    const Vector a3 = AA_SHUFFLE(v2, v3, 1, 5, 3, 7);
    store(pOut + pRow[0], AA_SHUFFLE(a0, a2, 0, 1, 4, 5));
    store(pOut + pRow[1], AA_SHUFFLE(a1, a3, 0, 1, 4, 5));
    store(pOut + pRow[2], AA_SHUFFLE(a0, a2, 2, 3, 6, 7));
    store(pOut + pRow[3], AA_SHUFFLE(a1, a3, 2, 3, 6, 7));
}
AA_INLINE void storeTransposed(double* pOut,
                               const Index (&pRow)[4],
                               Vector v0,
                               Vector v1,
                               Vector v2,
                               Vector v3,
                               Vector v4,
                               Vector v5,
                               Vector v6,
                               Vector v7)
{
    storeTransposed4(pOut, pRow, v0, v1, v2, v3);
    storeTransposed4(pOut + 4, pRow, v4, v5, v6, v7);
}
#else
AA_INLINE void storeTransposed2(double* pOut, const Index (&pRow)[2], Vector v0, Vector v1)
{
    store(pOut + pRow[0], AA_SHUFFLE(v0, v1, 0, 2));
    store(pOut + pRow[1], AA_SHUFFLE(v0, v1, 1, 3));
}
AA_INLINE void storeTransposed(double* pOut,
                               const Index (&pRow)[2],
                               Vector v0,
                               Vector v1,
                               Vector v2,
                               Vector v3,
                               Vector v4,
                               Vector v5,
                               Vector v6,
                               Vector v7)
{
    storeTransposed2(pOut, pRow, v0, v1);
    storeTransposed2(pOut + 2, pRow, v2, v3);
    storeTransposed2(pOut + 4, pRow, v4, v5);
    storeTransposed2(pOut + 6, pRow, v6, v7);
}
#endif

AA_INLINE void
storeTransposed(double* pReal, double* pImaginary, const Index (&pRow)[kLanes], const Eight& x)
{
    storeTransposed(pReal,
                    pRow,
                    x.v0.real,
                    x.v1.real,
                    x.v2.real,
                    x.v3.real,
                    x.v4.real,
                    x.v5.real,
                    x.v6.real,
                    x.v7.real);
    storeTransposed(pImaginary,
                    pRow,
                    x.v0.imaginary,
                    x.v1.imaginary,
                    x.v2.imaginary,
                    x.v3.imaginary,
                    x.v4.imaginary,
                    x.v5.imaginary,
                    x.v6.imaginary,
                    x.v7.imaginary);
}

}  // namespace

// NOLINTEND(misc-definitions-in-headers, modernize-use-using)
