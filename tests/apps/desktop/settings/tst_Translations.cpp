// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "LanguageRows.h"
#include <desktop/outputs/OutputEditor.h>
#include <desktop/outputs/OutputsPanel.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/settings/ProfilesModel.h>
#include <desktop/settings/ProfilesPanel.h>
#include <desktop/settings/Translations.h>

#include <QAbstractSpinBox>
#include <QPushButton>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <functional>
#include <support/TestClass.h>
#include <support/Text.h>
#include <support/VirtualTime.h>
#include <vector>

namespace {

/// Every panel.
struct Panels
{
    Panels()
    {
        panels.push_back(std::make_unique<AdvancedSettingsPanel>(configuration));
        panels.push_back(std::make_unique<DurationsPanel>(configuration));
        panels.push_back(std::make_unique<InputDevicesPanel>(configuration));
        panels.push_back(std::make_unique<ManualBeatPanel>(configuration));
        panels.push_back(std::make_unique<OutputsPanel>(configuration, outputs));
        panels.push_back(std::make_unique<ProfilesPanel>(configuration));
    }
    QStringList Titles() const
    {
        QStringList titles;
        for (const auto& panel : panels)
            titles.append(panel->windowTitle());
        return titles;
    }

    Configuration configuration;
    LiveBeats beats;
    MonitorOutputs outputs{beats};
    std::vector<std::unique_ptr<SettingsPanel>> panels;
};

}  // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void languages_areFour();
    void match_findsOurs_data();
    void match_findsOurs();
    void match_takesTheSystems_withoutACode();
    void language_isSpoken_data();
    void language_isSpoken();
    void language_ends_withTheTranslations();
    void sameLanguage_isNoChange();
    void plurals_areRight_data();
    void plurals_areRight();
    void numbers_followTheLanguage_data();
    void numbers_followTheLanguage();
    void panels_changeLanguage_whileRunning_data();
    void panels_changeLanguage_whileRunning();
    void widgets_changeLanguage_whileRunning();
    void editor_changesLanguage_andKeepsItsValues();
    void mnemonics_differ_data();
    void mnemonics_differ();
    void mnemonics_differ_amongThePanelsOfTheFirstStart_data();
    void mnemonics_differ_amongThePanelsOfTheFirstStart();
};

void tst_Translations::languages_areFour()
{
    QStringList codes;
    for (const Translations::Language& language : Translations::getLanguages())
        codes.append(language.code + QLatin1Char(' ') + language.name);
    QCOMPARE(
        codes,
        QStringList(
            {Text("en English"), Text("de Deutsch"), Text("es Español"), Text("fr Français")}));
}

void tst_Translations::match_findsOurs_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("language");
    QTest::newRow("German") << Text("de") << Text("de");
    QTest::newRow("capitals") << Text("FR") << Text("fr");
    QTest::newRow("country") << Text("de_AT") << Text("de");
    QTest::newRow("country with a hyphen") << Text("es-MX") << Text("es");
    QTest::newRow("script and country") << Text("fr_Latn_CA") << Text("fr");
    QTest::newRow("unknown") << Text("ja") << Text("en");
    QTest::newRow("longer code") << Text("deu") << Text("en");
    QTest::newRow("nonsense") << Text("_%1/..") << Text("en");
}

void tst_Translations::match_findsOurs()
{
    QFETCH(const QString, code);
    QFETCH(const QString, language);
    QCOMPARE(Translations::Match(code), language);
}

void tst_Translations::match_takesTheSystems_withoutACode()
{
    // The tests run in the C locale, whose language is nobody's: English.
    QCOMPARE(Translations::Match(QString()), Text("en"));
}

void tst_Translations::language_isSpoken_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << Text("en") << Text("en") << Text("Audio inputs");
    QTest::newRow("German") << Text("de") << Text("de") << Text("Audioeingänge");
    QTest::newRow("Spanish") << Text("es_AR") << Text("es") << Text("Entradas de audio");
    QTest::newRow("French") << Text("FR") << Text("fr") << Text("Entrées audio");
    QTest::newRow("unknown") << Text("xx") << Text("en") << Text("Audio inputs");
}

void tst_Translations::language_isSpoken()
{
    QFETCH(const QString, code);
    QFETCH(const QString, language);
    QFETCH(const QString, text);
    Translations translations;
    QVERIFY(translations.setLanguage(code));
    QCOMPARE(translations.getLanguage(), language);
    QCOMPARE(InputDevicesPanel::tr("Audio inputs"), text);
}

void tst_Translations::language_ends_withTheTranslations()
{
    {
        Translations translations;
        QVERIFY(translations.setLanguage(Text("de")));
        QVERIFY(translations.setLanguage(Text("fr")));
        QCOMPARE(ProfilesPanel::tr("Profiles"), Text("Profils"));
    }
    QCOMPARE(ProfilesPanel::tr("Profiles"), Text("Profiles"));
}

void tst_Translations::sameLanguage_isNoChange()
{
    Translations translations;
    QVERIFY(translations.setLanguage(Text("de")));
    QWidget window;
    PanelTest::Show(window);
    struct Counter : QObject
    {
        bool eventFilter(QObject*, QEvent* pEvent) override
        {
            count += pEvent->type() == QEvent::LanguageChange;
            return false;
        }
        int count = 0;
    } counter;
    window.installEventFilter(&counter);
    QCoreApplication::sendPostedEvents();
    counter.count = 0;
    QVERIFY(translations.setLanguage(Text("de_CH")));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(counter.count, 0);
    QVERIFY(translations.setLanguage(Text("es")));
    QCoreApplication::sendPostedEvents();
    QVERIFY(counter.count > 0);
}

void tst_Translations::plurals_areRight_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");  // of 0, 1, 2 and 11
    QTest::newRow("English")
        << Text("en")
        << QStringList({Text("0 inputs"), Text("1 input"), Text("2 inputs"), Text("11 inputs")});
    QTest::newRow("German") << Text("de")
                            << QStringList({Text("0 Eingänge"),
                                            Text("1 Eingang"),
                                            Text("2 Eingänge"),
                                            Text("11 Eingänge")});
    QTest::newRow("Spanish") << Text("es")
                             << QStringList({Text("0 entradas"),
                                             Text("1 entrada"),
                                             Text("2 entradas"),
                                             Text("11 entradas")});
    // Of none, French has the singular.
    QTest::newRow("French")
        << Text("fr")
        << QStringList({Text("0 entrée"), Text("1 entrée"), Text("2 entrées"), Text("11 entrées")});
}

void tst_Translations::plurals_areRight()
{
    QFETCH(const QString, language);
    QFETCH(const QStringList, texts);
    Translations translations;
    QVERIFY(translations.setLanguage(language));
    QStringList found;
    for (const int count : {0, 1, 2, 11})
        found.append(InputDevicesPanel::tr("%n input(s)", nullptr, count));
    QCOMPARE(found, texts);
}

void tst_Translations::numbers_followTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("number");
    QTest::newRow("English") << Text("en") << Text("1234.5");
    QTest::newRow("German") << Text("de") << Text("1234,5");
    QTest::newRow("Spanish") << Text("es") << Text("1234,5");
    QTest::newRow("French") << Text("fr") << Text("1234,5");
}

void tst_Translations::numbers_followTheLanguage()
{
    QFETCH(const QString, language);
    QFETCH(const QString, number);
    Translations translations;
    QVERIFY(translations.setLanguage(language));
    QCOMPARE(QLocale().toString(1234.5, 'f', 1), number);
}

void tst_Translations::panels_changeLanguage_whileRunning_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("German") << Text("de")
                            << QStringList({Text("Weitere Einstellungen"),
                                            Text("Zeiten"),
                                            Text("Audioeingänge"),
                                            Text("Beat von Hand"),
                                            Text("Ausgänge"),
                                            Text("Profile")});
    QTest::newRow("Spanish") << Text("es")
                             << QStringList({Text("Ajustes avanzados"),
                                             Text("Duraciones"),
                                             Text("Entradas de audio"),
                                             Text("Beat manual"),
                                             Text("Salidas"),
                                             Text("Perfiles")});
    QTest::newRow("French") << Text("fr")
                            << QStringList({Text("Réglages avancés"),
                                            Text("Durées"),
                                            Text("Entrées audio"),
                                            Text("Beat manuel"),
                                            Text("Sorties"),
                                            Text("Profils")});
}

void tst_Translations::panels_changeLanguage_whileRunning()
{
    QFETCH(const QString, language);
    QFETCH(const QStringList, titles);
    Translations translations;
    QVERIFY(translations.setLanguage(Text("en")));
    const Panels panels;
    const QStringList english{Text("Advanced settings"),
                              Text("Durations"),
                              Text("Audio inputs"),
                              Text("Manual beat"),
                              Text("Outputs"),
                              Text("Profiles")};
    QCOMPARE(panels.Titles(), english);
    QVERIFY(translations.setLanguage(language));
    QTRY_COMPARE(panels.Titles(), titles);
    QVERIFY(!panels.configuration.isModified());
    QVERIFY(translations.setLanguage(Text("en")));
    QTRY_COMPARE(panels.Titles(), english);
}

void tst_Translations::widgets_changeLanguage_whileRunning()
{
    FakeAudioState::Get().Plug(Text("Deck"));
    PanelTest::Poll();
    Translations translations;
    QVERIFY(translations.setLanguage(Text("en")));
    Configuration configuration;
    InputDevicesPanel devices(configuration);
    DurationsPanel durations(configuration);
    ProfilesPanel profiles(configuration);
    ManualBeatPanel manual(configuration);
    QCOMPARE(devices.m_pModel->index(0).data().toString(), Text("Deck (default)"));
    QVERIFY(translations.setLanguage(Text("de")));
    QTRY_COMPARE(devices.m_pModel->index(0).data().toString(), Text("Deck (Standard)"));
    const auto& stop = PanelTest::Get<QAbstractSpinBox>(durations, "stop-duration");
    QTRY_COMPARE(stop.text(), Text("0,50 s"));
    QCOMPARE(stop.accessibleName(), Text("Gestoppt nach"));
    QTRY_COMPARE(profiles.m_pModel->index(0).data().toString(), Text("Electro (90 bis 175 BPM)"));
    QTRY_COMPARE(PanelTest::Get<QPushButton>(manual, "half").text(), Text("Ha&lb"));
}

void tst_Translations::editor_changesLanguage_andKeepsItsValues()
{
    Translations translations;
    QVERIFY(translations.setLanguage(Text("en")));
    const desktop::ProfileValues values{Text("Zouk"), 80.0, 110.0, 200, 90, 1.5};
    ProfileEditor editor(ProfileEditor::eOwn, values, {});
    QVERIFY(translations.setLanguage(Text("de")));
    QTRY_COMPARE(editor.windowTitle(), Text("Profil „Zouk“"));
    QTRY_COMPARE(PanelTest::Get<QLabel>(editor, "lowHint").text(),
                 Text("Die untere Grenze darf nicht über der oberen liegen."));
    QVERIFY(editor.getValues() == values);
}

void tst_Translations::mnemonics_differ_data()
{
    LanguageRows();
}

void tst_Translations::mnemonics_differ()
{
    QFETCH(const QString, language);
    Translations translations;
    QVERIFY(translations.setLanguage(language));
    const Panels panels;
    std::vector<const QWidget*> windows;
    for (const auto& panel : panels.panels)
        windows.push_back(panel.get());
    const ProfileEditor own(ProfileEditor::eOwn, {}, {});
    const ProfileEditor builtIn(ProfileEditor::eBuiltIn, {}, {});
    windows.push_back(&own);
    windows.push_back(&builtIn);
    const OutputEditor output({}, [](const StoredOutput&) { return QString(); });
    windows.push_back(&output);
    for (const QWidget* pWindow : windows) {
        QString letters = PanelTest::Mnemonics(*pWindow);
        QVERIFY2(!letters.isEmpty(), qPrintable(pWindow->windowTitle()));
        std::sort(letters.begin(), letters.end());
        const bool isTwice = std::adjacent_find(letters.begin(), letters.end()) != letters.end();
        QVERIFY2(!isTwice, qPrintable(pWindow->windowTitle() + Text(": ") + letters));
    }
}

void tst_Translations::mnemonics_differ_amongThePanelsOfTheFirstStart_data()
{
    LanguageRows();
}

void tst_Translations::mnemonics_differ_amongThePanelsOfTheFirstStart()
{
    QFETCH(const QString, language);
    Translations translations;
    QVERIFY(translations.setLanguage(language));
    const Panels panels;
    QString letters;
    for (const auto& panel : panels.panels)
        if (!qobject_cast<DurationsPanel*>(panel.get()))
            letters += PanelTest::Mnemonics(*panel);
    QCOMPARE(letters.size(), 21);
    std::sort(letters.begin(), letters.end());
    QVERIFY2(std::adjacent_find(letters.begin(), letters.end()) == letters.end(),
             qPrintable(letters));
}

AA_TEST(tst_Translations, InVirtualTime<QApplication>)
#include "tst_Translations.moc"
