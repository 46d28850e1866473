// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <desktop/settings/AdvancedSettingsPanel.h>

#include <QCheckBox>
#include <QComboBox>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

using C = Configuration;
using P = AdvancedSettingsPanel;
using Getter = bool (*)(const Configuration&);
using Setter = bool (C::*)(bool);
using Changed = void (P::*)(bool);

}  // namespace

Q_DECLARE_METATYPE(Getter)
Q_DECLARE_METATYPE(Setter)
Q_DECLARE_METATYPE(Changed)

class tst_AdvancedSettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void boxes_showTheDefaults();
    void everySwitch_hasItsBox();
    void flag_isStoredAndTold_data();
    void flag_isStoredAndTold();
    void refresh_showsTheConfiguration_data();
    void refresh_showsTheConfiguration();
    void stoppedFlag_isRead_withoutAChange();
    void language_isStoredAndTold();
    void language_isChosenByKeys();
    void storedLanguage_isShown_data();
    void storedLanguage_isShown();
    void languages_haveTheirOwnNames();
    void everything_hasAName();
    void mnemonics_differ();

private:
    void _FlagRows();

    std::unique_ptr<Configuration> m_configuration;
    std::unique_ptr<AdvancedSettingsPanel> m_panel;
    std::unique_ptr<QSignalSpy> m_changed;
};

void tst_AdvancedSettingsPanel::initTestCase()
{
    PanelTest::Install();
}

void tst_AdvancedSettingsPanel::init()
{
    PanelTest::Clear();
    m_changed.reset();
    m_panel.reset();
    m_configuration = std::make_unique<Configuration>();
    m_panel = std::make_unique<AdvancedSettingsPanel>(*m_configuration);
    m_changed = std::make_unique<QSignalSpy>(m_panel.get(), &SettingsPanel::OnConfigurationChanged);
    QVERIFY(PanelTest::Show(*m_panel));
}

void tst_AdvancedSettingsPanel::boxes_showTheDefaults()
{
    QVERIFY(!PanelTest::Get<QCheckBox>(*m_panel, "virtual-when-stopped").isChecked());
    QVERIFY(!PanelTest::Get<QCheckBox>(*m_panel, "display-stopped").isChecked());
    QVERIFY(PanelTest::Get<QCheckBox>(*m_panel, "display-speakers").isChecked());
    QVERIFY(PanelTest::Get<QCheckBox>(*m_panel, "gray-mode").isChecked());
    QVERIFY(PanelTest::Get<QCheckBox>(*m_panel, "top-most").isChecked());
    QCOMPARE(PanelTest::Get<QComboBox>(*m_panel, "language").currentText(),
             Text("Language of the system"));
    QVERIFY(!m_configuration->isModified());
}

void tst_AdvancedSettingsPanel::everySwitch_hasItsBox()
{
    int boxes = 0;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings()) {
        if (setting.form != SettingsTable::eSwitch || !setting.get)
            continue;
        auto& box = PanelTest::Get<QCheckBox>(*m_panel, setting.pIdentifier);
        QCOMPARE(box.isChecked(), setting.initial != 0.0);
        box.click();
        QCOMPARE(setting.get(*m_configuration), 1.0 - setting.initial);
        ++boxes;
    }
    QCOMPARE(m_panel->findChildren<QCheckBox*>().size(), boxes);
}

void tst_AdvancedSettingsPanel::_FlagRows()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<Getter>("getter");
    QTest::addColumn<Setter>("setter");
    QTest::addColumn<Changed>("changed");
    const auto add = [](const char* pName, Getter pGetter, Setter pSetter, Changed pChanged) {
        QTest::newRow(pName) << QByteArray(pName) << pGetter << pSetter << pChanged;
    };
    add(
        "virtual-when-stopped",
        [](const C& p) { return p.getDisplayVirtualBeatsWhenStopped(); },
        &C::setDisplayVirtualBeatsWhenStopped,
        &P::OnVirtualBeatsWhenStoppedChanged);
    add(
        "display-stopped",
        [](const C& p) { return p.m_displayStopped; },
        &C::setDisplayStopped,
        &P::OnDisplayStoppedChanged);
    add(
        "display-speakers",
        [](const C& p) { return p.getDisplaySpeakers(); },
        &C::setDisplaySpeakers,
        &P::OnDisplaySpeakersChanged);
    add(
        "gray-mode",
        [](const C& p) { return p.getGrayMode(); },
        &C::setGrayMode,
        &P::OnGrayModeChanged);
    add(
        "top-most", [](const C& p) { return p.isTopMost(); }, &C::setTopMost, &P::OnTopMostChanged);
}

void tst_AdvancedSettingsPanel::flag_isStoredAndTold_data()
{
    _FlagRows();
}

void tst_AdvancedSettingsPanel::flag_isStoredAndTold()
{
    QFETCH(const QByteArray, name);
    QFETCH(const Getter, getter);
    QFETCH(const Changed, changed);
    QSignalSpy told(m_panel.get(), changed);
    auto& box = PanelTest::Get<QCheckBox>(*m_panel, name.constData());
    const bool before = getter(*m_configuration);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
    QCOMPARE(getter(*m_configuration), !before);
    QVERIFY(m_configuration->isModified());
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toBool(), !before);
    QCOMPARE(m_changed->count(), 1);
    QTest::keyClick(&box, Qt::Key_Space);
    QCOMPARE(getter(*m_configuration), before);
    QCOMPARE(told.at(1).at(0).toBool(), before);
    QCOMPARE(m_changed->count(), 2);
}

void tst_AdvancedSettingsPanel::refresh_showsTheConfiguration_data()
{
    _FlagRows();
}

void tst_AdvancedSettingsPanel::refresh_showsTheConfiguration()
{
    QFETCH(const QByteArray, name);
    QFETCH(const Getter, getter);
    QFETCH(const Setter, setter);
    const bool now = !getter(*m_configuration);
    (*m_configuration.*setter)(now);
    m_configuration->setIsModified(false);
    m_panel->Refresh();
    QCOMPARE(PanelTest::Get<QCheckBox>(*m_panel, name.constData()).isChecked(), now);
    QCOMPARE(m_changed->count(), 0);
    QVERIFY(!m_configuration->isModified());
}

void tst_AdvancedSettingsPanel::stoppedFlag_isRead_withoutAChange()
{
    const bool values[] = {true, false};
    for (const bool value : values) {
        m_configuration->setDisplayStopped(value);
        m_configuration->setIsModified(false);
        QCOMPARE(AdvancedSettingsPanel::isStoppedDisplayed(*m_configuration), value);
        QCOMPARE(m_configuration->m_displayStopped, value);
        QVERIFY(!m_configuration->isModified());
    }
}

void tst_AdvancedSettingsPanel::language_isStoredAndTold()
{
    QSignalSpy told(m_panel.get(), &P::OnLanguageChanged);
    auto& language = PanelTest::Get<QComboBox>(*m_panel, "language");
    const auto choose = [&](const char* pCode) {
        const int index = language.findData(Text(pCode));
        language.setCurrentIndex(index);
        Q_EMIT language.activated(index);
    };
    choose("fr");
    QCOMPARE(m_configuration->getLanguage(), Text("fr"));
    choose("fr");
    choose("");
    QVERIFY(m_configuration->getLanguage().isEmpty());
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.at(0).at(0).toString(), Text("fr"));
    QCOMPARE(told.at(1).at(0).toString(), QString());
    QCOMPARE(m_changed->count(), 2);
}

void tst_AdvancedSettingsPanel::language_isChosenByKeys()
{
    auto& language = PanelTest::Get<QComboBox>(*m_panel, "language");
    language.setFocus();
    QTest::keyClick(&language, Qt::Key_Down);
    QCOMPARE(m_configuration->getLanguage(), Text("en"));
    QTest::keyClick(&language, Qt::Key_Down);
    QCOMPARE(m_configuration->getLanguage(), Text("de"));
}

void tst_AdvancedSettingsPanel::storedLanguage_isShown_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("shown");
    QTest::newRow("German") << Text("de") << Text("Deutsch");
    QTest::newRow("capitals") << Text("DE") << Text("Deutsch");
    QTest::newRow("of a country") << Text("es_MX") << Text("Español");
    QTest::newRow("unknown") << Text("ja") << Text("English");
    QTest::newRow("none") << QString() << Text("Language of the system");
}

void tst_AdvancedSettingsPanel::storedLanguage_isShown()
{
    QFETCH(const QString, code);
    QFETCH(const QString, shown);
    m_configuration->setLanguage(code);
    m_panel->Refresh();
    QCOMPARE(PanelTest::Get<QComboBox>(*m_panel, "language").currentText(), shown);
    QCOMPARE(m_configuration->getLanguage(), code);
    QCOMPARE(m_changed->count(), 0);
}

void tst_AdvancedSettingsPanel::languages_haveTheirOwnNames()
{
    const auto& language = PanelTest::Get<QComboBox>(*m_panel, "language");
    QStringList names;
    for (int i = 1; i < language.count(); ++i)
        names.append(language.itemText(i));
    QCOMPARE(names,
             QStringList({Text("English"), Text("Deutsch"), Text("Español"), Text("Français")}));
}

void tst_AdvancedSettingsPanel::everything_hasAName()
{
    QCOMPARE(PanelTest::Unnamed(*m_panel), QStringList());
    QCOMPARE(m_panel->windowTitle(), Text("Advanced settings"));
}

void tst_AdvancedSettingsPanel::mnemonics_differ()
{
    QString letters = PanelTest::Mnemonics(*m_panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("GNPSTY"));
}

AA_TEST(tst_AdvancedSettingsPanel, QApplication)
#include "tst_AdvancedSettingsPanel.moc"
