// SPDX-License-Identifier: MIT
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <cmath>
#include <pulse/PulseServer.h>
#include <support/TestClass.h>

namespace {

constexpr int kTimeoutMs = 60000;

/// Strokes at 128 BPM, 48000 Hz.
QByteArray Music(int pSeconds)
{
    QByteArray bytes;
    for (int i = 0; i < pSeconds * 48000; ++i) {
        const double time = std::fmod(i, 22500.0) / 48000.0;
        const auto sample =
            qint16(29000.0 * std::exp(-time / 0.1) * std::sin(2.0 * M_PI * 55.0 * time));
        bytes.append(reinterpret_cast<const char*>(&sample), sizeof(sample));
    }
    return bytes;
}

void Start(QProcess& pProcess, const QStringList& pArguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_FATAL_WARNINGS"));
    pProcess.setProcessEnvironment(environment);
    pProcess.start(QStringLiteral(AUDIO_ANALYZER_PROGRAM), pArguments);
}

bool WaitFor(QProcess& pProcess, QProcess::ProcessChannel pChannel, const char* pText)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kTimeoutMs && pProcess.state() != QProcess::NotRunning) {
        pProcess.setReadChannel(pChannel);
        pProcess.waitForReadyRead(20);
        if (pProcess.peek(1 << 20).contains(pText))
            return true;
    }
    return false;
}

}  // namespace

/// The live commands on a real sound server, which is the test's own.
class tst_ListenPulse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void devices_areTheServersAlone();
    void listen_survivesTheServersEnd();

private:
    PulseServer m_server;
    QString m_track;
};

void tst_ListenPulse::initTestCase()
{
    m_track = m_server.folder() + QStringLiteral("/music.raw");
    QFile file(m_track);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(Music(90)) > 0);
    file.close();
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY2(!m_server.LoadSink(QStringLiteral("deck")).isEmpty(), qPrintable(m_server.error()));
}

void tst_ListenPulse::devices_areTheServersAlone()
{
    QProcess process;
    Start(process, {QStringLiteral("devices")});
    QVERIFY(process.waitForFinished(kTimeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    // Without ALSA's pseudo-devices.
    QCOMPARE(process.readAllStandardOutput(),
             QByteArray("* deck.monitor  48000 Hz, mono, 16 bits signed; monitor; default; "
                        "Monitor of Null Output\n"));
}

void tst_ListenPulse::listen_survivesTheServersEnd()
{
    QVERIFY(m_server.Play(m_track, QStringLiteral("deck")));
    QProcess process;
    Start(process,
          {QStringLiteral("listen"),
           QStringLiteral("--format"),
           QStringLiteral("ndjson"),
           QStringLiteral("--measure")});
    QVERIFY(WaitFor(process, QProcess::StandardOutput, "\"announce\""));
    m_server.EndPlaying();
    m_server.End();
    QVERIFY(WaitFor(process, QProcess::StandardError, "\"deck.monitor\" is gone"));
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY2(!m_server.LoadSink(QStringLiteral("deck")).isEmpty(), qPrintable(m_server.error()));
    QVERIFY(WaitFor(process, QProcess::StandardError, "\"deck.monitor\" is back"));
    process.terminate();
    QVERIFY(process.waitForFinished(kTimeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(process.readAllStandardError().contains("announced beats: "));
}

AA_TEST(tst_ListenPulse, QCoreApplication)
#include "tst_ListenPulse.moc"
