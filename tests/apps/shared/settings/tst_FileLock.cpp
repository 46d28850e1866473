// SPDX-License-Identifier: MIT
#include <shared/settings/FileLock.h>

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <support/TestClass.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_FileLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void turn_leavesNothingBehind();
    void turn_isOfOneHolder();
    void turn_endsWithTheObject();
    void turn_endsWithAKilledHolder();
    void fileThatWasLeftBehind_keepsNobodyOut_data();
    void fileThatWasLeftBehind_keepsNobodyOut();
    void turn_isImpossible_data();
    void turn_isImpossible();
    void manyProcesses_haveTheirTurnsOneByOne();

private:
    QString _File() const { return m_folder.filePath(QStringLiteral("file")); }
    QString _LockFile() const { return FileLock::getLockPath(_File()); }

    QTemporaryDir m_folder;
};

namespace {

constexpr int kLong = 1000000;  ///< ms; more than a test takes

/// Runs pWork in a process of its own.
template <typename Work>
pid_t Fork(Work pWork)
{
    const pid_t child = ::fork();
    if (child == 0) {
        // A test that fails waits for nobody.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        pWork();
        ::_exit(0);
    }
    return child;
}

bool isDone(pid_t pChild)
{
    int status = 0;
    return ::waitpid(pChild, &status, 0) == pChild && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

void tst_FileLock::turn_leavesNothingBehind()
{
    FileLock lock;
    QVERIFY(!lock.isTaken());
    QCOMPARE(lock.Take(_File(), 0), FileLock::eTaken);
    QVERIFY(lock.isTaken());
    QCOMPARE(_LockFile(), _File() + QStringLiteral(".lock"));
    QVERIFY(QFile::exists(_LockFile()));
    lock.LetGo();
    QVERIFY(!lock.isTaken());
    QVERIFY(QDir(m_folder.path()).isEmpty());
    lock.LetGo();
}

void tst_FileLock::turn_isOfOneHolder()
{
    FileLock first;
    FileLock second;
    QCOMPARE(first.Take(_File(), 0), FileLock::eTaken);
    QCOMPARE(second.Take(_File(), 0), FileLock::eBusy);
    QCOMPARE(second.Take(_File(), 20), FileLock::eBusy);
    QVERIFY(!second.isTaken());
    // Who did not have it takes nothing away.
    second.LetGo();
    QVERIFY(QFile::exists(_LockFile()));
    // Another file has turns of its own.
    QCOMPARE(second.Take(m_folder.filePath(QStringLiteral("other")), 0), FileLock::eTaken);
    first.LetGo();
    QCOMPARE(second.Take(_File(), 0), FileLock::eTaken);
}

void tst_FileLock::turn_endsWithTheObject()
{
    {
        FileLock lock;
        QCOMPARE(lock.Take(_File(), 0), FileLock::eTaken);
    }
    QVERIFY(QDir(m_folder.path()).isEmpty());
}

void tst_FileLock::turn_endsWithAKilledHolder()
{
    int ready[2] = {};
    QCOMPARE(::pipe(ready), 0);
    const pid_t holder = Fork([&] {
        FileLock lock;
        const char isTaken = lock.Take(_File(), kLong) == FileLock::eTaken;
        while (::write(ready[1], &isTaken, 1) == 1)
            ::pause();
    });
    char isTaken = 0;
    QCOMPARE(::read(ready[0], &isTaken, 1), ssize_t(1));
    QCOMPARE(isTaken, char(1));
    FileLock lock;
    QCOMPARE(lock.Take(_File(), 0), FileLock::eBusy);
    QCOMPARE(::kill(holder, SIGKILL), 0);
    int status = 0;
    QCOMPARE(::waitpid(holder, &status, 0), holder);
    QVERIFY(QFile::exists(_LockFile()));
    QCOMPARE(lock.Take(_File(), 0), FileLock::eTaken);
    lock.LetGo();
    QVERIFY(QDir(m_folder.path()).isEmpty());
    ::close(ready[0]);
    ::close(ready[1]);
}

void tst_FileLock::fileThatWasLeftBehind_keepsNobodyOut_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("usual") << 0644;
    QTest::newRow("read only") << 0444;
}

void tst_FileLock::fileThatWasLeftBehind_keepsNobodyOut()
{
    QFETCH(int, mode);
    QFile left(_LockFile());
    QVERIFY(left.open(QIODevice::WriteOnly));
    left.write("of whoever");
    left.close();
    QCOMPARE(::chmod(QFile::encodeName(_LockFile()).constData(), mode_t(mode)), 0);
    FileLock lock;
    QCOMPARE(lock.Take(_File(), 0), FileLock::eTaken);
    lock.LetGo();
    QVERIFY(QDir(m_folder.path()).isEmpty());
}

void tst_FileLock::turn_isImpossible_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* pKind : {"no folder", "a folder", "a link", "a pipe"})
        QTest::newRow(pKind) << QString::fromUtf8(pKind);
}

void tst_FileLock::turn_isImpossible()
{
    QFETCH(QString, kind);
    const QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("file"));
    const QString lockFile = FileLock::getLockPath(file);
    const QByteArray lockName = QFile::encodeName(lockFile);
    if (kind == QLatin1String("no folder"))
        file = folder.filePath(QStringLiteral("missing/file"));
    else if (kind == QLatin1String("a folder"))
        QVERIFY(QDir().mkpath(lockFile));
    else if (kind == QLatin1String("a link"))
        QVERIFY(QFile::link(folder.filePath(QStringLiteral("elsewhere")), lockFile));
    else
        QCOMPARE(::mkfifo(lockName.constData(), 0600), 0);
    FileLock lock;
    QCOMPARE(lock.Take(file, kLong), FileLock::eImpossible);
    QVERIFY(!lock.isTaken());
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("elsewhere"))));
    struct stat status = {};
    QCOMPARE(::lstat(lockName.constData(), &status) == 0, kind != QLatin1String("no folder"));
}

/// Each adds one to a number in a file as often as it has its turn.
void tst_FileLock::manyProcesses_haveTheirTurnsOneByOne()
{
    constexpr int kProcesses = 6;
    constexpr int kTurns = 20;
    const auto add = [this] {
        FileLock lock;
        if (lock.Take(_File(), kLong) != FileLock::eTaken)
            ::_exit(1);
        QFile file(_File());
        const int number = file.open(QIODevice::ReadOnly) ? file.readAll().toInt() : 0;
        file.close();
        if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray::number(number + 1)) < 1)
            ::_exit(1);
    };
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        children.push_back(Fork([&add] {
            for (int turn = 0; turn < kTurns; ++turn)
                add();
        }));
    }
    for (const pid_t child : children)
        QVERIFY(isDone(child));
    QFile file(_File());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray::number(kProcesses * kTurns));
    QVERIFY(!QFile::exists(_LockFile()));
}

AA_TEST(tst_FileLock, QCoreApplication)
#include "tst_FileLock.moc"
