// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatLine.h>

#include <cmath>
#include <cstdint>

namespace detail {

/// The way of a clock to its target: one line up to then.time, another from there on.
struct SlewPlan
{
    BeatLine now;
    BeatLine then;
};

/// From pPosition at pNow to the target, without a jump, by a tempo that differs from the target's
/// by at most pSlew, a share in (0, 1).
inline SlewPlan PlanSlew(const BeatLine& pTarget, double pPosition, std::int64_t pNow, double pSlew)
{
    constexpr double kSmallest = 0.5;  // µs
    const double gap = std::abs(pTarget.getPosition(pNow) - pPosition) * pTarget.period;
    if (gap < kSmallest) {
        const BeatLine there = {pNow, pTarget.getPosition(pNow), pTarget.period};
        return {there, there};
    }
    const auto duration = static_cast<std::int64_t>(std::ceil(gap / pSlew));
    const std::int64_t end = pNow + duration;
    const double endPosition = pTarget.getPosition(end);
    return {{pNow, pPosition, static_cast<double>(duration) / (endPosition - pPosition)},
            {end, endPosition, pTarget.period}};
}

}  // namespace detail
