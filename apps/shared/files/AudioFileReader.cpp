// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <shared/files/AudioFileReader.h>
#include <shared/files/detail/ContainerSize.h>
#include <shared/files/detail/QuietStandardError.h>

#include <QFile>

#include <cerrno>
#include <cstring>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

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
    {
        const shared::QuietStandardError quiet;
        m_file.reset(pPath == QLatin1String("-")
                         ? sf_open_fd(STDIN_FILENO, SFM_READ, &m_info, SF_FALSE)
                         : sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &m_info));
    }
    return _CheckFormat() && _CheckWhole(pPath);
}

bool AudioFileReader::_CheckPath(const QString& pPath)
{
    struct stat status = {};
    const QByteArray path = QFile::encodeName(pPath);
    const bool isThere = pPath == QLatin1String("-") ? ::fstat(STDIN_FILENO, &status) == 0
                                                     : ::stat(path.constData(), &status) == 0;
    if (!isThere) {
        return _Fail(
            errno == ENOENT
                ? tr("there is no such file; check its name and folder")
                : tr("cannot be opened: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
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
    if (m_file == nullptr) {
        return _Fail(m_isRegular ? tr("is not audio, or is damaged at its start; WAV, FLAC, Ogg "
                                      "Vorbis, Opus, MP3 and AIFF files are read")
                                 : tr("is no audio stream that can be read; for raw 16-bit samples "
                                      "add --raw RATE, else save it to a file first"));
    }
    if (m_info.samplerate < kMinimalRate || m_info.samplerate > kMaximalRate) {
        return _Fail(tr("has a sample rate of %1 Hz; convert it to one from %2 to %3 Hz")
                         .arg(m_info.samplerate)
                         .arg(kMinimalRate)
                         .arg(kMaximalRate));
    }
    return true;
}

bool AudioFileReader::_CheckWhole(const QString& pPath)
{
    if (!m_isRegular)
        return true;
    // A FLAC stream may leave its length open; Ogg files tell it in their last page.
    if (m_info.frames == SF_COUNT_MAX && IsFlac(m_info))
        return true;
    if (m_info.frames == SF_COUNT_MAX)
        return _Fail(tr("truncated: its end is missing; get a whole copy of it"));
    m_frameCount = quint64(m_info.frames);
    QFile file(pPath);
    if (pPath == QLatin1String("-") || !file.open(QIODevice::ReadOnly))
        return true;
    const qint64 promised = shared::PromisedFileSize(file.read(8));
    // One byte of grace: some programs leave out the pad byte of an odd last chunk.
    if (promised <= file.size() + 1)
        return true;
    return _Fail(tr("truncated: %1 of %2 bytes are there; get a whole copy of it")
                     .arg(file.size())
                     .arg(promised));
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
        _Fail(tr("damaged or truncated: only %1 s of %2 s can be read; get a whole copy of it")
                  .arg(double(m_framesRead) / m_info.samplerate, 0, 'f', 1)
                  .arg(double(m_frameCount) / m_info.samplerate, 0, 'f', 1));
    } else if (sf_error(m_file.get()) != SF_ERR_NO_ERROR) {
        _Fail(tr("damaged: %1; get a whole copy of it")
                  .arg(QString::fromLocal8Bit(sf_strerror(m_file.get()))));
    }
}

bool AudioFileReader::_Fail(const QString& pReason)
{
    m_error = pReason;
    return false;
}
