// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/ProcessStatus.h>
#include <support/TestClass.h>

static const QString kMonitorProgram = QStringLiteral("beat-monitor");

/// A folder with the program, the fake sound back end, and the platforms of windows.
class MonitorStage : public Stage
{
public:
    MonitorStage() : Stage({QStringLiteral(BEAT_MONITOR_PROGRAM)})
    {
        const QString platforms = QStringLiteral(QT_PLUGINS "/platforms");
        if (!QFile::link(platforms, path(QStringLiteral("plugins/platforms"))))
            qFatal("cannot link %s", qPrintable(platforms));
    }

    /// Starts the program without a display, but for what the arguments or pPlatform say.
    void Launch(QProcess& pProcess,
                const QStringList& pArguments,
                const char* pPlatform = "offscreen") const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_FATAL_WARNINGS"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(pPlatform));
        environment.insert(QStringLiteral("PULSE_SERVER"), QStringLiteral("unix:/nonexistent"));
        pProcess.setProcessEnvironment(environment);
        pProcess.start(path(kMonitorProgram), pArguments);
    }

    StagedRun Go(const QStringList& pArguments, const char* pPlatform = "offscreen") const
    {
        QProcess process;
        Launch(process, pArguments, pPlatform);
        return Finish(process);
    }
};

namespace {

/// Whether a program has come so far that its event loop goes round.
bool IsRunning(const QProcess& pProcess)
{
    return processstatus::WaitForHandler(pProcess.processId(), SIGTERM) &&
           processstatus::WaitForRounds(pProcess.processId(), 20);
}

/// Ends a program that runs well by a signal and returns how that went.
StagedRun EndBy(QProcess& pProcess, int pSignal)
{
    ::kill(pid_t(pProcess.processId()), pSignal);
    return Stage::Finish(pProcess);
}

}  // namespace

/// The program, run as its users run it.
class tst_MonitorProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help_needsNoDisplay();
    void mistake_isRefused();
    void noDisplay_isSaidInWords();
    void signal_endsItWell_data();
    void signal_endsItWell();
    void fileLimit_doesNotStopIt();
    void damagedConfiguration_doesNotStopIt();
    void missingFile_doesNotStopIt();

private:
    MonitorStage m_stage;
};

void tst_MonitorProgram::help_needsNoDisplay()
{
    const StagedRun help = m_stage.Go({QStringLiteral("--help")}, "");
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.output.contains("--play"));
    QCOMPARE(help.errors, QByteArray());
    const StagedRun version = m_stage.Go({QStringLiteral("--version")}, "");
    QCOMPARE(version.exitCode, 0);
    QVERIFY(version.output.startsWith("beat-monitor "));
}

void tst_MonitorProgram::mistake_isRefused()
{
    const StagedRun run = m_stage.Go({QStringLiteral("--nonsense")});
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.errors.contains("--nonsense"));
    QCOMPARE(run.output, QByteArray());
}

void tst_MonitorProgram::noDisplay_isSaidInWords()
{
    const StagedRun run = m_stage.Go({}, "");
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains("there is no display"));
}

void tst_MonitorProgram::signal_endsItWell_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void tst_MonitorProgram::signal_endsItWell()
{
    QFETCH(int, signal);
    m_stage.setDevices({Stage::Device("Deck", "music")});
    QProcess process;
    m_stage.Launch(process, {QStringLiteral("--device"), QStringLiteral("Deck")});
    QVERIFY(process.waitForStarted());
    QVERIFY(IsRunning(process));
    QCOMPARE(process.state(), QProcess::Running);
    const StagedRun run = EndBy(process, signal);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
}

void tst_MonitorProgram::fileLimit_doesNotStopIt()
{
    QProcess process;
    m_stage.Launch(process, {});
    QVERIFY(process.waitForStarted());
    QVERIFY(IsRunning(process));
    ::kill(pid_t(process.processId()), SIGXFSZ);
    QVERIFY(IsRunning(process));
    QCOMPARE(process.state(), QProcess::Running);
    QCOMPARE(EndBy(process, SIGTERM).exitCode, 0);
}

void tst_MonitorProgram::damagedConfiguration_doesNotStopIt()
{
    QVERIFY(m_stage.Write(QStringLiteral("AudioAnalyzer.cfg"), "damaged"));
    QProcess process;
    m_stage.Launch(process, {});
    QVERIFY(process.waitForStarted());
    QVERIFY(IsRunning(process));
    QCOMPARE(process.state(), QProcess::Running);
    QCOMPARE(EndBy(process, SIGTERM).exitCode, 0);
    // Nothing was changed, so nothing is written over what may be mended.
    QCOMPARE(m_stage.Read(QStringLiteral("AudioAnalyzer.cfg")), QByteArray("damaged"));
    QFile::remove(m_stage.path(QStringLiteral("AudioAnalyzer.cfg")));
}

void tst_MonitorProgram::missingFile_doesNotStopIt()
{
    QProcess process;
    m_stage.Launch(process, {QStringLiteral("--play"), QStringLiteral("/nowhere.wav")});
    QVERIFY(process.waitForStarted());
    QVERIFY(IsRunning(process));
    QCOMPARE(process.state(), QProcess::Running);
    QCOMPARE(EndBy(process, SIGTERM).exitCode, 0);
}

AA_TEST(tst_MonitorProgram, QCoreApplication)
#include "tst_MonitorProgram.moc"
