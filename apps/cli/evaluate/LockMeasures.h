// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatMatching.h>

/// How soon a tracker follows the music, and whether it stays at its level. All [allocate].

/// Seconds from pFrom to the fourth beat in a row: four estimated beats that follow each other, on
/// four annotated ones that do, none of them before pFrom. Infinity = never.
double findLock(const BeatTimes& pReference, const BeatTimes& pEstimate, double pFrom);

/// The median lock behind each of pChanges (seconds, ascending), the beats up to the next one being
/// looked at. A change before the first lock counts as well. Infinity = half of them never.
double getRelock(const BeatTimes& pReference,
                 const BeatTimes& pEstimate,
                 const std::vector<double>& pChanges);

/// How often the metrical level changes: the estimated interval against the annotated one, to the
/// nearest power of two, held for four beats.
int countOctaveFlips(const BeatTimes& pReference, const BeatTimes& pEstimate);
