// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <shared/files/AudioFileReader.h>
#include <shared/files/detail/ContainerSize.h>
#include <shared/files/detail/FileKind.h>
#include <shared/files/detail/QuietStandardError.h>

#include <QFile>

#include <cerrno>
#include <cstring>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString ErrorText()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool IsMpeg(const SF_INFO& pInfo)
{
    return (pInfo.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG;
}

bool IsFlac(const SF_INFO& pInfo)
{
    return (pInfo.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC;
}

/// Share of the announced length that a whole file delivers at least. The length of an MP3 is an
/// estimate, or counts the padding of its first and last frames.
double LeastShare(const SF_INFO& pInfo)
{
    return IsMpeg(pInfo) ? 0.95 : 1.0;
}

}  // namespace

bool AudioFileReader::Open(const QString& pPath)
{
    if (!_CheckPath(pPath))
        return false;
    return _OpenFile(pPath) && _CheckFormat() && _CheckWhole();
}

bool AudioFileReader::_OpenFile(const QString& pPath)
{
    if (!m_input.Open(pPath))
        return _Fail(tr("cannot be opened: %1").arg(ErrorText()));
    const QByteArray head = m_input.Peek(shared::kWavHeadSize);
    if (!m_isRegular && shared::NeedsSeeking(head)) {
        if (!m_input.Spool()) {
            return _Fail(tr("cannot be kept in %1 for its decoder: %2; save it to a file first")
                             .arg(shared::InputDescriptor::getSpoolFolder(), ErrorText()));
        }
        m_isRegular = true;
    }
    const int missing = m_isRegular ? shared::FindMissingSize(head, m_input.getSize()) : -1;
    if (missing >= 0 && !_Lose(tr("its header counts no samples, though %1 bytes follow it: the "
                                  "recording was not closed")
                                   .arg(m_input.getSize() - missing - 4)))
        return false;
    const shared::QuietStandardError quiet;
    if (missing >= 0) {
        m_mended =
            std::make_unique<shared::UnclosedWav>(m_input.get(), m_input.getSize(), head, missing);
        m_file.reset(m_mended->Open(m_info));
    } else {
        m_file.reset(sf_open_fd(m_input.get(), SFM_READ, &m_info, SF_FALSE));
    }
    return m_file != nullptr || _RefuseKind(head);
}

bool AudioFileReader::_RefuseKind(const QByteArray& pHead)
{
    const QLatin1String kind = shared::UnreadKind(pHead);
    if (kind.size() > 0) {
        return _Fail(tr("is a file of the kind %1, which is not read; convert it to WAV, FLAC, Ogg "
                        "Vorbis, Opus, MP3 or AIFF: ffmpeg -i FILE song.flac")
                         .arg(kind));
    }
    return _Fail(m_isRegular ? tr("is not audio, or is damaged at its start; WAV, FLAC, Ogg "
                                  "Vorbis, Opus, MP3 and AIFF files are read")
                             : tr("is no audio stream that can be read; for raw 16-bit samples "
                                  "add --raw RATE, else save it to a file first"));
}

bool AudioFileReader::_CheckPath(const QString& pPath)
{
    struct stat status = {};
    const QByteArray path = QFile::encodeName(pPath);
    const bool isThere = pPath == QLatin1String("-") ? ::fstat(STDIN_FILENO, &status) == 0
                                                     : ::stat(path.constData(), &status) == 0;
    if (!isThere) {
        return _Fail(errno == ENOENT ? tr("there is no such file; check its name and folder")
                                     : tr("cannot be opened: %1").arg(ErrorText()));
    }
    if (S_ISDIR(status.st_mode))
        return _Fail(tr("is a folder; name the audio files in it"));
    m_isRegular = S_ISREG(status.st_mode);
    if (m_isRegular && status.st_size == 0)
        return _Fail(tr("the file is empty; get a whole copy of it"));
    if (pPath != QLatin1String("-") && ::access(path.constData(), R_OK) != 0)
        return _Fail(tr("may not be read; check its permissions"));
    return true;
}

bool AudioFileReader::_CheckFormat()
{
    if (m_info.samplerate < kMinimalRate || m_info.samplerate > kMaximalRate) {
        return _Fail(tr("has a sample rate of %1 Hz; convert it to one from %2 to %3 Hz")
                         .arg(m_info.samplerate)
                         .arg(kMinimalRate)
                         .arg(kMaximalRate));
    }
    return true;
}

bool AudioFileReader::_CheckWhole()
{
    if (!m_isRegular)
        return true;
    // A FLAC stream may leave its length open; Ogg files tell it in their last page.
    if (m_info.frames == SF_COUNT_MAX && IsFlac(m_info))
        return true;
    if (m_info.frames == SF_COUNT_MAX)
        return _Lose(tr("truncated: its end is missing"));
    m_frameCount = quint64(m_info.frames);
    const qint64 size = m_input.getSize();
    const qint64 promised = shared::PromisedFileSize(m_input.Peek(8));
    // One byte of grace: some programs leave out the pad byte of an odd last chunk.
    if (promised <= size + 1 || m_mended != nullptr)
        return true;
    return _Lose(tr("truncated: %1 of %2 bytes are there").arg(size).arg(promised));
}

std::size_t AudioFileReader::Read(qint16* pSamples, std::size_t pCount)
{
    m_frames.resize(pCount * std::size_t(m_info.channels));
    const std::size_t count = _ReadFrames(pCount);
    AudioDownmix::ToMono(m_frames.data(), m_info.channels, count, pSamples);
    m_framesRead += count;
    if (count < pCount)
        _CheckEnd();
    return count;
}

std::size_t AudioFileReader::_ReadFrames(std::size_t pCount)
{
    std::optional<shared::QuietStandardError> quiet;
    if (IsMpeg(m_info))
        quiet.emplace();
    const sf_count_t count = sf_readf_float(m_file.get(), m_frames.data(), sf_count_t(pCount));
    return count > 0 ? std::size_t(count) : 0;
}

void AudioFileReader::_CheckEnd()
{
    if (double(m_framesRead) < LeastShare(m_info) * double(m_frameCount)) {
        _Lose(tr("damaged or truncated: only %1 s of %2 s can be read")
                  .arg(double(m_framesRead) / m_info.samplerate, 0, 'f', 1)
                  .arg(double(m_frameCount) / m_info.samplerate, 0, 'f', 1));
    } else if (sf_error(m_file.get()) != SF_ERR_NO_ERROR) {
        _Lose(tr("damaged: %1").arg(QString::fromLocal8Bit(sf_strerror(m_file.get()))));
    }
}

/// True when what is left is enough.
bool AudioFileReader::_Lose(const QString& pLoss)
{
    // What was found first tells most.
    if (m_loss.isEmpty())
        m_loss = pLoss;
    return m_isPartial || _Fail(tr("%1; get a whole copy of it").arg(m_loss));
}

bool AudioFileReader::_Fail(const QString& pReason)
{
    m_error = pReason;
    return false;
}
