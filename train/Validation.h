// SPDX-License-Identifier: MIT
#pragma once

#include "Calibration.h"
#include "TableTrainer.h"
#include "Track.h"

#include <functional>
#include <vector>

/// The part of the cross-validation that a track belongs to.
using PartOf = std::function<QString(std::size_t)>;

/// Judges each part of the tracks by a table that was learned from all the others, and prints one
/// row of means, then the means of each genre. What pCounts holds behind the tracks' own only
/// teaches. Returns what the confidence learns from, by part.
std::vector<std::vector<JudgedBeat>> validate(const char* pTitle,
                                              const std::vector<Track>& pTracks,
                                              const std::vector<FeltCounts>& pCounts,
                                              const PartOf& pPartOf,
                                              bool pShowsTracks);

/// The heads of the rows.
void printHeads();
