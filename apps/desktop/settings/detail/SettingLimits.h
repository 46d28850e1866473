// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

namespace desktop {

/// What the panels offer; the command line has the same limits. The configuration itself has none.
struct DurationLimits
{
    double minimum;  ///< seconds
    double maximum;  ///< seconds
    double step;     ///< seconds
};

constexpr DurationLimits kAverageVolumeLimits{0.05, 60.0, 0.5};
constexpr DurationLimits kBPMLimits{0.05, 600.0, 1.0};
constexpr DurationLimits kNormalizationLimits{0.05, 60.0, 0.5};
/// More would make the transform of a stop block big.
constexpr DurationLimits kStopDetectionLimits{0.05, 10.0, 0.1};

constexpr int kMaximalLevel = 32767;  ///< sample magnitude

/// Decibels below full scale; minus infinity for 0.
inline double ToDecibels(int pLevel)
{
    if (pLevel <= 0)
        return -std::numeric_limits<double>::infinity();
    return 20.0 * std::log10(static_cast<double>(pLevel) / kMaximalLevel);
}

}  // namespace desktop
