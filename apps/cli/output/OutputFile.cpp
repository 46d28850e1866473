// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/output/OutputFile.h>

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

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
    if (isStream(pPath))
        return _OpenDescriptor(pPath, O_NOCTTY);
    m_error = FindObstacle(pPath);
    if (!m_error.isEmpty())
        return false;
    if (m_file.Create(pPath))
        return _OpenDescriptor(m_file.getTemporaryPath(), 0);
    m_error = m_file.getError();
    return false;
}

bool OutputFile::_OpenDescriptor(const QString& pPath, int pFlags)
{
    m_descriptor = ::open(QFile::encodeName(pPath).constData(), O_WRONLY | O_CLOEXEC | pFlags);
    return m_descriptor >= 0 || _Fail();
}

bool OutputFile::Write(const QByteArray& pBytes)
{
    if (!m_error.isEmpty() || m_isReaderGone)
        return false;
    for (int written = 0; written < pBytes.size();) {
        const ssize_t count = ::write(
            m_descriptor, pBytes.constData() + written, std::size_t(pBytes.size() - written));
        if (count < 0 && errno != EINTR)
            return _Fail();
        written += count > 0 ? int(count) : 0;
    }
    return true;
}

bool OutputFile::Commit()
{
    if (!m_error.isEmpty() || m_isReaderGone)
        return false;
    if (m_file.getTemporaryPath().isEmpty())
        return true;
    // Some file systems tell only now that the disk is full.
    if (::close(std::exchange(m_descriptor, -1)) != 0)
        return _Fail();
    if (m_file.Commit())
        return true;
    m_error = m_file.getError();
    return false;
}

int OutputFile::Conclude() const
{
    if (m_isReaderGone)
        return eExitPipeClosed;
    if (m_error.isEmpty())
        return eExitDone;
    console::PrintError(m_error);
    return eExitFailed;
}

/// Tells what errno says.
bool OutputFile::_Fail()
{
    m_isReaderGone = errno == EPIPE;
    if (m_isReaderGone)
        return false;
    const bool isStandardOutput = m_path == QLatin1String("-");
    const QString reason =
        errno == EBADF ? tr("it is closed") : QString::fromLocal8Bit(std::strerror(errno));
    m_error =
        tr("cannot write %1: %2").arg(isStandardOutput ? tr("to standard output") : m_path, reason);
    return false;
}
