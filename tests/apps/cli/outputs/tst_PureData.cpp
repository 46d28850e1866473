// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/shared/outputs/osc/OscListener.h>
#include <apps/stage/Stage.h>
#include <support/TestClass.h>

namespace {

/// A port of loopback that nobody listens to any more.
int FreeOscPort()
{
    return OscListener().getPort();
}

}  // namespace

/// What Pure Data makes of the beats, with the patch that docs/outputs.md names.
class tst_PureData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void patch_getsTheBeats();
};

void tst_PureData::patch_getsTheBeats()
{
    const Stage stage({QStringLiteral(AUDIO_ANALYZER_PROGRAM)});
    const int port = FreeOscPort();
    QProcess pd;
    pd.setProcessChannelMode(QProcess::MergedChannels);
    pd.start(QStringLiteral("pd"),
             {QStringLiteral("-noprefs"),
              QStringLiteral("-nogui"),
              QStringLiteral("-noaudio"),
              QStringLiteral("-nomidi"),
              QStringLiteral("-nrt"),
              QStringLiteral("-stderr"),
              QStringLiteral("-open"),
              QStringLiteral(PURE_DATA_PATCH),
              QStringLiteral("-send"),
              QStringLiteral("port %1").arg(port)});
    QVERIFY(Stage::WaitFor(pd, QProcess::StandardOutput, "listening\n"));
    const QString place = QStringLiteral("127.0.0.1:%1").arg(port);
    const StagedRun run = stage.Run(
        {QStringLiteral("outputs"), QStringLiteral("test"), QStringLiteral("osc"), place});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(Stage::WaitFor(pd, QProcess::StandardOutput, "7 120 1\nplaying: 0\n"));
    pd.terminate();
    pd.waitForFinished(Stage::kTimeoutMs);
    const QByteArray text = pd.readAllStandardOutput();
    QVERIFY2(text.contains(
                 "playing: 0\nplaying: 1\ntempo: 120\nbeat: 0 120 1\nbar: 0\n"
                 "beat: 1 120 1\nbeat: 2 120 1\nbeat: 3 120 1\ntempo: 120\nbeat: 4 120 1\nbar: 1\n"
                 "beat: 5 120 1\nbeat: 6 120 1\nbeat: 7 120 1\nplaying: 0\n"),
             text.constData());
}

AA_TEST(tst_PureData, QCoreApplication)
#include "tst_PureData.moc"
