// SPDX-License-Identifier: MIT
#include <shared/settings/FileLock.h>

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QThread>

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kMode = 0644;
constexpr int kLeastWaitUs = 1000;  ///< between two looks; spread, so that all come to their turn
constexpr int kMostWaitUs = 5000;

/// Each turn has a lock file of its own, so the file tells the holders apart.
struct Turn
{
    ino_t file = 0;
    std::time_t seconds = 0;
    long nanoseconds = 0;
};

bool operator!=(const Turn& pLeft, const Turn& pRight)
{
    return pLeft.file != pRight.file || pLeft.seconds != pRight.seconds ||
           pLeft.nanoseconds != pRight.nanoseconds;
}

Turn TurnOf(int pDescriptor)
{
    struct stat status = {};
    ::fstat(pDescriptor, &status);
    return {status.st_ino, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

}  // namespace

FileLock::~FileLock()
{
    LetGo();
}

QString FileLock::getLockPath(const QString& pFile)
{
    return pFile + QStringLiteral(".lock");
}

FileLock::eResult FileLock::Take(const QString& pFile, int pPatienceMs)
{
    LetGo();
    m_path = QFile::encodeName(getLockPath(pFile));
    Turn present;
    QElapsedTimer sincePresent;
    while (_Open()) {
        const bool isHeld = ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (!isHeld && _IsNamed())
            return eTaken;
        const Turn turn = TurnOf(m_descriptor);
        _Close();
        if (!isHeld)
            continue;
        if (!sincePresent.isValid() || turn != present)
            sincePresent.start();
        present = turn;
        if (sincePresent.elapsed() >= pPatienceMs)
            return eBusy;
        QThread::usleep(ulong(QRandomGenerator::global()->bounded(kLeastWaitUs, kMostWaitUs)));
    }
    return eImpossible;
}

bool FileLock::_Open()
{
    constexpr int kFlags = O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    m_descriptor = ::open(m_path.constData(), O_RDWR | kFlags, kMode);
    // Left behind by another user's program: reading is enough for a lock.
    if (m_descriptor < 0 && errno == EACCES)
        m_descriptor = ::open(m_path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat status = {};
    if (m_descriptor < 0 || (::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode)))
        return m_descriptor >= 0;
    _Close();
    errno = EEXIST;
    return false;
}

/// A turn ends with the removal of its file: who waited with that file opens the next one.
bool FileLock::_IsNamed() const
{
    struct stat named = {};
    struct stat held = {};
    return ::lstat(m_path.constData(), &named) == 0 && ::fstat(m_descriptor, &held) == 0 &&
           named.st_ino == held.st_ino && named.st_dev == held.st_dev;
}

void FileLock::LetGo()
{
    if (m_descriptor < 0)
        return;
    // First the name, so that nobody who opens it now believes to be the next.
    if (_IsNamed())
        ::unlink(m_path.constData());
    _Close();
}

void FileLock::_Close()
{
    ::close(m_descriptor);
    m_descriptor = -1;
}
