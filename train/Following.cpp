// SPDX-License-Identifier: MIT
#include "Following.h"

#include <AudioAnalyzer/analysis/detail/BeatDecision.h>
#include <AudioAnalyzer/analysis/detail/MeterEvidence.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/analysis/detail/MusicEvidence.h>
#include <AudioAnalyzer/dsp/Elementary.h>

namespace {

constexpr float kSilent = -100.0F;

}  // namespace

std::vector<FollowedBeat> followTrack(const Track& pTrack, const detail::MeterTable& pTable)
{
    detail::MeterEvidence evidence(pTable);
    detail::MeterFilter filter;
    detail::BeatDecision decision(filter.getStates());
    detail::MusicEvidence music;
    std::vector<FollowedBeat> beats;
    for (std::size_t i = 0; i < pTrack.levels.size(); ++i) {
        const float ratio = filter.Update(evidence.Weigh(pTrack.levels[i]));
        music.Update(elementary::naturalLog(ratio), pTrack.meanSquares[i]);
        if (const auto due = decision.Update(i + 1, filter))
            beats.push_back(
                {*due / OnsetLevels::kFramesPerSecond,
                 music.isPlaying(),
                 music.isSilent() ? kSilent : music.getSum(),
                 {decision.getPhaseShare(), decision.getTempoShare(), music.getMean()}});
    }
    return beats;
}

std::vector<double> toldTimes(const std::vector<FollowedBeat>& pBeats)
{
    std::vector<double> times;
    for (const FollowedBeat& beat : pBeats)
        if (beat.isPlaying)
            times.push_back(beat.time);
    return times;
}
