// SPDX-License-Identifier: MIT
#include "FakeAudioTrack.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int kRiffHeaderSize = 12;
constexpr int kChunkHeaderSize = 8;
constexpr int kFormatChunkSize = 16;
constexpr quint16 kIntegerPcm = 1;

struct Wav
{
    int channelCount = 0;
    int sampleRate = 0;  // Hz
    int sampleSize = 0;  // bits
    QByteArray data;

    bool isValid() const { return channelCount > 0 && sampleRate > 0 && !data.isEmpty(); }
};

template <typename T>
T Number(const QByteArray& pBytes, int pOffset)
{
    return qFromLittleEndian<T>(pBytes.constData() + pOffset);
}

void TakeFormat(Wav& pWav, const QByteArray& pChunk)
{
    if (pChunk.size() < kFormatChunkSize || Number<quint16>(pChunk, 0) != kIntegerPcm)
        return;
    pWav.channelCount = Number<quint16>(pChunk, 2);
    pWav.sampleRate = static_cast<int>(Number<quint32>(pChunk, 4));
    pWav.sampleSize = Number<quint16>(pChunk, 14);
}

Wav ReadWav(const QByteArray& pFile)
{
    Wav wav;
    for (qint64 at = kRiffHeaderSize; at + kChunkHeaderSize <= pFile.size();) {
        const int chunk = static_cast<int>(at);
        const qint64 size = Number<quint32>(pFile, chunk + 4);
        const QByteArray body = pFile.mid(chunk + kChunkHeaderSize,
                                          static_cast<int>(std::min<qint64>(size, pFile.size())));
        const QByteArray id = pFile.mid(chunk, 4);
        if (id == "fmt ")
            TakeFormat(wav, body);
        else if (id == "data")
            wav.data = body;
        at += kChunkHeaderSize + size + size % 2;
    }
    return wav;
}

FakeAudioDevice::Source PlayBytes(const QByteArray& pData, bool pIsLooped)
{
    return [pData, pIsLooped, at = 0](const QAudioFormat& pFormat, int pFrames) mutable {
        const int wanted = pFormat.bytesForFrames(pFrames);
        QByteArray bytes = pData.mid(at, wanted);
        at += bytes.size();
        while (pIsLooped && bytes.size() < wanted) {
            at = std::min(wanted - bytes.size(), pData.size());
            bytes += pData.left(at);
        }
        return bytes;
    };
}

FakeAudioDevice::Source PlayGenerator(const FakeAudioTrack::Generator& pGenerator)
{
    return [pGenerator, index = qint64{0}](const QAudioFormat&, int pFrames) mutable {
        QByteArray bytes;
        bytes.reserve(pFrames * int(sizeof(qint16)));
        for (int i = 0; i < pFrames; ++i) {
            const qint16 sample = pGenerator(index++);
            bytes.append(reinterpret_cast<const char*>(&sample), sizeof(sample));
        }
        return bytes;
    };
}

}  // namespace

FakeAudioDevice
FakeAudioTrack::FromGenerator(const QString& pName, int pSampleRate, const Generator& pGenerator)
{
    FakeAudioDevice device;
    device.name = pName;
    device.sampleRates = {pSampleRate};
    device.makeSource = [pGenerator] { return PlayGenerator(pGenerator); };
    return device;
}

FakeAudioDevice
FakeAudioTrack::FromWavFile(const QString& pName, const QString& pPath, bool pIsLooped)
{
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly))
        return FakeAudioDevice();
    const Wav wav = ReadWav(file.readAll());
    if (!wav.isValid())
        return FakeAudioDevice();
    FakeAudioDevice device;
    device.name = pName;
    device.sampleRates = {wav.sampleRate};
    device.sampleSizes = {wav.sampleSize};
    device.channelCounts = {wav.channelCount};
    device.sampleTypes = {wav.sampleSize == 8 ? QAudioFormat::UnSignedInt
                                              : QAudioFormat::SignedInt};
    device.makeSource = [wav, pIsLooped] { return PlayBytes(wav.data, pIsLooped); };
    return device;
}
