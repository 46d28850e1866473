// SPDX-License-Identifier: MIT
#pragma once

#include "PlainFourier.h"

#include <algorithm>

namespace plain {

/// Zeroes bin pBin and its mirror N - 1 - pBin.
inline void zeroBin(Spectrum& pSpectrum, std::size_t pBin)
{
    for (const std::size_t i : {pBin, pSpectrum.real.size() - 1 - pBin}) {
        pSpectrum.real[i] = 0.0;
        pSpectrum.imaginary[i] = 0.0;
    }
}

/// For 0 <= pLow < half of pRate and 1 <= pHigh.
inline void bandPass(Spectrum& pSpectrum, int pLow, int pHigh, int pRate)
{
    const int nyquist = pRate / 2;
    const std::size_t half = pSpectrum.real.size() / 2;
    const double binsPerHz = static_cast<double>(half) / nyquist;
    const std::size_t cut = static_cast<std::size_t>(pLow * binsPerHz);
    const std::size_t keep = static_cast<std::size_t>(std::min(nyquist, pHigh) * binsPerHz) + 1;
    for (std::size_t bin = 0; bin < half; ++bin)
        if (bin < cut || bin >= keep)
            zeroBin(pSpectrum, bin);
}

/// Powers of the lower half of the spectrum.
inline Values powers(const Spectrum& pSpectrum)
{
    Values result(pSpectrum.real.size() / 2);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] =
            pSpectrum.real[i] * pSpectrum.real[i] + pSpectrum.imaginary[i] * pSpectrum.imaginary[i];
    return result;
}

/// Powers divided by their maximum, as a transform gives them that has seen no other spectrum.
inline Values amplitudes(const Spectrum& pSpectrum)
{
    Values result = powers(pSpectrum);
    const double peak = result.empty() ? 0.0 : *std::max_element(result.begin(), result.end());
    for (double& value : result)
        if (peak != 0.0)
            value = value / peak;
    return result;
}

}  // namespace plain
