// SPDX-License-Identifier: MIT
#include "support/ConfigSandbox.h"

#include <QtTest>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <support/TestClass.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// The library's calls of the operating system land in the functions below, which note them while
/// a test listens, and fail where it says so.
namespace script {

bool isListening = false;
QStringList calls;
QString failingCall;     // fails with EIO
bool isKilling = false;  // at the first write
int interruptions = 0;   // writes that end with EINTR
size_t chunk = 0;        // most bytes per write; 0 = no limit

bool isFailing(const QString& pCall)
{
    if (!isListening)
        return false;
    if (calls.isEmpty() || calls.last() != pCall)
        calls << pCall;
    errno = EIO;
    return pCall == failingCall;
}

bool isFolder(int pFile)
{
    struct stat status = {};
    return fstat(pFile, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace script

#define VISIBLE extern "C" __attribute__((visibility("default")))

VISIBLE ssize_t write(int file, const void* bytes, size_t size)
{
    if (script::isKilling)
        ::raise(SIGKILL);
    if (script::isFailing(QStringLiteral("write")))
        return -1;
    if (script::isListening && script::interruptions > 0) {
        --script::interruptions;
        errno = EINTR;
        return -1;
    }
    const bool isCut = script::isListening && script::chunk != 0 && size > script::chunk;
    return syscall(SYS_write, file, bytes, isCut ? script::chunk : size);
}

VISIBLE int fsync(int file)
{
    const QString call =
        script::isFolder(file) ? QStringLiteral("flush folder") : QStringLiteral("flush");
    return script::isFailing(call) ? -1 : int(syscall(SYS_fsync, file));
}

VISIBLE int close(int file)
{
    const bool isFolder = script::isListening && script::isFolder(file);
    const bool isFailing = !isFolder && script::isFailing(QStringLiteral("close"));
    const int result = int(syscall(SYS_close, file));
    return isFailing ? -1 : result;
}

VISIBLE int rename(const char* from, const char* to) noexcept
{
    return script::isFailing(QStringLiteral("rename")) ? -1 : int(syscall(SYS_rename, from, to));
}

class tst_AtomicFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void saving_flushesBeforeItRenames();
    void saving_fails_whenCallFails_data();
    void saving_fails_whenCallFails();
    void saving_fails_whenCallFailsAndThereIsNoOldFile_data();
    void saving_fails_whenCallFailsAndThereIsNoOldFile();
    void saving_succeeds_whenFolderCannotBeFlushed();
    void saving_goesOn_whenWritesAreCutOrInterrupted();
    void newFile_hasModeOfAnyNewFile_data();
    void newFile_hasModeOfAnyNewFile();
    void replacedFile_keepsModeAndOwner_data();
    void replacedFile_keepsModeAndOwner();
    void replacedLink_givesNoMode();
    void killedWriter_isTidiedUpByTheNext();
    void livingWriter_isLeftAlone();
    void otherNames_areLeftAlone();
    void saving_closesWhatItOpens();

private:
    static struct stat statusOf(const QString& pPath)
    {
        struct stat status = {};
        if (::lstat(QFile::encodeName(pPath).constData(), &status) != 0)
            qFatal("no %s", qPrintable(pPath));
        return status;
    }

    /// Saves while the script listens.
    static bool save(const ConfigSandbox& pSandbox)
    {
        Configuration configuration;
        script::isListening = true;
        const bool result = configuration._Save(pSandbox.path());
        script::isListening = false;
        return result;
    }
};

void tst_AtomicFile::cleanup()
{
    script::isListening = false;
    script::calls.clear();
    script::failingCall.clear();
    script::interruptions = 0;
    script::chunk = 0;
}

void tst_AtomicFile::saving_flushesBeforeItRenames()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    QVERIFY(save(sandbox));
    QCOMPARE(script::calls.join(QStringLiteral(", ")),
             QStringLiteral("write, flush, close, rename, close, flush folder"));
}

void tst_AtomicFile::saving_fails_whenCallFails_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"write", "flush", "close", "rename"})
        QTest::newRow(call) << QString::fromUtf8(call);
}

void tst_AtomicFile::saving_fails_whenCallFails()
{
    QFETCH(QString, call);
    const ConfigSandbox sandbox;
    sandbox.write("old");
    script::failingCall = call;
    QVERIFY(!save(sandbox));
    QVERIFY(script::calls.contains(call));
    QVERIFY(call == QStringLiteral("rename") || !script::calls.contains(QStringLiteral("rename")));
    QCOMPARE(sandbox.read(), QByteArray("old"));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_AtomicFile::saving_fails_whenCallFailsAndThereIsNoOldFile_data()
{
    saving_fails_whenCallFails_data();
}

void tst_AtomicFile::saving_fails_whenCallFailsAndThereIsNoOldFile()
{
    QFETCH(QString, call);
    const ConfigSandbox sandbox;
    script::failingCall = call;
    QVERIFY(!save(sandbox));
    QVERIFY(sandbox.entries().isEmpty());
}

void tst_AtomicFile::saving_succeeds_whenFolderCannotBeFlushed()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    script::failingCall = QStringLiteral("flush folder");
    // The new file is in place and whole by then.
    QVERIFY(save(sandbox));
    QVERIFY(script::calls.contains(script::failingCall));
    QCOMPARE(sandbox.read().size(), 65);
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_AtomicFile::saving_goesOn_whenWritesAreCutOrInterrupted()
{
    const ConfigSandbox sandbox;
    QVERIFY(save(sandbox));
    const QByteArray whole = sandbox.read();
    script::interruptions = 3;
    script::chunk = 7;
    sandbox.write("old");
    QVERIFY(save(sandbox));
    QCOMPARE(script::interruptions, 0);
    QCOMPARE(sandbox.read(), whole);
}

void tst_AtomicFile::newFile_hasModeOfAnyNewFile_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<int>("mode");
    QTest::newRow("usual") << 022 << 0644;
    QTest::newRow("private") << 077 << 0600;
    QTest::newRow("open") << 0 << 0666;
}

void tst_AtomicFile::newFile_hasModeOfAnyNewFile()
{
    QFETCH(int, mask);
    const ConfigSandbox sandbox;
    const mode_t before = umask(mode_t(mask));
    const bool isSaved = save(sandbox);
    umask(before);
    QVERIFY(isSaved);
    QTEST(int(statusOf(sandbox.path()).st_mode & 07777), "mode");
}

void tst_AtomicFile::replacedFile_keepsModeAndOwner_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0600, 0640, 0664, 0400, 0755})
        QTest::addRow("%o", unsigned(mode)) << mode;
}

void tst_AtomicFile::replacedFile_keepsModeAndOwner()
{
    QFETCH(int, mode);
    const ConfigSandbox sandbox;
    sandbox.write("old");
    const QByteArray path = QFile::encodeName(sandbox.path());
    // Only root can give a file away; for others the owner is their own.
    const bool isGiven = ::chown(path.constData(), 1234, 4321) == 0;
    QCOMPARE(isGiven, ::geteuid() == 0);
    QCOMPARE(::chmod(path.constData(), mode_t(mode)), 0);
    const struct stat before = statusOf(sandbox.path());
    QVERIFY(save(sandbox));
    const struct stat after = statusOf(sandbox.path());
    QCOMPARE(sandbox.read().size(), 65);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
}

void tst_AtomicFile::replacedLink_givesNoMode()
{
    const ConfigSandbox sandbox;
    QVERIFY(QFile::link(QStringLiteral("/dev/null"), sandbox.path()));
    const mode_t before = umask(022);
    const bool isSaved = save(sandbox);
    umask(before);
    QVERIFY(isSaved);
    QCOMPARE(statusOf(sandbox.path()).st_mode, mode_t(S_IFREG | 0644));
}

void tst_AtomicFile::killedWriter_isTidiedUpByTheNext()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    const pid_t child = ::fork();
    if (child == 0) {
        script::isKilling = true;
        save(sandbox);
        ::_exit(0);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    QCOMPARE(sandbox.entries().size(), 2);
    QCOMPARE(sandbox.read(), QByteArray("old"));
    QVERIFY(save(sandbox));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_AtomicFile::livingWriter_isLeftAlone()
{
    const ConfigSandbox sandbox;
    QFile writer(sandbox.path(QStringLiteral(".AudioAnalyzer-12ab.tmp")));
    QVERIFY(writer.open(QIODevice::WriteOnly));
    QCOMPARE(::flock(writer.handle(), LOCK_EX), 0);
    QVERIFY(save(sandbox));
    QVERIFY(writer.exists());
    writer.close();
    QVERIFY(save(sandbox));
    QVERIFY(!writer.exists());
}

void tst_AtomicFile::otherNames_areLeftAlone()
{
    const ConfigSandbox sandbox;
    QStringList names;
    for (const char* name : {".AudioAnalyzer-.tmp",
                             ".AudioAnalyzer-0123456789abcdef0.tmp",
                             ".AudioAnalyzer-12.tmp.bak",
                             ".AudioAnalyzer-12AB.tmp",
                             ".AudioAnalyzer-notes.tmp",
                             ".audioanalyzer-12.tmp",
                             "AudioAnalyzer-12.tmp"}) {
        names << QString::fromUtf8(name);
        QFile file(sandbox.path(names.last()));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    names << QStringLiteral(".AudioAnalyzer-34.tmp") << QStringLiteral(".AudioAnalyzer-56.tmp")
          << QStringLiteral("test.cfg");
    QVERIFY(QDir().mkpath(sandbox.path(QStringLiteral(".AudioAnalyzer-34.tmp"))));
    QVERIFY(QFile::link(sandbox.path(QStringLiteral("AudioAnalyzer-12.tmp")),
                        sandbox.path(QStringLiteral(".AudioAnalyzer-56.tmp"))));
    QVERIFY(save(sandbox));
    QStringList entries = sandbox.entries();
    names.sort();
    entries.sort();
    QCOMPARE(entries, names);
}

void tst_AtomicFile::saving_closesWhatItOpens()
{
    const ConfigSandbox sandbox;
    const auto openFiles = [] {
        return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files).size();
    };
    QVERIFY(save(sandbox));
    const int before = openFiles();
    for (const char* call : {"", "write", "flush", "close", "rename", "flush folder"}) {
        script::failingCall = QString::fromUtf8(call);
        save(sandbox);
    }
    QCOMPARE(openFiles(), before);
}

AA_TEST(tst_AtomicFile, QCoreApplication)
#include "tst_AtomicFile.moc"
