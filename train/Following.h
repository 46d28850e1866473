// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/BeatConfidence.h>
#include <AudioAnalyzer/analysis/detail/MeterTable.h>

#include "Track.h"

#include <vector>

/// A beat that the tracker would tell, and what it believed then.
struct FollowedBeat
{
    double time;     ///< seconds
    bool isPlaying;  ///< the tracker would tell it
    float evidence;  ///< MusicEvidence::getSum(); -100 when silent
    detail::BeatSigns signs;
};

/// What a tracker with pTable makes of the track, the beats that it keeps to itself as well.
std::vector<FollowedBeat> followTrack(const Track& pTrack, const detail::MeterTable& pTable);

/// The times of those that are told.
std::vector<double> toldTimes(const std::vector<FollowedBeat>& pBeats);
