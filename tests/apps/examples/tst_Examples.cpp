// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/TestClass.h>

/// The example hosts beside the command line host, whose configuration file they share.
class tst_Examples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cHost_pollsTheBlock();
    void cHost_saysThatNoDeviceIsSelected();
    void qtHost_printsTempoAndBeats();
    void qtHost_fails_whenNoDeviceIsSelected();

private:
    StagedRun _Run(const QString& pProgram) const;

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM),
                         QStringLiteral(C_HOST_PROGRAM),
                         QStringLiteral(QT_HOST_PROGRAM)}};
};

void tst_Examples::init()
{
    m_stage.setDevices({Stage::Device("Other", "silence"), Stage::Device("Deck", "music")});
    QFile::remove(m_stage.path(QStringLiteral("AudioAnalyzer.cfg")));
}

StagedRun tst_Examples::_Run(const QString& pProgram) const
{
    QProcess process;
    m_stage.Start(process, pProgram, {});
    return Stage::Finish(process);
}

void tst_Examples::cHost_pollsTheBlock()
{
    QCOMPARE(m_stage.Run("config set device Deck").exitCode, 0);
    const StagedRun run = _Run(QStringLiteral("c_host"));
    QCOMPARE(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.trimmed().split('\n');
    QCOMPARE(lines.size(), 10);
    int peak = 0;
    for (const QByteArray& line : lines) {
        QVERIFY2(line.startsWith("block of 1024 samples, peak "), line.constData());
        peak = std::max(peak, line.mid(line.lastIndexOf(' ')).trimmed().toInt());
    }
    // The strokes of the track are up to 29000 high, and one begins every half second.
    QVERIFY(peak > 3000 && peak <= 29000);
}

void tst_Examples::cHost_saysThatNoDeviceIsSelected()
{
    const StagedRun run = _Run(QStringLiteral("c_host"));
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains("no device to listen to"));
}

void tst_Examples::qtHost_printsTempoAndBeats()
{
    QCOMPARE(m_stage.Run("listen --device Deck --save --duration 0.2").exitCode, 0);
    QProcess process;
    m_stage.Start(process, QStringLiteral("qt_host"), {});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardOutput, "beat\n"));
    QVERIFY(process.peek(1 << 20).contains(" BPM\n"));
    process.terminate();
    process.waitForFinished();
}

void tst_Examples::qtHost_fails_whenNoDeviceIsSelected()
{
    QCOMPARE(_Run(QStringLiteral("qt_host")).exitCode, 1);
}

AA_TEST(tst_Examples, QCoreApplication)
#include "tst_Examples.moc"
