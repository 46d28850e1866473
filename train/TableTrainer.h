// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterPhase.h>
#include <AudioAnalyzer/analysis/detail/MeterTable.h>

#include "Track.h"

#include <array>
#include <vector>

/// How often each level of each range stood at each step of phase; the beats of the track are
/// numbered 0, 1, 2, 3, 0, ... from its first on.
struct LevelCounts
{
    static constexpr std::size_t kSteps = detail::kBeatsPerBar * detail::kBinsPerBeat;
    using Levels = std::array<double, OnsetLevels::kLevelCount>;
    std::array<std::array<Levels, detail::kMeterRanges>, kSteps> counts = {};

    /// Adds all of it pBeats beats later, pWeight times.
    void Add(const LevelCounts& pOther, std::size_t pBeats, double pWeight);
};

/// The counts of one track, with its beats divided in each of the ways.
struct FeltCounts
{
    std::array<LevelCounts, detail::kMeterFeels> feels;
    double weight = 1.0;
};

/// Counts of a track, scaled to 3000 frames whatever its length.
FeltCounts countLevels(const Track& pTrack);

/// Learns the table from the counts of some tracks. Which of four beats is a track's first, and
/// whether it swings, is unknown, and chosen anew in each of six rounds to fit the table of the
/// round before.
detail::MeterTable trainTable(const std::vector<FeltCounts>& pTracks);
