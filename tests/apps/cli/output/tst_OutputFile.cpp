// SPDX-License-Identifier: MIT
#include <cli/output/OutputFile.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <csignal>
#include <fcntl.h>
#include <support/TestClass.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_OutputFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void file_appearsWhole_atCommit();
    void file_staysAsItWas_withoutCommit();
    void link_isWrittenThrough();
    void stream_isWrittenAtOnce();
    void fullDevice_fails();
    void closedPipe_isNoError();
    void obstacle_isFound_data();
    void obstacle_isFound();

private:
    QString _Path(const char* pName) const { return m_folder->filePath(QLatin1String(pName)); }
    QStringList _Files() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_OutputFile::file_appearsWhole_atCommit()
{
    OutputFile output;
    QVERIFY(output.Open(_Path("a.txt")));
    QVERIFY(output.Write("one "));
    QVERIFY(output.Write("two"));
    QVERIFY(!QFile::exists(_Path("a.txt")));
    QVERIFY(output.Commit());
    QCOMPARE(testaudio::ReadBytes(_Path("a.txt")), QByteArray("one two"));
    QCOMPARE(_Files(), QStringList{QStringLiteral("a.txt")});
    QCOMPARE(output.getError(), QString());
}

void tst_OutputFile::file_staysAsItWas_withoutCommit()
{
    QVERIFY(testaudio::WriteBytes(_Path("a.txt"), "old"));
    {
        OutputFile output;
        QVERIFY(output.Open(_Path("a.txt")));
        QVERIFY(output.Write("new"));
    }
    QCOMPARE(testaudio::ReadBytes(_Path("a.txt")), QByteArray("old"));
    QCOMPARE(_Files(), QStringList{QStringLiteral("a.txt")});
}

void tst_OutputFile::link_isWrittenThrough()
{
    QVERIFY(testaudio::WriteBytes(_Path("a.txt"), "old"));
    QVERIFY(QFile::link(_Path("a.txt"), _Path("link")));
    OutputFile output;
    QVERIFY(output.Open(_Path("link")));
    QVERIFY(output.Write("new"));
    QVERIFY(output.Commit());
    QCOMPARE(testaudio::ReadBytes(_Path("a.txt")), QByteArray("new"));
    QVERIFY(QFileInfo(_Path("link")).isSymLink());
}

void tst_OutputFile::stream_isWrittenAtOnce()
{
    const QByteArray path = QFile::encodeName(_Path("pipe"));
    QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(OutputFile::isStream(_Path("pipe")));
    OutputFile output;
    QVERIFY(output.Open(_Path("pipe")));
    QVERIFY(output.Write("now"));
    char bytes[10] = {};
    QCOMPARE(int(::read(reader, bytes, sizeof bytes)), 3);
    QCOMPARE(QByteArray(bytes), QByteArray("now"));
    QVERIFY(output.Commit());
    ::close(reader);
}

void tst_OutputFile::fullDevice_fails()
{
    OutputFile output;
    QVERIFY(output.Open(QStringLiteral("/dev/full")));
    QVERIFY(!output.Write("much"));
    QVERIFY(output.getError().contains(QLatin1String("/dev/full")));
    QVERIFY(!output.Write("more"));
    QVERIFY(!output.Commit());
    QVERIFY(!output.isReaderGone());
}

void tst_OutputFile::closedPipe_isNoError()
{
    const QByteArray path = QFile::encodeName(_Path("pipe"));
    QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
    OutputFile output;
    QVERIFY(output.Open(_Path("pipe")));
    ::close(reader);
    QVERIFY(!output.Write("nobody listens"));
    QVERIFY(output.isReaderGone());
    QCOMPARE(output.getError(), QString());
    QVERIFY(!output.Commit());
}

void tst_OutputFile::obstacle_isFound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    QTest::newRow("new file") << "new.txt"
                              << "";
    QTest::newRow("folder") << "."
                            << "is a folder";
    QTest::newRow("no folder") << "none/new.txt"
                               << "there is no folder";
    QTest::newRow("below a file") << "file/new.txt"
                                  << "there is no folder";
}

void tst_OutputFile::obstacle_isFound()
{
    QFETCH(QString, name);
    QFETCH(QString, words);
    QVERIFY(testaudio::WriteBytes(_Path("file"), "x"));
    const QString obstacle = OutputFile::FindObstacle(m_folder->filePath(name));
    QCOMPARE(obstacle.isEmpty(), words.isEmpty());
    QVERIFY2(obstacle.contains(words), qPrintable(obstacle));
    OutputFile output;
    QCOMPARE(output.Open(m_folder->filePath(name)), words.isEmpty());
    QCOMPARE(output.getError(), obstacle);
}

AA_TEST(tst_OutputFile, NoApplication)
#include "tst_OutputFile.moc"
