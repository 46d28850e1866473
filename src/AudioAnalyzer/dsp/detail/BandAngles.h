// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace detail {

constexpr double kPi = 3.141592653589793;

/// cos(2 pi k / pLength), k = pLow to pHigh.
inline std::vector<double> bandCosines(std::size_t pLength, std::size_t pLow, std::size_t pHigh)
{
    std::vector<double> values;
    for (std::size_t k = pLow; k <= pHigh; ++k)
        values.push_back(
            std::cos(2.0 * kPi * static_cast<double>(k) / static_cast<double>(pLength)));
    return values;
}

/// sin(2 pi k / pLength), k = pLow to pHigh.
inline std::vector<double> bandSines(std::size_t pLength, std::size_t pLow, std::size_t pHigh)
{
    std::vector<double> values;
    for (std::size_t k = pLow; k <= pHigh; ++k)
        values.push_back(
            std::sin(2.0 * kPi * static_cast<double>(k) / static_cast<double>(pLength)));
    return values;
}

}  // namespace detail
