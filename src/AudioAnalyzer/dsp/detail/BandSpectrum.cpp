// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BandAngles.h>
#include <AudioAnalyzer/dsp/detail/BandSpectrum.h>

#include <cmath>

namespace detail {

BandSpectrum::BandSpectrum(std::size_t pLength, std::size_t pLow, std::size_t pHigh)
    : m_length(pLength), m_lowBin(pLow), m_highBin(pHigh),
      m_cosines(ofBandAngles(std::cos, pLength, pLow, pHigh)),
      m_sines(ofBandAngles(std::sin, pLength, pLow, pHigh)), m_real(pHigh - pLow + 1),
      m_imaginary(pHigh - pLow + 1)
{
}

void BandSpectrum::Compute(const qint16* pSamples, std::size_t pCount)
{
    _SplitSamples(pSamples, pCount);
    m_halves.Compute(m_even.data(), m_odd.data(), m_even.size(), false);
    _ExtractBand();
}

void BandSpectrum::_SplitSamples(const qint16* pSamples, std::size_t pCount)
{
    m_even.resize((pCount + 1) / 2);
    m_odd.resize((pCount + 1) / 2);
    for (std::size_t i = 0; i < pCount / 2; ++i) {
        m_even[i] = pSamples[2 * i];
        m_odd[i] = pSamples[2 * i + 1];
    }
    if (pCount % 2 == 1) {
        m_even.back() = pSamples[pCount - 1];
        m_odd.back() = 0;
    }
}

/// From the transform Z of even + i odd, with phi = 2 pi k / N and M = N/2:
///     X(k) = (Z(k) + conj Z(M-k)) / 2 + e^(i phi) (Z(k) - conj Z(M-k)) / 2i
void BandSpectrum::_ExtractBand()
{
    const double* pReal = m_halves.real();
    const double* pImaginary = m_halves.imaginary();
    for (std::size_t i = 0; i < m_real.size(); ++i) {
        const std::size_t k = m_lowBin + i;
        const std::size_t mirror = m_length / 2 - k;
        const double evenReal = pReal[k] + pReal[mirror];
        const double evenImaginary = pImaginary[k] - pImaginary[mirror];
        const double oddReal = pImaginary[k] + pImaginary[mirror];
        const double oddImaginary = pReal[mirror] - pReal[k];
        const double c = m_cosines[i];
        const double s = m_sines[i];
        m_real[i] = 0.5 * (evenReal + c * oddReal - s * oddImaginary);
        m_imaginary[i] = 0.5 * (evenImaginary + c * oddImaginary + s * oddReal);
    }
    for (std::vector<double>* pParts : {&m_real, &m_imaginary}) {
        pParts->front() *= 0.5;
        pParts->back() *= 0.5;
    }
}

}  // namespace detail
