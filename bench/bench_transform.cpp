// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/TransformKernels.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>

#include "AlignedValues.h"
#include "BenchSignals.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>
#include <reference/PlainFourier.h>
#include <string>

namespace {

constexpr size_t kLengths[] = {1024, 131072};

size_t bitsOf(size_t length)
{
    size_t bits = 0;
    while ((size_t(1) << bits) < length)
        ++bits;
    return bits;
}

void measureFftw(benchmark::State& state, size_t length, int sign, bool isInPlace)
{
    fftw_complex* pIn = fftw_alloc_complex(length);
    fftw_complex* pOut = isInPlace ? pIn : fftw_alloc_complex(length);
    const int size = static_cast<int>(length);
    fftw_plan plan = fftw_plan_dft_1d(size, pIn, pOut, sign, FFTW_MEASURE);
    const waves::Samples samples = bench::noise(length);
    for (size_t i = 0; i < length; ++i)
        pIn[i][0] = pIn[i][1] = 0.0;
    for (auto _ : state) {
        // In place, values would grow without end; zeros cost the same.
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    fftw_destroy_plan(plan);
    if (!isInPlace)
        fftw_free(pOut);
    fftw_free(pIn);
}

void measureKernel(benchmark::State& state,
                   const detail::TransformKernel& kernel,
                   size_t length,
                   bool isInverse)
{
    const size_t bits = bitsOf(length);
    const detail::TwiddleTables& twiddles = detail::twiddleTables(isInverse, bits);
    const waves::Samples samples = bench::noise(length);
    const AlignedValues inReal(length), inImaginary(length), real(length), imaginary(length);
    std::copy(samples.begin(), samples.end(), inReal.data());
    const double scale = isInverse ? 1.0 / static_cast<double>(length) : 1.0;
    for (auto _ : state) {
        kernel.fromDoubles(twiddles,
                           bits,
                           inReal.data(),
                           inImaginary.data(),
                           length,
                           real.data(),
                           imaginary.data(),
                           scale);
        benchmark::ClobberMemory();
    }
}

void measurePlain(benchmark::State& state, size_t length)
{
    const waves::Samples samples = bench::noise(length);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            plain::transform<short>(samples.data(), nullptr, length, false).real.data());
}

void measureCompute(benchmark::State& state, size_t length)
{
    const waves::Samples samples = bench::noise(length);
    FastFourierTransform transform;
    for (auto _ : state) {
        transform.Compute(samples.data(), length);
        benchmark::ClobberMemory();
    }
}

void measureComputeInverse(benchmark::State& state, size_t length)
{
    const waves::Samples samples = bench::noise(length);
    FastFourierTransform transform;
    transform.Compute(samples.data(), length);
    for (auto _ : state) {
        short* pOut = nullptr;
        size_t count = 0;
        transform.ComputeInverse(pOut, count);
        benchmark::DoNotOptimize(pOut);
        benchmark::ClobberMemory();
    }
}

template <typename Function, typename... Arguments>
void add(const std::string& name, Function function, Arguments... arguments)
{
    benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& state) { function(state, arguments...); });
}

bool registerAll()
{
    for (const size_t length : kLengths) {
        const std::string suffix = "/" + std::to_string(length);
        add("transform/fftw" + suffix, measureFftw, length, FFTW_BACKWARD, false);
        add("transform/fftw in place" + suffix, measureFftw, length, FFTW_BACKWARD, true);
        add("transform/plain" + suffix, measurePlain, length);
        add("transform/Compute" + suffix, measureCompute, length);
        add("transform/ComputeInverse" + suffix, measureComputeInverse, length);
        for (const auto* const* ppKernel = detail::kTransformKernels; *ppKernel; ++ppKernel) {
            if (!detail::isSupported(**ppKernel))
                continue;
            const std::string prefix = std::string("transform/") + (*ppKernel)->name;
            for (const bool isInverse : {false, true}) {
                const std::string name = prefix + (isInverse ? " inverse" : " forward") + suffix;
                benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                    measureKernel(state, **ppKernel, length, isInverse);
                });
            }
        }
    }
    return true;
}

[[maybe_unused]] const bool isRegistered = registerAll();

}  // namespace
