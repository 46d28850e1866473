// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

/// Times of beats in seconds, ascending; equal ones may follow each other.
using BeatTimes = std::vector<double>;

/// How far an estimated beat may lie from an annotated one and still be the same beat, seconds.
constexpr double kBeatWindow = 0.07;

/// An annotated beat and the estimated beat that was found for it.
struct BeatPair
{
    std::size_t reference;  ///< index
    std::size_t estimate;   ///< index
};

/// As many pairs as can be made of beats at most pWindow seconds apart, each beat used once, both
/// indexes ascending. [allocates]
std::vector<BeatPair>
matchBeats(const BeatTimes& pReference, const BeatTimes& pEstimate, double pWindow = kBeatWindow);

/// Median distance between beats that follow each other, seconds; 0 for fewer than two beats.
/// [allocates]
double getMedianInterval(const BeatTimes& pBeats);

/// The middle one of pValues in order, or the mean of the two in the middle; 0 of none. [allocates]
double getMedian(std::vector<double> pValues);
