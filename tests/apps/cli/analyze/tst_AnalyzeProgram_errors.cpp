// SPDX-License-Identifier: MIT
#include <QTemporaryDir>
#include <QtTest>

#include <apps/cli/analyze/ProgramRunner.h>
#include <apps/shared/files/TestAudio.h>
#include <csignal>
#include <support/ProcessStatus.h>
#include <support/TestClass.h>

/// Everything that can go wrong gives one line, the right exit code and nothing half-written.
class tst_AnalyzeProgram_errors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void badFile_isOneLine_data();
    void badFile_isOneLine();
    void badFile_leavesNoOutput_data();
    void badFile_leavesNoOutput();
    void damagedFile_isReadInPart_data();
    void damagedFile_isReadInPart();
    void otherFiles_areDone();
    void badUsage_isOneLine_data();
    void badUsage_isOneLine();
    void badOutput_isOneLine_data();
    void badOutput_isOneLine();
    void bandAboveTheAudio_isRefused_data();
    void bandAboveTheAudio_isRefused();
    void oldOutput_staysAsItWas_whenTheFileIsBad();
    void closedPipe_isNoNoise();
    void closedPipe_endsManyFilesAtOnce();
    void closedOutput_isSaid();
    void closedStreams_areNoNoise();
    void fullDisk_isSaid_data();
    void fullDisk_isSaid();
    void signal_leavesNothingHalfWritten_data();
    void signal_leavesNothingHalfWritten();

private:
    QTemporaryDir m_folder;
    QStringList m_files;
};

void tst_AnalyzeProgram_errors::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    const std::vector<float> song = testaudio::Kicks(44100, 120, 4.0);
    const auto write =
        [&](const char* pName, int pFormat, int pRate, const std::vector<float>& pFrames) {
            return testaudio::Write(QLatin1String(pName), pFormat, pRate, 1, pFrames);
        };
    QVERIFY(write("good.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, song));
    QVERIFY(write("slow.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 4000, song));
    QVERIFY(write(
        "short.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, std::vector<float>(1023, 0.5f)));
    QVERIFY(write("none.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, {}));
    QVERIFY(write("whole.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, song));
    QVERIFY(write("whole.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, song));
    for (const char* pName : {"good.wav", "whole.flac", "whole.mp3"}) {
        const QByteArray bytes = testaudio::ReadBytes(QLatin1String(pName));
        QVERIFY(testaudio::WriteBytes(QStringLiteral("cut-") + QLatin1String(pName),
                                      bytes.left(bytes.size() * 2 / 3)));
    }
    QVERIFY(testaudio::WriteBytes(QStringLiteral("empty.wav"), ""));
    QVERIFY(testaudio::WriteBytes(QStringLiteral("words.mp3"),
                                  QByteArray("no music here ").repeated(1000)));
    QVERIFY(QDir().mkdir(QStringLiteral("folder")));
    QVERIFY(QDir().mkdir(QStringLiteral("folder.wav")));
    m_files = FilesHere();
}

void tst_AnalyzeProgram_errors::badFile_isOneLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("missing") << "missing.wav" << QByteArray("no such file");
    QTest::newRow("empty") << "empty.wav" << QByteArray("is empty");
    QTest::newRow("no audio") << "words.mp3" << QByteArray("not audio");
    QTest::newRow("folder") << "folder" << QByteArray("is a folder");
    QTest::newRow("cut WAV") << "cut-good.wav" << QByteArray("truncated");
    QTest::newRow("cut FLAC") << "cut-whole.flac" << QByteArray("truncated");
    QTest::newRow("cut MP3") << "cut-whole.mp3" << QByteArray("truncated");
    QTest::newRow("slow rate") << "slow.wav" << QByteArray("4000 Hz");
    QTest::newRow("too short") << "short.wav" << QByteArray("too short: 1023 samples");
    QTest::newRow("no samples") << "none.wav" << QByteArray("too short: 0 samples");
}

void tst_AnalyzeProgram_errors::badFile_isOneLine()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, words);
    const ProgramRun run = Analyze(file);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors.count('\n'), 1);
    QVERIFY2(run.errors.startsWith("audio-analyzer: " + file.toUtf8() + ": "),
             run.errors.constData());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QCOMPARE(Analyze(file + QStringLiteral(" --quiet")).errors, run.errors);
}

void tst_AnalyzeProgram_errors::badFile_leavesNoOutput_data()
{
    badFile_isOneLine_data();
}

void tst_AnalyzeProgram_errors::badFile_leavesNoOutput()
{
    QFETCH(QString, file);
    for (const char* pFormat : {"json", "ndjson"}) {
        const ProgramRun run =
            Analyze(file + QStringLiteral(" -o out.txt --click c.wav --plot p.svg -f ") +
                    QLatin1String(pFormat));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(FilesHere(), m_files);
    }
}

void tst_AnalyzeProgram_errors::damagedFile_isReadInPart_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("WAV") << "cut-good.wav";
    QTest::newRow("FLAC") << "cut-whole.flac";
    QTest::newRow("MP3") << "cut-whole.mp3";
}

void tst_AnalyzeProgram_errors::damagedFile_isReadInPart()
{
    QFETCH(QString, file);
    const ProgramRun refused = Analyze(file);
    QCOMPARE(refused.exitCode, 1);
    QVERIFY2(refused.errors.contains("with --partial\n"), refused.errors.constData());
    const ProgramRun run = Analyze(QStringLiteral("--tracker profile --partial ") + file);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.output.isEmpty());
    const QList<QByteArray> lines = run.errors.trimmed().split('\n');
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines[0].startsWith(file.toUtf8() + ": ") && lines[0].contains("truncated"),
             run.errors.constData());
    QVERIFY2(lines[1].contains(" long, "), run.errors.constData());
    QCOMPARE(Analyze(QStringLiteral("-q --partial ") + file).errors, QByteArray());
    const ProgramRun workers =
        Analyze(QStringLiteral("-q --tracker profile --partial -j 2 good.wav ") + file);
    QCOMPARE(workers.exitCode, 0);
    QVERIFY(workers.output.endsWith("# " + file.toUtf8() + '\n' + run.output));
}

void tst_AnalyzeProgram_errors::otherFiles_areDone()
{
    const ProgramRun run = Analyze(QStringLiteral("missing.wav good.wav words.mp3 whole.flac"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output,
             "# good.wav\n" + Analyze(QStringLiteral("good.wav")).output + "# whole.flac\n" +
                 Analyze(QStringLiteral("whole.flac")).output);
    const QList<QByteArray> lines = run.errors.trimmed().split('\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines[0].startsWith("audio-analyzer: missing.wav: "));
    QVERIFY(lines[1].startsWith("good.wav: "));
    QVERIFY(lines[2].startsWith("audio-analyzer: words.mp3: "));
    QVERIFY(lines[3].startsWith("whole.flac: "));
}

void tst_AnalyzeProgram_errors::badUsage_isOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("no command") << "" << QByteArray("--help");
    QTest::newRow("no such command") << "good.wav" << QByteArray("audio-analyzer analyze good.wav");
    QTest::newRow("no file") << "analyze" << QByteArray("name the audio files");
    QTest::newRow("no such option") << "analyze good.wav --loud" << QByteArray("--loud");
    QTest::newRow("no such profile")
        << "analyze good.wav --profile Polka" << QByteArray("Electro, Hardcore, Slow");
    QTest::newRow("range") << "analyze good.wav --bpm 0:10" << QByteArray("1 <= MIN <= MAX < 1000");
    QTest::newRow("band") << "analyze good.wav --band 9:5" << QByteArray("LOW <= HIGH");
    QTest::newRow("number") << "analyze good.wav --sensibility much" << QByteArray("0 to 1000");
    QTest::newRow("format") << "analyze good.wav -f mp3" << QByteArray("ndjson");
    QTest::newRow("two into one document")
        << "analyze good.wav whole.flac -f json" << QByteArray("use -o DIR");
    QTest::newRow("same name") << "analyze good.wav folder/good.flac -o new"
                               << QByteArray("good.beats.txt");
    QTest::newRow("click as MP3") << "analyze good.wav --click c.mp3"
                                  << QByteArray("--click c.mp3: name a file that ends in .wav");
    QTest::newRow("click without a kind")
        << "analyze good.wav --click click" << QByteArray("ends in .wav");
    QTest::newRow("two clicks") << "analyze good.wav whole.flac --click c.wav"
                                << QByteArray("one input only");
    QTest::newRow("over the input")
        << "analyze good.wav -o good.wav" << QByteArray("it is an input");
    QTest::newRow("picture") << "analyze good.wav --plot p.bmp" << QByteArray(".svg or .png");
}

void tst_AnalyzeProgram_errors::badUsage_isOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const ProgramRun run = RunProgram(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors.count('\n'), 1);
    QVERIFY2(run.errors.startsWith("audio-analyzer: ") && run.errors.contains(words),
             run.errors.constData());
    QCOMPARE(FilesHere(), m_files);
}

void tst_AnalyzeProgram_errors::badOutput_isOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("no folder") << "-o none/out.txt" << QByteArray("there is no folder none");
    QTest::newRow("folder below a file") << "-o good.wav/" << QByteArray("good.wav/");
    QTest::newRow("full disk") << "-o /dev/full" << QByteArray("/dev/full");
    QTest::newRow("full disk, events") << "-o /dev/full -f ndjson" << QByteArray("/dev/full");
    QTest::newRow("click into a folder") << "--click folder.wav" << QByteArray("folder");
    QTest::newRow("click without a folder") << "--click none/c.wav" << QByteArray("none");
    QTest::newRow("plot without a folder") << "--plot none/p.svg" << QByteArray("none");
    QTest::newRow("file system without files") << "-o /proc/out.txt" << QByteArray("/proc/out.txt");
}

void tst_AnalyzeProgram_errors::badOutput_isOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const ProgramRun run = Analyze(QStringLiteral("good.wav ") + arguments);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors.count('\n'), 1);
    QVERIFY2(run.errors.startsWith("audio-analyzer: ") && run.errors.contains(words),
             run.errors.constData());
    QCOMPARE(FilesHere(), m_files);
}

void tst_AnalyzeProgram_errors::bandAboveTheAudio_isRefused_data()
{
    QTest::addColumn<QString>("band");
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("below the end") << "22049:23000" << false;
    QTest::newRow("upper edge above") << "0:30000" << false;
    QTest::newRow("at the end") << "22050:23000" << true;
    QTest::newRow("no upper edge") << "30000:" << true;
}

// Half of 44100 Hz is where the audio ends.
void tst_AnalyzeProgram_errors::bandAboveTheAudio_isRefused()
{
    QFETCH(QString, band);
    QFETCH(bool, isRefused);
    const ProgramRun run = Analyze(QStringLiteral("-q good.wav --band ") + band);
    QCOMPARE(run.exitCode, isRefused ? 1 : 0);
    QCOMPARE(run.errors.count('\n'), isRefused ? 1 : 0);
    QCOMPARE(run.errors.contains("audio of 44100 Hz ends at 22050 Hz"), isRefused);
}

void tst_AnalyzeProgram_errors::oldOutput_staysAsItWas_whenTheFileIsBad()
{
    QVERIFY(testaudio::WriteBytes(QStringLiteral("old.txt"), "precious"));
    for (const char* pFormat : {"beats", "ndjson"}) {
        QCOMPARE(Analyze(QStringLiteral("cut-whole.flac -o old.txt -f ") + QLatin1String(pFormat))
                     .exitCode,
                 1);
        QCOMPARE(testaudio::ReadBytes(QStringLiteral("old.txt")), QByteArray("precious"));
    }
    QVERIFY(QFile::remove(QStringLiteral("old.txt")));
    QCOMPARE(FilesHere(), m_files);
}

namespace {

/// Makes file 7 of bash a pipe whose reader has left.
const QByteArray kNoReader("exec 7> >(:); wait $!; ");

/// Runs a line of bash in which $P is the program.
ProgramRun RunShell(const QByteArray& pLine)
{
    QProcess shell;
    QProcessEnvironment environment = ProgramEnvironment();
    environment.insert(QStringLiteral("P"), ProgramPath());
    shell.setProcessEnvironment(environment);
    shell.start(QStringLiteral("bash"), {QStringLiteral("-c"), QString::fromUtf8(pLine)});
    return Finish(shell);
}

}  // namespace

void tst_AnalyzeProgram_errors::closedPipe_isNoNoise()
{
    for (const char* pFormat : {"beats", "json", "ndjson"}) {
        const QByteArray line =
            kNoReader + QByteArray("\"$P\" analyze good.wav -f ") + pFormat + " >&7";
        const ProgramRun run = RunShell(line);
        QCOMPARE(run.exitCode, 141);
        QCOMPARE(run.errors, QByteArray());
    }
    const ProgramRun help = RunShell(kNoReader + "\"$P\" analyze --help >&7; exit 0");
    QCOMPARE(help.errors, QByteArray());
}

void tst_AnalyzeProgram_errors::closedPipe_endsManyFilesAtOnce()
{
    for (const char* pJobs : {"1", "2"}) {
        const QByteArray line = kNoReader +
                                QByteArray("\"$P\" analyze -q good.wav whole.flac good.wav -j ") +
                                pJobs + " >&7";
        const ProgramRun run = RunShell(line);
        QCOMPARE(run.exitCode, 141);
        QCOMPARE(run.errors, QByteArray());
    }
}

void tst_AnalyzeProgram_errors::closedOutput_isSaid()
{
    const QByteArray words = "cannot write to standard output: it is closed\n";
    for (const char* pFormat : {"beats", "json", "ndjson"}) {
        const QByteArray line = QByteArray("\"$P\" analyze -q good.wav >&- -f ") + pFormat;
        const ProgramRun run = RunShell(line.constData());
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.errors, "audio-analyzer: good.wav: " + words);
    }
    for (const char* pArguments : {"--help", "analyze --help", "--version", "profiles", "config"}) {
        const QByteArray line = QByteArray("\"$P\" >&- ") + pArguments;
        const ProgramRun run = RunShell(line.constData());
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.errors, "audio-analyzer: " + words);
    }
}

void tst_AnalyzeProgram_errors::fullDisk_isSaid_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("document") << QByteArray("-f json -o out.json") << QByteArray("out.json");
    QTest::newRow("events") << QByteArray("-f ndjson -o out.ndjson") << QByteArray("out.ndjson");
    QTest::newRow("workers") << QByteArray("whole.flac -j 2 -f json -o .") << QByteArray("json");
    QTest::newRow("click track") << QByteArray("--click c.wav") << QByteArray("c.wav");
    QTest::newRow("plot") << QByteArray("--plot p.svg") << QByteArray("p.svg");
}

// Files may not grow beyond a kilobyte, which is what a full disk looks like.
void tst_AnalyzeProgram_errors::fullDisk_isSaid()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, name);
    const QByteArray line = "ulimit -f 1; \"$P\" analyze -q good.wav " + arguments;
    const ProgramRun run = RunShell(line.constData());
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith("audio-analyzer: good.wav: "), run.errors.constData());
    QVERIFY2(run.errors.contains(name), run.errors.constData());
    QVERIFY2(run.errors.contains("too large") || run.errors.contains("free space"),
             run.errors.constData());
    QVERIFY2(!run.errors.contains("nknown error"), run.errors.constData());
    QCOMPARE(FilesHere(), m_files);
}

void tst_AnalyzeProgram_errors::closedStreams_areNoNoise()
{
    const ProgramRun noErrors = RunShell("\"$P\" analyze good.wav 2>&-");
    QCOMPARE(noErrors.exitCode, 0);
    QCOMPARE(noErrors.output, Analyze(QStringLiteral("good.wav")).output);
    const ProgramRun noInput = RunShell("\"$P\" analyze good.wav -o out.txt <&- >&- 2>&-");
    QCOMPARE(noInput.exitCode, 0);
    QCOMPARE(testaudio::ReadBytes(QStringLiteral("out.txt")), noErrors.output);
    QVERIFY(QFile::remove(QStringLiteral("out.txt")));
}

void tst_AnalyzeProgram_errors::signal_leavesNothingHalfWritten_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("arguments");
    QTest::newRow("SIGINT, beats") << SIGINT << "-o out.txt";
    QTest::newRow("SIGTERM, click track") << SIGTERM << "-o out.txt --click c.wav";
    QTest::newRow("SIGHUP, events") << SIGHUP << "-o out.txt -f ndjson";
}

// The program waits for more input when the signal comes.
void tst_AnalyzeProgram_errors::signal_leavesNothingHalfWritten()
{
    QFETCH(int, signal);
    QFETCH(QString, arguments);
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment());
    process.start(
        ProgramPath(),
        QStringLiteral("analyze --raw 44100 - %1").arg(arguments).split(QLatin1Char(' ')));
    process.write(testaudio::Raw(testaudio::Kicks(44100, 120, 3.0)));
    QVERIFY(process.waitForBytesWritten());
    if (arguments.contains(QLatin1String("--click")))
        QTRY_VERIFY_WITH_TIMEOUT(FilesHere() != m_files,
                                 kProgramTimeoutMs);  // its temporary file is there
    QVERIFY(processstatus::WaitForHandler(process.processId(), signal));
    QCOMPARE(::kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(kProgramTimeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);  // it ended by the signal
    QCOMPARE(process.exitCode(), signal);
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(FilesHere(), m_files);
}

AA_TEST(tst_AnalyzeProgram_errors, QCoreApplication)
#include "tst_AnalyzeProgram_errors.moc"
