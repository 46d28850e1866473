// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BandAngles.h>
#include <AudioAnalyzer/dsp/detail/BandGrid.h>

#include <cmath>

namespace detail {

BandGrid::BandGrid(std::size_t pLength, std::size_t pLow, std::size_t pHigh, std::size_t pStep)
    : m_step(pStep), m_highBin(pHigh),
      m_cosines(ofBandAngles(std::cos, pLength / pStep, pLow, pHigh)),
      m_sines(ofBandAngles(std::sin, pLength / pStep, pLow, pHigh)),
      m_real(pLength / pStep / 2, 0.0), m_imaginary(pLength / pStep / 2, 0.0)
{
}

/// The transform W of even + i odd points from the spectrum X of the block, with phi = 2 pi k / P
/// for P points and M = P/2:
///     W(k) = X(k) (1 + i e^(-i phi)) / 2,   W(M-k) = conj X(k) (1 + i e^(i phi)) / 2
/// The inverse divides by M, where the filter divides by M times the step.
void BandGrid::Compute(const BandSpectrum& pSpectrum)
{
    const double scale = 0.5 / static_cast<double>(m_step);
    for (std::size_t i = 0; i < m_cosines.size(); ++i) {
        const double real = scale * pSpectrum.real()[i];
        const double imaginary = scale * pSpectrum.imaginary()[i];
        const double c = m_cosines[i];
        const double s = m_sines[i];
        const std::size_t k = pSpectrum.lowBin() + i;
        const std::size_t mirror = m_real.size() - k;
        m_real[k] = real * (1.0 + s) - imaginary * c;
        m_imaginary[k] = real * c + imaginary * (1.0 + s);
        m_real[mirror] = real * (1.0 - s) + imaginary * c;
        m_imaginary[mirror] = real * c - imaginary * (1.0 - s);
    }
    m_points.Compute(m_real.data(), m_imaginary.data(), m_real.size(), true);
}

double BandGrid::leastShare() const
{
    if (m_step == 1)
        return 1.0;
    return std::cos(kPi * static_cast<double>(m_highBin) / static_cast<double>(size()));
}

}  // namespace detail
