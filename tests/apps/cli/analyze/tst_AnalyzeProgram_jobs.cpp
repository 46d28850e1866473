// SPDX-License-Identifier: MIT
#include <apps/cli/analyze/ProgramRunner.h>

#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <csignal>
#include <fcntl.h>
#include <stdlib.h>
#include <support/ProcessStatus.h>
#include <support/TestClass.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Children of a process, from /proc.
QList<int> ChildrenOf(qint64 pParent)
{
    QList<int> children;
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const QByteArray status = testaudio::ReadBytes(QStringLiteral("/proc/%1/stat").arg(entry));
        // pid (name) state parent ...
        const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 1 && fields[1].toLongLong() == pParent)
            children << entry.toInt();
    }
    return children;
}

}  // namespace

/// Work in several processes, and the progress bar on a terminal. The folder holds a.wav, b.flac,
/// c.wav, raw versions of two of them and a pipe, on which a worker waits until somebody writes.
class tst_AnalyzeProgram_jobs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void output_isTheSameForAnyNumberOfJobs_data();
    void output_isTheSameForAnyNumberOfJobs();
    void folder_getsTheSameFiles();
    void options_reachTheWorkers();
    void badFile_spoilsItselfOnly();
    void killedWorker_spoilsItsFileOnly();
    void standardInput_isOneOfTheFiles();
    void signal_endsTheWorkers();
    void bar_isDrawnOnATerminal();
    void bar_isNotDrawn_whenQuiet();

private:
    static QByteArray _Drawn(const QStringList& pOptions, const char* pMark);

    QTemporaryDir m_folder;
    QStringList m_files;
};

void tst_AnalyzeProgram_jobs::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    const std::vector<float> a = testaudio::Kicks(44100, 120, 5.0);
    const std::vector<float> b = testaudio::Kicks(44100, 140, 3.0);
    const std::vector<float> c = testaudio::Kicks(44100, 100, 4.0);
    QVERIFY(
        testaudio::Write(QStringLiteral("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, a));
    QVERIFY(
        testaudio::Write(QStringLiteral("b.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 1, b));
    QVERIFY(
        testaudio::Write(QStringLiteral("c.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, c));
    QVERIFY(testaudio::WriteBytes(QStringLiteral("a.raw"), testaudio::Raw(a)));
    QVERIFY(testaudio::WriteBytes(QStringLiteral("b.raw"), testaudio::Raw(b)));
    QCOMPARE(::mkfifo("pipe.raw", 0600), 0);
    m_files = FilesHere();
}

void tst_AnalyzeProgram_jobs::cleanup()
{
    for (const QString& file : FilesHere())
        if (!m_files.contains(file))
            QVERIFY(QFileInfo(file).isDir() ? QDir(file).removeRecursively() : QFile::remove(file));
}

void tst_AnalyzeProgram_jobs::output_isTheSameForAnyNumberOfJobs_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("beats") << "beats";
    QTest::newRow("tempo") << "tempo";
    QTest::newRow("ndjson") << "ndjson";
}

void tst_AnalyzeProgram_jobs::output_isTheSameForAnyNumberOfJobs()
{
    QFETCH(QString, format);
    const QString arguments = QStringLiteral("a.wav b.flac c.wav a.wav -f ") + format;
    const ProgramRun alone = Analyze(arguments);
    QCOMPARE(alone.exitCode, 0);
    for (const char* pJobs : {"2", "3", "16"}) {
        const ProgramRun run =
            Analyze(arguments + QStringLiteral(" --jobs ") + QLatin1String(pJobs));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output, alone.output);
        // The summaries are those of the files, in order; only the speed differs.
        const QList<QByteArray> lines = run.errors.trimmed().split('\n');
        const QList<QByteArray> aloneLines = alone.errors.trimmed().split('\n');
        QCOMPARE(lines.size(), 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(lines[i].left(lines[i].lastIndexOf(',')),
                     aloneLines[i].left(aloneLines[i].lastIndexOf(',')));
        QCOMPARE(Analyze(arguments + QStringLiteral(" -q -j ") + QLatin1String(pJobs)).errors,
                 QByteArray());
    }
}

void tst_AnalyzeProgram_jobs::folder_getsTheSameFiles()
{
    for (const char* pFormat : {"json", "svl", "ndjson"}) {
        const QString arguments = QStringLiteral("a.wav b.flac c.wav -f ") + QLatin1String(pFormat);
        QCOMPARE(Analyze(arguments + QStringLiteral(" -o one")).exitCode, 0);
        const ProgramRun run = Analyze(arguments + QStringLiteral(" -o many -j 3"));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output, QByteArray());
        for (const char* pBase : {"a.", "b.", "c."}) {
            const QString name = QLatin1String(pBase) + QLatin1String(pFormat);
            QVERIFY(!testaudio::ReadBytes(QStringLiteral("one/") + name).isEmpty());
            QCOMPARE(testaudio::ReadBytes(QStringLiteral("many/") + name),
                     testaudio::ReadBytes(QStringLiteral("one/") + name));
        }
    }
    QCOMPARE(QDir(QStringLiteral("many"))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                 .size(),
             9);
}

void tst_AnalyzeProgram_jobs::options_reachTheWorkers()
{
    for (const char* pOptions : {"--raw 44100 --real-only",
                                 "--raw 22050:2 --profile slow --virtual-when-stopped",
                                 "--raw 44100 --bpm 100:150 --threshold 5000 --no-consistency"}) {
        const QString arguments =
            QStringLiteral("a.raw b.raw -f ndjson ") + QLatin1String(pOptions);
        const QByteArray alone = Analyze(arguments).output;
        QVERIFY(!alone.isEmpty());
        QCOMPARE(Analyze(arguments + QStringLiteral(" -j 2")).output, alone);
    }
}

void tst_AnalyzeProgram_jobs::badFile_spoilsItselfOnly()
{
    const ProgramRun run = Analyze(QStringLiteral("a.wav missing.wav c.wav -j 3"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output,
             "# a.wav\n" + Analyze(QStringLiteral("a.wav")).output + "# c.wav\n" +
                 Analyze(QStringLiteral("c.wav")).output);
    const QList<QByteArray> lines = run.errors.trimmed().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith("a.wav: "));
    QVERIFY(lines[1].startsWith("audio-analyzer: missing.wav: there is no such file"));
    QVERIFY(lines[2].startsWith("c.wav: "));
    const ProgramRun quiet = Analyze(QStringLiteral("a.wav missing.wav c.wav -j 3 -q -o out"));
    QCOMPARE(quiet.exitCode, 1);
    QCOMPARE(quiet.errors, lines[1] + '\n');
    QCOMPARE(QDir(QStringLiteral("out")).entryList(QDir::Files | QDir::Hidden, QDir::Name),
             (QStringList{QStringLiteral("a.beats.txt"), QStringLiteral("c.beats.txt")}));
}

// The worker on the pipe waits for a writer. It is killed; the others are done, in order.
void tst_AnalyzeProgram_jobs::killedWorker_spoilsItsFileOnly()
{
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment());
    process.start(ProgramPath(),
                  QStringLiteral("analyze --raw 44100 -j 2 -o out a.raw pipe.raw b.raw")
                      .split(QLatin1Char(' ')));
    QVERIFY(process.waitForStarted());
    // a.raw and b.raw are done one after the other beside it, so that in the end only one is left.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(QStringLiteral("out/a.beats.txt")), kProgramTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(ChildrenOf(process.processId()).size() == 1, kProgramTimeoutMs);
    QCOMPARE(::kill(ChildrenOf(process.processId()).first(), SIGKILL), 0);
    const ProgramRun run = Finish(process);
    QCOMPARE(run.exitCode, 1);
    const QList<QByteArray> lines = run.errors.trimmed().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY2(
        lines[1].startsWith("audio-analyzer: pipe.raw: the analysis of this file was cut short"),
        lines[1].constData());
    QVERIFY(lines[2].startsWith("b.raw: "));
    QCOMPARE(QDir(QStringLiteral("out"))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             (QStringList{QStringLiteral("a.beats.txt"), QStringLiteral("b.beats.txt")}));
}

void tst_AnalyzeProgram_jobs::standardInput_isOneOfTheFiles()
{
    const QByteArray input = testaudio::ReadBytes(QStringLiteral("b.raw"));
    const QString arguments = QStringLiteral("--raw 44100 a.raw - b.raw");
    const ProgramRun alone = Analyze(arguments, input);
    QCOMPARE(alone.exitCode, 0);
    QVERIFY(alone.output.contains("# -\n"));
    const ProgramRun run = Analyze(arguments + QStringLiteral(" -j 2"), input);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, alone.output);
}

void tst_AnalyzeProgram_jobs::signal_endsTheWorkers()
{
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment());
    process.start(
        ProgramPath(),
        QStringLiteral("analyze --raw 44100 -j 2 -o out pipe.raw a.raw").split(QLatin1Char(' ')));
    QVERIFY(process.waitForStarted());
    QVERIFY(processstatus::WaitForHandler(process.processId(), SIGINT));
    QTRY_VERIFY_WITH_TIMEOUT(!ChildrenOf(process.processId()).isEmpty(), kProgramTimeoutMs);
    const QList<int> workers = ChildrenOf(process.processId());
    QVERIFY(!workers.isEmpty());
    QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished(kProgramTimeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), SIGINT);
    for (const int worker : workers)
        QVERIFY(::kill(worker, 0) != 0);
    QVERIFY(QDir(QStringLiteral("out"))
                .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                .isEmpty());
}

/// Runs a job on the pipe with a terminal for standard error, and returns what was drawn there. The
/// pipe gets its music once pMark is drawn, or after a time in which a bar is drawn.
QByteArray tst_AnalyzeProgram_jobs::_Drawn(const QStringList& pOptions, const char* pMark)
{
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0)
        return "no terminal";
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment());
    process.setStandardErrorFile(QString::fromLocal8Bit(::ptsname(terminal)));
    process.start(
        ProgramPath(),
        QStringLiteral("analyze --raw 44100 -j 2 -o out a.raw pipe.raw").split(QLatin1Char(' ')) +
            pOptions);
    // The open blocks until the worker reads; then it has to wait.
    const int writer = ::open("pipe.raw", O_WRONLY);
    const QByteArray music = testaudio::ReadBytes(QStringLiteral("b.raw"));
    QByteArray drawn;
    char bytes[4096];
    const auto drain = [&] {
        for (ssize_t count = 0; (count = ::read(terminal, bytes, sizeof bytes)) > 0;)
            drawn.append(bytes, int(count));
    };
    const auto isDrawn = [&] {
        drain();
        return pMark != nullptr && drawn.contains(pMark);
    };
    const bool isInTime = QTest::qWaitFor(isDrawn, pMark != nullptr ? kProgramTimeoutMs : 1500);
    const bool isWritten =
        ::write(writer, music.constData(), std::size_t(music.size())) == music.size();
    ::close(writer);
    const ProgramRun run = Finish(process);
    drain();
    ::close(terminal);
    const bool isAsExpected = isInTime == (pMark != nullptr) && isWritten && run.exitCode == 0;
    return isAsExpected ? drawn : QByteArray("failed");
}

void tst_AnalyzeProgram_jobs::bar_isDrawnOnATerminal()
{
    const QByteArray drawn = _Drawn({}, "\r1 of 2 files [");
    QVERIFY2(drawn.contains("\r1 of 2 files ["), drawn.constData());
    QVERIFY2(drawn.contains(" left\033[K"), drawn.constData());
    QVERIFY2(drawn.contains("#"), drawn.constData());
    // It is wiped before the summary, and nothing of it is left at the end.
    QVERIFY2(drawn.contains("\r\033[Kpipe.raw: 0:03 long"), drawn.constData());
    QVERIFY2(drawn.lastIndexOf("files [") < drawn.lastIndexOf("\r\033[K"), drawn.constData());
}

void tst_AnalyzeProgram_jobs::bar_isNotDrawn_whenQuiet()
{
    QCOMPARE(_Drawn({QStringLiteral("--quiet")}, nullptr), QByteArray());
}

AA_TEST(tst_AnalyzeProgram_jobs, QCoreApplication)
#include "tst_AnalyzeProgram_jobs.moc"
