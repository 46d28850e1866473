// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <vector>

namespace detail {

/// Magnitudes of the spectrum of a block of samples behind a Hann window.
///
/// The real block of N samples is transformed as N/2 complex values. A full-scale sine gives about
/// 1 at its frequency, whatever the sizes are.
class WindowedSpectrum
{
public:
    /// A window of pWindowSize samples, padded with zeros to 2^pBitCount, at least two; the bins
    /// below pBinCount, at most half of that, are wanted. [allocates]
    WindowedSpectrum(std::size_t pWindowSize, std::size_t pBitCount, std::size_t pBinCount);

    /// Reads as many samples as the window has. [no allocation]
    void Compute(const qint16* pSamples);

    std::size_t getWindowSize() const { return m_window.size(); }
    /// One value for each wanted bin. [valid until the next Compute]
    const std::vector<float>& getMagnitudes() const { return m_magnitudes; }

private:
    void _AddBin(std::size_t pBin, std::size_t pMirror);

    std::size_t m_bitCount;  ///< of the complex transform
    std::vector<double> m_window;
    std::vector<double> m_cosines, m_sines;  ///< of k / N turns, for each wanted bin
    std::vector<double> m_even, m_odd;       ///< windowed samples
    std::vector<double> m_real, m_imaginary;
    std::vector<float> m_magnitudes;
};

}  // namespace detail
