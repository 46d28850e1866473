// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/Waves.h>
#include <vector>

/// Signals for the stop decision, and the values that it decides on.
namespace stops {

using waves::Random;
using waves::Samples;
using waves::toSample;
using Question = BandPassThreshold::Question;

constexpr double kPi = waves::pi;
constexpr double kUnit = std::numeric_limits<double>::epsilon() / 2.0;

inline quint64 seed()
{
    bool isGiven = false;
    const quint64 given = qEnvironmentVariable("AA_THRESHOLD_SEED").toULongLong(&isGiven);
    const quint64 chosen = isGiven ? given : 20261121;
    qInfo("AA_THRESHOLD_SEED=%llu", static_cast<unsigned long long>(chosen));
    return chosen;
}

/// Two a second.
inline Samples kicks(int pRate, std::size_t pCount, double pAmplitude)
{
    const Samples kick = waves::kick(pRate, {55.0, 0.125, pAmplitude, 0.5});
    Samples samples(pCount);
    for (std::size_t i = 0; i < pCount; i += kick.size())
        waves::mix(samples, i, kick);
    return samples;
}

inline Samples anySignal(Random& pRandom, int pRate, std::size_t pCount)
{
    const double amplitude = std::pow(10.0, 4.5 * pRandom.uniform());
    switch (pRandom.below(4)) {
    case 0:
        return waves::sine(pCount, pRate, pRandom.uniform(20.0, 3020.0), amplitude);
    case 1:
        return kicks(pRate, pCount, amplitude);
    case 2:
        return waves::noise(pCount, int(amplitude), pRandom);
    default:
        Samples square(pCount);
        for (std::size_t i = 0; i < pCount; ++i)
            square[i] = toSample(i / 100 % 2 == 0 ? amplitude : -amplitude);
        return square;
    }
}

/// The plain filtered values before they are truncated; 16-bit truncation undone for the test.
inline std::vector<double> filteredValues(const Samples& pSamples, int pRate)
{
    FastFourierTransform transform;
    transform.Compute(pSamples.data(), pSamples.size());
    transform.BandPassFilter(50, 2000, pRate);
    short* pFiltered = nullptr;
    size_t count = 0;
    transform.ComputeInverse(pFiltered, count);
    return {transform.m_pInverseReal, transform.m_pInverseReal + count};
}

/// One whole decision, which makes everything that its steps need.
inline void prepare(BandPassThreshold& decision, const Samples& samples, int rate, qint16 threshold)
{
    FastFourierTransform transform;
    decision.RisesAbove(samples.data(), samples.size(), {50, 2000, rate, threshold}, transform);
    QVERIFY(!decision.m_kernel.empty());
}

inline double errorBound(const BandPassThreshold& pDecision)
{
    const auto length = static_cast<double>(pDecision.m_length);
    return 4.0 * length * length * kUnit * pDecision.m_norm;
}

}  // namespace stops
