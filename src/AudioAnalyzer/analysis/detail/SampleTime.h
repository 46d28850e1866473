// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/Durations.h>

namespace detail {

constexpr quint64 kSampleTimeStart = 1000000;  ///< µs; any constant above 0

/// What a clock driven by samples reads when pSampleCount of them have passed, µs. pSampleRate: Hz,
/// above 0. No product overflows before the count itself does.
inline quint64 SampleTime(quint64 pSampleCount, int pSampleRate)
{
    const auto rate = static_cast<quint64>(pSampleRate);
    return kSampleTimeStart + pSampleCount / rate * kMicroSecondsPerSecond +
           pSampleCount % rate * kMicroSecondsPerSecond / rate;
}

}  // namespace detail
