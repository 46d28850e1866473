// SPDX-License-Identifier: MIT
#include <cli/evaluate/LockMeasures.h>
#include <cli/evaluate/detail/NearestBeat.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

constexpr int kBeatsInARow = 4;
constexpr double kNever = std::numeric_limits<double>::infinity();

BeatTimes CutOut(const BeatTimes& pBeats, double pStart, double pEnd)
{
    return {std::lower_bound(pBeats.begin(), pBeats.end(), pStart),
            std::lower_bound(pBeats.begin(), pBeats.end(), pEnd)};
}

/// The interval at pTime in octaves above one second, nothing where there is none.
std::optional<double> GetOctave(const BeatTimes& pBeats, double pTime)
{
    if (pBeats.size() < 2)
        return std::nullopt;
    const std::size_t nearest = std::max<std::size_t>(1, cli::FindNearest(pBeats, pTime));
    const double interval = pBeats[nearest] - pBeats[nearest - 1];
    return interval > 0.0 ? std::optional(std::log2(interval)) : std::nullopt;
}

}  // namespace

double findLock(const BeatTimes& pReference, const BeatTimes& pEstimate, double pFrom)
{
    const BeatTimes reference = CutOut(pReference, pFrom, kNever);
    const BeatTimes estimate = CutOut(pEstimate, pFrom, kNever);
    int run = 0;
    BeatPair last = {};
    for (const BeatPair& pair : matchBeats(reference, estimate)) {
        const bool follows =
            pair.reference == last.reference + 1 && pair.estimate == last.estimate + 1;
        run = run > 0 && follows ? run + 1 : 1;
        last = pair;
        if (run == kBeatsInARow)
            return estimate[pair.estimate] - pFrom;
    }
    return kNever;
}

double getRelock(const BeatTimes& pReference,
                 const BeatTimes& pEstimate,
                 const std::vector<double>& pChanges)
{
    std::vector<double> locks;
    for (std::size_t i = 0; i < pChanges.size(); ++i) {
        const double end = i + 1 < pChanges.size() ? pChanges[i + 1] : kNever;
        locks.push_back(findLock(CutOut(pReference, pChanges[i], end),
                                 CutOut(pEstimate, pChanges[i], end),
                                 pChanges[i]));
    }
    return locks.empty() ? kNever : getMedian(std::move(locks));
}

int countOctaveFlips(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    int flips = 0;
    int held = 0;
    std::optional<int> level;      // the last one that was held
    std::optional<int> candidate;  // that of the last beats
    for (std::size_t i = 1; i < pEstimate.size(); ++i) {
        const std::optional<double> wanted = GetOctave(pReference, pEstimate[i]);
        const double interval = pEstimate[i] - pEstimate[i - 1];
        if (!wanted || interval <= 0.0)
            continue;
        const int now = int(std::lround(std::log2(interval) - *wanted));
        held = candidate == now ? held + 1 : 1;
        candidate = now;
        if (held != kBeatsInARow || level == now)
            continue;
        flips += level ? 1 : 0;
        level = now;
    }
    return flips;
}
