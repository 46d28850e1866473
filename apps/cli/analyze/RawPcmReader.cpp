// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <cli/analyze/RawPcmReader.h>

#include <QFile>
#include <QtEndian>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

RawPcmReader::RawPcmReader(int pRate, int pChannels) : m_rate(pRate), m_channels(pChannels) {}

RawPcmReader::~RawPcmReader()
{
    if (m_descriptor > STDIN_FILENO)
        ::close(m_descriptor);
}

bool RawPcmReader::Open(const QString& pPath)
{
    m_descriptor = pPath == QLatin1String("-")
                       ? STDIN_FILENO
                       : ::open(QFile::encodeName(pPath).constData(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0) {
        m_error =
            errno == ENOENT
                ? tr("there is no such file; check its name and folder")
                : tr("cannot be opened: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    } else if (S_ISDIR(status.st_mode)) {
        m_error = tr("is a folder; name the audio files in it");
    } else if (S_ISREG(status.st_mode)) {
        m_frameCount = quint64(status.st_size) / (sizeof(qint16) * quint64(m_channels));
    }
    return m_error.isEmpty();
}

std::size_t RawPcmReader::Read(qint16* pSamples, std::size_t pCount)
{
    const std::size_t frameSize = sizeof(qint16) * std::size_t(m_channels);
    const std::size_t count = _Fill(pCount * frameSize) / frameSize;
    m_frames.resize(count * std::size_t(m_channels));
    for (std::size_t i = 0; i < m_frames.size(); ++i)
        m_frames[i] =
            float(qFromLittleEndian<qint16>(m_bytes.constData() + i * sizeof(qint16))) / 32768.0f;
    AudioDownmix::ToMono(m_frames.data(), m_channels, count, pSamples);
    return count;
}

/// Reads pSize bytes, or fewer at the end, and returns how many.
std::size_t RawPcmReader::_Fill(std::size_t pSize)
{
    m_bytes.resize(int(pSize));
    std::size_t filled = 0;
    while (filled < pSize) {
        const ssize_t count = ::read(m_descriptor, m_bytes.data() + filled, pSize - filled);
        if (count < 0)
            m_error = tr("reading failed: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        if (count <= 0)
            break;
        filled += std::size_t(count);
    }
    return filled;
}
