// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace desktop {

constexpr double kFullScale = 32767.0;    ///< sample magnitude
constexpr double kLeastDecibels = -60.0;  ///< dBFS; whatever is quieter is shown there

/// A sample magnitude in dBFS, from kLeastDecibels to 0. Negative ones, which mean that there is
/// none, are the least.
inline double ToDecibels(int pMagnitude)
{
    if (pMagnitude <= 0)
        return kLeastDecibels;
    return std::clamp(20.0 * std::log10(pMagnitude / kFullScale), kLeastDecibels, 0.0);
}

/// The nearest sample magnitude.
inline qint16 ToMagnitude(double pDecibels)
{
    const double clamped = std::clamp(pDecibels, kLeastDecibels, 0.0);
    return static_cast<qint16>(std::lround(kFullScale * std::pow(10.0, clamped / 20.0)));
}

}  // namespace desktop
