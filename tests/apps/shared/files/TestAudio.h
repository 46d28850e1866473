// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <sndfile.h>
#include <vector>

/// Audio for tests: made by rule, written by libsndfile.
namespace testaudio {

constexpr double kPi = 3.14159265358979323846;

/// Mono music: a decaying 55 Hz stroke on each beat of pBPM, the first at 0 s, for pSeconds; then
/// pSilence seconds of zeros.
inline std::vector<float> Kicks(int pRate, double pBPM, double pSeconds, double pSilence = 0.0)
{
    std::vector<float> samples(std::size_t((pSeconds + pSilence) * pRate), 0.0f);
    for (int beat = 0; beat * 60.0 / pBPM < pSeconds; ++beat) {
        const auto start = std::size_t(std::llround(beat * 60.0 / pBPM * pRate));
        const auto length = std::size_t(0.3 * pRate);
        for (std::size_t i = 0; i < length && start + i < std::size_t(pSeconds * pRate); ++i) {
            const double time = double(i) / pRate;
            samples[start + i] = float(0.9 * std::exp(-time / 0.1) * std::sin(2 * kPi * 55 * time));
        }
    }
    return samples;
}

/// pCount zeros, then as many samples of a 440 Hz sine of half scale.
inline std::vector<float> LateSine(int pRate, std::size_t pCount)
{
    std::vector<float> samples(2 * pCount, 0.0f);
    for (std::size_t i = 0; i < pCount; ++i)
        samples[pCount + i] = float(0.5 * std::sin(2 * kPi * 440 * double(i) / pRate));
    return samples;
}

inline bool Write(
    const QString& pPath, int pFormat, int pRate, int pChannels, const std::vector<float>& pFrames)
{
    SF_INFO info = {};
    info.samplerate = pRate;
    info.channels = pChannels;
    info.format = pFormat;
    SNDFILE* pFile = sf_open(QFile::encodeName(pPath).constData(), SFM_WRITE, &info);
    if (pFile == nullptr)
        return false;
    // In pieces: the Vorbis encoder puts what it is given on the stack.
    constexpr sf_count_t kPiece = 4096;
    const auto count = sf_count_t(pFrames.size() / std::size_t(pChannels));
    sf_count_t written = 0;
    for (sf_count_t start = 0; start < count; start += kPiece) {
        const sf_count_t piece = count - start < kPiece ? count - start : kPiece;
        written += sf_writef_float(pFile, pFrames.data() + start * pChannels, piece);
    }
    return sf_close(pFile) == 0 && written == count;
}

/// Integer samples of full 16- (or with pFullInt 32-) bit scale, which integer formats store as
/// they are.
template <typename T>
bool WriteIntegers(
    const QString& pPath, int pFormat, int pRate, int pChannels, const std::vector<T>& pFrames)
{
    SF_INFO info = {};
    info.samplerate = pRate;
    info.channels = pChannels;
    info.format = pFormat;
    SNDFILE* pFile = sf_open(QFile::encodeName(pPath).constData(), SFM_WRITE, &info);
    if (pFile == nullptr)
        return false;
    const auto count = sf_count_t(pFrames.size());
    sf_count_t written = 0;
    if constexpr (sizeof(T) == sizeof(short))
        written = sf_write_short(pFile, pFrames.data(), count);
    else
        written = sf_write_int(pFile, pFrames.data(), count);
    return sf_close(pFile) == 0 && written == count;
}

/// The samples as raw 16-bit little-endian PCM.
inline QByteArray Raw(const std::vector<float>& pFrames)
{
    QByteArray bytes;
    for (const float sample : pFrames) {
        const auto value = qint16(std::lround(sample * 32767.0f));
        bytes.append(char(value & 0xff));
        bytes.append(char((value >> 8) & 0xff));
    }
    return bytes;
}

inline bool WriteBytes(const QString& pPath, const QByteArray& pBytes)
{
    QFile file(pPath);
    return file.open(QIODevice::WriteOnly) && file.write(pBytes) == pBytes.size();
}

inline QByteArray ReadBytes(const QString& pPath)
{
    QFile file(pPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace testaudio
