// SPDX-License-Identifier: MIT
#include <desktop/window/Tray.h>

#include <QAction>
#include <QWidget>
#include <QtTest>

#include <support/TestClass.h>

/// The window is never out of reach. Warnings are not fatal here: the platform without a screen
/// gives one of every icon.
class tst_Tray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_isAvailable = true; }

    void start_showsTheWindow();
    void start_hidesTheWindow_whenAskedTo();
    void start_showsTheWindow_withoutATray();
    void window_comesBack_whenTheTrayGoes();
    void toggle_hidesAndShows();
    void toggle_hidesNothing_withoutATray();
    void menu_holdsWhatIsNeeded();

private:
    bool m_isAvailable = true;
    QWidget m_window;
    QAction m_reset{QStringLiteral("reset")};
    QAction m_quit{QStringLiteral("quit")};
};

void tst_Tray::start_showsTheWindow()
{
    m_window.hide();
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(false);
    QVERIFY(m_window.isVisible());
}

void tst_Tray::start_hidesTheWindow_whenAskedTo()
{
    m_window.hide();
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(true);
    QVERIFY(!m_window.isVisible());
    tray.Toggle();
    QVERIFY(m_window.isVisible());
}

void tst_Tray::start_showsTheWindow_withoutATray()
{
    m_window.hide();
    m_isAvailable = false;
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(true);
    QVERIFY(m_window.isVisible());
}

void tst_Tray::window_comesBack_whenTheTrayGoes()
{
    m_window.hide();
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(true);
    QVERIFY(!m_window.isVisible());
    QCOMPARE(tray.m_watch.interval(), Tray::kWatchMs);
    m_isAvailable = false;
    tray._Watch();
    QVERIFY(m_window.isVisible());
}

void tst_Tray::toggle_hidesAndShows()
{
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(false);
    tray.Toggle();
    QVERIFY(!m_window.isVisible());
    tray.Toggle();
    QVERIFY(m_window.isVisible());
}

void tst_Tray::toggle_hidesNothing_withoutATray()
{
    m_isAvailable = false;
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(false);
    tray.Toggle();
    QVERIFY(m_window.isVisible());
}

void tst_Tray::menu_holdsWhatIsNeeded()
{
    Tray tray(m_window, m_reset, m_quit, [this] { return m_isAvailable; });
    tray.Start(false);
    tray.Retranslate();
    const auto actions = tray.getMenu().actions();
    QCOMPARE(actions.size(), 4);
    QCOMPARE(actions[0]->text(), QStringLiteral("&Hide window"));
    QCOMPARE(actions[1], &m_reset);
    QVERIFY(actions[2]->isSeparator());
    QCOMPARE(actions[3], &m_quit);
    actions[0]->trigger();
    tray.Retranslate();
    QVERIFY(!m_window.isVisible());
    QCOMPARE(actions[0]->text(), QStringLiteral("&Show window"));
}

AA_TEST(tst_Tray, QApplication)
#include "tst_Tray.moc"
