// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace desktop {

/// Edges in Hz, pCount + 1 of them, at equal distances on a logarithmic axis.
inline std::vector<double> BandEdges(double pLow, double pHigh, std::size_t pCount)
{
    std::vector<double> edges(pCount + 1);
    for (std::size_t i = 0; i <= pCount; ++i)
        edges[i] = pLow * std::pow(pHigh / pLow, double(i) / double(pCount));
    return edges;
}

/// Power as decibels, from pLeast to 0.
inline double PowerDecibels(double pPower, double pLeast)
{
    return pPower > 0.0 ? std::clamp(10.0 * std::log10(pPower), pLeast, 0.0) : pLeast;
}

/// The bins of a spectrum that a band covers: at least one, the one that holds its middle.
struct BinRange
{
    std::size_t first;
    std::size_t last;  ///< inclusive
};

/// pBinWidth: Hz; bin i covers [i, i + 1) widths. pCount: bins, at least 1.
inline BinRange BinsOfBand(double pLow, double pHigh, double pBinWidth, std::size_t pCount)
{
    const auto bin = [=](double pFrequency) {
        return std::min(static_cast<std::size_t>(std::max(pFrequency, 0.0) / pBinWidth),
                        pCount - 1);
    };
    const std::size_t first = bin(std::ceil(pLow / pBinWidth) * pBinWidth);
    const std::size_t last = bin(std::ceil(pHigh / pBinWidth) * pBinWidth - pBinWidth);
    if (first <= last && double(first) * pBinWidth >= pLow)
        return {first, last};
    const std::size_t middle = bin(std::sqrt(pLow * pHigh));
    return {middle, middle};
}

/// What one bar of a spectrum stands for.
struct SpectrumBar
{
    double low;   ///< Hz
    double high;  ///< Hz
    BinRange bins;
};

/// The bars of bands with these edges. Neighbours that show the same bins, as low bands do, are one
/// bar; bands above the last bin have none.
inline std::vector<SpectrumBar>
MakeBars(const std::vector<double>& pEdges, double pBinWidth, std::size_t pCount)
{
    std::vector<SpectrumBar> bars;
    for (std::size_t i = 0; i + 1 < pEdges.size(); ++i) {
        if (pEdges[i] >= pBinWidth * double(pCount))
            break;
        const BinRange bins = BinsOfBand(pEdges[i], pEdges[i + 1], pBinWidth, pCount);
        const bool isSame = !bars.empty() && bars.back().bins.first == bins.first &&
                            bars.back().bins.last == bins.last;
        if (isSame)
            bars.back().high = pEdges[i + 1];
        else
            bars.push_back({pEdges[i], pEdges[i + 1], bins});
    }
    return bars;
}

}  // namespace desktop
