// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

constexpr std::size_t kBeatsPerBar = 4;
constexpr std::size_t kBinsPerBeat = 24;  ///< steps of phase that the evidence tells apart
constexpr std::size_t kStepsPerBar = kBeatsPerBar * kBinsPerBeat;

/// How a beat is divided: its second half begins in the middle, or late.
enum eMeterFeel
{
    eMeterStraight,
    eMeterSwung
};

constexpr std::size_t kMeterFeels = 2;
/// The beats of a bar of each feel, one behind the other.
constexpr std::size_t kFeltBeats = kMeterFeels * kBeatsPerBar;

/// The step of a beat, 0 to kBinsPerBeat and not rounded, for the place pPhase (0 to 1) of a beat
/// of pPeriod frames.
///
/// What begins to sound takes the same time at every tempo. So the steps around each quarter of a
/// slow beat last as long as at 111 BPM, and those between the quarters are stretched instead. A
/// swung beat takes the steps of a straight one, its second half late. [no allocation]
double meterStep(double pPhase, double pPeriod, eMeterFeel pFeel);

}  // namespace detail
