// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/SemitoneBands.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace detail {

namespace {

constexpr double kRaster = 44100.0 / 2048.0;  ///< Hz
constexpr double kSemitone = 1.0594630943592953;

// Edges lie between two lines of the raster.
std::vector<double> makeEdges()
{
    std::vector<double> edges;
    for (double frequency = kLowestBand; frequency <= kHighestBand; frequency *= kSemitone) {
        const double edge = (std::floor(frequency / kRaster + 0.5) - 0.5) * kRaster;
        if (edges.empty() || edge > edges.back())
            edges.push_back(edge);
    }
    return edges;
}

std::size_t rangeOf(double pFrequency)
{
    return static_cast<std::size_t>(
        std::upper_bound(std::begin(kRangeEdges), std::end(kRangeEdges), pFrequency) -
        std::begin(kRangeEdges));
}

}  // namespace

std::vector<SemitoneBand> makeSemitoneBands(double pBinWidth, double pNyquist)
{
    std::vector<SemitoneBand> bands;
    const std::vector<double> edges = makeEdges();
    for (std::size_t i = 0; i + 1 < edges.size() && edges[i + 1] <= pNyquist; ++i) {
        const auto first = static_cast<std::size_t>(std::ceil(edges[i] / pBinWidth));
        const auto end = static_cast<std::size_t>(std::ceil(edges[i + 1] / pBinWidth));
        if (first < end)
            bands.push_back({first, end, rangeOf(0.5 * (edges[i] + edges[i + 1]))});
    }
    return bands;
}

}  // namespace detail
