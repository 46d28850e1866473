// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterTable.h>

#include <array>

namespace detail {

/// What tells whether the next beat will be right.
struct BeatSigns
{
    float phaseShare;  ///< of the filter's belief, near the next beat: 0 to 1
    float tempoShare;  ///< of the filter's belief, near the tempo: 0 to 1
    float meanRatio;   ///< MusicEvidence::getMean()
};

/// The terms that a logistic curve weighs.
std::array<float, kConfidenceTerms> confidenceTerms(const BeatSigns& pSigns);

/// The probability that the next beat lies within 70 ms of where a listener has it.
float beatConfidence(const BeatSigns& pSigns, const MeterTable& pTable);

}  // namespace detail
