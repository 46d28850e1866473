// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BinRanges.h>

#include <algorithm>

namespace {

int nyquistOf(int pSampleRate)
{
    return pSampleRate >> 1;
}

}  // namespace

void FastFourierTransform::BandPassFilter(int pLow, int pHigh, int pSampleRate)
{
    const int nyquist = nyquistOf(pSampleRate);
    const size_t half = m_length / 2;
    if (pHigh < 1 || nyquist <= pLow) {
        _ZeroAll();
    } else if (nyquist > 0) {
        _ZeroBins(0, detail::bandPassCut(pLow, nyquist, half));
        _ZeroBins(detail::bandPassKeep(pHigh, nyquist, half), half);
    }
    m_isSpectrumStale = true;
}

void FastFourierTransform::HighPassFilter(int pLow, int pSampleRate)
{
    const int nyquist = nyquistOf(pSampleRate);
    if (nyquist <= pLow)
        _ZeroAll();
    else if (pLow > 0)
        _ZeroBins(0, detail::highPassCut(pLow, nyquist, m_length / 2));
    m_isSpectrumStale = true;
}

void FastFourierTransform::LowPassFilter(int pHigh, int pSampleRate)
{
    const int nyquist = nyquistOf(pSampleRate);
    const size_t half = m_length / 2;
    if (pHigh < 1)
        _ZeroAll();
    else if (nyquist > 0)
        _ZeroBins(detail::lowPassKeep(pHigh, nyquist, half), half);
    m_isSpectrumStale = true;
}

// Intended: bin j takes N - 1 - j with it, not its conjugate partner N - j. The inverse keeps only
// real parts, so the output is the real part of what this lopsided spectrum gives.
void FastFourierTransform::_ZeroBins(size_t pFirst, size_t pEnd)
{
    if (pFirst >= pEnd)
        return;
    const bool isOneRange = pEnd == m_length - pEnd;
    for (double* pParts : {m_pReal, m_pImaginary}) {
        std::fill(pParts + pFirst, pParts + (isOneRange ? m_length - pFirst : pEnd), 0.0);
        if (!isOneRange)
            std::fill(pParts + m_length - pEnd, pParts + m_length - pFirst, 0.0);
    }
}

void FastFourierTransform::_ZeroAll()
{
    std::fill_n(m_pReal, m_length, 0.0);
    std::fill_n(m_pImaginary, m_length, 0.0);
}
