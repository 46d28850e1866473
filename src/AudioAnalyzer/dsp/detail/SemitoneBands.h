// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace detail {

/// A stretch of bins of a spectrum that counts as one band, and the range it belongs to.
struct SemitoneBand
{
    std::size_t firstBin;
    std::size_t endBin;  ///< behind the last; greater than firstBin
    std::size_t range;   ///< 0 to kOnsetRangeCount - 1
};

/// Frequencies in Hz at which one range of bands ends and the next begins.
constexpr double kRangeEdges[] = {130.0, 400.0, 1600.0, 5000.0};
constexpr double kLowestBand = 27.5;      ///< Hz
constexpr double kHighestBand = 16000.0;  ///< Hz

/// The bands of a spectrum whose bins lie pBinWidth Hz apart, below pNyquist Hz, in order.
///
/// Their edges are semitones, taken to the raster of a window of 2048 samples at 44100 Hz and kept
/// once each: at every rate the same bands in Hz, as far as there are bins in them.
std::vector<SemitoneBand> makeSemitoneBands(double pBinWidth, double pNyquist);

}  // namespace detail
