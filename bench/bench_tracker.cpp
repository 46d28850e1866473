// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>
#include <AudioAnalyzer/analysis/detail/MeterEvidence.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include "BenchSignals.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <vector>

// The automatic tracker, whole and in parts, on the samples of bench_pipeline.cpp.

namespace {

constexpr int kTrackerRate = 44100;
constexpr std::size_t kPortion = 1024;

void tellRealTime(benchmark::State& state)
{
    const double seconds = static_cast<double>(bench::track().size()) / kTrackerRate;
    state.counters["realtime"] = benchmark::Counter(
        seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// Calls visit() after each frame.
template <typename Visitor>
void hearTrack(OnsetLevels& onsets, Visitor visit)
{
    const waves::Samples& samples = bench::track();
    for (std::size_t at = 0; at < samples.size();) {
        at += onsets.Push(samples.data() + at, std::min(kPortion, samples.size() - at));
        if (onsets.isFrameComplete())
            visit();
    }
}

const std::vector<OnsetLevels::Levels>& levelsOfTrack()
{
    static const std::vector<OnsetLevels::Levels> levels = [] {
        std::vector<OnsetLevels::Levels> result;
        OnsetLevels onsets(kTrackerRate);
        hearTrack(onsets, [&] { result.push_back(onsets.getLevels()); });
        return result;
    }();
    return levels;
}

void trackerOnsets(benchmark::State& state)
{
    OnsetLevels onsets(kTrackerRate);
    for (auto _ : state)
        hearTrack(onsets, [&] { benchmark::DoNotOptimize(onsets.getLevels()); });
    tellRealTime(state);
}
BENCHMARK(trackerOnsets)->Name("tracker/onsets")->Unit(benchmark::kMillisecond);

void trackerFilter(benchmark::State& state)
{
    const std::vector<OnsetLevels::Levels>& levels = levelsOfTrack();
    detail::MeterEvidence evidence(detail::kMeterTable);
    detail::MeterFilter filter;
    for (auto _ : state)
        for (const OnsetLevels::Levels& frame : levels)
            benchmark::DoNotOptimize(filter.Update(evidence.Weigh(frame)));
    tellRealTime(state);
}
BENCHMARK(trackerFilter)->Name("tracker/filter")->Unit(benchmark::kMillisecond);

void trackerDecision(benchmark::State& state)
{
    detail::MeterEvidence evidence(detail::kMeterTable);
    detail::MeterFilter filter;
    for (const OnsetLevels::Levels& frame : levelsOfTrack())
        filter.Update(evidence.Weigh(frame));
    detail::BeatDecision decision(filter.getStates());
    quint64 frame = 0;
    for (auto _ : state)
        for (std::size_t i = 0; i < levelsOfTrack().size(); ++i)
            benchmark::DoNotOptimize(decision.Update(++frame, filter));
    tellRealTime(state);
}
BENCHMARK(trackerDecision)->Name("tracker/decision")->Unit(benchmark::kMillisecond);

template <typename Visitor>
void forEachPortion(Visitor visit)
{
    const waves::Samples& samples = bench::track();
    for (std::size_t at = 0; at < samples.size(); at += kPortion)
        visit(samples.data() + at, std::min(kPortion, samples.size() - at));
}

void trackerWhole(benchmark::State& state)
{
    MeterTracker tracker(kTrackerRate);
    double beats = 0.0;
    QObject::connect(&tracker, &MeterTracker::OnBeatForeseen, [&] { beats += 1.0; });
    for (auto _ : state)
        forEachPortion(
            [&](const qint16* pSamples, std::size_t count) { tracker.Push(pSamples, count); });
    tellRealTime(state);
    state.counters["bpm"] = tracker.getBPM();
    state.counters["beats"] = beats / static_cast<double>(state.iterations());
}
BENCHMARK(trackerWhole)->Name("tracker/whole")->Unit(benchmark::kMillisecond);

/// Seconds that this thread has worked.
double threadSeconds()
{
    std::timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// Its own time, since a machine that does something else meanwhile makes any call long.
void trackerWorstCall(benchmark::State& state)
{
    MeterTracker tracker(kTrackerRate);
    for (auto _ : state) {
        double longest = 0.0;
        forEachPortion([&](const qint16* pSamples, std::size_t count) {
            const double start = threadSeconds();
            tracker.Push(pSamples, count);
            longest = std::max(longest, threadSeconds() - start);
        });
        state.SetIterationTime(longest);
    }
}
BENCHMARK(trackerWorstCall)
    ->Name("tracker/worst Push of 1024 samples of a minute")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
