// SPDX-License-Identifier: MIT
#include <cli/output/OutputFile.h>

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

OutputFile::~OutputFile()
{
    if (m_descriptor > STDERR_FILENO)
        ::close(m_descriptor);
}

bool OutputFile::isStream(const QString& pPath)
{
    struct stat status = {};
    return pPath == QLatin1String("-") ||
           (::stat(QFile::encodeName(pPath).constData(), &status) == 0 &&
            !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode));
}

QString OutputFile::FindObstacle(const QString& pPath)
{
    const QFileInfo info(pPath);
    const QFileInfo folder(info.path());
    if (isStream(pPath))
        return {};
    if (pPath.isEmpty())
        return tr("the output has an empty name; name a file");
    if (info.isDir())
        return tr("cannot write %1: it is a folder; name a file in it").arg(pPath);
    if (!folder.isDir())
        return tr("cannot write %1: there is no folder %2; create it first")
            .arg(pPath, info.path());
    if (info.exists() ? !info.isWritable() : !folder.isWritable())
        return tr("cannot write %1: no permission; choose another place with -o").arg(pPath);
    return {};
}

bool OutputFile::Open(const QString& pPath)
{
    m_path = pPath;
    if (pPath == QLatin1String("-")) {
        m_descriptor = STDOUT_FILENO;
        return true;
    }
    if (isStream(pPath)) {
        m_descriptor =
            ::open(QFile::encodeName(pPath).constData(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        return m_descriptor >= 0 || _Fail(QString::fromLocal8Bit(std::strerror(errno)));
    }
    m_error = FindObstacle(pPath);
    if (!m_error.isEmpty())
        return false;
    m_file = std::make_unique<QSaveFile>(pPath);
    return m_file->open(QIODevice::WriteOnly) || _Fail(m_file->errorString());
}

bool OutputFile::Write(const QByteArray& pBytes)
{
    if (!m_error.isEmpty() || m_isReaderGone)
        return false;
    if (m_file == nullptr)
        return _WriteStream(pBytes);
    return m_file->write(pBytes) == pBytes.size() || _Fail(m_file->errorString());
}

bool OutputFile::Commit()
{
    if (!m_error.isEmpty() || m_isReaderGone)
        return false;
    return m_file == nullptr || m_file->commit() || _Fail(m_file->errorString());
}

bool OutputFile::_WriteStream(const QByteArray& pBytes)
{
    for (int written = 0; written < pBytes.size();) {
        const ssize_t count = ::write(
            m_descriptor, pBytes.constData() + written, std::size_t(pBytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0) {
            m_isReaderGone = errno == EPIPE;
            return m_isReaderGone ? false : _Fail(QString::fromLocal8Bit(std::strerror(errno)));
        }
        written += int(count);
    }
    return true;
}

bool OutputFile::_Fail(const QString& pReason)
{
    const bool isStandardOutput = m_path == QLatin1String("-");
    m_error = tr("cannot write %1: %2")
                  .arg(isStandardOutput ? tr("to standard output") : m_path, pReason);
    return false;
}
