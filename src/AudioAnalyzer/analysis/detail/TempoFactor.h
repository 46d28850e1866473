// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>

#include <cmath>
#include <cstdint>
#include <numeric>

namespace detail {

/// A clock's beats over those of the music, in lowest terms.
struct TempoFactor
{
    std::int32_t numerator = 1;
    std::int32_t denominator = 1;

    double getValue() const { return static_cast<double>(numerator) / denominator; }
};

constexpr std::int32_t kGreatestTerm = 64;

/// Whether both terms of it can be given to Multiply().
inline bool IsFactor(std::int32_t pNumerator, std::int32_t pDenominator)
{
    return pNumerator >= 1 && pNumerator <= kGreatestTerm && pDenominator >= 1 &&
           pDenominator <= kGreatestTerm;
}

/// The product in lowest terms, which may be greater than kGreatestTerm.
inline TempoFactor Multiply(TempoFactor pFirst, TempoFactor pSecond)
{
    const std::int32_t numerator = pFirst.numerator * pSecond.numerator;
    const std::int32_t denominator = pFirst.denominator * pSecond.denominator;
    const std::int32_t common = std::gcd(numerator, denominator);
    return {numerator / common, denominator / common};
}

/// The simple factor by which music at one tempo makes a clock run at another; 1 when there is
/// none. Both in BPM, above 0.
inline TempoFactor FactorBetween(double pMusicBPM, double pClockBPM)
{
    const TempoFactor known[] = {{1, 1}, {2, 1}, {1, 2}, {3, 2}, {2, 3}, {4, 1}, {1, 4}};
    for (const TempoFactor& factor : known)
        if (std::abs(pMusicBPM * factor.getValue() / pClockBPM - 1.0) <= kSameTempo)
            return factor;
    return {};
}

}  // namespace detail
