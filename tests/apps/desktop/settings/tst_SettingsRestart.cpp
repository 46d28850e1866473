// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/ProfilesModel.h>
#include <desktop/settings/ProfilesPanel.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QListView>
#include <QPushButton>

#include <apps/desktop/PanelTest.h>
#include <cmath>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

/// A run of the program: it loads the file, and its panels show what it holds.
struct Run
{
    Run()
    {
        if (!store.Load())
            qFatal("%s", qPrintable(store.getError()));
        Configuration& configuration = store.getConfiguration();
        advanced = std::make_unique<AdvancedSettingsPanel>(configuration);
        devices = std::make_unique<InputDevicesPanel>(configuration);
        durations = std::make_unique<DurationsPanel>(configuration);
        profiles = std::make_unique<ProfilesPanel>(configuration);
        devices->setCurrentDevice(store.getDeviceName(), false);
    }

    template <typename Field>
    Field& Get(SettingsPanel& pPanel, const char* pName)
    {
        return PanelTest::Get<Field>(pPanel, pName);
    }

    ConfigurationStore store;
    std::unique_ptr<AdvancedSettingsPanel> advanced;
    std::unique_ptr<InputDevicesPanel> devices;
    std::unique_ptr<DurationsPanel> durations;
    std::unique_ptr<ProfilesPanel> profiles;
};

}  // namespace

/// Every setting of the panels outlives the program.
class tst_SettingsRestart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();
    void cleanupTestCase() { QFile::remove(ConfigurationStore::getPath()); }

    void flag_outlivesTheProgram_data();
    void flag_outlivesTheProgram();
    void number_outlivesTheProgram_data();
    void number_outlivesTheProgram();
    void language_outlivesTheProgram_data();
    void language_outlivesTheProgram();
    void device_outlivesTheProgram();
    void absentDevice_outlivesTheProgram();
    void ownProfile_outlivesTheProgram();
    void selectedProfile_outlivesTheProgram();
    void builtInEdit_endsWithTheProgram();
    void removedProfile_isGone();
};

void tst_SettingsRestart::init()
{
    PanelTest::Clear();
    QFile::remove(ConfigurationStore::getPath());
}

void tst_SettingsRestart::flag_outlivesTheProgram_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* pName :
         {"virtual-when-stopped", "display-stopped", "display-speakers", "gray-mode", "top-most"})
        QTest::newRow(pName) << QByteArray(pName);
}

void tst_SettingsRestart::flag_outlivesTheProgram()
{
    QFETCH(const QByteArray, name);
    // Both ways, so that no default hides a loss.
    for (int i = 0; i < 2; ++i) {
        Run before;
        auto& box = before.Get<QCheckBox>(*before.advanced, name.constData());
        box.click();
        const bool expected = box.isChecked();
        QVERIFY(before.store.getConfiguration().isModified());
        QVERIFY(before.store.Save());
        QVERIFY(!before.store.getConfiguration().isModified());
        Run after;
        QCOMPARE(after.Get<QCheckBox>(*after.advanced, name.constData()).isChecked(), expected);
    }
}

void tst_SettingsRestart::number_outlivesTheProgram_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<double>("value");
    QTest::newRow("average") << QByteArray("average-duration") << 3.25;
    QTest::newRow("tempo") << QByteArray("bpm-duration") << 17.5;
    QTest::newRow("stop") << QByteArray("stop-duration") << 2.75;
    QTest::newRow("stop level") << QByteArray("stop-threshold") << 1234.0;
}

void tst_SettingsRestart::number_outlivesTheProgram()
{
    QFETCH(const QByteArray, name);
    QFETCH(const double, value);
    Run before;
    auto& field = before.Get<QWidget>(*before.durations, name.constData());
    field.setProperty("value", value);
    QVERIFY(before.store.Save());
    Run after;
    const auto& shown = after.Get<QWidget>(*after.durations, name.constData());
    QCOMPARE(shown.property("value").toDouble(), value);
}

void tst_SettingsRestart::language_outlivesTheProgram_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("English") << Text("en");
    QTest::newRow("German") << Text("de");
    QTest::newRow("Spanish") << Text("es");
    QTest::newRow("French") << Text("fr");
}

void tst_SettingsRestart::language_outlivesTheProgram()
{
    QFETCH(const QString, code);
    Run before;
    auto& language = before.Get<QComboBox>(*before.advanced, "language");
    language.setCurrentIndex(language.findData(code));
    Q_EMIT language.activated(language.currentIndex());
    QVERIFY(before.store.Save());
    Run after;
    QCOMPARE(after.Get<QComboBox>(*after.advanced, "language").currentData().toString(), code);
    QCOMPARE(after.store.getConfiguration().getLanguage(), code);
}

void tst_SettingsRestart::device_outlivesTheProgram()
{
    FakeAudioState::Get().Plug(Text("Mixer"));
    FakeAudioState::Get().Plug(Text("Déck"));
    PanelTest::Poll();
    Run before;
    before.devices->_Choose(before.devices->m_pModel->index(1));
    QVERIFY(before.store.Save());
    Run after;
    QCOMPARE(after.store.getDeviceName(), Text("Déck"));
    QCOMPARE(after.devices->m_pModel->getChosen(), Text("Déck"));
}

void tst_SettingsRestart::absentDevice_outlivesTheProgram()
{
    const QByteArray deck = FakeAudioState::Get().Plug(Text("Deck"));
    PanelTest::Poll();
    {
        Run before;
        before.devices->_Choose(before.devices->m_pModel->index(0));
        QVERIFY(before.store.Save());
    }
    FakeAudioState::Get().Unplug(deck);
    PanelTest::Poll();
    {
        Run without;
        QCOMPARE(without.devices->m_pModel->getChosen(), Text("Deck"));
        QCOMPARE(without.devices->m_pModel->index(0).data().toString(), Text("Deck (absent)"));
        QVERIFY(without.store.Save());
    }
    FakeAudioState::Get().Plug(Text("Deck"));
    PanelTest::Poll();
    Run after;
    QCOMPARE(after.store.getDeviceName(), Text("Deck"));
}

void tst_SettingsRestart::ownProfile_outlivesTheProgram()
{
    Run before;
    before.Get<QPushButton>(*before.profiles, "add").click();
    ProfileEditor& editor = *before.profiles->m_pEditor;
    PanelTest::Get<QWidget>(editor, "name").setProperty("text", Text("Nuit à Zürich"));
    PanelTest::Get<QWidget>(editor, "minimalBPM").setProperty("value", 1);
    PanelTest::Get<QWidget>(editor, "maximalBPM").setProperty("value", 999);
    PanelTest::Get<QWidget>(editor, "low").setProperty("value", -1);
    PanelTest::Get<QWidget>(editor, "high").setProperty("value", 12345);
    PanelTest::Get<QWidget>(editor, "sensibility").setProperty("value", 0.35);
    editor.accept();
    QVERIFY(before.store.Save());
    Run after;
    const Profile profile = after.store.getConfiguration().getSelectedProfile();
    QCOMPARE(profile.getName(), Text("Nuit à Zürich"));
    QCOMPARE(profile.getMinimalBPM(), 1.0);
    QCOMPARE(profile.getMaximalBPM(), 999.0);
    QCOMPARE(profile.getFilterLowFrequency(), -1);
    QCOMPARE(profile.getFilterHighFrequency(), 12345);
    QCOMPARE(profile.getSensibility(), 0.35);
    QVERIFY(profile.isSerializable());
}

void tst_SettingsRestart::selectedProfile_outlivesTheProgram()
{
    Run before;
    before.profiles->m_pList->setCurrentIndex(before.profiles->m_pModel->index(2));
    QVERIFY(before.store.Save());
    Run after;
    QCOMPARE(after.profiles->m_pList->currentIndex().row(), 2);
}

void tst_SettingsRestart::builtInEdit_endsWithTheProgram()
{
    {
        Run before;
        before.Get<QPushButton>(*before.profiles, "edit").click();
        ProfileEditor& editor = *before.profiles->m_pEditor;
        PanelTest::Get<QWidget>(editor, "maximalBPM").setProperty("value", 160);
        editor.accept();
        QCOMPARE(before.store.getConfiguration().getSelectedProfile().getMaximalBPM(), 160.0);
        QVERIFY(before.store.Save());
    }
    // A new process builds them anew.
    PanelTest::Clear();
    Run after;
    QCOMPARE(after.store.getConfiguration().getSelectedProfile().getMaximalBPM(), 175.0);
    QCOMPARE(after.profiles->m_pModel->rowCount(), 3);
}

void tst_SettingsRestart::removedProfile_isGone()
{
    {
        Run first;
        first.Get<QPushButton>(*first.profiles, "duplicate").click();
        QVERIFY(first.store.Save());
    }
    {
        Run second;
        QCOMPARE(second.profiles->m_pModel->rowCount(), 4);
        second.Get<QPushButton>(*second.profiles, "remove").click();
        QVERIFY(second.store.getConfiguration().isModified());
        QVERIFY(second.store.Save());
    }
    const Run third;
    QCOMPARE(third.profiles->m_pModel->rowCount(), 3);
}

AA_TEST(tst_SettingsRestart, QApplication)
#include "tst_SettingsRestart.moc"
