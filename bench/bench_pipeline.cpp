// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include "BenchSignals.h"

#include <QAudioFormat>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace {

constexpr int kRate = 44100;
constexpr size_t kBatch = 1024;
constexpr quint64 kStart = 1700000000000000;

class Pipeline
{
public:
    Pipeline() : m_clock(kStart), m_analyzer(&configured(m_configuration), format(), nullptr)
    {
        const auto nothing = [] {};
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAmplitudesComputed, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAnalysisStarted, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnAnalysisStopped, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnBeat, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnBPMChanged, nothing);
        QObject::connect(&m_analyzer, &AudioAnalyzer::OnPulseDetected, nothing);
        m_analyzer.Start();
    }

    void analyze(qint16* pSamples, size_t pCount)
    {
        m_fed += pCount;
        m_clock.setTime(kStart + m_fed * 1000000 / kRate);
        m_analyzer.Analyze(pSamples, pCount);
    }

    double bpm() const { return m_analyzer.getCurrentBPM(); }

private:
    static Configuration& configured(Configuration& pConfiguration)
    {
        pConfiguration.setStopDetectionDuration(1.5);
        for (const Profile& profile : pConfiguration.getProfiles())
            if (profile.getName() == QLatin1String("Electro"))
                pConfiguration.setSelectedProfile(profile);
        return pConfiguration;
    }

    static QAudioFormat format()
    {
        QAudioFormat format;
        format.setSampleRate(kRate);
        return format;
    }

    HighResolutionTimerOverride m_clock;
    Configuration m_configuration;
    AudioAnalyzer m_analyzer;
    quint64 m_fed = 0;
};

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
