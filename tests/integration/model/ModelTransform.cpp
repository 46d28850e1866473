// SPDX-License-Identifier: MIT
#include "ModelTransform.h"

#include <algorithm>
#include <cmath>

namespace model {

namespace {

constexpr double twoPi = 6.283185307179586;

Spectrum makeSpectrum(std::size_t size)
{
    return {std::vector<double>(size, 0.0), std::vector<double>(size, 0.0)};
}

std::size_t reverseBits(std::size_t index, std::size_t size)
{
    std::size_t reversed = 0;
    for (std::size_t bit = 1; bit < size; bit *= 2) {
        reversed = reversed * 2 + index % 2;
        index /= 2;
    }
    return reversed;
}

Spectrum shuffle(const Spectrum& input)
{
    Spectrum output = makeSpectrum(input.size());
    for (std::size_t i = 0; i < input.size(); ++i) {
        const std::size_t j = reverseBits(i, input.size());
        output.real[j] = input.real[i];
        output.imaginary[j] = input.imaginary[i];
    }
    return output;
}

/// The two factors before the first one of a stage.
struct Seeds
{
    explicit Seeds(double angle)
        : oldReal(std::cos(angle)), oldImaginary(std::sin(angle)), olderReal(std::cos(2 * angle)),
          olderImaginary(std::sin(2 * angle))
    {
    }

    double oldReal;
    double oldImaginary;
    double olderReal;
    double olderImaginary;
};

/// One block of a stage: each factor follows from the two before it.
void combine(Spectrum& data, std::size_t begin, std::size_t half, Seeds seeds)
{
    const double twice = 2 * seeds.oldReal;
    for (std::size_t j = begin; j < begin + half; ++j) {
        const double wr = twice * seeds.oldReal - seeds.olderReal;
        const double wi = twice * seeds.oldImaginary - seeds.olderImaginary;
        seeds.olderReal = seeds.oldReal;
        seeds.olderImaginary = seeds.oldImaginary;
        seeds.oldReal = wr;
        seeds.oldImaginary = wi;

        const std::size_t k = j + half;
        const double tr = wr * data.real[k] - wi * data.imaginary[k];
        const double ti = wi * data.real[k] + wr * data.imaginary[k];
        data.real[k] = data.real[j] - tr;
        data.imaginary[k] = data.imaginary[j] - ti;
        data.real[j] = data.real[j] + tr;
        data.imaginary[j] = data.imaginary[j] + ti;
    }
}

void runStages(Spectrum& data, double circle)
{
    for (std::size_t span = 2; span <= data.size(); span *= 2) {
        const Seeds seeds(circle / static_cast<double>(span));
        for (std::size_t begin = 0; begin < data.size(); begin += span)
            combine(data, begin, span / 2, seeds);
    }
}

qint16 truncate(double value)
{
    return static_cast<qint16>(static_cast<quint16>(static_cast<qint32>(value) & 0xffff));
}

/// Intended: the mirror of bin j is size - 1 - j, one beside the conjugate bin.
void clearBin(Spectrum& spectrum, std::size_t bin)
{
    const std::size_t mirror = spectrum.size() - 1 - bin;
    spectrum.real[bin] = spectrum.imaginary[bin] = 0.0;
    spectrum.real[mirror] = spectrum.imaginary[mirror] = 0.0;
}

void clearBins(Spectrum& spectrum, std::size_t first, std::size_t end)
{
    for (std::size_t bin = first; bin < end; ++bin)
        clearBin(spectrum, bin);
}

void clearAll(Spectrum& spectrum)
{
    spectrum = makeSpectrum(spectrum.size());
}

}  // namespace

Spectrum transform(const Samples& samples)
{
    std::size_t size = 1;
    while (size < samples.size())
        size *= 2;
    Spectrum input = makeSpectrum(size);
    std::copy(samples.begin(), samples.end(), input.real.begin());
    Spectrum output = shuffle(input);
    runStages(output, -twoPi);
    return output;
}

Samples transformBack(const Spectrum& spectrum, std::size_t count)
{
    Spectrum output = shuffle(spectrum);
    runStages(output, twoPi);
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = truncate(output.real[i] / static_cast<double>(spectrum.size()));
    return samples;
}

void highPass(Spectrum& spectrum, int low, int sampleRate)
{
    const int nyquist = sampleRate / 2;
    if (nyquist <= low) {
        clearAll(spectrum);
    } else if (low > 0) {
        const std::size_t half = spectrum.size() / 2;
        clearBins(
            spectrum, 0, static_cast<std::size_t>(low) * half / static_cast<std::size_t>(nyquist));
    }
}

void lowPass(Spectrum& spectrum, int high, int sampleRate)
{
    if (high < 1) {
        clearAll(spectrum);
        return;
    }
    const int nyquist = sampleRate / 2;
    const std::size_t half = spectrum.size() / 2;
    const auto edge = static_cast<std::size_t>(std::min(nyquist, high));
    clearBins(spectrum, edge * half / static_cast<std::size_t>(nyquist) + 1, half);
}

void bandPass(Spectrum& spectrum, int low, int high, int sampleRate)
{
    const int nyquist = sampleRate / 2;
    if (high < 1 || nyquist <= low) {
        clearAll(spectrum);
        return;
    }
    const std::size_t half = spectrum.size() / 2;
    const double binsPerHz = static_cast<double>(half) / static_cast<double>(nyquist);
    clearBins(spectrum, 0, static_cast<unsigned int>(low * binsPerHz));
    clearBins(spectrum, static_cast<unsigned int>(std::min(nyquist, high) * binsPerHz) + 1, half);
}

std::vector<double> power(const Spectrum& spectrum)
{
    std::vector<double> values(spectrum.size() / 2);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] =
            spectrum.real[i] * spectrum.real[i] + spectrum.imaginary[i] * spectrum.imaginary[i];
    }
    return values;
}

}  // namespace model
