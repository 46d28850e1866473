// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/TransformResult.h>

#include <QtGlobal>

#include <vector>

namespace detail {

/// The part of a block's spectrum that the band-pass keeps, from a transform of half the length:
/// even samples travel as real parts, odd ones as imaginary parts.
class BandSpectrum
{
public:
    /// pLength is N of the full transform. Bins pLow to pHigh are computed; both edges count half,
    /// as in the real part of the filter's inverse. Needs 0 < pLow < pHigh < pLength / 2.
    BandSpectrum(std::size_t pLength, std::size_t pLow, std::size_t pHigh);

    /// pCount samples, at most N. [no allocation while pCount stays]
    void Compute(const qint16* pSamples, std::size_t pCount);

    std::size_t length() const { return m_length; }
    std::size_t lowBin() const { return m_lowBin; }
    std::size_t highBin() const { return m_highBin; }

    /// Bins lowBin() to highBin().
    const std::vector<double>& real() const { return m_real; }
    const std::vector<double>& imaginary() const { return m_imaginary; }

private:
    void _SplitSamples(const qint16* pSamples, std::size_t pCount);
    void _ExtractBand();

    std::size_t m_length;
    std::size_t m_lowBin;
    std::size_t m_highBin;
    std::vector<double> m_cosines;  ///< cos(2 pi k / N)
    std::vector<double> m_sines;    ///< sin(2 pi k / N)
    std::vector<qint16> m_even;     ///< samples 0, 2, 4, ...
    std::vector<qint16> m_odd;      ///< samples 1, 3, 5, ..., padded to the size of m_even
    TransformResult m_halves;
    std::vector<double> m_real;
    std::vector<double> m_imaginary;
};

}  // namespace detail
