// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/detail/AtomicFile.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QString>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int kNameAttempts = 100;
constexpr mode_t kMode = 0666;  // cut by the process's umask, as for any new file

QByteArray uniqueName(const QByteArray& folder)
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    return folder + "/.AudioAnalyzer-" + number + ".tmp";
}

/// Creates a file that did not exist; its descriptor, or -1.
int createUnique(const QByteArray& folder, QByteArray& name)
{
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        name = uniqueName(folder);
        const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
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
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    QByteArray temporary;
    const int file = createUnique(folder, temporary);
    if (file < 0)
        return false;
    if (!writeAndClose(file, content) ||
        std::rename(temporary.constData(), target.constData()) != 0) {
        ::unlink(temporary.constData());
        return false;
    }
    flushFolder(folder);
    return true;
}
