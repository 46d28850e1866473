// SPDX-License-Identifier: MIT
#include "DesktopTest.h"
#include "VirtualDisplay.h"
#include <desktop/live/BpmPanel.h>
#include <desktop/live/Led.h>
#include <desktop/live/LedPanel.h>
#include <desktop/live/SpectrumPanel.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QListView>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

/// Counts the times that a lamp begins to shine.
int CountFlashes(const Led& pLed, int pMs)
{
    int count = 0;
    bool wasLit = pLed.getStep() > 0;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < pMs) {
        QTest::qWait(4);
        const bool isLit = pLed.getStep() > 0;
        count += isLit && !wasLit;
        wasLit = isLit;
    }
    return count;
}

}  // namespace

/// The whole window on an X server of its own, with real time and real painting.
class tst_MonitorDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void demo_isShown();
    void devices_areListedLive();
    void window_startsWhereItShould_data();
    void window_startsWhereItShould();
    void program_playsAFile_andEndsWell();
};

void tst_MonitorDisplay::initTestCase()
{
    PanelTest::Install();
    desktoptest::ForgetSettings();
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
}

void tst_MonitorDisplay::demo_isShown()
{
    PanelTest::Clear();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("demo.wav"));
    desktoptest::WriteWav(path, desktoptest::DemoPart(8.0, 20.0));
    MonitorSession session;
    MainWindow window(session, WindowSettings(), QPalette());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    session.PlayFile(path, false);
    QTest::qWait(8000);
    // The demo is 128 BPM: four seconds have eight or nine beats.
    const int beats = CountFlashes(window.getBeatLed().getLed(), 4000);
    QVERIFY2(beats >= 7 && beats <= 10, qPrintable(QString::number(beats)));
    QVERIFY(CountFlashes(window.getPulseLed().getLed(), 1000) >= 1);
    const double tempo = window.getBpm().m_pTempo->text().toDouble();
    QVERIFY2(std::abs(tempo - 128.0) < 1.5, qPrintable(window.getBpm().m_pTempo->text()));
    QCOMPARE(window.getBpm().m_pTempo->foregroundRole(), QPalette::WindowText);
    const QString status = window.getStatus().getSource();
    QVERIFY2(status.startsWith(QStringLiteral("Playing “demo.wav”   0:1")), qPrintable(status));
    const auto& levels = window.getSpectrum().getBars().getLevels();
    QVERIFY(*std::max_element(levels.begin(), levels.end()) > -30.0);
}

void tst_MonitorDisplay::devices_areListedLive()
{
    PanelTest::Clear();
    MonitorSession session;
    MainWindow window(session, WindowSettings(), QPalette());
    window.show();
    session.Listen({});
    auto& list = PanelTest::Get<QListView>(window.getSettings(), "devices");
    QCOMPARE(list.model()->rowCount(), 0);
    const QByteArray handle = FakeAudioState::Get().Plug(desktoptest::MusicDevice("Deck"));
    PanelTest::Poll();
    QCOMPARE(list.model()->rowCount(), 1);
    QTRY_COMPARE(window.getStatus().getSource(), QStringLiteral("Listening to “Deck”"));
    FakeAudioState::Get().Unplug(handle);
    PanelTest::Poll();
    // It stays listed, as absent, and is waited for.
    QTRY_VERIFY(window.getStatus().getSource().startsWith(QStringLiteral("Waiting for “Deck”")));
    QCOMPARE(list.model()->rowCount(), 1);
}

void tst_MonitorDisplay::window_startsWhereItShould_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("top left") << int(TopLeft) << QPoint(0, 0);
    QTest::newRow("bottom right") << int(BottomRight) << QPoint(680, 500);
    QTest::newRow("center") << int(Center) << QPoint(340, 250);
}

void tst_MonitorDisplay::window_startsWhereItShould()
{
    QFETCH(int, position);
    QFETCH(QPoint, corner);
    WindowSettings settings;
    settings.visible.reset();
    MonitorSession session;
    MainWindow window(session, settings, QPalette());
    window.setFixedSize(600, 400);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.screen()->availableGeometry(), QRect(0, 0, 1280, 900));
    window.Place(eStartingPosition(position));
    QTRY_COMPARE(window.pos(), corner);
}

void tst_MonitorDisplay::program_playsAFile_andEndsWell()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("demo.wav"));
    desktoptest::WriteWav(path, desktoptest::DemoPart(8.0, 3.0));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_FATAL_WARNINGS"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BEAT_MONITOR_PROGRAM),
                  {QStringLiteral("--play"), path, QStringLiteral("--loop")});
    QVERIFY(program.waitForStarted());
    QTest::qWait(4000);
    QCOMPARE(program.state(), QProcess::Running);
    program.terminate();
    QVERIFY(program.waitForFinished(10000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

int main(int argc, char* argv[])
{
    const VirtualDisplay display;
    QApplication application(argc, argv);
    tst_MonitorDisplay test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_MonitorDisplay.moc"
