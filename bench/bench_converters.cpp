// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>

#include "BenchSignals.h"

#include <QAudioFormat>

#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr size_t kBytes = 48000;  ///< whole frames of every format

void convert(benchmark::State& state, int bits, bool isSigned, int channels)
{
    QAudioFormat format;
    format.setSampleSize(bits);
    format.setSampleType(isSigned ? QAudioFormat::SignedInt : QAudioFormat::UnSignedInt);
    format.setChannelCount(channels);
    const std::unique_ptr<AudioResampler> converter(AudioResampler::Create(format));
    const waves::Samples noise = bench::noise(kBytes / 2);
    std::vector<char> data(kBytes);
    std::memcpy(data.data(), noise.data(), kBytes);
    for (auto _ : state) {
        size_t count = 0;
        benchmark::DoNotOptimize(converter->Resample(data.data(), data.size(), count));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * data.size()));
}

bool registerAll()
{
    for (const int channels : {1, 2, 6, 3})
        for (const int bits : {8, 16, 32})
            for (const bool isSigned : {true, false}) {
                // Of these averages only a constant is left to be written.
                if (channels > 1 && bits > 8 && !isSigned)
                    continue;
                const std::string name = "converter/" + std::string(isSigned ? "s" : "u") +
                                         std::to_string(bits) + "/" + std::to_string(channels);
                benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                    convert(state, bits, isSigned, channels);
                });
            }
    return true;
}

[[maybe_unused]] const bool isRegistered = registerAll();

}  // namespace
