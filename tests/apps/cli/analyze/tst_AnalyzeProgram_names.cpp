// SPDX-License-Identifier: MIT
#include <shared/files/FileNameCodec.h>

#include <QtTest>

#include <apps/cli/analyze/SongFolder.h>
#include <support/TestClass.h>

/// A file may have any name: one that looks like a place of a text, and one that is no text.
class tst_AnalyzeProgram_names : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { QVERIFY(m_folder.CleanUp()); }
    void anyName_isAnalysed_data();
    void anyName_isAnalysed();
    void anyName_isSaidAsItIs_data() { anyName_isAnalysed_data(); }
    void anyName_isSaidAsItIs();
    void anyName_isWrittenTo_data() { anyName_isAnalysed_data(); }
    void anyName_isWrittenTo();
    void anyName_goesThroughWorkers_data() { anyName_isAnalysed_data(); }
    void anyName_goesThroughWorkers();
    void badUsage_saysTheWordAsItIs();

private:
    /// The song under the name of the row.
    QString _Link() const
    {
        QFETCH(QByteArray, name);
        const QString link = QFile::decodeName(name);
        return QFile::copy(QStringLiteral("song.wav"), link) ? link : QString();
    }

    SongFolder m_folder;
    QByteArray m_beats;    ///< of song.wav
    QByteArray m_summary;  ///< without the name and the speed
};

namespace {

/// What stands between the name and the speed.
QByteArray SummaryOf(const QByteArray& pErrors, const QByteArray& pName)
{
    if (!pErrors.startsWith(pName + ": ") || !pErrors.endsWith("x real time\n"))
        return pErrors;
    return pErrors.mid(pName.size(), pErrors.lastIndexOf(", ") - pName.size());
}

}  // namespace

void tst_AnalyzeProgram_names::initTestCase()
{
    FileNameCodec::Install();
    QVERIFY(m_folder.Enter());
}

void tst_AnalyzeProgram_names::init()
{
    const ProgramRun run = RunProgram({QStringLiteral("analyze"), QStringLiteral("song.wav")});
    m_beats = run.output;
    m_summary = SummaryOf(run.errors, "song.wav");
    QVERIFY(m_beats.count('\n') > 5);
    QVERIFY2(m_summary.startsWith(": 0:08 long, "), m_summary.constData());
}

void tst_AnalyzeProgram_names::anyName_isAnalysed_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("escaped slash") << QByteArray("AC%2FDC.wav");
    QTest::newRow("per cent first") << QByteArray("%a.wav");
    QTest::newRow("number first") << QByteArray("%0.5.wav");
    QTest::newRow("all places") << QByteArray("%1%2%3%4%5%6%7%8%9.wav");
    QTest::newRow("UTF-8") << QByteArray("caf\xc3\xa9.wav");
    QTest::newRow("Latin 1") << QByteArray("caf\xe9.wav");
    QTest::newRow("no byte of UTF-8") << QByteArray("\xff\xfe.wav");
    QTest::newRow("control character") << QByteArray("\x01.wav");
}

void tst_AnalyzeProgram_names::anyName_isAnalysed()
{
    QFETCH(QByteArray, name);
    const ProgramRun run = RunProgram({QStringLiteral("analyze"), _Link()});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, m_beats);
    QCOMPARE(SummaryOf(run.errors, name), m_summary);
}

void tst_AnalyzeProgram_names::anyName_isSaidAsItIs()
{
    QFETCH(QByteArray, name);
    const ProgramRun run = RunProgram(
        {QStringLiteral("analyze"), QStringLiteral("-q"), QFile::decodeName("no " + name)});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors,
             "audio-analyzer: no " + name + ": there is no such file; check its name and folder\n");
}

void tst_AnalyzeProgram_names::anyName_isWrittenTo()
{
    QFETCH(QByteArray, name);
    const QString output = QFile::decodeName(name + ".out");
    const QString click = QFile::decodeName("click " + name);
    const ProgramRun run = RunProgram({QStringLiteral("analyze"),
                                       QStringLiteral("song.wav"),
                                       QStringLiteral("-o"),
                                       output,
                                       QStringLiteral("--click"),
                                       click});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(testaudio::ReadBytes(output), m_beats);
    QVERIFY(testaudio::ReadBytes(click).startsWith("RIFF"));
}

void tst_AnalyzeProgram_names::anyName_goesThroughWorkers()
{
    QFETCH(QByteArray, name);
    const ProgramRun run = RunProgram({QStringLiteral("analyze"),
                                       QStringLiteral("-j"),
                                       QStringLiteral("2"),
                                       _Link(),
                                       QStringLiteral("song.wav")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, "# " + name + '\n' + m_beats + "# song.wav\n" + m_beats);
    const QList<QByteArray> lines = run.errors.split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(SummaryOf(lines[0] + '\n', name), m_summary);
    QCOMPARE(SummaryOf(lines[1] + '\n', "song.wav"), m_summary);
}

void tst_AnalyzeProgram_names::badUsage_saysTheWordAsItIs()
{
    const QString word = QFile::decodeName("%1\xe9");
    const ProgramRun jobs = RunProgram({QStringLiteral("analyze"),
                                        QStringLiteral("x"),
                                        QStringLiteral("-j"),
                                        QStringLiteral("%2")});
    QCOMPARE(jobs.errors,
             QByteArray("audio-analyzer: --jobs %2: give a whole number from 1 to 256\n"));
    const ProgramRun command = RunProgram({word});
    QVERIFY2(command.errors.contains("\"%1\xe9\""), command.errors.constData());
    const ProgramRun option =
        RunProgram({QStringLiteral("analyze"), QStringLiteral("--") + word, QStringLiteral("x")});
    QCOMPARE(option.exitCode, 2);
    QVERIFY2(option.errors.contains("--%1\xe9; see"), option.errors.constData());
}

AA_TEST(tst_AnalyzeProgram_names, QCoreApplication)
#include "tst_AnalyzeProgram_names.moc"
