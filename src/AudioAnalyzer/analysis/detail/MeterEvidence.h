// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/analysis/detail/MeterTable.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <array>

namespace detail {

/// Turns the onset levels of a frame into the likelihoods of the meter's steps of phase.
class MeterEvidence
{
public:
    explicit MeterEvidence(const MeterTable& pTable);

    /// [no allocation] [valid until the next Weigh]
    const MeterLikelihoods& Weigh(const OnsetLevels::Levels& pLevels);

private:
    using Row = std::array<float, kStepsPerBar>;

    std::array<std::array<Row, OnsetLevels::kLevelCount>, kMeterRanges> m_rows;
    MeterLikelihoods m_likelihoods = {};
};

}  // namespace detail
