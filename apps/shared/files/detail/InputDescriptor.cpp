// SPDX-License-Identifier: MIT
#include <shared/files/detail/InputDescriptor.h>

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace shared {

namespace {

/// Writes all of it. False, and errno tells why, when that fails.
bool WriteAll(int pDescriptor, const char* pBytes, std::size_t pSize)
{
    for (std::size_t written = 0; written < pSize;) {
        const ssize_t count = ::write(pDescriptor, pBytes + written, pSize - written);
        if (count < 0)
            return false;
        written += std::size_t(count);
    }
    return true;
}

/// Copies the rest of a pipe. False, and errno tells why, when that fails.
bool Copy(int pFrom, int pTo)
{
    constexpr std::size_t kPiece = 65536;
    std::vector<char> piece(kPiece);
    for (;;) {
        const ssize_t count = ::read(pFrom, piece.data(), piece.size());
        if (count <= 0)
            return count == 0;
        if (!WriteAll(pTo, piece.data(), std::size_t(count)))
            return false;
    }
}

/// The first bytes of a pipe, which stay in it.
QByteArray PeekPipe(int pPipe, int pCount)
{
    int copy[2] = {};
    if (::pipe2(copy, O_CLOEXEC) != 0)
        return {};
    QByteArray bytes(pCount, '\0');
    const ssize_t count = ::tee(pPipe, copy[1], std::size_t(pCount), 0);
    const ssize_t read = count > 0 ? ::read(copy[0], bytes.data(), std::size_t(count)) : 0;
    ::close(copy[0]);
    ::close(copy[1]);
    return bytes.left(int(qMax<ssize_t>(read, 0)));
}

}  // namespace

InputDescriptor::~InputDescriptor()
{
    _Close();
}

bool InputDescriptor::Open(const QString& pPath)
{
    m_descriptor = pPath == QLatin1String("-")
                       ? STDIN_FILENO
                       : ::open(QFile::encodeName(pPath).constData(), O_RDONLY | O_CLOEXEC);
    return m_descriptor >= 0;
}

bool InputDescriptor::isRegular() const
{
    struct stat status = {};
    return ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

qint64 InputDescriptor::getSize() const
{
    struct stat status = {};
    return ::fstat(m_descriptor, &status) == 0 ? qint64(status.st_size) : 0;
}

QByteArray InputDescriptor::Peek(int pCount) const
{
    if (!isRegular())
        return PeekPipe(m_descriptor, pCount);
    QByteArray bytes(pCount, '\0');
    const ssize_t count = ::pread(m_descriptor, bytes.data(), std::size_t(pCount), 0);
    return bytes.left(int(qMax<ssize_t>(count, 0)));
}

QString InputDescriptor::getSpoolFolder()
{
    // QDir::tempPath() is the current folder when the named one does not exist.
    const QByteArray named = qgetenv("TMPDIR");
    return named.isEmpty() ? QStringLiteral("/tmp") : QFile::decodeName(named);
}

bool InputDescriptor::Spool()
{
    QByteArray path = QFile::encodeName(getSpoolFolder()) + "/audio-analyzer-XXXXXX";
    const int spool = ::mkostemp(path.data(), O_CLOEXEC);
    if (spool < 0)
        return false;
    ::unlink(path.constData());
    if (!Copy(m_descriptor, spool) || ::lseek(spool, 0, SEEK_SET) != 0) {
        const int reason = errno;
        ::close(spool);
        errno = reason;
        return false;
    }
    _Close();
    m_descriptor = spool;
    return true;
}

void InputDescriptor::_Close()
{
    if (m_descriptor > STDIN_FILENO)
        ::close(m_descriptor);
    m_descriptor = -1;
}

}  // namespace shared
