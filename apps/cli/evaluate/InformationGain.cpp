// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatMeasures.h>
#include <cli/evaluate/detail/NearestBeat.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::size_t kBins = 41;

/// The distance of pTime from its nearest beat, as a share of the interval there.
double GetError(const BeatTimes& pBeats, double pTime)
{
    const std::size_t nearest = cli::FindNearest(pBeats, pTime);
    const std::size_t last = pBeats.size() - 1;
    const double error = pTime - pBeats[nearest];
    double interval = 0.0;
    if (nearest == last)
        interval = 0.5 * (pBeats[last] - pBeats[last - 1]);
    else if (error < 0.0)
        // Ahead of the first beat the published measure takes the whole length for the interval.
        interval = 0.5 * (pBeats[nearest] - pBeats[nearest == 0 ? last : nearest - 1]);
    else
        interval = 0.5 * (pBeats[nearest + 1] - pBeats[nearest]);
    return 0.5 * error / interval;
}

/// pError moved by whole intervals into -0.5 to 0.5.
double Wrap(double pError)
{
    const double rest = std::fmod(pError + 0.5, 1.0);
    return (rest > 0.0 ? rest - 1.0 : rest) + 0.5;
}

/// The edge below bin pIndex.
double GetEdge(std::size_t pIndex)
{
    return pIndex == kBins ? 0.5 : double(pIndex) * (1.0 / double(kBins)) - 0.5;
}

/// Entropy of the errors of pEstimate in bits. No error exists where all beats fall together.
double GetEntropy(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    std::array<double, kBins> counts = {};
    double total = 0.0;
    for (const double beat : pEstimate) {
        const double error = Wrap(GetError(pReference, beat));
        if (!std::isfinite(error))
            continue;
        std::size_t bin = std::min(kBins - 1, std::size_t((error + 0.5) * double(kBins)));
        // The product is rounded, the edges decide.
        while (bin > 0 && error < GetEdge(bin))
            --bin;
        while (bin + 1 < kBins && error >= GetEdge(bin + 1))
            ++bin;
        counts[bin] += 1.0;
        total += 1.0;
    }
    double entropy = 0.0;
    for (const double count : counts)
        entropy -= count > 0.0 ? count / total * std::log2(count / total) : 0.0;
    return total > 0.0 ? entropy : std::log2(double(kBins));
}

}  // namespace

double getInformationGain(const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    if (pReference.size() < 2 || pEstimate.size() < 2)
        return 0.0;
    const double most = std::log2(double(kBins));
    const double entropy =
        std::max(GetEntropy(pReference, pEstimate), GetEntropy(pEstimate, pReference));
    return (most - entropy) / most;
}
