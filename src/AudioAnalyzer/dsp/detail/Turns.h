// SPDX-License-Identifier: MIT
#pragma once

namespace detail {

/// Cosine of a quarter turn or less, 0 to 1/4 turn, by its series: the same bits on every machine.
inline double cosineOfQuarter(double pTurns)
{
    constexpr double kTwoPi = 6.283185307179586;
    const double square = kTwoPi * pTurns * kTwoPi * pTurns;
    double sum = 1.0;
    for (int term = 20; term >= 2; term -= 2)
        sum = 1.0 - sum * square / (term * (term - 1));
    return sum;
}

/// Cosine of pTurns full turns, 0 <= pTurns < 1.
inline double cosineOfTurns(double pTurns)
{
    const double half = pTurns > 0.5 ? 1.0 - pTurns : pTurns;
    return half > 0.25 ? -cosineOfQuarter(0.5 - half) : cosineOfQuarter(half);
}

/// Sine of pTurns full turns, 0 <= pTurns < 1.
inline double sineOfTurns(double pTurns)
{
    return cosineOfTurns(pTurns < 0.25 ? pTurns + 0.75 : pTurns - 0.25);
}

}  // namespace detail
