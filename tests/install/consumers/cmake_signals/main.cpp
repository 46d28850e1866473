// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QCoreApplication>

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int kRate = 44100;        ///< Hz
constexpr int kBeatLength = 22050;  ///< samples: 120 BPM
constexpr int kSeconds = 30;

/// Strokes of a 60 Hz tone, 120 a minute, each louder than what is left of the one before.
std::vector<qint16> MakeMusic()
{
    std::vector<qint16> music(std::size_t(kRate) * kSeconds);
    for (std::size_t i = 0; i < music.size(); ++i) {
        const double time = double(i % kBeatLength) / kRate;
        music[i] = qint16(29000 * std::exp(-time / 0.1) * std::sin(6.283185307 * 60 * time));
    }
    return music;
}

}  // namespace

/// Hears tempo and pulses through signals, in a time that the samples tell.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    HighResolutionTimerOverride clock(1);
    Configuration configuration;
    QAudioFormat format;
    format.setSampleRate(kRate);
    AudioAnalyzer analyzer(&configuration, format, nullptr);
    double tempo = 0.0;
    int pulseCount = 0;
    QObject::connect(
        &analyzer, &AudioAnalyzer::OnBPMChanged, [&tempo](double pBPM) { tempo = pBPM; });
    QObject::connect(
        &analyzer, &AudioAnalyzer::OnPulseDetected, [&pulseCount](const Pulse& pPulse) {
            pulseCount += pPulse.getType() == eVirtualBeat ? 0 : 1;
        });
    analyzer.Start();
    std::vector<qint16> music = MakeMusic();
    constexpr std::size_t kBatch = 441;
    for (std::size_t i = 0; i < music.size(); i += kBatch) {
        clock.setTime(1 + (i + kBatch) * 1000000 / kRate);
        analyzer.Analyze(&music[i], kBatch);
    }
    std::printf("version %s, %d pulses, tempo %.2f\n", AUDIOANALYZER_VERSION, pulseCount, tempo);
    // A beat is placed within a block, 1024 samples, and the tempo is a mean over ten seconds.
    return pulseCount >= 2 * kSeconds - 4 && std::abs(tempo - 120.0) < 1.0 ? 0 : 1;
}
