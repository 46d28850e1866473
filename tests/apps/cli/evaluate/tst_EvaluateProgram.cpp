// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <support/TestClass.h>

#include <apps/cli/ProgramRunner.h>

/// The command as its users run it.
class tst_EvaluateProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void twoFiles_areCompared();
    void estimate_mayComeThroughAPipe();
    void folders_arePairedByName();
    void beatsCountMore_thanATempoAlone();
    void missingEstimate_isTold_andTheOthersAreDone();
    void badFile_isTold_withFileAndLine();
    void beatsBeforeTheStart_areNoReference();
    void silence_isNoFailure();
    void from_leavesOutTheBeginning();
    void badUsage_isOneLine_data();
    void badUsage_isOneLine();
    void fullDisk_isTold();

private:
    static QByteArray _Grid(double pInterval, int pCount, double pStart = 0.0);
    static bool _Write(const char* pName, const QByteArray& pText);
    static ProgramRun _Evaluate(const QString& pArguments, const QByteArray& pInput = {});

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_EvaluateProgram::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QVERIFY(QDir().mkpath(QStringLiteral("truth/deep")) && QDir().mkpath(QStringLiteral("found")));
    QVERIFY(_Write("song.beats", _Grid(0.5, 60)));
}

void tst_EvaluateProgram::cleanup()
{
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
    m_folder.reset();
}

QByteArray tst_EvaluateProgram::_Grid(double pInterval, int pCount, double pStart)
{
    QByteArray text;
    for (int i = 0; i < pCount; ++i)
        text += QByteArray::number(pStart + i * pInterval, 'f', 6) + '\n';
    return text;
}

bool tst_EvaluateProgram::_Write(const char* pName, const QByteArray& pText)
{
    QFile file(QString::fromLatin1(pName));
    return file.open(QIODevice::WriteOnly) && file.write(pText) == pText.size();
}

ProgramRun tst_EvaluateProgram::_Evaluate(const QString& pArguments, const QByteArray& pInput)
{
    const QString line = QStringLiteral("evaluate ") + pArguments;
    return RunProgram(line.split(QLatin1Char(' '), Qt::SkipEmptyParts), pInput);
}

void tst_EvaluateProgram::twoFiles_areCompared()
{
    QVERIFY(_Write("song.found.csv", _Grid(0.5, 60, 0.01)));
    const ProgramRun run = _Evaluate(QStringLiteral("song.beats song.found.csv"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
    const QByteArray text = run.output.simplified();
    QVERIFY2(text.startsWith("from 5 s on song F-measure, % 100.0 "), text.constData());
    QVERIFY2(text.contains("mean error, ms 10.0 "), text.constData());
    QVERIFY2(text.contains("first lock, median, s 1.5 "), text.constData());
}

void tst_EvaluateProgram::estimate_mayComeThroughAPipe()
{
    const ProgramRun run = _Evaluate(QStringLiteral("song.beats - -f csv"), _Grid(0.5, 60));
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains("\nsong,,1.000000,1.000000,"), run.output.constData());
    const ProgramRun bad = _Evaluate(QStringLiteral("song.beats -"), "0.5\nx\n");
    QCOMPARE(bad.exitCode, 1);
    QVERIFY2(bad.errors.contains("-:2: \"x\""), bad.errors.constData());
}

void tst_EvaluateProgram::folders_arePairedByName()
{
    QVERIFY(_Write("truth/a.beats", _Grid(0.5, 60)));
    QVERIFY(_Write("truth/a.json", R"({"genre": "jazz"})"));
    QVERIFY(_Write("truth/deep/b.beats", _Grid(0.4, 60)));
    QVERIFY(_Write("truth/deep/b.json", R"({"genre": "techno", "bpm": 150})"));
    QVERIFY(_Write("found/a.beats.txt", _Grid(0.5, 60)));
    QVERIFY(_Write("found/b.tempo.txt", "75\t150\t0\n"));
    QVERIFY(_Write("found/c.beats.txt", _Grid(0.5, 60)));
    const ProgramRun run = _Evaluate(QStringLiteral("truth found"));
    QCOMPARE(run.exitCode, 0);
    const QByteArray text = run.output.simplified();
    QVERIFY2(text.startsWith("from 5 s on jazz (1) techno (1) all (2) F-measure, % 100.0 - 100.0"),
             text.constData());
    QVERIFY2(text.contains("tempo within 4 %, % 100.0 100.0 100.0 ±0.0"), text.constData());
    const ProgramRun one = _Evaluate(QStringLiteral("truth/a.beats found -f csv"));
    QCOMPARE(one.exitCode, 0);
    QVERIFY2(one.output.contains("\na,jazz,1.000000,"), one.output.constData());
}

void tst_EvaluateProgram::beatsCountMore_thanATempoAlone()
{
    QVERIFY(_Write("truth/a.beats", _Grid(0.5, 60)));
    QVERIFY(_Write("found/a.tempo.txt", "60\n"));
    QVERIFY(_Write("found/a.beats.txt", _Grid(0.5, 60)));
    const ProgramRun run = _Evaluate(QStringLiteral("truth found"));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.simplified().contains("tempo within 1 %, % 100.0"));
    QVERIFY(_Write("found/a.csv", _Grid(0.5, 60)));
    const ProgramRun two = _Evaluate(QStringLiteral("truth found"));
    QCOMPARE(two.exitCode, 2);
    QVERIFY2(two.errors.contains("both estimates of one recording"), two.errors.constData());
}

void tst_EvaluateProgram::missingEstimate_isTold_andTheOthersAreDone()
{
    QVERIFY(_Write("truth/a.beats", _Grid(0.5, 60)));
    QVERIFY(_Write("truth/b.beats", _Grid(0.5, 60)));
    QVERIFY(_Write("found/b.beats.txt", _Grid(0.5, 60)));
    const ProgramRun run = _Evaluate(QStringLiteral("truth found -f csv"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors, QByteArray("audio-analyzer: truth/a.beats: has no estimate in found\n"));
    QCOMPARE(run.output.count('\n'), 2);
}

void tst_EvaluateProgram::badFile_isTold_withFileAndLine()
{
    QVERIFY(_Write("bad.csv", "0.5\n\n0.25\n"));
    const ProgramRun run = _Evaluate(QStringLiteral("song.beats bad.csv"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith("audio-analyzer: bad.csv:3: 0.25 s"), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
}

void tst_EvaluateProgram::beatsBeforeTheStart_areNoReference()
{
    QVERIFY(_Write("short.beats", _Grid(0.5, 8)));
    const ProgramRun run = _Evaluate(QStringLiteral("short.beats song.beats"));
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("no beat from 5 s on; lower --from"), run.errors.constData());
    QCOMPARE(_Evaluate(QStringLiteral("short.beats song.beats --from 0")).exitCode, 0);
}

void tst_EvaluateProgram::silence_isNoFailure()
{
    QVERIFY(_Write("silence.beats", ""));
    QVERIFY(_Write("silence.json", R"({"duration": 120})"));
    const ProgramRun run = _Evaluate(QStringLiteral("silence.beats song.beats"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output.simplified(),
             QByteArray("from 5 s on silence beats a minute without music 30.0"));
}

void tst_EvaluateProgram::from_leavesOutTheBeginning()
{
    QVERIFY(_Write("late.csv", _Grid(0.5, 40, 10.0)));
    const auto score = [&](const char* pFrom) {
        const ProgramRun run =
            _Evaluate(QStringLiteral("song.beats late.csv -f csv --from ") + QLatin1String(pFrom));
        return run.output.split('\n').value(1).split(',').value(2);
    };
    QCOMPARE(score("10"), QByteArray("1.000000"));
    QCOMPARE(score("0"), QByteArray("0.800000"));  // 40 of 60 found, none wrong
}

void tst_EvaluateProgram::badUsage_isOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("nothing") << "" << QByteArray("name the annotated beats");
    QTest::newRow("one file") << "song.beats" << QByteArray("name the annotated beats");
    QTest::newRow("three files") << "a b c" << QByteArray("evaluate --help");
    QTest::newRow("format") << "song.beats - -f svl" << QByteArray("text, json, csv");
    QTest::newRow("from") << "song.beats - --from soon" << QByteArray("number of seconds");
    QTest::newRow("from below 0") << "song.beats - --from=-1" << QByteArray("number of seconds");
    QTest::newRow("folder and file") << "truth song.beats" << QByteArray("two folders");
    QTest::newRow("empty folder") << "truth found" << QByteArray("NAME.beats");
}

void tst_EvaluateProgram::badUsage_isOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const ProgramRun run = _Evaluate(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors.count('\n'), 1);
    QVERIFY2(run.errors.contains(words), run.errors.constData());
}

void tst_EvaluateProgram::fullDisk_isTold()
{
    QProcess shell;
    QProcessEnvironment environment = ProgramEnvironment();
    environment.insert(QStringLiteral("P"), ProgramPath());
    shell.setProcessEnvironment(environment);
    shell.start(
        QStringLiteral("bash"),
        {QStringLiteral("-c"), QStringLiteral("\"$P\" evaluate song.beats song.beats >/dev/full")});
    const ProgramRun run = Finish(shell);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors.count('\n'), 1);
}

AA_TEST(tst_EvaluateProgram, QCoreApplication)
#include "tst_EvaluateProgram.moc"
