// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace detail {

constexpr quint64 kMicroSecondsPerSecond = 1000000;

/// Whole samples in pSeconds at pSampleRate Hz, halves rounded up.
/// 0 for anything that is not positive, NaN included; at most 2^62.
inline quint64 SampleCount(double pSeconds, double pSampleRate)
{
    constexpr double kMost = 4611686018427387904.0;
    const double samples = pSeconds * pSampleRate;
    if (!(samples > 0.0))
        return 0;
    return static_cast<quint64>(qRound64(samples < kMost ? samples : kMost));
}

}  // namespace detail
