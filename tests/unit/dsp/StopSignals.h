// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <vector>

/// Signals for the stop decision, and the values that it decides on.
namespace stops {

using Samples = std::vector<qint16>;
using Question = BandPassThreshold::Question;

constexpr double kPi = 3.141592653589793;
constexpr double kUnit = std::numeric_limits<double>::epsilon() / 2.0;

/// Small generator of our own, so that a seed means the same everywhere.
class Random
{
public:
    explicit Random(quint64 pSeed) : m_state(pSeed) {}

    quint64 next()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        quint64 z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    double uniform() { return static_cast<double>(next() >> 11) / 9007199254740992.0; }
    int below(int pLimit) { return static_cast<int>(next() % static_cast<quint64>(pLimit)); }

private:
    quint64 m_state;
};

inline quint64 seed()
{
    bool isGiven = false;
    const quint64 given = qEnvironmentVariable("AA_THRESHOLD_SEED").toULongLong(&isGiven);
    const quint64 chosen = isGiven ? given : 20261121;
    qInfo("AA_THRESHOLD_SEED=%llu", static_cast<unsigned long long>(chosen));
    return chosen;
}

inline qint16 toSample(double pValue)
{
    return static_cast<qint16>(std::lround(std::min(32767.0, std::max(-32768.0, pValue))));
}

inline Samples sine(int pRate, std::size_t pCount, double pFrequency, double pAmplitude)
{
    Samples samples(pCount);
    for (std::size_t i = 0; i < pCount; ++i)
        samples[i] = toSample(pAmplitude *
                              std::sin(2.0 * kPi * pFrequency * static_cast<double>(i) / pRate));
    return samples;
}

inline Samples kicks(int pRate, std::size_t pCount, double pAmplitude)
{
    Samples samples(pCount);
    const auto period = static_cast<std::size_t>(pRate) / 2;
    for (std::size_t i = 0; i < pCount; ++i) {
        const double t = static_cast<double>(i % period) / pRate;
        samples[i] = toSample(pAmplitude * std::exp(-8.0 * t) * std::sin(2.0 * kPi * 55.0 * t));
    }
    return samples;
}

inline Samples noise(Random& pRandom, std::size_t pCount, double pAmplitude)
{
    Samples samples(pCount);
    for (qint16& sample : samples)
        sample = toSample(pAmplitude * (2.0 * pRandom.uniform() - 1.0));
    return samples;
}

inline Samples anySignal(Random& pRandom, int pRate, std::size_t pCount)
{
    const double amplitude = std::pow(10.0, 4.6 * pRandom.uniform());
    switch (pRandom.below(4)) {
    case 0:
        return sine(pRate, pCount, 20.0 + 3000.0 * pRandom.uniform(), amplitude);
    case 1:
        return kicks(pRate, pCount, amplitude);
    case 2:
        return noise(pRandom, pCount, amplitude);
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
