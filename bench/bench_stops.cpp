// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "BenchSignals.h"

#include <benchmark/benchmark.h>

// One stop block: 1.5 s at 44100 Hz, 131072 points. Loud music rises above the threshold of a tenth
// of full scale, music at -24 dB does not and is too strong for the energy bound: the worst case.

namespace {

constexpr BandPassThreshold::Question kQuestion{50, 2000, 44100, 3276};
constexpr std::size_t kCount = 66150;

waves::Samples block(int pDivisor)
{
    const waves::Samples& track = bench::track();
    waves::Samples samples(track.begin(), track.begin() + kCount);
    for (qint16& sample : samples)
        sample = static_cast<qint16>(sample / pDivisor);
    return samples;
}

void decide(benchmark::State& state, int divisor)
{
    const waves::Samples samples = block(divisor);
    BandPassThreshold decision;
    FastFourierTransform transform;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            decision.RisesAbove(samples.data(), samples.size(), kQuestion, transform));
}

void decidePlain(benchmark::State& state)
{
    const waves::Samples samples = block(1);
    FastFourierTransform transform;
    for (auto _ : state)
        benchmark::DoNotOptimize(BandPassThreshold::RisesAboveByTransform(
            samples.data(), samples.size(), kQuestion, transform));
}

[[maybe_unused]] const auto* const pLoud =
    benchmark::RegisterBenchmark("stop decision/loud music", decide, 1);
[[maybe_unused]] const auto* const pQuiet =
    benchmark::RegisterBenchmark("stop decision/music at -24 dB", decide, 16);
[[maybe_unused]] const auto* const pFaint =
    benchmark::RegisterBenchmark("stop decision/faint noise", decide, 1000);
BENCHMARK(decidePlain)->Name("stop decision/full transform");

}  // namespace
