// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatMeasures.h>
#include <cli/evaluate/detail/NearestBeat.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

double getFMeasure(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    const auto pairs = double(matchBeats(pReference, pEstimate).size());
    if (pairs == 0.0)
        return 0.0;
    const double precision = pairs / double(pEstimate.size());
    const double recall = pairs / double(pReference.size());
    return 2.0 * precision * recall / (precision + recall);
}

double getCemgil(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    constexpr double kSigma = 0.04;  ///< seconds
    if (pReference.empty() || pEstimate.empty())
        return 0.0;
    double sum = 0.0;
    for (const double beat : pReference) {
        const double error = beat - pEstimate[cli::FindNearest(pEstimate, beat)];
        sum += std::exp(-(error * error) / (2.0 * kSigma * kSigma));
    }
    return sum / (0.5 * double(pReference.size() + pEstimate.size()));
}

namespace {

constexpr double kPScoreGrid = 100.0;  ///< cells a second

/// The cells of the grid in which beats lie, each once.
std::vector<std::int64_t> ToCells(const BeatTimes& pBeats, double pOffset)
{
    std::vector<std::int64_t> cells;
    for (const double beat : pBeats)
        cells.push_back(std::int64_t(std::ceil((beat - pOffset) * kPScoreGrid)));
    cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
    return cells;
}

}  // namespace

double getPScore(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    constexpr double kWindow = 0.2;  ///< of the median interval
    if (pReference.size() < 2 || pEstimate.size() < 2)
        return 0.0;
    const double offset = std::min(pReference.front(), pEstimate.front());
    const std::vector<std::int64_t> reference = ToCells(pReference, offset);
    const std::vector<std::int64_t> estimate = ToCells(pEstimate, offset);
    const double interval = getMedianInterval(BeatTimes(reference.begin(), reference.end()));
    const auto window = std::int64_t(std::nearbyint(kWindow * interval));
    std::int64_t count = 0;
    for (const std::int64_t cell : estimate) {
        const auto first = std::lower_bound(reference.begin(), reference.end(), cell - window);
        const auto last = std::upper_bound(first, reference.end(), cell + window);
        count += last - first;
    }
    return double(count) / double(std::max(pReference.size(), pEstimate.size()));
}
