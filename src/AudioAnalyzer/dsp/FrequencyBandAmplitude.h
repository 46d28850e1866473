// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// One bin of an amplitude spectrum.
struct FrequencyBandAmplitude
{
    double amplitude;       ///< normalised power, 0 to 1
    std::size_t index;      ///< bin
    double upperFrequency;  ///< Hz, upper edge less 0.001, never below the lower edge
    double lowerFrequency;  ///< Hz, lower edge
};
