// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <support/Waves.h>
#include <vector>

using Values = std::vector<double>;

/// A generator whose seed is printed and may be given in AUDIOANALYZER_TEST_SEED.
inline waves::Random makeRandom()
{
    const char* pName = "AUDIOANALYZER_TEST_SEED";
    const unsigned int seed = qEnvironmentVariableIsSet(pName)
                                  ? static_cast<unsigned int>(qEnvironmentVariableIntValue(pName))
                                  : std::random_device{}();
    qInfo("%s=%u", pName, seed);
    return waves::Random(seed);
}

inline waves::Samples fullScaleNoise(std::size_t count, waves::Random& random)
{
    waves::Samples samples(count);
    for (qint16& sample : samples)
        sample = static_cast<qint16>(random.between(-32768, 32767));
    return samples;
}

inline Values uniformValues(std::size_t count, waves::Random& random)
{
    Values values(count);
    for (double& value : values)
        value = random.uniform(-32768.0, 32768.0);
    return values;
}

inline Values realParts(const FastFourierTransform& fft)
{
    return Values(fft.m_pReal, fft.m_pReal + fft.m_length);
}

inline Values imaginaryParts(const FastFourierTransform& fft)
{
    return Values(fft.m_pImaginary, fft.m_pImaginary + fft.m_length);
}

/// Gives fft that spectrum, of a power-of-two length, as if a block had been transformed.
inline void loadSpectrum(FastFourierTransform& fft, const Values& real, const Values& imaginary)
{
    const waves::Samples block(real.size());
    fft.Compute(block.data(), block.size());
    std::copy(real.begin(), real.end(), fft.m_pReal);
    std::copy(imaginary.begin(), imaginary.end(), fft.m_pImaginary);
}

/// Gives fft a real spectrum, see above.
inline void loadSpectrum(FastFourierTransform& fft, const Values& real)
{
    loadSpectrum(fft, real, Values(real.size()));
}

/// Equal but for the last digits: the factor of the first butterfly need not be exactly 1.
inline bool isNear(double value, double expected)
{
    return std::fabs(value - expected) <= 1e-9 * std::max(1.0, std::fabs(expected));
}

inline waves::Samples inverse(FastFourierTransform& fft)
{
    short* pSamples = nullptr;
    size_t count = 0;
    fft.ComputeInverse(pSamples, count);
    return waves::Samples(pSamples, pSamples + count);
}
