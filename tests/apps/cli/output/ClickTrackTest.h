// SPDX-License-Identifier: MIT
#pragma once

#include <cli/output/ClickTrack.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <random>
#include <sndfile.h>
#include <vector>

using Samples = std::vector<qint16>;

constexpr int kRealPeak = 20000;    ///< first sample of a real beat's click
constexpr int kVirtualPeak = 9000;  ///< first sample of a virtual beat's click
constexpr double kClickSeconds = 0.03;

inline LoggedBeat makeBeat(quint64 pIndex, bool pIsVirtual = false)
{
    return {pIndex, 0.0, pIsVirtual, 0, 1.0, 0.0};
}

/// Random music that leaves room for a click's first sample.
inline Samples makeMusic(std::size_t pCount)
{
    const unsigned seed = qEnvironmentVariableIsSet("AA_SEED")
                              ? qEnvironmentVariable("AA_SEED").toUInt()
                              : std::random_device{}();
    qInfo("AA_SEED=%u", seed);
    std::mt19937 random(seed);
    Samples music(pCount);
    for (qint16& sample : music)
        sample = qint16(int(random() % 24000) - 12000);
    return music;
}

inline std::vector<float> toFloat(const Samples& pSamples)
{
    std::vector<float> values;
    for (const qint16 sample : pSamples)
        values.push_back(float(sample) / 32768.0F);
    return values;
}

struct Track
{
    SF_INFO info = {};
    Samples samples;
};

inline Track readTrack(const QString& pPath)
{
    Track track;
    SNDFILE* file = sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &track.info);
    if (file != nullptr) {
        track.samples.resize(std::size_t(track.info.frames * track.info.channels));
        sf_readf_short(file, track.samples.data(), track.info.frames);
        sf_close(file);
    }
    return track;
}

/// Sign changes in the first 10 ms: twice the frequency times 0.01 s.
inline int countSignChanges(const Samples& pSamples, std::size_t pStart, int pRate)
{
    int changes = 0;
    for (std::size_t i = pStart; i < pStart + std::size_t(pRate / 100); ++i)
        changes += (pSamples[i] < 0) != (pSamples[i + 1] < 0) ? 1 : 0;
    return changes;
}

inline double sumSquares(const Samples& pSamples, std::size_t pFirst, std::size_t pLast)
{
    double sum = 0.0;
    for (std::size_t i = pFirst; i < pLast; ++i)
        sum += double(pSamples[i]) * pSamples[i];
    return sum;
}

/// A click track of its own, and the folder that it is written to.
class ClickFolder
{
public:
    QString path() const { return m_folder->filePath(QStringLiteral("click.wav")); }
    QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// Empty when it could not be made.
    Track make(const Samples& pMusic,
               const std::vector<LoggedBeat>& pBeats,
               int pChannels = 1,
               int pRate = 44100) const
    {
        ClickTrack track;
        const std::vector<float> music = toFloat(pMusic);
        const bool isMade = track.Open(path(), pRate, pChannels) &&
                            track.Append(music.data(), music.size() / std::size_t(pChannels)) &&
                            track.Finish(pBeats);
        return isMade ? readTrack(path()) : Track();
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>();
};
