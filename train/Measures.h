// SPDX-License-Identifier: MIT
#pragma once

#include "Track.h"

#include <vector>

/// How well a list of beats fits a track; shares are 0 to 1.
struct Measures
{
    double f = 0.0;      ///< F-measure, within 70 ms
    double cmlt = 0.0;   ///< beats in a right stretch, at the annotated level
    double amlt = 0.0;   ///< the same, at double, half or the off-beat as well
    double acc1 = 0.0;   ///< tempo within 4 %: 1 or 0
    double acc2 = 0.0;   ///< the same, with 1/3, 1/2, 2 and 3 times the tempo forgiven
    double error = 0.0;  ///< mean signed error of beats that were found, seconds
    double lock = 0.0;  ///< time of the fourth beat in a row within 70 ms, seconds; or the duration
};

/// The first five seconds are left out of all but the first lock.
Measures measure(const Track& pTrack, const std::vector<double>& pBeats);
