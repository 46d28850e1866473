// SPDX-License-Identifier: MIT
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
#include <QScrollBar>

#include <apps/desktop/settings/LanguageRows.h>
#include <apps/desktop/window/WindowTest.h>
#include <cmath>
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
    void window_isAsItWasLeft();
    void column_fitsALowWindow_inEveryLanguage_data() { LanguageRows(); }
    void column_fitsALowWindow_inEveryLanguage();
    void tempoAndLamp_growWithTheWindow();
    void focus_canBeSeen_inEveryLook_data();
    void focus_canBeSeen_inEveryLook();
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
    QCOMPARE(int(chooseLook(true, isGray, makePalette(eLook(desktop)))), int(eContrastLook));
    QCOMPARE(int(chooseLook(false, isGray, makePalette(eLook(desktop)))), look);
}

void tst_MainWindow_settings::lock_comesFromTheSettings()
{
    WindowSettings settings;
    Stand loose(settings);
    QVERIFY(!loose.session.getHand().isLocking());
    settings.isManualBeatLockingBPM = true;
    Stand locking(settings);
    QVERIFY(locking.session.getHand().isLocking());
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

    QTRY_VERIFY(!PanelTest::Get<QCheckBox>(column, "gray-mode").isChecked());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             makePalette(eLightLook).color(QPalette::Window));
    QVERIFY(!stand.window.m_pSpeakers->isVisible());
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(column, "bpm-duration").value(), 21.0);
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

void tst_MainWindow_settings::window_isAsItWasLeft()
{
    WindowSettings left;
    {
        Stand stand;
        stand.window.show();
        stand.window.resize(stand.window.minimumSizeHint() + QSize(30, 40));
        QVERIFY(!stand.window.CollectSettings().size.isEmpty());
        stand.window.move(30, 20);
        stand.window.m_actions[eSpectrumPanel]->trigger();
        left = stand.window.CollectSettings();
    }
    Stand again(left);
    again.window.Place(left.position);
    again.window.show();
    QVERIFY(!again.window.isPanelVisible(eSpectrumPanel));
    QCOMPARE(again.window.pos(), QPoint(30, 20));
    const QSize screen = again.window.screen()->availableSize();
    QCOMPARE(again.window.size(),
             left.size.boundedTo(screen).expandedTo(again.window.minimumSizeHint()));
    // A place on a screen that is gone is no place.
    left.place = QPoint(20000, 20000);
    Stand elsewhere(left);
    elsewhere.window.Place(left.position);
    QVERIFY(elsewhere.window.pos() != QPoint(20000, 20000));
}

/// The letters are those of a usual desktop.
void tst_MainWindow_settings::column_fitsALowWindow_inEveryLanguage()
{
    QFETCH(const QString, language);
    Translations translations;
    QVERIFY(translations.setLanguage(language));
    const QFont usual = QApplication::font();
    QApplication::setFont(QFont(usual.family(), 9));
    Stand stand;
    QApplication::setFont(usual);
    stand.window.setFont(QFont(usual.family(), 9));
    stand.window.show();
    QCoreApplication::processEvents();
    stand.window.resize(1150, 800);
    QCoreApplication::processEvents();
    QCOMPARE(stand.window.height(), 800);
    QCOMPARE(stand.window.getSettings().verticalScrollBar()->maximum(), 0);
}

void tst_MainWindow_settings::tempoAndLamp_growWithTheWindow()
{
    Stand stand;
    stand.window.resize(1100, 800);
    stand.window.show();
    const auto lamp = [&] { return stand.window.getBeatLed().getLed().height(); };
    const auto digits = [&] { return stand.window.getBpm().m_pTempo->height(); };
    const int usualLamp = lamp();
    const int usualDigits = digits();
    for (const ePanel panel : {eSpectrumPanel, eThresholdPanel, ePulseLEDPanel, eResetPanel})
        stand.window.setPanelVisible(panel, false);
    stand.window.resize(1900, 1060);
    QCoreApplication::processEvents();
    QVERIFY(lamp() > usualLamp * 3 / 2);
    QVERIFY(digits() > usualDigits * 3 / 2);
    stand.window.resize(1100, 800);
    stand.window.setPanelVisible(eSpectrumPanel, true);
    stand.window.setPanelVisible(eThresholdPanel, true);
    QCoreApplication::processEvents();
    QTRY_COMPARE(lamp(), usualLamp);
    QCOMPARE(digits(), usualDigits);
}

void tst_MainWindow_settings::focus_canBeSeen_inEveryLook_data()
{
    QTest::addColumn<int>("look");
    for (int look = 0; look < eLookCount; ++look)
        QTest::addRow("%d", look) << look;
}

/// Three to one, as between any sign and its ground. The style rings in a darker highlight.
void tst_MainWindow_settings::focus_canBeSeen_inEveryLook()
{
    QFETCH(int, look);
    const QPalette palette = makePalette(eLook(look));
    const auto light = [](const QColor& pColor) {
        const auto linear = [](double pShare) {
            return pShare <= 0.03928 ? pShare / 12.92 : std::pow((pShare + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(pColor.redF()) + 0.7152 * linear(pColor.greenF()) +
               0.0722 * linear(pColor.blueF()) + 0.05;
    };
    const double ring = light(palette.color(QPalette::Highlight).darker(125));
    const double ground = light(palette.color(QPalette::AlternateBase));
    QVERIFY(std::max(ring / ground, ground / ring) >= 3.0);
}

AA_TEST(tst_MainWindow_settings, InVirtualTime<QApplication>)
#include "tst_MainWindow_settings.moc"
