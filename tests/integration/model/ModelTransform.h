// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <vector>

/// The Fourier transform, its filters and its power spectrum, each in the plainest form.
namespace model {

using Samples = std::vector<qint16>;

/// Complex spectrum of a power-of-two length, natural order.
struct Spectrum
{
    std::vector<double> real;
    std::vector<double> imaginary;

    std::size_t size() const { return real.size(); }
};

/// Positive exponent, not scaled; the samples are padded with zeros.
Spectrum transform(const Samples& samples);
/// Negative exponent, divided by the length; the first count real parts, truncated to 16 bits.
Samples transformBack(const Spectrum& spectrum, std::size_t count);

void highPass(Spectrum& spectrum, int low, int sampleRate);
void lowPass(Spectrum& spectrum, int high, int sampleRate);
void bandPass(Spectrum& spectrum, int low, int high, int sampleRate);

/// Squared magnitudes of the lower half.
std::vector<double> power(const Spectrum& spectrum);

}  // namespace model
