// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>

#include "BenchSignals.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <vector>

namespace {

constexpr size_t kBlock = 1024;
constexpr size_t kWindow = 88200;

waves::Samples filledWindow()
{
    waves::Samples samples = bench::noise(kWindow + kBlock);
    for (short& sample : samples)
        sample = static_cast<short>(std::abs(sample));
    return samples;
}

void statistics(benchmark::State& state)
{
    waves::Samples samples = filledWindow();
    AudioSamplesStats stats(2.0, 44100.0);
    stats.Update(samples.data(), samples.size());
    for (auto _ : state) {
        stats.Update(samples.data(), kBlock);
        benchmark::DoNotOptimize(stats.getAverageVolume() + stats.getMaximalVolume());
    }
}
BENCHMARK(statistics)->Name("statistics/block of 1024 in a window of 2 s");

void statisticsPlain(benchmark::State& state)
{
    const waves::Samples samples = filledWindow();
    for (auto _ : state) {
        long long sum = 0;
        short maximum = samples[0];
        short minimum = samples[0];
        for (size_t i = 0; i < kWindow; ++i) {
            sum += samples[i];
            maximum = std::max(maximum, samples[i]);
            minimum = std::min(minimum, samples[i]);
        }
        benchmark::DoNotOptimize(sum + maximum + minimum);
    }
}
BENCHMARK(statisticsPlain)->Name("statistics/straight pass over the window");

}  // namespace
