// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace detail {

constexpr double kPi = 3.141592653589793;

/// pFunction, a sine or cosine, of 2 pi k / pLength for k = pLow to pHigh.
inline std::vector<double>
ofBandAngles(double (*pFunction)(double), std::size_t pLength, std::size_t pLow, std::size_t pHigh)
{
    std::vector<double> values;
    for (std::size_t k = pLow; k <= pHigh; ++k)
        values.push_back(
            pFunction(2.0 * kPi * static_cast<double>(k) / static_cast<double>(pLength)));
    return values;
}

}  // namespace detail
