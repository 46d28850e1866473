// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioSource.h>

#include <QCoreApplication>

#include <memory>
#include <sndfile.h>
#include <vector>

/// An audio file in any format that libsndfile reads: WAV, FLAC, Ogg Vorbis, Opus, MP3, AIFF and
/// more.
///
/// It is streamed, so its length does not matter. A file that holds less than it promises, or that
/// is damaged on the way, ends with an error.
class AudioFileReader : public AudioSource
{
    Q_DECLARE_TR_FUNCTIONS(AudioFileReader)

public:
    /// Opens pPath, or standard input for "-". False when it is not usable; getError() says why.
    /// To be called once.
    bool Open(const QString& pPath);

    int getSampleRate() const override { return m_info.samplerate; }
    int getChannelCount() const override { return m_info.channels; }
    quint64 getFrameCount() const override { return m_frameCount; }
    std::size_t Read(qint16* pSamples, std::size_t pCount) override;
    const float* getFrames() const override { return m_frames.data(); }
    QString getError() const override { return m_error; }

private:
    struct Closer
    {
        void operator()(SNDFILE* pFile) const { sf_close(pFile); }
    };

    bool _CheckPath(const QString& pPath);
    bool _CheckFormat();
    bool _CheckWhole(const QString& pPath);
    std::size_t _ReadFrames(std::size_t pCount);
    void _CheckEnd();
    bool _Fail(const QString& pReason);

    std::unique_ptr<SNDFILE, Closer> m_file;
    SF_INFO m_info = {};
    bool m_isRegular = false;  ///< a file on disk, not a pipe
    quint64 m_frameCount = 0;  ///< frames promised; 0 = unknown
    quint64 m_framesRead = 0;
    std::vector<float> m_frames;  ///< last frames read, interleaved
    QString m_error;
};
