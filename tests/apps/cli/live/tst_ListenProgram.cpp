// SPDX-License-Identifier: MIT
#include "ListenEvents.h"

#include <QJsonDocument>
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/TestClass.h>
#include <support/Text.h>

/// The commands "listen" and "devices" as programs, on the fake back end.
class tst_ListenProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void devices_areListed();
    void devices_mayBeNone();
    void bandAboveTheAudio_isRefused();
    void devices_areNotLost_whenNothingCanBeWritten();
    void devices_areWatched();
    void listen_takesTheDefault_andSavesAnother();
    void listen_saysThatTheStoredDeviceIsAway();
    void listen_namesNearDevices_forAWrongName();
    void listen_namesUsableDevices_forSeveralChannels();
    void listen_fails_whenNothingIsHeard();
    void listen_endsWell_onASignal_data();
    void listen_endsWell_onASignal();
    void listen_ends_whenItsReaderLeaves();
    void listen_refusesWrongUsage_data();
    void listen_refusesWrongUsage();
    void saving_isSaidToFail_withThePath();

private:
    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenProgram::init()
{
    m_stage.setDevices({Stage::Device("Deck", "music"),
                        Stage::Device("Silence", "silence"),
                        Stage::Device("Quiet", "quiet"),
                        Stage::Device("Clipped", "clipped"),
                        Stage::Device("Stereo", "music", 2),
                        Stage::Device("Deck.monitor", "none")});
    QDir(m_stage.path(QString())).remove(QStringLiteral("AudioAnalyzer.cfg"));
}

void tst_ListenProgram::devices_areListed()
{
    const StagedRun run = m_stage.Run("devices");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(
        run.errors,
        QByteArray("no sound server answers; the devices are those that Qt finds by itself\n"));
    const QStringList lines = Lines(run.output);
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines[0], QStringLiteral("* Deck          48000 Hz, mono, 16 bits signed; default"));
    QCOMPARE(lines[1], QStringLiteral("  Silence       48000 Hz, mono, 16 bits signed"));
    QCOMPARE(lines[4],
             QStringLiteral("  Stereo        48000 Hz, 2 channels, 16 bits signed; cannot be "
                            "analysed: the analysis needs a mono format"));
    QCOMPARE(lines[5], QStringLiteral("  Deck.monitor  48000 Hz, mono, 16 bits signed; monitor"));
}

void tst_ListenProgram::devices_mayBeNone()
{
    m_stage.setDevices({});
    const StagedRun run = m_stage.Run("devices");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errors.contains("there is no input device"));
}

// The fake device delivers 48000 Hz.
void tst_ListenProgram::bandAboveTheAudio_isRefused()
{
    m_stage.setDevices({Stage::Device("Mic", "music")});
    const StagedRun run = m_stage.Run("listen --quiet --format beats --band 24000:");
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains("audio of 48000 Hz ends at 24000 Hz"), run.errors.constData());
}

void tst_ListenProgram::devices_areNotLost_whenNothingCanBeWritten()
{
    m_stage.setDevices({Stage::Device("Mic", "music")});
    for (const char* pCommand : {"devices", "profiles", "config", "--help"}) {
        QProcess process;
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        m_stage.Start(process, QStringLiteral("audio-analyzer"), {QLatin1String(pCommand)});
        const StagedRun run = Stage::Finish(process);
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(Lines(run.errors).last(),
                 QStringLiteral("audio-analyzer: cannot write to standard output: "
                                "No space left on device"));
    }
}

void tst_ListenProgram::devices_areWatched()
{
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("devices"), QStringLiteral("-w")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "Deck.monitor"));
    m_stage.setDevices({Stage::Device("Deck", "music"), Stage::Device("New", "music")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "- Deck.monitor\n"));
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "+ New\n"));
    process.terminate();
    QCOMPARE(Stage::Finish(process).exitCode, 0);
}

void tst_ListenProgram::listen_takesTheDefault_andSavesAnother()
{
    QVERIFY(m_stage.Run("listen --duration 0.4").errors.contains("listening to \"Deck\""));
    const StagedRun saving =
        m_stage.Run("listen --device Quiet --save --duration 0.4 --format beats");
    QCOMPARE(saving.exitCode, 0);
    QCOMPARE(saving.output, QByteArray());
    QVERIFY(m_stage.Run("config show").output.contains("device                   Quiet"));
    QVERIFY(m_stage.Run("listen --duration 0.4").errors.contains("listening to \"Quiet\""));
    // What was only asked for this once is not saved with it.
    m_stage.Run("listen --device Deck --save --duration 0.4 --stop-threshold 77 --profile Slow");
    const QByteArray settings = m_stage.Run("config show").output;
    QVERIFY(settings.contains("stop-threshold           3276"));
    QVERIFY(settings.contains("profile                  Electro"));
}

void tst_ListenProgram::listen_saysThatTheStoredDeviceIsAway()
{
    QCOMPARE(m_stage
                 .Run(QStringList{QStringLiteral("config"),
                                  QStringLiteral("set"),
                                  QStringLiteral("device"),
                                  QStringLiteral("Away")})
                 .exitCode,
             0);
    const StagedRun run = m_stage.Run("listen --duration 0.4");
    QVERIFY(run.errors.contains("the stored device \"Away\" is not there; taking \"Deck\""));
    QVERIFY(m_stage.Run("config show").output.contains("device                   Away"));
}

void tst_ListenProgram::listen_namesNearDevices_forAWrongName()
{
    const StagedRun near = m_stage.Run("listen --device deck");
    QCOMPARE(near.exitCode, 1);
    QCOMPARE(near.errors,
             QByteArray("audio-analyzer: there is no input device \"deck\"; did you mean: "
                        "\"Deck\", \"Deck.monitor\"\n"));
    const StagedRun far = m_stage.Run("listen --device Theremin");
    QCOMPARE(far.exitCode, 1);
    QVERIFY(far.errors.contains("there are: \"Deck\", \"Silence\", \"Quiet\""));
    m_stage.setDevices({});
    QVERIFY(m_stage.Run("listen --device deck").errors.contains("nor any other"));
    const StagedRun none = m_stage.Run("listen");
    QCOMPARE(none.exitCode, 1);
    QVERIFY(none.errors.contains("there is no input device; plug one in"));
}

void tst_ListenProgram::listen_namesUsableDevices_forSeveralChannels()
{
    const StagedRun run = m_stage.Run("listen --device Stereo");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("\"Stereo\" delivers 2 channels only"), run.errors.constData());
    QVERIFY(run.errors.contains("choose with --device: \"Deck\", \"Silence\", \"Quiet\", "
                                "\"Clipped\", \"Deck.monitor\""));
}

void tst_ListenProgram::listen_fails_whenNothingIsHeard()
{
    const StagedRun run = m_stage.Run("listen --device Deck.monitor --duration 0.5");
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains("nothing was heard"));
}

void tst_ListenProgram::listen_endsWell_onASignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("INT") << SIGINT;
    QTest::newRow("TERM") << SIGTERM;
}

void tst_ListenProgram::listen_endsWell_onASignal()
{
    QFETCH(int, signal);
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("listen"), QStringLiteral("--format"), QStringLiteral("ndjson")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "\"play\""));
    ::kill(pid_t(process.processId()), signal);
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(Select(Events(run.output), "end").size(), 1);
    QVERIFY(run.errors.contains("Deck: 0:0"));
}

void tst_ListenProgram::listen_ends_whenItsReaderLeaves()
{
    const QString pipe =
        QStringLiteral("%1 listen --format ndjson | head -n 1; exit ${PIPESTATUS[0]}")
            .arg(m_stage.path(QStringLiteral("audio-analyzer")));
    QProcess process;
    process.start(QStringLiteral("bash"), {QStringLiteral("-c"), pipe});
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 141);
    QCOMPARE(Lines(run.output).size(), 1);
}

void tst_ListenProgram::listen_refusesWrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("format") << "listen --format xml" << QByteArray("text, beats, ndjson");
    QTest::newRow("duration") << "listen --duration 0" << QByteArray("number of seconds");
    QTest::newRow("text") << "listen --duration soon" << QByteArray("number of seconds");
    QTest::newRow("offset") << "listen --offset 501" << QByteArray("number of milliseconds");
    QTest::newRow("web") << "listen --web nowhere" << QByteArray("ADDRESS:PORT");
    QTest::newRow("profile") << "listen --profile Polka" << QByteArray("Electro, Hardcore, Slow");
    QTest::newRow("bpm") << "listen --bpm 200:100" << QByteArray("MIN:MAX");
    QTest::newRow("fixed") << "listen --fixed-bpm 400" << QByteArray("outside the profile's range");
    QTest::newRow("option") << "listen --loud" << QByteArray("listen --help");
    QTest::newRow("device") << "listen Deck" << QByteArray("listen --help");
}

void tst_ListenProgram::listen_refusesWrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const StagedRun run = m_stage.Run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
}

void tst_ListenProgram::saving_isSaidToFail_withThePath()
{
    // Also root cannot put a file in a folder's place.
    QVERIFY(QDir().mkpath(m_stage.path(QStringLiteral("AudioAnalyzer.cfg/x"))));
    const StagedRun run = m_stage.Run("listen --save --duration 0.3");
    QCOMPARE(run.exitCode, 0);
    const QByteArray path = m_stage.path(QStringLiteral("AudioAnalyzer.cfg")).toUtf8();
    QVERIFY2(run.errors.contains(path + " cannot be written"), run.errors.constData());
    QVERIFY(QDir(m_stage.path(QStringLiteral("AudioAnalyzer.cfg"))).removeRecursively());
}

AA_TEST(tst_ListenProgram, QCoreApplication)
#include "tst_ListenProgram.moc"
