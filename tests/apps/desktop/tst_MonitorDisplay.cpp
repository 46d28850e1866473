// SPDX-License-Identifier: MIT
#include <desktop/live/BpmPanel.h>
#include <desktop/live/Led.h>
#include <desktop/live/LedPanel.h>
#include <desktop/live/SpectrumPanel.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QListView>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <apps/desktop/DesktopTest.h>
#include <apps/desktop/VirtualDisplay.h>
#include <support/TestClass.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

constexpr int kTimeoutMs = 60000;

/// Waits until a lamp has begun to shine that many times.
bool WaitForFlashes(const Led& pLed, int pCount)
{
    int count = 0;
    bool wasLit = pLed.getStep() > 0;
    return QTest::qWaitFor(
        [&] {
            const bool isLit = pLed.getStep() > 0;
            count += isLit && !wasLit;
            wasLit = isLit;
            return count >= pCount;
        },
        kTimeoutMs);
}

/// Waits until a file has been opened that many times from now on.
class OpenCount
{
public:
    explicit OpenCount(const QString& pPath) : m_notifications(::inotify_init1(IN_NONBLOCK))
    {
        if (::inotify_add_watch(m_notifications, QFile::encodeName(pPath).constData(), IN_OPEN) < 0)
            qFatal("cannot watch %s", qPrintable(pPath));
    }
    ~OpenCount() { ::close(m_notifications); }
    Q_DISABLE_COPY(OpenCount)

    bool WaitFor(int pCount)
    {
        int count = 0;
        return QTest::qWaitFor(
            [&] {
                inotify_event event = {};
                while (::read(m_notifications, &event, sizeof event) == sizeof event)
                    ++count;
                return count >= pCount;
            },
            kTimeoutMs);
    }

private:
    int m_notifications;
};

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
    void window_keepsItsFrameOnTheScreen();
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
    desktoptest::WriteWav(path, desktoptest::DemoPart(8.0, 40.0));
    MonitorSession session;
    MainWindow window(session, WindowSettings(), QPalette());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window, kTimeoutMs));
    session.PlayFile(path, false);
    QVERIFY(WaitForFlashes(window.getBeatLed().getLed(), 8));
    QVERIFY(WaitForFlashes(window.getPulseLed().getLed(), 1));
    const auto isTempoRight = [&] {
        return std::abs(window.getBpm().m_pTempo->text().toDouble() - 128.0) < 1.5;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isTempoRight(), kTimeoutMs);
    QCOMPARE(window.getBpm().m_pTempo->foregroundRole(), QPalette::WindowText);
    const QRegularExpression status(QStringLiteral(
        "^Playing “demo.wav” without sound: no sound server answers   0:[0-5][1-9]"));
    QTRY_VERIFY_WITH_TIMEOUT(status.match(window.getStatus().getSource()).hasMatch(), kTimeoutMs);
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
    QTRY_COMPARE_WITH_TIMEOUT(
        window.getStatus().getSource(), QStringLiteral("Listening to “Deck”"), kTimeoutMs);
    FakeAudioState::Get().Unplug(handle);
    PanelTest::Poll();
    // It stays listed, as absent, and is waited for.
    QTRY_VERIFY_WITH_TIMEOUT(
        window.getStatus().getSource().startsWith(QStringLiteral("Waiting for “Deck”")),
        kTimeoutMs);
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
    QVERIFY(QTest::qWaitForWindowExposed(&window, kTimeoutMs));
    QCOMPARE(window.screen()->availableGeometry(), QRect(0, 0, 1280, 900));
    window.Place(eStartingPosition(position));
    QTRY_COMPARE_WITH_TIMEOUT(window.pos(), corner, kTimeoutMs);
}

// A window manager puts a frame with a title bar around a window, after it has been shown. There is
// one for all the places: Qt does not expect it to be replaced.
void tst_MonitorDisplay::window_keepsItsFrameOnTheScreen()
{
    const WindowManager manager;
    for (const eStartingPosition position : {TopLeft, TopRight, BottomLeft, BottomRight}) {
        const bool isAtTop = position == TopLeft || position == TopRight;
        const bool isAtLeft = position == TopLeft || position == BottomLeft;
        MonitorSession session;
        MainWindow window(session, WindowSettings(), QPalette());
        window.setFixedSize(600, 400);
        // As the program does.
        window.Place(position);
        window.show();
        const QRect screen = window.screen()->availableGeometry();
        QTRY_VERIFY_WITH_TIMEOUT(window.windowHandle()->frameMargins().top() > 0, kTimeoutMs);
        QTRY_COMPARE_WITH_TIMEOUT(isAtTop ? window.frameGeometry().top()
                                          : window.frameGeometry().bottom(),
                                  isAtTop ? screen.top() : screen.bottom(),
                                  kTimeoutMs);
        QTRY_COMPARE_WITH_TIMEOUT(isAtLeft ? window.frameGeometry().left()
                                           : window.frameGeometry().right(),
                                  isAtLeft ? screen.left() : screen.right(),
                                  kTimeoutMs);
        // Where it is moved to later it stays.
        window.move(300, 200);
        QTRY_COMPARE_WITH_TIMEOUT(window.frameGeometry().topLeft(), QPoint(300, 200), kTimeoutMs);
    }
}

void tst_MonitorDisplay::program_playsAFile_andEndsWell()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("demo.wav"));
    desktoptest::WriteWav(path, desktoptest::DemoPart(8.0, 0.5));
    OpenCount opened(path);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_FATAL_WARNINGS"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BEAT_MONITOR_PROGRAM),
                  {QStringLiteral("--play"), path, QStringLiteral("--loop")});
    QVERIFY(program.waitForStarted());
    // It has begun anew several times.
    QVERIFY(opened.WaitFor(6));
    QCOMPARE(program.state(), QProcess::Running);
    program.terminate();
    QVERIFY(program.waitForFinished(kTimeoutMs));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

AA_TEST(tst_MonitorDisplay, DisplayedApplication)
#include "tst_MonitorDisplay.moc"
