// SPDX-License-Identifier: MIT
#include <apps/desktop/window/WindowTest.h>
#include <desktop/live/BpmPanel.h>
#include <desktop/live/SpeakersPanel.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/settings/Translations.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QListView>
#include <QMenu>
#include <QScreen>

#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

/// The window under the settings of its files.
class tst_MainWindow_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
    }

    void panel_isShownByItsKey_data();
    void panel_isShownByItsKey();
    void flags_takeEffect();
    void look_followsTheDesktop_data();
    void look_followsTheDesktop();
    void lock_comesFromTheSettings();
    void language_isChangedWhileRunning();
    void settingsOfOthers_areShown();
    void place_movesTheWindow();
};

void tst_MainWindow_settings::panel_isShownByItsKey_data()
{
    QTest::addColumn<int>("panel");
    for (int panel = 0; panel < ePanelCount; ++panel)
        QTest::addRow("%d", panel) << panel;
}

void tst_MainWindow_settings::panel_isShownByItsKey()
{
    QFETCH(int, panel);
    WindowSettings settings;
    settings.visible.reset();
    settings.visible.set(std::size_t(panel));
    Stand stand(settings);
    stand.window.show();
    for (int other = 0; other < ePanelCount; ++other) {
        QCOMPARE(stand.window.isPanelVisible(ePanel(other)), other == panel);
        QCOMPARE(stand.window.m_panels[std::size_t(other)]->isVisible(), other == panel);
        QCOMPARE(stand.window.m_actions[std::size_t(other)]->isChecked(), other == panel);
    }
}

void tst_MainWindow_settings::flags_takeEffect()
{
    Stand stand;
    stand.window.show();
    SettingsColumn& column = stand.window.getSettings();
    // The defaults: gray, on top, with speakers.
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             makePalette(eGrayLook).color(QPalette::Window));
    QVERIFY(stand.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(stand.window.m_pSpeakers->isVisible());
    PanelTest::Get<QCheckBox>(column, "gray-mode").click();
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             makePalette(eLightLook).color(QPalette::Window));
    PanelTest::Get<QCheckBox>(column, "top-most").click();
    QVERIFY(!stand.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(stand.window.isVisible());
    PanelTest::Get<QCheckBox>(column, "display-speakers").click();
    QVERIFY(!stand.window.m_pSpeakers->isVisible());
    QVERIFY(!stand.window.getBpm().m_isStoppedShown);
    PanelTest::Get<QCheckBox>(column, "display-stopped").click();
    QVERIFY(stand.window.getBpm().m_isStoppedShown);
}

void tst_MainWindow_settings::look_followsTheDesktop_data()
{
    QTest::addColumn<int>("desktop");
    QTest::addColumn<bool>("isGray");
    QTest::addColumn<int>("look");
    QTest::newRow("light") << int(eLightLook) << false << int(eLightLook);
    QTest::newRow("dark") << int(eDarkLook) << false << int(eDarkLook);
    QTest::newRow("gray on light") << int(eLightLook) << true << int(eGrayLook);
    QTest::newRow("gray on dark") << int(eDarkLook) << true << int(eGrayLook);
}

void tst_MainWindow_settings::look_followsTheDesktop()
{
    QFETCH(int, desktop);
    QFETCH(bool, isGray);
    QFETCH(int, look);
    QCOMPARE(int(chooseLook(isGray, makePalette(eLook(desktop)))), look);
}

void tst_MainWindow_settings::lock_comesFromTheSettings()
{
    WindowSettings settings;
    Stand loose(settings);
    QVERIFY(!loose.window.getSettings().getManualBeat().m_isLocking);
    settings.isManualBeatLockingBPM = true;
    Stand locking(settings);
    QVERIFY(locking.window.getSettings().getManualBeat().m_isLocking);
}

void tst_MainWindow_settings::language_isChangedWhileRunning()
{
    Stand stand;
    stand.window.show();
    Translations translations;
    connect(
        &stand.window, &MainWindow::OnLanguageChosen, &translations, &Translations::setLanguage);
    Q_EMIT stand.window.getSettings().getAdvanced().OnLanguageChanged(QStringLiteral("de"));
    QCOMPARE(translations.getLanguage(), QStringLiteral("de"));
    QTRY_COMPARE(stand.window.m_pFileMenu->title(), QStringLiteral("&Datei"));
    QVERIFY(stand.window.getStatus().getSource().startsWith(QLatin1String("Kein Eingang")));
    translations.setLanguage(QStringLiteral("en"));
    QTRY_COMPARE(stand.window.m_pFileMenu->title(), QStringLiteral("&File"));
}

void tst_MainWindow_settings::settingsOfOthers_areShown()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().Plug(desktoptest::SilentDevice("Line"));
    PanelTest::Poll();
    Stand stand;
    QString problem;
    QVERIFY(stand.session.Load(problem));
    Translations translations;
    QObject::connect(
        &stand.window, &MainWindow::OnLanguageChosen, &translations, &Translations::setLanguage);
    stand.session.Listen(QStringLiteral("Deck"));
    stand.window.show();
    SettingsColumn& column = stand.window.getSettings();

    ConfigurationStore other;
    QVERIFY(other.LoadToChange());
    Configuration& configuration = other.getConfiguration();
    configuration.setGrayMode(false);
    configuration.setDisplaySpeakers(false);
    configuration.setLanguage(QStringLiteral("de"));
    configuration.setBPMCalculationDuration(21.0);
    configuration.setSelectedProfile(
        configuration.Add(QStringLiteral("House"), 110.0, 140.0, 2.0, 0, 75));
    other.setDeviceName(QStringLiteral("Line"));
    QVERIFY(other.Save());

    QTRY_VERIFY(!PanelTest::Get<QCheckBox>(column, "grayMode").isChecked());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             makePalette(eLightLook).color(QPalette::Window));
    QVERIFY(!stand.window.m_pSpeakers->isVisible());
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(column, "bpm").value(), 21.0);
    const auto& profiles = PanelTest::Get<QListView>(column, "profiles");
    QCOMPARE(profiles.model()->rowCount(), 4);
    QVERIFY(profiles.currentIndex().data().toString().startsWith(QLatin1String("House")));
    QCOMPARE(translations.getLanguage(), QStringLiteral("de"));
    // What is recorded goes on, and is what the panel shows.
    const auto& devices = PanelTest::Get<QListView>(column, "devices");
    QVERIFY(devices.currentIndex().data().toString().startsWith(QLatin1String("Deck")));
    QVERIFY(!stand.session.getConfiguration().isModified());
    translations.setLanguage(QStringLiteral("en"));
}

void tst_MainWindow_settings::place_movesTheWindow()
{
    Stand stand;
    stand.window.resize(300, 200);
    stand.window.show();
    stand.window.Place(TopLeft);
    QCOMPARE(stand.window.frameGeometry().topLeft(),
             stand.window.screen()->availableGeometry().topLeft());
}

AA_TEST(tst_MainWindow_settings, InVirtualTime<QApplication>)
#include "tst_MainWindow_settings.moc"
