// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <algorithm>
#include <vector>

namespace cli {

/// Middle one of the tempos above 0 that were reported with beats from pFrom seconds on, the lower
/// of the two middle ones for an even number, so that it is a tempo that was reported; 0 without
/// any.
inline double MedianTempo(const std::vector<LoggedBeat>& pBeats, double pFrom, bool pWithVirtual)
{
    std::vector<double> tempos;
    for (const LoggedBeat& beat : pBeats)
        if (beat.bpm > 0.0 && beat.time >= pFrom && (pWithVirtual || !beat.isVirtual))
            tempos.push_back(beat.bpm);
    if (tempos.empty())
        return 0.0;
    const auto middle = tempos.begin() + std::ptrdiff_t((tempos.size() - 1) / 2);
    std::nth_element(tempos.begin(), middle, tempos.end());
    return *middle;
}

/// One tempo for a whole recording, BPM; 0 = unknown.
///
/// It is the median of the tempos reported with real beats, which outliers and breaks do not move.
/// A reported tempo is a mean over ten seconds of beats unless configured otherwise, so those of
/// the first ten seconds, when the search still shows in it, only count for want of later ones; and
/// those reported with virtual beats for want of all others.
inline double OverallTempo(const std::vector<LoggedBeat>& pBeats)
{
    constexpr double kSettlingSeconds = 10.0;
    if (pBeats.empty())
        return 0.0;
    const double settled = MedianTempo(pBeats, pBeats.front().time + kSettlingSeconds, false);
    if (settled > 0.0)
        return settled;
    const double real = MedianTempo(pBeats, 0.0, false);
    return real > 0.0 ? real : MedianTempo(pBeats, 0.0, true);
}

}  // namespace cli
