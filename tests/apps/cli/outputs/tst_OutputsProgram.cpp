// SPDX-License-Identifier: MIT
#include <shared/settings/FileLock.h>

#include <QtTest>

#include <apps/shared/outputs/osc/OscListener.h>
#include <apps/stage/Stage.h>
#include <support/IniFile.h>
#include <support/TestClass.h>
#include <support/Text.h>

/// The command "outputs" as a program.
class tst_OutputsProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void outputs_areAdded_andListed();
    void outputsAddedAtOnce_areAllKept();
    void turnThatAnotherKeeps_isSaid();
    void outputs_areEdited();
    void outputs_areEnabled_andRemoved();
    void malformedEntries_areSaid();
    void outputOfAnUnknownKind_isKept_andSaid();
    void wrongUsage_isRefused_withTheReason_data();
    void wrongUsage_isRefused_withTheReason();
    void saving_isSaidToFail_withThePath();
    void ports_areListed();
    void test_sendsTwoBars();
    void test_ofAStoredOutput_takesItsPlace();
    void test_sendsAll_whateverTheOffset_data();
    void test_sendsAll_whateverTheOffset();
    void test_fails_whenNothingIsReached();

private:
    QByteArray list() const { return m_stage.Run("outputs").output; }
    QString settingsPath() const { return m_stage.path(QStringLiteral("AudioAnalyzer.ini")); }

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_OutputsProgram::init()
{
    QFile::remove(settingsPath());
}

void tst_OutputsProgram::outputs_areAdded_andListed()
{
    const StagedRun empty = m_stage.Run("outputs list");
    QCOMPARE(empty.exitCode, 0);
    QCOMPARE(empty.output, QByteArray());
    QVERIFY(empty.errors.contains("there are no outputs"));
    QCOMPARE(m_stage.Run("outputs add vis OSC 10.0.0.5/resolume --offset -20").exitCode, 0);
    const StagedRun own = m_stage.Run({QStringLiteral("outputs"),
                                       QStringLiteral("add"),
                                       QStringLiteral("my desk"),
                                       QStringLiteral("osc"),
                                       QStringLiteral("tcp:desk:1/beat /a/b f bpm / 2")});
    QCOMPARE(own.exitCode, 0);
    QCOMPARE(own.errors, QByteArray());
    QCOMPARE(list(),
             QByteArray("* vis      osc        10.0.0.5/resolume  -20 ms later\n"
                        "* my desk  osc        tcp:desk:1/beat /a/b f bpm / 2\n"));
}

void tst_OutputsProgram::outputsAddedAtOnce_areAllKept()
{
    constexpr int kPrograms = 8;
    QProcess programs[kPrograms];
    for (int i = 0; i < kPrograms; ++i)
        m_stage.Start(programs[i],
                      Text("audio-analyzer"),
                      QStringLiteral("outputs add desk%1 wled").arg(i).split(QLatin1Char(' ')));
    for (QProcess& program : programs) {
        const StagedRun run = Stage::Finish(program);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.exitCode, 0);
    }
    const QByteArray listed = list();
    for (int i = 0; i < kPrograms; ++i)
        QVERIFY2(listed.contains("* desk" + QByteArray::number(i) + ' '), listed.constData());
    const QDir folder = QFileInfo(settingsPath()).dir();
    QCOMPARE(folder.entryList({Text("*.turn*")}, QDir::AllEntries | QDir::Hidden), QStringList());
}

void tst_OutputsProgram::turnThatAnotherKeeps_isSaid()
{
    FileLock other;
    QCOMPARE(other.Take(settingsPath() + Text(".turn"), 0), FileLock::eTaken);
    const StagedRun run = m_stage.Run("outputs add desk wled");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("is being changed by another program"), run.errors.constData());
    other.LetGo();
    QCOMPARE(list(), QByteArray());
}

void tst_OutputsProgram::outputs_areEdited()
{
    m_stage.Run("outputs add a osc desk:1 --offset 5");
    QCOMPARE(m_stage.Run("outputs edit A --name b --address desk:2/wled --offset 0").exitCode, 0);
    QCOMPARE(list(), QByteArray("* b  osc        desk:2/wled\n"));
    QCOMPARE(m_stage.Run("outputs edit b --offset 7.5").exitCode, 0);
    QCOMPARE(list(), QByteArray("* b  osc        desk:2/wled  7.5 ms later\n"));
}

void tst_OutputsProgram::outputs_areEnabled_andRemoved()
{
    m_stage.Run("outputs add a osc desk:1");
    m_stage.Run("outputs add b osc desk:2");
    QCOMPARE(m_stage.Run("outputs disable a").exitCode, 0);
    QCOMPARE(list(), QByteArray("  a  osc        desk:1\n* b  osc        desk:2\n"));
    QCOMPARE(m_stage.Run("outputs enable A").exitCode, 0);
    QCOMPARE(m_stage.Run("outputs remove b").exitCode, 0);
    QCOMPARE(list(), QByteArray("* a  osc        desk:1\n"));
}

void tst_OutputsProgram::malformedEntries_areSaid()
{
    QVERIFY(WriteIniFile(settingsPath(),
                         "[Outputs]\nsize=2\n1\\Name=a\n2\\Name=b\n2\\Kind=osc\n2\\Address=c:1\n"));
    const StagedRun run = m_stage.Run("outputs");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray("* b  osc        c:1\n"));
    QVERIFY(run.errors.contains("output 1 is left out: it has no kind"));
}

void tst_OutputsProgram::outputOfAnUnknownKind_isKept_andSaid()
{
    QVERIFY(WriteIniFile(settingsPath(), "[Outputs]\nsize=1\n1\\Name=a\n1\\Kind=smoke\n"));
    QCOMPARE(m_stage.Run("outputs add b osc c:1").exitCode, 0);
    const QStringList lines = Lines(list());
    QVERIFY(lines.value(0).startsWith(
        QStringLiteral("* a  smoke; cannot be used: there is no kind of output \"smoke\"")));
    QCOMPARE(lines.value(1), QStringLiteral("* b  osc        c:1"));
}

void tst_OutputsProgram::wrongUsage_isRefused_withTheReason_data()
{
    QTest::addColumn<QByteArray>("reason");
    const auto add = [](const char* pArguments, const char* pReason) {
        QTest::newRow(pArguments) << QByteArray(pReason);
    };
    add("outputs sell", "give one of list, add, edit, remove, enable, disable, test");
    add("outputs list a", "takes no name");
    add("outputs add a", "give a name, a kind and its address");
    add("outputs add a osc", "osc: give its address");
    add("outputs add a osc b:1 c", "give a name, a kind and its address");
    add("outputs add a smoke b:1", "there is no kind of output \"smoke\"; there are: osc");
    add("outputs add a osc b:0", "give HOST:PORT[/PRESET]");
    add("outputs add a osc b:1/resolum", "\"resolum\": give a preset");
    add("outputs add a osc b:1 --offset 501", "give a number of milliseconds from -500 to 500");
    add("outputs add a osc b:1 --name c", "--name and --address belong to outputs edit");
    add("outputs add here osc b:1", "there is an output \"here\" already");
    add("outputs edit here", "give what to change");
    add("outputs edit here --address b:0", "give HOST:PORT[/PRESET]");
    add("outputs edit", "give the name of one output");
    add("outputs edit away --offset 1", "there is no output \"away\"; there are: here");
    add("outputs remove away", "there is no output \"away\"; there are: here");
    add("outputs enable", "give the name of one output");
    add("outputs remove here --offset 1", "--offset belongs to outputs add and edit");
    add("outputs test", "give the name of an output, or a kind and its address");
    add("outputs test away", "there is no output \"away\"; there are: here");
    add("outputs test smoke b:1", "there is no kind of output \"smoke\"");
    add("outputs test osc", "osc: give its address");
    add("outputs test a --ports", "--ports belongs to outputs list");
}

void tst_OutputsProgram::wrongUsage_isRefused_withTheReason()
{
    QFETCH(QByteArray, reason);
    QVERIFY(WriteIniFile(settingsPath(),
                         "[Outputs]\nsize=1\n1\\Name=here\n1\\Kind=osc\n1\\Address=a:1\n"));
    const StagedRun run = m_stage.Run(QTest::currentDataTag());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(reason), run.errors.constData());
}

// Also root cannot put a file in a folder's place.
void tst_OutputsProgram::saving_isSaidToFail_withThePath()
{
    QVERIFY(QDir().mkpath(settingsPath() + QStringLiteral("/x")));
    const StagedRun run = m_stage.Run("outputs add a osc b:1");
    QVERIFY(QDir(settingsPath()).removeRecursively());
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains("the outputs cannot be stored in " + settingsPath().toUtf8()));
}

// What there is depends on the machine, the form does not.
void tst_OutputsProgram::ports_areListed()
{
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("outputs"), QStringLiteral("--ports")});
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors.contains("no MIDI port is there"), run.output.isEmpty());
    for (const QString& line : Lines(run.output))
        QVERIFY2(line.startsWith(QStringLiteral("midi-clock ")) ||
                     line.startsWith(QStringLiteral("os2l ")),
                 qPrintable(line));
}

void tst_OutputsProgram::test_sendsTwoBars()
{
    OscListener listener;
    const QString place = QStringLiteral("127.0.0.1:%1").arg(listener.getPort());
    const StagedRun run =
        m_stage.Run({QStringLiteral("outputs"),
                     QStringLiteral("test"),
                     QStringLiteral("osc"),
                     place + QStringLiteral("/beat /b if count, bpm; bar /one i bar; "
                                            "playing /p i playing")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(QString::fromUtf8(run.errors),
             QStringLiteral("two bars at 120 BPM: the receiver gets your messages for eight beats "
                            "and two bars\n"
                            "osc: sending OSC to %1 (UDP), messages of your own\n"
                            "osc: 8 beats were sent\n")
                 .arg(place));
    QCOMPARE(listener.take(13),
             QStringLiteral("/p i 0\n/p i 1\n/b if 1 120\n/one i 0\n/b if 2 120\n/b if 3 120\n"
                            "/b if 4 120\n/b if 1 120\n/one i 1\n/b if 2 120\n/b if 3 120\n"
                            "/b if 4 120\n/p i 0"));
}

void tst_OutputsProgram::test_ofAStoredOutput_takesItsPlace()
{
    OscListener listener(LO_TCP);
    const QString place = QStringLiteral("tcp:127.0.0.1:%1/grandma3").arg(listener.getPort());
    QCOMPARE(m_stage
                 .Run({QStringLiteral("outputs"),
                       QStringLiteral("add"),
                       QStringLiteral("desk"),
                       QStringLiteral("osc"),
                       place})
                 .exitCode,
             0);
    const StagedRun run = m_stage.Run("outputs test DESK");
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.contains("the fader of executor 201 goes to 70.7 %"));
    QCOMPARE(listener.take(1), QStringLiteral("/Page1/Fader201 f 70.7107"));
}

void tst_OutputsProgram::test_sendsAll_whateverTheOffset_data()
{
    QTest::addColumn<QString>("offset");
    for (const char* pOffset : {"-500", "500"})
        QTest::newRow(pOffset) << QString::fromLatin1(pOffset);
}

void tst_OutputsProgram::test_sendsAll_whateverTheOffset()
{
    QFETCH(QString, offset);
    OscListener listener;
    const QString place = QStringLiteral("127.0.0.1:%1/beat /b i beat; playing /p i playing");
    m_stage.Run({QStringLiteral("outputs"),
                 QStringLiteral("add"),
                 QStringLiteral("desk"),
                 QStringLiteral("osc"),
                 place.arg(listener.getPort()),
                 QStringLiteral("--offset"),
                 offset});
    QCOMPARE(m_stage.Run("outputs test desk").exitCode, 0);
    QCOMPARE(listener.take(11),
             QStringLiteral("/p i 0\n/p i 1\n/b i 0\n/b i 1\n/b i 2\n/b i 3\n/b i 4\n/b i 5\n"
                            "/b i 6\n/b i 7\n/p i 0"));
}

void tst_OutputsProgram::test_fails_whenNothingIsReached()
{
    int port = 0;
    {
        const OscListener listener(LO_TCP);
        port = listener.getPort();
    }
    const StagedRun run = m_stage.Run({QStringLiteral("outputs"),
                                       QStringLiteral("test"),
                                       QStringLiteral("osc"),
                                       QStringLiteral("tcp:127.0.0.1:%1").arg(port)});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains("nothing listens there; trying again"));
    QVERIFY(run.errors.contains("osc: it was not reached"));
}

AA_TEST(tst_OutputsProgram, QCoreApplication)
#include "tst_OutputsProgram.moc"
