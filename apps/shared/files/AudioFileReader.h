// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioSource.h>
#include <shared/files/detail/InputDescriptor.h>
#include <shared/files/detail/UnclosedWav.h>

#include <QCoreApplication>

#include <memory>
#include <sndfile.h>
#include <vector>

/// An audio file in any format that libsndfile reads: WAV, FLAC, Ogg Vorbis, Opus, MP3, AIFF and
/// more.
///
/// It is streamed, so its length does not matter; a pipe whose decoder must seek is first read to
/// its end. A file that holds less than it promises, or that is damaged on the way, ends with an
/// error, unless it is to be read in part.
class AudioFileReader : public AudioSource
{
    Q_DECLARE_TR_FUNCTIONS(AudioFileReader)

public:
    /// What can be read of a damaged file is enough; getLoss() tells what is missing. Before
    /// Open().
    void setPartial() { m_isPartial = true; }
    /// Opens pPath, or standard input for "-". False when it is not usable; getError() says why.
    /// To be called once.
    bool Open(const QString& pPath);

    int getSampleRate() const override { return m_info.samplerate; }
    int getChannelCount() const override { return m_info.channels; }
    quint64 getFrameCount() const override { return m_frameCount; }
    std::size_t Read(qint16* pSamples, std::size_t pCount) override;
    const float* getFrames() const override { return m_frames.data(); }
    QString getError() const override { return m_error; }
    QString getLoss() const override { return m_loss; }

private:
    struct Closer
    {
        void operator()(SNDFILE* pFile) const { sf_close(pFile); }
    };

    bool _CheckPath(const QString& pPath);
    bool _OpenFile(const QString& pPath);
    bool _RefuseKind(const QByteArray& pHead);
    bool _CheckFormat();
    bool _CheckWhole();
    std::size_t _ReadFrames(std::size_t pCount);
    void _CheckEnd();
    bool _Fail(const QString& pReason);
    bool _Lose(const QString& pLoss);

    shared::InputDescriptor m_input;                ///< outlives m_file, as the next one does
    std::unique_ptr<shared::UnclosedWav> m_mended;  ///< null for files that need none
    std::unique_ptr<SNDFILE, Closer> m_file;
    SF_INFO m_info = {};
    bool m_isRegular = false;  ///< a file on disk, not a pipe
    quint64 m_frameCount = 0;  ///< frames promised; 0 = unknown
    quint64 m_framesRead = 0;
    std::vector<float> m_frames;  ///< last frames read, interleaved
    bool m_isPartial = false;
    QString m_loss;
    QString m_error;
};
