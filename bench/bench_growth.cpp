// SPDX-License-Identifier: MIT
#include "BenchSignals.h"
#include "Pipeline.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

// What a second of audio costs when one thing grows and the rest stays at 44100 Hz, batches of 1024
// samples, a volume window of 2 s and one analyzer.

namespace {

constexpr double kSeconds = 6.0;

struct Scene
{
    int rate = 44100;
    std::size_t batch = 1024;
    double window = 2.0;
    std::size_t analyzers = 1;
};

using Pipelines = std::vector<std::unique_ptr<Pipeline>>;

// Time overrides nest: the pipelines go in the reverse order of their making.
struct Analyses
{
    explicit Analyses(const Scene& pScene)
    {
        for (std::size_t i = 0; i < pScene.analyzers; ++i)
            pipelines.push_back(std::make_unique<Pipeline>(pScene.rate, pScene.window));
    }

    ~Analyses()
    {
        while (!pipelines.empty())
            pipelines.pop_back();
    }

    Pipelines pipelines;
};

void play(waves::Samples& pSamples, std::size_t pBatch, const Pipelines& pPipelines)
{
    for (std::size_t at = 0; at < pSamples.size(); at += pBatch)
        for (const auto& pipeline : pPipelines)
            pipeline->analyze(pSamples.data() + at, std::min(pBatch, pSamples.size() - at));
}

void measure(benchmark::State& state, const Scene& scene)
{
    waves::Samples samples = waves::kickTrack(kSeconds, scene.rate, 128.0);
    const Analyses analyses(scene);
    play(samples, scene.batch, analyses.pipelines);
    for (auto _ : state)
        play(samples, scene.batch, analyses.pipelines);
    state.counters["audio"] = benchmark::Counter(kSeconds * static_cast<double>(state.iterations()),
                                                 benchmark::Counter::kIsRate);
}

void add(const char* pWhat, double pValue, const Scene& pScene)
{
    const std::string name =
        "growth/" + std::string(pWhat) + "/" + QByteArray::number(pValue).toStdString();
    benchmark::RegisterBenchmark(name.c_str(), measure, pScene)->Unit(benchmark::kMicrosecond);
}

bool registerAll()
{
    for (const int rate : {8000, 16000, 22050, 32000, 44100, 48000, 96000, 192000})
        add("rate", rate, {rate});
    for (const std::size_t batch : {1u, 4u, 16u, 64u, 256u, 1024u, 4096u, 16384u, 65536u})
        add("batch", static_cast<double>(batch), {44100, batch});
    for (const double window : {0.1, 0.3, 1.0, 3.0, 10.0, 30.0, 60.0})
        add("window", window, {44100, 1024, window});
    for (const std::size_t analyzers : {1u, 2u, 4u, 8u, 16u, 32u, 64u})
        add("analyzers", static_cast<double>(analyzers), {44100, 1024, 2.0, analyzers});
    return true;
}

[[maybe_unused]] const bool isRegistered = registerAll();

}  // namespace
