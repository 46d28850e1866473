// SPDX-License-Identifier: MIT
#include "BenchSignals.h"
#include "Pipeline.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace {

constexpr int kRate = 44100;
constexpr size_t kBatch = 1024;

template <typename Visitor>
void forEachBatch(waves::Samples& samples, Visitor visit)
{
    for (size_t at = 0; at < samples.size(); at += kBatch)
        visit(samples.data() + at, std::min(kBatch, samples.size() - at));
}

double secondsOf(const waves::Samples& samples)
{
    return static_cast<double>(samples.size()) / kRate;
}

void pipeline(benchmark::State& state)
{
    waves::Samples samples = bench::track();
    Pipeline analysis;
    for (auto _ : state)
        forEachBatch(samples,
                     [&](qint16* pSamples, size_t count) { analysis.analyze(pSamples, count); });
    state.counters["realtime"] = benchmark::Counter(
        secondsOf(samples) * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["bpm"] = analysis.bpm();
}
BENCHMARK(pipeline)->Name("pipeline/this library")->Unit(benchmark::kMillisecond);

// Least over the passes of the longest call of a pass: what is longer once and not again was the
// machine's doing.
void worstCall(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    waves::Samples samples = bench::track();
    Pipeline analysis;
    double worst = 0.0;
    for (auto _ : state) {
        double longest = 0.0;
        forEachBatch(samples, [&](qint16* pSamples, size_t count) {
            const Clock::time_point start = Clock::now();
            analysis.analyze(pSamples, count);
            const std::chrono::duration<double> time = Clock::now() - start;
            longest = std::max(longest, time.count());
        });
        worst = worst == 0.0 ? longest : std::min(worst, longest);
        state.SetIterationTime(longest);
    }
    state.counters["least"] = worst;
}
BENCHMARK(worstCall)
    ->Name("pipeline/worst Analyze call of a minute")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
