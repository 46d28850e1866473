// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterTable.h>

#include "Track.h"

#include <vector>

/// Prints how many beats a minute are told over sound that has none, piece by piece; then, for
/// several amounts of evidence that might be asked for, the most of them, and how many of the
/// music's beats are lost by asking.
void printNoiseCurve(const std::vector<Track>& pNoise,
                     const std::vector<Track>& pMusic,
                     const detail::MeterTable& pTable);
