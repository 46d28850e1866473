// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/BandSpectrum.h>

namespace detail {

/// Every pStep-th sample of a filtered block: a narrow band needs few points, and few points need
/// a short transform.
class BandGrid
{
public:
    /// For the spectra of one length and band. pStep is a power of two, and the grid keeps at least
    /// four points to a period of the band's upper edge.
    BandGrid(std::size_t pLength, std::size_t pLow, std::size_t pHigh, std::size_t pStep);

    /// [no allocation after the first call]
    void Compute(const BandSpectrum& pSpectrum);

    /// Samples from one point to the next.
    std::size_t step() const { return m_step; }

    /// Points; the last ones lie in the padding of the block.
    std::size_t size() const { return 2 * m_real.size(); }

    /// Filtered sample pIndex * step().
    double at(std::size_t pIndex) const
    {
        return pIndex % 2 == 0 ? m_points.real()[pIndex / 2] : m_points.imaginary()[pIndex / 2];
    }

    /// The greatest magnitude of the points, as a share of the filtered signal's, is at least this.
    /// 1 when every sample is a point.
    double leastShare() const;

private:
    std::size_t m_step;
    std::size_t m_highBin;
    std::vector<double> m_cosines;  ///< cos(2 pi k / size())
    std::vector<double> m_sines;    ///< sin(2 pi k / size())
    std::vector<double> m_real;     ///< spectrum of even points + i odd points
    std::vector<double> m_imaginary;
    TransformResult m_points;  ///< even points, odd points
};

}  // namespace detail
