// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Configuration.h>

#include <apps/desktop/PanelTest.h>
#include <demo/DemoTrack.h>
#include <shared/settings/ConfigurationStore.h>

#include <QDir>
#include <QFile>

#include <cmath>
#include <fake/FakeAudioTrack.h>
#include <sndfile.h>
#include <vector>

/// What the tests of the desktop host share, besides what the tests of its panels do.
namespace desktoptest {

constexpr int kRate = 48000;  ///< Hz

/// Sample pIndex of steady music at 128 BPM: a decaying 55 Hz stroke on each beat.
inline qint16 Stroke(qint64 pIndex, double pVolume = 29000.0)
{
    const double time = std::fmod(double(pIndex), 22500.0) / kRate;
    return qint16(pVolume * std::exp(-time / 0.1) *
                  std::sin(2.0 * 3.14159265358979323846 * 55.0 * time));
}

inline FakeAudioDevice MusicDevice(const char* pName)
{
    return FakeAudioTrack::FromGenerator(
        QLatin1String(pName), kRate, [](qint64 pIndex) { return Stroke(pIndex); });
}

inline FakeAudioDevice SilentDevice(const char* pName)
{
    return FakeAudioTrack::FromGenerator(
        QLatin1String(pName), kRate, [](qint64) { return qint16(0); });
}

inline std::vector<qint16> Strokes(double pSeconds)
{
    std::vector<qint16> samples;
    for (qint64 i = 0; i < qint64(pSeconds * kRate); ++i)
        samples.push_back(Stroke(i));
    return samples;
}

/// Writes a mono WAV file.
inline void WriteWav(const QString& pPath, const std::vector<qint16>& pSamples)
{
    SF_INFO info = {};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* pFile = sf_open(QFile::encodeName(pPath).constData(), SFM_WRITE, &info);
    const auto count = sf_count_t(pSamples.size());
    if (!pFile || sf_write_short(pFile, pSamples.data(), count) != count || sf_close(pFile) != 0)
        qFatal("cannot write %s", qPrintable(pPath));
}

/// pSeconds of the demo track, mono, from pStart seconds on.
inline std::vector<qint16> DemoPart(double pStart, double pSeconds)
{
    DemoTrack::Options options;
    options.sampleRate = kRate;
    DemoTrack track(options);
    const auto first = std::size_t(pStart * kRate);
    const std::size_t last = first + std::size_t(pSeconds * kRate);
    std::vector<float> frames(2 * last);
    track.Read(frames.data(), last);
    std::vector<qint16> samples;
    for (std::size_t i = first; i < last; ++i)
        samples.push_back(qint16(16383.0F * (frames[2 * i] + frames[2 * i + 1])));
    return samples;
}

/// Takes away what an earlier test has stored beside the test program.
inline void ForgetSettings()
{
    QFile::remove(ConfigurationStore::getPath());
}

}  // namespace desktoptest
