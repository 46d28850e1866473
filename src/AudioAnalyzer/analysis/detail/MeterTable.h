// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <cstddef>

namespace detail {

constexpr std::size_t kMeterRanges = 5;  ///< of frequency, lowest first

constexpr std::size_t kConfidenceTerms = 4;

/// What was learned from music: for each step of phase, range and level, how much more likely the
/// level is there than anywhere, as a natural logarithm, c0 + c1 level + c2 level^2.
struct MeterTable
{
    float fit[kBeatsPerBar][kBinsPerBeat][kMeterRanges][3];
    float confidence[kConfidenceTerms];  ///< of BeatConfidence
};

/// Made by script/train.
extern const MeterTable kMeterTable;

}  // namespace detail
