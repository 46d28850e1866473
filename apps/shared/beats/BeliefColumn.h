// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

class MeterTracker;

/// What the automatic tracker believes over a stretch of time: the means of what it believed when
/// it was asked.
struct BeliefColumn
{
    std::vector<float> beliefs;  ///< share of each tempo, 0 to 1; in the order of GetTempi()
    float confidence = 0.0F;     ///< that the next beat is right, 0 to 1; 0 while none is told
    std::size_t count = 0;       ///< how often it was asked

    /// As the tracker stands now.
    void Add(const MeterTracker& pTracker);
    /// BPM, the fastest first.
    static std::vector<double> GetTempi(const MeterTracker& pTracker);
};
