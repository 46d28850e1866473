// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "BenchSignals.h"

#include <benchmark/benchmark.h>
#include <reference/PlainSpectrum.h>

namespace {

/// A transform with a spectrum; a filter marks its amplitudes stale again without touching a bin.
struct Fixture
{
    explicit Fixture(size_t pLength) : samples(bench::noise(pLength))
    {
        transform.Compute(samples.data(), pLength);
    }

    waves::Samples samples;
    FastFourierTransform transform;
};

void amplitudes(benchmark::State& state)
{
    Fixture fixture(static_cast<size_t>(state.range(0)));
    for (auto _ : state) {
        fixture.transform.HighPassFilter(0, 44100);
        benchmark::DoNotOptimize(fixture.transform.getAmplitudes());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(amplitudes)->Name("spectrum/getAmplitudes")->Arg(1024)->Arg(131072);

void amplitudesPlain(benchmark::State& state)
{
    const size_t half = static_cast<size_t>(state.range(0)) / 2;
    const plain::Values real(half, 3.0);
    const plain::Values imaginary(half, 4.0);
    plain::Values out(half);
    for (auto _ : state) {
        double peak = 0.0;
        for (size_t i = 0; i < half; ++i)
            out[i] = real[i] * real[i] + imaginary[i] * imaginary[i];
        for (size_t i = 0; i < half; ++i)
            peak = out[i] > peak ? out[i] : peak;
        for (size_t i = 0; i < half; ++i)
            out[i] /= peak;
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(amplitudesPlain)->Name("spectrum/straight passes")->Arg(1024)->Arg(131072);

void bandPass(benchmark::State& state)
{
    Fixture fixture(static_cast<size_t>(state.range(0)));
    for (auto _ : state) {
        fixture.transform.BandPassFilter(50, 2000, 44100);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bandPass)->Name("spectrum/BandPassFilter")->Arg(1024)->Arg(131072);

/// Every bin times a window of ones and zeros.
void bandPassPlain(benchmark::State& state)
{
    const size_t length = static_cast<size_t>(state.range(0));
    plain::Spectrum spectrum{plain::Values(length, 3.0), plain::Values(length, 4.0)};
    plain::Spectrum window{plain::Values(length, 1.0), plain::Values(length)};
    plain::bandPass(window, 50, 2000, 44100);
    for (auto _ : state) {
        for (size_t i = 0; i < length; ++i) {
            spectrum.real[i] *= window.real[i];
            spectrum.imaginary[i] *= window.real[i];
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bandPassPlain)->Name("spectrum/straight band-pass")->Arg(1024)->Arg(131072);

void strongestBands(benchmark::State& state)
{
    Fixture fixture(static_cast<size_t>(state.range(0)));
    for (auto _ : state) {
        FrequencyBandAmplitude* pBands = nullptr;
        benchmark::DoNotOptimize(fixture.transform.FindMaximalAmplitudes(5, 44100, pBands, 0.01));
    }
}
BENCHMARK(strongestBands)->Name("spectrum/FindMaximalAmplitudes")->Arg(1024)->Arg(131072);

}  // namespace
