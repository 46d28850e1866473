// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatMeasures.h>
#include <cli/evaluate/detail/NearestBeat.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// How far place and interval may be off, of the annotated interval.
constexpr double kTolerance = 0.175;

struct Runs
{
    double longest;
    double total;
};

/// What a listener may tap instead: off the beat, twice as fast, every other beat.
std::array<BeatTimes, 4> MakeVariations(const BeatTimes& pBeats)
{
    std::array<BeatTimes, 4> result;
    auto& [offBeat, twice, odd, even] = result;
    for (std::size_t i = 0; i < pBeats.size(); ++i) {
        (i % 2 == 0 ? odd : even).push_back(pBeats[i]);
        twice.push_back(pBeats[i]);
        if (i + 1 == pBeats.size())
            break;
        offBeat.push_back(0.5 * (pBeats[i + 1] - pBeats[i]) + pBeats[i]);
        twice.push_back(offBeat.back());
    }
    return result;
}

/// The distance from beat pIndex to its neighbour, to the next one when it is wanted and there.
double GetInterval(const BeatTimes& pBeats, std::size_t pIndex, bool pIsForward)
{
    if (pIsForward && pIndex + 1 < pBeats.size())
        return pBeats[pIndex + 1] - pBeats[pIndex];
    return pIndex > 0 ? pBeats[pIndex] - pBeats[pIndex - 1] : 0.0;
}

bool IsRight(const BeatTimes& pReference,
             std::size_t pNearest,
             const BeatTimes& pEstimate,
             std::size_t pIndex)
{
    const bool isForward = pIndex == 0 || pNearest == 0;
    const double interval = GetInterval(pReference, pNearest, isForward);
    if (interval == 0.0)
        return false;
    const double phase = std::abs(pEstimate[pIndex] - pReference[pNearest]) / interval;
    const double period = std::abs(1.0 - GetInterval(pEstimate, pIndex, isForward) / interval);
    return phase < kTolerance && period < kTolerance;
}

Runs CountRuns(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    std::vector<bool> isUsed(pReference.size());
    std::size_t run = 0;
    std::size_t longest = 0;
    std::size_t total = 0;
    for (std::size_t i = 0; i < pEstimate.size(); ++i) {
        const std::size_t nearest = cli::FindNearest(pReference, pEstimate[i]);
        const bool isRight = !isUsed[nearest] && IsRight(pReference, nearest, pEstimate, i);
        isUsed[nearest] = isUsed[nearest] || isRight;
        run = isRight ? run + 1 : 0;
        longest = std::max(longest, run);
        total += isRight ? 1 : 0;
    }
    const auto count = double(std::max(pReference.size(), pEstimate.size()));
    return {double(longest) / count, double(total) / count};
}

}  // namespace

BeatContinuity getContinuity(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    if (pReference.size() < 2 || pEstimate.size() < 2)
        return {};
    const Runs correct = CountRuns(pReference, pEstimate);
    BeatContinuity result = {correct.longest, correct.total, correct.longest, correct.total};
    for (const BeatTimes& variation : MakeVariations(pReference)) {
        const Runs runs = CountRuns(variation, pEstimate);
        result.anyLongest = std::max(result.anyLongest, runs.longest);
        result.anyTotal = std::max(result.anyTotal, runs.total);
    }
    return result;
}
