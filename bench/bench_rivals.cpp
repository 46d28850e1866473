// SPDX-License-Identifier: MIT
#include "BenchSignals.h"

#include <aubio/aubio.h>
#include <benchmark/benchmark.h>
#include <soundtouch/BPMDetect.h>
#include <vector>

// Other tempo trackers on the samples of bench_pipeline.cpp, with their usual settings.

namespace {

constexpr unsigned int kRate = 44100;

std::vector<float> trackAsFloats()
{
    std::vector<float> result;
    for (const short sample : bench::track())
        result.push_back(static_cast<float>(sample) / 32768.0F);
    return result;
}

void setRealTime(benchmark::State& state, size_t samples)
{
    const double seconds = static_cast<double>(samples) / kRate;
    state.counters["realtime"] = benchmark::Counter(
        seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void aubioTempo(benchmark::State& state)
{
    constexpr unsigned int kHop = 512;
    std::vector<float> samples = trackAsFloats();
    aubio_tempo_t* pTempo = new_aubio_tempo("default", 1024, kHop, kRate);
    fvec_t* pBeat = new_fvec(1);
    for (auto _ : state)
        for (size_t at = 0; at + kHop <= samples.size(); at += kHop) {
            const fvec_t hop = {kHop, samples.data() + at};
            aubio_tempo_do(pTempo, &hop, pBeat);
        }
    state.counters["bpm"] = static_cast<double>(aubio_tempo_get_bpm(pTempo));
    setRealTime(state, samples.size());
    del_fvec(pBeat);
    del_aubio_tempo(pTempo);
}
BENCHMARK(aubioTempo)->Name("pipeline/aubio tempo")->Unit(benchmark::kMillisecond);

// Its samples may be floats or 16-bit integers, as the package was built.
soundtouch::SAMPLETYPE toSampleType(float pSample)
{
#ifdef SOUNDTOUCH_INTEGER_SAMPLES
    return static_cast<soundtouch::SAMPLETYPE>(pSample * 32767.0F);
#else
    return pSample;
#endif
}

void soundTouchBpm(benchmark::State& state)
{
    constexpr size_t kBatch = 1024;
    std::vector<soundtouch::SAMPLETYPE> samples;
    for (const float sample : trackAsFloats())
        samples.push_back(toSampleType(sample));
    double bpm = 0.0;
    for (auto _ : state) {
        soundtouch::BPMDetect detector(1, kRate);
        for (size_t at = 0; at + kBatch <= samples.size(); at += kBatch)
            detector.inputSamples(samples.data() + at, static_cast<int>(kBatch));
        bpm = static_cast<double>(detector.getBpm());
    }
    state.counters["bpm"] = bpm;
    setRealTime(state, samples.size());
}
BENCHMARK(soundTouchBpm)->Name("pipeline/SoundTouch BPMDetect")->Unit(benchmark::kMillisecond);

}  // namespace
