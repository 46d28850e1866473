// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// The algorithms as a textbook writes them: one value after the other, nothing shared, tabulated
/// or rearranged. Benchmarks measure against them, tests compare with them bit for bit.
namespace plain {

using Values = std::vector<double>;

struct Spectrum
{
    Values real;
    Values imaginary;
};

/// Smallest power of two that is not below pCount; 1 for 0.
inline std::size_t lengthFor(std::size_t pCount)
{
    std::size_t length = 1;
    while (length < pCount)
        length *= 2;
    return length;
}

inline std::size_t reversed(std::size_t pIndex, std::size_t pLength)
{
    std::size_t result = 0;
    for (; pLength > 1; pLength /= 2) {
        result = 2 * result + pIndex % 2;
        pIndex /= 2;
    }
    return result;
}

/// Twiddle factors come from w(j) = 2 cos(a) w(j - 1) - w(j - 2), seeded anew in each block.
inline void butterflies(double* pReal, double* pImaginary, std::size_t pLength, bool pInverse)
{
    for (std::size_t span = 2; span <= pLength; span *= 2) {
        const std::size_t half = span / 2;
        const double circle = pInverse ? 6.283185307179586 : -6.283185307179586;
        const double angle = circle / static_cast<double>(span);
        const double cosine1 = std::cos(angle);
        const double sine1 = std::sin(angle);
        const double cosine2 = std::cos(angle + angle);
        const double sine2 = std::sin(angle + angle);
        for (std::size_t block = 0; block < pLength; block += span) {
            double olderReal = cosine2;
            double olderImaginary = sine2;
            double newerReal = cosine1;
            double newerImaginary = sine1;
            for (std::size_t j = 0; j < half; ++j) {
                const double wr = 2.0 * cosine1 * newerReal - olderReal;
                const double wi = 2.0 * cosine1 * newerImaginary - olderImaginary;
                olderReal = newerReal;
                olderImaginary = newerImaginary;
                newerReal = wr;
                newerImaginary = wi;
                const std::size_t low = block + j;
                const std::size_t high = low + half;
                const double tr = wr * pReal[high] - wi * pImaginary[high];
                const double ti = wi * pReal[high] + wr * pImaginary[high];
                pReal[high] = pReal[low] - tr;
                pImaginary[high] = pImaginary[low] - ti;
                pReal[low] = pReal[low] + tr;
                pImaginary[low] = pImaginary[low] + ti;
            }
        }
    }
}

/// In place on values in bit-reversed order; the inverse is divided by the length.
inline void transformReversed(Spectrum& pSpectrum, bool pInverse)
{
    const std::size_t length = pSpectrum.real.size();
    butterflies(pSpectrum.real.data(), pSpectrum.imaginary.data(), length, pInverse);
    for (std::size_t i = 0; pInverse && i < length; ++i) {
        pSpectrum.real[i] = pSpectrum.real[i] / static_cast<double>(length);
        pSpectrum.imaginary[i] = pSpectrum.imaginary[i] / static_cast<double>(length);
    }
}

/// pCount values, padded with zeros, into bit-reversed order; a null array is all zeros.
template <typename T>
Values scattered(const T* pValues, std::size_t pCount)
{
    Values result(lengthFor(pCount), 0.0);
    for (std::size_t i = 0; pValues && i < pCount; ++i)
        result[reversed(i, result.size())] = static_cast<double>(pValues[i]);
    return result;
}

template <typename T>
Spectrum transform(const T* pReal, const T* pImaginary, std::size_t pCount, bool pInverse)
{
    Spectrum spectrum{scattered(pReal, pCount), scattered(pImaginary, pCount)};
    transformReversed(spectrum, pInverse);
    return spectrum;
}

/// Truncated toward zero and cut to 16 bits; the value must fit into an int.
inline short toSample(double pValue)
{
    return static_cast<short>(static_cast<int>(pValue));
}

}  // namespace plain
