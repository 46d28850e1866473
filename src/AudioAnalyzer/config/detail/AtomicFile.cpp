// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/detail/AtomicFile.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QString>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kNameAttempts = 100;
constexpr mode_t kMode = 0666;  // cut by the process's umask, as for any new file
constexpr mode_t kRights = 0777;

QByteArray uniqueName(const QByteArray& folder)
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    return folder + "/.AudioAnalyzer-" + number + ".tmp";
}

/// A lock on a temporary file says that its writer lives: the system takes it back when that ends,
/// however it ends. False when another has it.
bool lockFile(int file)
{
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// Who tidies up may have come between the file's making and its lock.
bool isStillNamed(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

/// Creates a file that did not exist; its descriptor, or -1.
int createUnique(const QByteArray& folder, QByteArray& name)
{
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        name = uniqueName(folder);
        const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
        if (file < 0 && errno != EEXIST)
            return file;
        if (file < 0)
            continue;
        // Where files have no locks, nobody tidies up either.
        if ((lockFile(file) || errno != EWOULDBLOCK) && isStillNamed(file))
            return file;
        ::close(file);
    }
    return -1;
}

void removeIfAbandoned(const QByteArray& name)
{
    const int file = ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    if (lockFile(file))
        ::unlink(name.constData());
    ::close(file);
}

/// Removes the temporary files of writers that were killed.
void removeAbandoned(const QString& folder)
{
    static const QRegularExpression kOurs(
        QStringLiteral("^\\.AudioAnalyzer-[0-9a-f]{1,16}\\.tmp$"));
    const auto files = QDir::Files | QDir::Hidden | QDir::NoSymLinks;
    const QStringList names =
        QDir(folder).entryList({QStringLiteral(".AudioAnalyzer-*.tmp")}, files);
    for (const QString& name : names)
        if (kOurs.match(name).hasMatch())
            removeIfAbandoned(QFile::encodeName(folder + QLatin1Char('/') + name));
}

/// As far as this process may: a group can be kept where the owner cannot.
void keepOwnerAndMode(int file, const QByteArray& target)
{
    struct stat old = {};
    if (::lstat(target.constData(), &old) != 0 || !S_ISREG(old.st_mode))
        return;
    static_cast<void>(::fchown(file, old.st_uid, old.st_gid) == 0 ||
                      ::fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0);
    ::fchmod(file, old.st_mode & kRights);
}

bool writeAll(int file, const QByteArray& content)
{
    const char* next = content.constData();
    const char* const end = next + content.size();
    while (next != end) {
        const ssize_t written = ::write(file, next, static_cast<size_t>(end - next));
        if (written > 0)
            next += written;
        else if (written == 0 || errno != EINTR)
            return false;
    }
    return true;
}

bool writeAndClose(int file, const QByteArray& content)
{
    const bool isOnDisk = writeAll(file, content) && ::fsync(file) == 0;
    const bool isClosed = ::close(file) == 0;
    return isOnDisk && isClosed;
}

/// Makes the rename itself last. Without effect on the result: the new file is in place already,
/// and some folders cannot be opened for it.
void flushFolder(const QByteArray& folder)
{
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

bool detail::writeFileAtomically(const QString& path, const QByteArray& content)
{
    const QByteArray target = QFile::encodeName(path);
    const QString folder = QFileInfo(path).path();
    removeAbandoned(folder);
    QByteArray temporary;
    const int file = createUnique(QFile::encodeName(folder), temporary);
    if (file < 0)
        return false;
    keepOwnerAndMode(file, target);
    // The lock goes with the last descriptor, so not before the file has its name.
    const int lock = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
    const bool isInPlace =
        writeAndClose(file, content) && std::rename(temporary.constData(), target.constData()) == 0;
    if (!isInPlace)
        ::unlink(temporary.constData());
    if (lock >= 0)
        ::close(lock);
    if (isInPlace)
        flushFolder(QFile::encodeName(folder));
    return isInPlace;
}
