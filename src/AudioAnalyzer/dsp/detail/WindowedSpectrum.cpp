// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/Transform.h>
#include <AudioAnalyzer/dsp/detail/Turns.h>
#include <AudioAnalyzer/dsp/detail/WindowedSpectrum.h>

#include <cmath>

namespace detail {

WindowedSpectrum::WindowedSpectrum(std::size_t pWindowSize,
                                   std::size_t pBitCount,
                                   std::size_t pBinCount)
    : m_bitCount(pBitCount - 1), m_window(pWindowSize), m_cosines(pBinCount), m_sines(pBinCount),
      m_even((pWindowSize + 1) / 2), m_odd(m_even.size()), m_real(std::size_t(1) << m_bitCount),
      m_imaginary(m_real.size()), m_magnitudes(pBinCount)
{
    prepareTransform(m_bitCount);
    // The window's sum is half its size, and a sine's energy lies half at the negative frequency.
    // Half of it for the sum of two terms in Compute().
    constexpr double kFullScale = 32768.0;
    const double scale = 0.5 * 4.0 / (static_cast<double>(pWindowSize) * kFullScale);
    for (std::size_t i = 0; i < pWindowSize; ++i) {
        const double turns = static_cast<double>(i) / static_cast<double>(pWindowSize);
        m_window[i] = scale * (0.5 - 0.5 * cosineOfTurns(turns));
    }
    for (std::size_t k = 0; k < pBinCount; ++k) {
        const double turns = static_cast<double>(k) / static_cast<double>(2 * m_real.size());
        m_cosines[k] = cosineOfTurns(turns);
        m_sines[k] = sineOfTurns(turns);
    }
}

// The square of a magnitude. From the transform Z of even + i odd, with phi = 2 pi k / N and M =
// N/2:
//     X(k) = (Z(k) + conj Z(M-k)) / 2 + e^(i phi) (Z(k) - conj Z(M-k)) / 2i
inline void WindowedSpectrum::_AddBin(std::size_t pBin, std::size_t pMirror)
{
    const double evenReal = m_real[pBin] + m_real[pMirror];
    const double evenImaginary = m_imaginary[pBin] - m_imaginary[pMirror];
    const double oddReal = m_imaginary[pBin] + m_imaginary[pMirror];
    const double oddImaginary = m_real[pMirror] - m_real[pBin];
    const double c = m_cosines[pBin];
    const double s = m_sines[pBin];
    const auto real = static_cast<float>(evenReal + c * oddReal - s * oddImaginary);
    const auto imaginary = static_cast<float>(evenImaginary + c * oddImaginary + s * oddReal);
    m_magnitudes[pBin] = real * real + imaginary * imaginary;
}

void WindowedSpectrum::Compute(const qint16* pSamples)
{
    const std::size_t pairs = m_window.size() / 2;
    for (std::size_t i = 0; i < pairs; ++i) {
        m_even[i] = m_window[2 * i] * pSamples[2 * i];
        m_odd[i] = m_window[2 * i + 1] * pSamples[2 * i + 1];
    }
    if (pairs < m_even.size())
        m_even[pairs] = m_window[2 * pairs] * pSamples[2 * pairs];
    transform(m_even.data(),
              m_odd.data(),
              m_even.size(),
              m_bitCount,
              false,
              m_real.data(),
              m_imaginary.data());
    _AddBin(0, 0);
    for (std::size_t k = 1; k < m_magnitudes.size(); ++k)
        _AddBin(k, m_real.size() - k);
    for (float& magnitude : m_magnitudes)
        magnitude = std::sqrt(magnitude);
}

}  // namespace detail
