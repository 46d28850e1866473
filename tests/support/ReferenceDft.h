// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// The discrete Fourier transform as its sum says, in long double, and how far from it a recurrence
/// transform may be.
namespace reference {

struct Spectrum
{
    std::vector<long double> real;
    std::vector<long double> imaginary;
};

class Dft
{
public:
    explicit Dft(std::size_t length) : m_cosines(length), m_sines(length)
    {
        const long double circle = 8 * std::atan(1.0L);
        for (std::size_t i = 0; i < length; ++i) {
            const long double angle =
                circle * static_cast<long double>(i) / static_cast<long double>(length);
            m_cosines[i] = std::cos(angle);
            m_sines[i] = std::sin(angle);
        }
    }

    /// Sum over n of x[n] e^(sign 2 pi i n k / N) for every k; sign is +1 or -1. Not scaled.
    template <typename T>
    Spectrum transform(const std::vector<T>& real, const std::vector<T>& imaginary, int sign) const
    {
        const std::size_t length = m_cosines.size();
        Spectrum result{std::vector<long double>(length), std::vector<long double>(length)};
        for (std::size_t k = 0; k < length; ++k) {
            for (std::size_t n = 0; n < length; ++n) {
                const std::size_t turn = n * k % length;
                const long double c = m_cosines[turn];
                const long double s = static_cast<long double>(sign) * m_sines[turn];
                result.real[k] += real[n] * c - imaginary[n] * s;
                result.imaginary[k] += real[n] * s + imaginary[n] * c;
            }
        }
        return result;
    }

private:
    std::vector<long double> m_cosines;
    std::vector<long double> m_sines;
};

/// Euclidean norm of a complex vector.
template <typename T>
long double norm(const std::vector<T>& real, const std::vector<T>& imaginary)
{
    long double sum = 0;
    for (std::size_t i = 0; i < real.size(); ++i) {
        const long double re = real[i];
        const long double im = imaginary[i];
        sum += re * re + im * im;
    }
    return std::sqrt(sum);
}

/// Euclidean distance of two complex vectors.
template <typename A, typename B>
long double distance(const std::vector<A>& real,
                     const std::vector<A>& imaginary,
                     const std::vector<B>& otherReal,
                     const std::vector<B>& otherImaginary)
{
    Spectrum difference;
    for (std::size_t i = 0; i < real.size(); ++i) {
        difference.real.push_back(static_cast<long double>(real[i]) - otherReal[i]);
        difference.imaginary.push_back(static_cast<long double>(imaginary[i]) - otherImaginary[i]);
    }
    return norm(difference.real, difference.imaginary);
}

/// Largest error of a radix-2 transform whose factors come from w(j) = 2 cos(a) w(j-1) - w(j-2), as
/// a part of the exact spectrum's norm.
///
/// With the unit roundoff u, a step of the recurrence errs by at most 5u, and an error grows on the
/// way to the end of a stage of h factors by at most 1/sin(a), about h/pi. After h steps, in both
/// components, that is below 4 h^2 u, the seeds add 4 (h + 1) u, the butterfly itself 6 u. A stage
/// is a unitary matrix times a scale, so the parts of all stages, h = 1, 2, 4 ... N/2, add up.
inline long double roundingBound(std::size_t length)
{
    const long double u = 0x1.0p-53L;
    const long double n = static_cast<long double>(length);
    return (4 * n * n / 3 + 4 * n + 10 * std::log2(n)) * u;
}

}  // namespace reference
