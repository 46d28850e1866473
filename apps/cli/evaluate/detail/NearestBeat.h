// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace cli {

/// Index of the beat nearest to pTime, the first one of several. pBeats is ascending, not empty.
inline std::size_t FindNearest(const std::vector<double>& pBeats, double pTime)
{
    const auto after = std::lower_bound(pBeats.begin(), pBeats.end(), pTime);
    if (after == pBeats.begin())
        return 0;
    const double before = *(after - 1);
    if (after != pBeats.end() && std::abs(*after - pTime) < std::abs(before - pTime))
        return std::size_t(after - pBeats.begin());
    return std::size_t(std::lower_bound(pBeats.begin(), after, before) - pBeats.begin());
}

}  // namespace cli
