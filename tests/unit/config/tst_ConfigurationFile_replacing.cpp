// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"

#include <QtTest>

#include <csignal>
#include <support/TestClass.h>
#include <sys/resource.h>

namespace {

/// While it lives, no file may grow beyond so many bytes: a full disk, for root as well.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t pBytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit = {pBytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_old = {};
};

}  // namespace

class tst_ConfigurationFile_replacing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_trimsPath();
    void Save_replacesReadOnlyFile();
    void Save_replacesLongerFile();
    void Save_leavesOtherLinksToOldFileAlone();
    void Save_replacesSymbolicLinkItself();
    void Save_fails_whenPathIsBlank_data();
    void Save_fails_whenPathIsBlank();
    void Save_fails_whenFolderIsMissing();
    void Save_fails_whenFolderIsFile();
    void Save_fails_whenFolderTakesNoFiles();
    void Save_fails_whenTargetIsFolder_data();
    void Save_fails_whenTargetIsFolder();
    void Save_keepsOldFile_whenDiskIsFull_data();
    void Save_keepsOldFile_whenDiskIsFull();
};

void tst_ConfigurationFile_replacing::Save_trimsPath()
{
    const ConfigSandbox sandbox;
    QVERIFY(Configuration()._Save(QStringLiteral(" \t") + sandbox.path() + QStringLiteral("\n ")));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_ConfigurationFile_replacing::Save_replacesReadOnlyFile()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    QVERIFY(QFile::setPermissions(sandbox.path(), QFile::ReadOwner));
    QVERIFY(Configuration()._Save(sandbox.path()));
    QCOMPARE(sandbox.read().size(), 65);
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_ConfigurationFile_replacing::Save_replacesLongerFile()
{
    const ConfigSandbox sandbox;
    sandbox.write(QByteArray(100000, 'x'));
    QVERIFY(Configuration()._Save(sandbox.path()));
    QCOMPARE(sandbox.read().size(), 65);
}

void tst_ConfigurationFile_replacing::Save_leavesOtherLinksToOldFileAlone()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    QFile reader(sandbox.path());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QVERIFY(Configuration()._Save(sandbox.path()));
    // Whoever read the old file meanwhile still reads all of it.
    QCOMPARE(reader.readAll(), QByteArray("old"));
    QCOMPARE(sandbox.read().size(), 65);
}

void tst_ConfigurationFile_replacing::Save_replacesSymbolicLinkItself()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    const QString link = sandbox.path(QStringLiteral("link.cfg"));
    QVERIFY(QFile::link(sandbox.path(), link));
    QVERIFY(Configuration()._Save(link));
    QCOMPARE(sandbox.read(), QByteArray("old"));
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(QFileInfo(link).size(), qint64(65));
}

void tst_ConfigurationFile_replacing::Save_fails_whenPathIsBlank_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("blanks") << QStringLiteral(" \t\n");
}

void tst_ConfigurationFile_replacing::Save_fails_whenPathIsBlank()
{
    QFETCH(QString, path);
    QVERIFY(!Configuration()._Save(path));
}

void tst_ConfigurationFile_replacing::Save_fails_whenFolderIsMissing()
{
    const ConfigSandbox sandbox;
    QVERIFY(!Configuration()._Save(sandbox.path(QStringLiteral("missing/test.cfg"))));
    QVERIFY(sandbox.entries().isEmpty());
}

void tst_ConfigurationFile_replacing::Save_fails_whenFolderIsFile()
{
    const ConfigSandbox sandbox;
    sandbox.write("old");
    QVERIFY(!Configuration()._Save(sandbox.path(QStringLiteral("test.cfg/test.cfg"))));
    QCOMPARE(sandbox.read(), QByteArray("old"));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_ConfigurationFile_replacing::Save_fails_whenFolderTakesNoFiles()
{
    // The kernel makes no file here, for root neither.
    QVERIFY(!Configuration()._Save(QStringLiteral("/proc/self/AudioAnalyzer.cfg")));
    QVERIFY(!QFile::exists(QStringLiteral("/proc/self/AudioAnalyzer.cfg")));
}

void tst_ConfigurationFile_replacing::Save_fails_whenTargetIsFolder_data()
{
    QTest::addColumn<bool>("isEmpty");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("empty") << true << QString();
    QTest::newRow("empty, with slash") << true << QStringLiteral("/");
    QTest::newRow("with a file") << false << QString();
    QTest::newRow("with a file and slash") << false << QStringLiteral("/");
}

void tst_ConfigurationFile_replacing::Save_fails_whenTargetIsFolder()
{
    QFETCH(bool, isEmpty);
    QFETCH(QString, suffix);
    const ConfigSandbox sandbox;
    QDir folder(sandbox.path());
    QVERIFY(folder.mkpath(QStringLiteral(".")));
    QVERIFY(isEmpty || FileBuilder().raw("x").writeTo(folder.filePath(QStringLiteral("x"))));
    QVERIFY(!Configuration()._Save(sandbox.path() + suffix));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    folder.refresh();
    QCOMPARE(folder.entryList(everything).size(), isEmpty ? 0 : 1);
}

void tst_ConfigurationFile_replacing::Save_keepsOldFile_whenDiskIsFull_data()
{
    QTest::addColumn<int>("limit");
    for (const int limit : {0, 1, 12, 63, 64})
        QTest::addRow("%d bytes left", limit) << limit;
}

void tst_ConfigurationFile_replacing::Save_keepsOldFile_whenDiskIsFull()
{
    QFETCH(int, limit);
    const ConfigSandbox sandbox;
    const QByteArray old = FileBuilder::sample(1, 2).bytes();
    sandbox.write(old);
    bool isSaved = true;
    {
        const FileSizeLimit full(static_cast<rlim_t>(limit));
        isSaved = Configuration()._Save(sandbox.path());
    }
    QVERIFY(!isSaved);
    QCOMPARE(sandbox.read(), old);
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
    QVERIFY(Configuration()._Save(sandbox.path()));
}

AA_TEST(tst_ConfigurationFile_replacing, QCoreApplication)
#include "tst_ConfigurationFile_replacing.moc"
