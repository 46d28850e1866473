// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/Profile.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <QAudioFormat>
#include <QCoreApplication>

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int kRate = 48000;                ///< Hz
constexpr std::size_t kBeatLength = 28800;  ///< samples: 100 BPM
constexpr std::size_t kSpectrum = 4096;     ///< samples

/// A tone of 93.75 Hz, eight periods in 4096 samples.
qint16 Tone(std::size_t pIndex)
{
    return qint16(20000 * std::sin(6.283185307 * 93.75 * double(pIndex) / kRate));
}

/// The bin in which the tone is loudest.
int FindPeak()
{
    std::vector<short> samples(kSpectrum);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = Tone(i);
    FastFourierTransform transform;
    transform.Compute(samples.data(), samples.size());
    const double* pAmplitudes = transform.getAmplitudes();
    int peak = 0;
    for (int i = 1; i < int(kSpectrum / 2); ++i)
        if (pAmplitudes[i] > pAmplitudes[peak])
            peak = i;
    return peak;
}

}  // namespace

/// Asks for the tempo, with the profile "Slow", and uses the transform by itself.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    Configuration configuration;
    for (const Profile& profile : configuration.getProfiles())
        if (profile.getName() == QLatin1String("Slow"))
            configuration.setSelectedProfile(profile);
    QAudioFormat format;
    format.setSampleRate(kRate);
    AudioAnalyzer analyzer(&configuration, format, nullptr);
    analyzer.Start();
    std::vector<qint16> music(std::size_t(kRate) * 30);
    for (std::size_t i = 0; i < music.size(); ++i)
        music[i] = qint16(std::exp(-double(i % kBeatLength) / 4800) * Tone(i % kBeatLength));
    analyzer.Analyze(music.data(), music.size());
    // A beat is placed within a block, 1024 samples, and the tempo is a mean over ten seconds.
    const double tempo = analyzer.getComputedBPM();
    const int peak = FindPeak();
    std::printf("tempo %.2f, peak in bin %d\n", tempo, peak);
    return std::abs(tempo - 100.0) < 1.0 && peak == 8 ? 0 : 1;
}
