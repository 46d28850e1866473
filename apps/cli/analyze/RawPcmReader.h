// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioSource.h>

#include <QByteArray>
#include <QCoreApplication>

#include <vector>

/// Raw PCM, 16-bit signed little-endian, interleaved, from standard input or a file.
///
/// A frame that is cut off at the end is left out. A signal that interrupts the reading ends it
/// with an error, so that a host can leave while it waits for data.
class RawPcmReader : public AudioSource
{
    Q_DECLARE_TR_FUNCTIONS(RawPcmReader)

public:
    static constexpr int kMaximalChannels = 64;

    /// pRate in Hz within the limits of AudioSource; pChannels 1 to kMaximalChannels.
    RawPcmReader(int pRate, int pChannels);
    ~RawPcmReader() override;

    /// Opens pPath, or standard input for "-". False when it is not usable; getError() says why.
    bool Open(const QString& pPath);

    int getSampleRate() const override { return m_rate; }
    int getChannelCount() const override { return m_channels; }
    quint64 getFrameCount() const override { return m_frameCount; }
    std::size_t Read(qint16* pSamples, std::size_t pCount) override;
    const float* getFrames() const override { return m_frames.data(); }
    QString getError() const override { return m_error; }

private:
    std::size_t _Fill(std::size_t pSize);

    int m_rate;  ///< Hz
    int m_channels;
    int m_descriptor = -1;
    quint64 m_frameCount = 0;     ///< frames promised; 0 = unknown
    QByteArray m_bytes;           ///< reused
    std::vector<float> m_frames;  ///< last frames read, interleaved
    QString m_error;
};
