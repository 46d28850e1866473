// SPDX-License-Identifier: MIT
#include <shared/files/WholeFile.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_WholeFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void commit_putsTheFileInPlace();
    void commit_replacesAnOlderFile_andKeepsItsPermissions();
    void commit_replacesWhatALinkPointsTo();
    void commit_fails_whenTheTargetHasBecomeAFolder();
    void destructor_leavesNothing_whenNotCommitted();
    void destructor_keepsTheOlderFile_whenNotCommitted();
    void create_fails_whenTargetIsUnfit_data();
    void create_fails_whenTargetIsUnfit();
    void create_takesNamesOfFullLength();

private:
    QString _Path(const char* pName) const { return m_folder->filePath(QLatin1String(pName)); }
    QStringList _Entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

namespace {

void write(const QString& pPath, const QByteArray& pBytes)
{
    QFile file(pPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(pBytes), qint64(pBytes.size()));
}

QByteArray read(const QString& pPath)
{
    QFile file(pPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

}  // namespace

void tst_WholeFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void tst_WholeFile::commit_putsTheFileInPlace()
{
    WholeFile file;
    QVERIFY(file.Create(_Path("out.txt")));
    QCOMPARE(QFileInfo(file.getTemporaryPath()).path(), m_folder->path());
    write(file.getTemporaryPath(), "new");
    QVERIFY(!QFile::exists(_Path("out.txt")));
    QVERIFY(file.Commit());
    QVERIFY(file.getTemporaryPath().isEmpty());
    QCOMPARE(read(_Path("out.txt")), QByteArray("new"));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("out.txt")));
}

void tst_WholeFile::commit_replacesAnOlderFile_andKeepsItsPermissions()
{
    write(_Path("out.txt"), "old and longer");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(_Path("out.txt"), permissions));
    const auto before = QFile::permissions(_Path("out.txt"));
    WholeFile file;
    QVERIFY(file.Create(_Path("out.txt")));
    write(file.getTemporaryPath(), "new");
    QCOMPARE(read(_Path("out.txt")), QByteArray("old and longer"));
    QVERIFY(file.Commit());
    QCOMPARE(read(_Path("out.txt")), QByteArray("new"));
    QCOMPARE(QFile::permissions(_Path("out.txt")), before);
}

void tst_WholeFile::commit_replacesWhatALinkPointsTo()
{
    write(_Path("real.txt"), "old");
    QVERIFY(QFile::link(_Path("real.txt"), _Path("link.txt")));
    WholeFile file;
    QVERIFY(file.Create(_Path("link.txt")));
    write(file.getTemporaryPath(), "new");
    QVERIFY(file.Commit());
    QVERIFY(QFileInfo(_Path("link.txt")).isSymLink());
    QCOMPARE(read(_Path("real.txt")), QByteArray("new"));
}

void tst_WholeFile::commit_fails_whenTheTargetHasBecomeAFolder()
{
    {
        WholeFile file;
        QVERIFY(file.Create(_Path("out.txt")));
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("out.txt")));
        QVERIFY(!file.Commit());
        QVERIFY(file.getError().contains(_Path("out.txt")));
    }
    QCOMPARE(_Entries(), QStringList(QStringLiteral("out.txt")));
}

void tst_WholeFile::destructor_leavesNothing_whenNotCommitted()
{
    {
        WholeFile file;
        QVERIFY(file.Create(_Path("out.txt")));
        write(file.getTemporaryPath(), "half");
        QCOMPARE(_Entries().size(), 1);
    }
    QCOMPARE(_Entries(), QStringList());
}

void tst_WholeFile::destructor_keepsTheOlderFile_whenNotCommitted()
{
    write(_Path("out.txt"), "old");
    {
        WholeFile file;
        QVERIFY(file.Create(_Path("out.txt")));
        write(file.getTemporaryPath(), "half");
    }
    QCOMPARE(read(_Path("out.txt")), QByteArray("old"));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("out.txt")));
}

void tst_WholeFile::create_fails_whenTargetIsUnfit_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");
    const QString folder = QStringLiteral("/proc/self");
    QTest::newRow("no name") << QString() << QStringLiteral("No output file");
    QTest::newRow("folder") << QDir::tempPath() << QStringLiteral("not a regular file");
    QTest::newRow("device") << QStringLiteral("/dev/null") << QStringLiteral("not a regular file");
    QTest::newRow("missing folder") << QStringLiteral("/nowhere/at/all/out.txt")
                                    << QStringLiteral("\"/nowhere/at/all\" does not exist");
    QTest::newRow("file as folder")
        << QStringLiteral("/etc/passwd/out.txt") << QStringLiteral("does not exist");
    QTest::newRow("refusing folder")
        << folder + QStringLiteral("/out.txt") << QStringLiteral("check the folder's permissions");
}

void tst_WholeFile::create_fails_whenTargetIsUnfit()
{
    QFETCH(QString, target);
    QFETCH(QString, reason);
    WholeFile file;
    QVERIFY(!file.Create(target));
    QVERIFY2(file.getError().contains(reason), qPrintable(file.getError()));
    QVERIFY2(file.getError().contains(target), qPrintable(file.getError()));
    QVERIFY(file.getTemporaryPath().isEmpty());
    QVERIFY(QFile::exists(QStringLiteral("/dev/null")));
}

void tst_WholeFile::create_takesNamesOfFullLength()
{
    const QString path = m_folder->filePath(QString(255, QLatin1Char('n')));
    WholeFile file;
    QVERIFY(file.Create(path));
    QVERIFY(file.Commit());
    QVERIFY(QFile::exists(path));
}

AA_TEST(tst_WholeFile, NoApplication)
#include "tst_WholeFile.moc"
