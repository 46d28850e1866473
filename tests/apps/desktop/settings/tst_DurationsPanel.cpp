// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/HintLabel.h>

#include <QDoubleSpinBox>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <cmath>
#include <limits>
#include <support/SettingOf.h>
#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

using Setting = SettingsTable::Setting;

/// Types a value into a field, as a person does.
void Type(QAbstractSpinBox& pField, const QString& pText)
{
    pField.setFocus();
    pField.selectAll();
    QTest::keyClicks(&pField, pText);
    QTest::keyClick(&pField, Qt::Key_Return);
}

void Feed(AudioAnalyzer& pAnalyzer, std::size_t pCount)
{
    std::vector<qint16> samples(pCount, 0);
    pAnalyzer.Analyze(samples.data(), samples.size());
}

}  // namespace

class tst_DurationsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void fields_showTheConfiguration();
    void everyNumber_hasItsField();
    void value_isStored_data() { _AddFields(); }
    void value_isStored();
    void sameValue_isNoChange();
    void limits_hold_data() { _AddFields(); }
    void limits_hold();
    void refusedLetters_leaveTheValue();
    void averageVolume_reachesTheAnalysis();
    void stopDuration_reachesTheAnalysis_afterTheConfiguration();
    void otherAnalyzer_isServed_andNoneIsBorne();
    void hints_tellUnitsAndLimits();
    void defaults_areRestored();
    void defaults_changeNothing_whenTheyHold();
    void refresh_changesNothing();
    void everything_hasAName();
    void mnemonics_differ();

private:
    void _AddFields();

    std::unique_ptr<Configuration> m_configuration;
    std::unique_ptr<DurationsPanel> m_panel;
    std::unique_ptr<QSignalSpy> m_changed;
};

void tst_DurationsPanel::initTestCase()
{
    PanelTest::Install();
}

void tst_DurationsPanel::init()
{
    PanelTest::Clear();
    m_changed.reset();
    m_panel.reset();
    m_configuration = std::make_unique<Configuration>();
    m_panel = std::make_unique<DurationsPanel>(*m_configuration);
    m_changed = std::make_unique<QSignalSpy>(m_panel.get(), &SettingsPanel::OnConfigurationChanged);
    QVERIFY(PanelTest::Show(*m_panel));
}

void tst_DurationsPanel::fields_showTheConfiguration()
{
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "average-duration").value(), 2.0);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration").value(), 10.0);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-duration").value(), 0.5);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold").value(), 3276.0);
    QVERIFY(!m_configuration->isModified());
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration").text(), Text("10.00 s"));
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold").text(), Text("3276"));
}

// All that an analysis reads in its configuration, but for the threshold, which the levels' own
// panel has, and for switches.
void tst_DurationsPanel::everyNumber_hasItsField()
{
    QStringList expected;
    for (const Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis && setting.get && !setting.pMinimumWord &&
            setting.form != SettingsTable::eSwitch)
            expected << Text(setting.pIdentifier);
    QStringList shown;
    for (const QDoubleSpinBox* pField : m_panel->findChildren<QDoubleSpinBox*>())
        shown << pField->objectName();
    std::sort(expected.begin(), expected.end());
    std::sort(shown.begin(), shown.end());
    QCOMPARE(shown, expected);
}

void tst_DurationsPanel::_AddFields()
{
    QTest::addColumn<QByteArray>("name");
    for (const QDoubleSpinBox* pField : m_panel->findChildren<QDoubleSpinBox*>())
        QTest::newRow(qPrintable(pField->objectName())) << pField->objectName().toUtf8();
}

void tst_DurationsPanel::value_isStored()
{
    QFETCH(const QByteArray, name);
    const Setting& setting = *SettingOf(name.constData());
    auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, name.constData());
    const bool isWhole = setting.form == SettingsTable::eWholeNumber;
    const double value = isWhole ? 1234.0 : 7.25;
    Type(field, QString::number(value));
    QCOMPARE(setting.get(*m_configuration), value);
    QVERIFY(m_configuration->isModified());
    QCOMPARE(m_changed->count(), 1);
    QTest::keyClick(&field, Qt::Key_Up);
    QCOMPARE(setting.get(*m_configuration), value + setting.step);
    QCOMPARE(m_changed->count(), 2);
    // And none of the others is touched.
    const Configuration untouched;
    for (const Setting& other : SettingsTable::getSettings())
        if (other.get && &other != &setting)
            QCOMPARE(other.get(*m_configuration), other.get(untouched));
}

void tst_DurationsPanel::sameValue_isNoChange()
{
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration"), Text("10"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold"), Text("3276"));
    QCOMPARE(m_changed->count(), 0);
    QVERIFY(!m_configuration->isModified());
}

void tst_DurationsPanel::limits_hold()
{
    QFETCH(const QByteArray, name);
    const double minimum = SettingOf(name.constData())->minimum;
    const double maximum = SettingOf(name.constData())->maximum;
    auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, name.constData());
    Type(field, QString::number(minimum));
    QCOMPARE(field.value(), minimum);
    QTest::keyClick(&field, Qt::Key_Down);
    QCOMPARE(field.value(), minimum);
    Type(field, QString::number(maximum));
    QCOMPARE(field.value(), maximum);
    QTest::keyClick(&field, Qt::Key_Up);
    QCOMPARE(field.value(), maximum);
}

void tst_DurationsPanel::refusedLetters_leaveTheValue()
{
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration"), Text("abc"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-duration"), Text("-3"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold"), Text("x"));
    QCOMPARE(m_configuration->getBPMCalculationDuration(), 10.0);
    QVERIFY(m_configuration->getStopDetectionDuration() > 0.0);
    QCOMPARE(m_configuration->getStopDetectionThreshold(), short(3276));
}

void tst_DurationsPanel::averageVolume_reachesTheAnalysis()
{
    const auto analyzer = PanelTest::MakeAnalyzer(*m_configuration);
    m_panel->setAnalyzer(analyzer.get());
    QCOMPARE(analyzer->m_volumeStats.m_capacity, quint64(96000));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "average-duration"), Text("3.5"));
    QCOMPARE(analyzer->m_volumeStats.m_capacity, quint64(168000));
}

void tst_DurationsPanel::stopDuration_reachesTheAnalysis_afterTheConfiguration()
{
    const auto analyzer = PanelTest::MakeAnalyzer(*m_configuration);
    m_panel->setAnalyzer(analyzer.get());
    Feed(*analyzer, 100);
    QCOMPARE(analyzer->m_stopBlockSize, quint64(24000));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-duration"), Text("2"));
    // The block is rebuilt from the configuration, with the next samples.
    QVERIFY(!analyzer->m_pStopBlock);
    Feed(*analyzer, 100);
    QCOMPARE(analyzer->m_stopBlockSize, quint64(96000));
}

void tst_DurationsPanel::otherAnalyzer_isServed_andNoneIsBorne()
{
    auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, "average-duration");
    auto first = PanelTest::MakeAnalyzer(*m_configuration);
    const auto second = PanelTest::MakeAnalyzer(*m_configuration);
    m_panel->setAnalyzer(first.get());
    m_panel->setAnalyzer(second.get());
    Type(field, Text("4"));
    QCOMPARE(first->m_volumeStats.m_capacity, quint64(96000));
    QCOMPARE(second->m_volumeStats.m_capacity, quint64(192000));
    m_panel->setAnalyzer(nullptr);
    Type(field, Text("5"));
    QCOMPARE(second->m_volumeStats.m_capacity, quint64(192000));
    // One that ends without a word is no longer spoken to.
    m_panel->setAnalyzer(first.get());
    first.reset();
    Type(field, Text("6"));
    QCOMPARE(m_configuration->getAverageVolumeCalculationDuration(), 6.0);
}

void tst_DurationsPanel::hints_tellUnitsAndLimits()
{
    const auto hint = [this](int pRow) { return m_panel->m_rows[std::size_t(pRow)].pHint->text(); };
    QCOMPARE(hint(0), Text("0.05 to 60 s"));
    QCOMPARE(hint(1), Text("0.05 to 600 s"));
    QCOMPARE(hint(2), Text("0.05 to 10 s"));
    QCOMPARE(hint(3), Text("-20.0 dBFS; 0 to 32767"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold"), Text("32767"));
    QCOMPARE(hint(3), Text("0.0 dBFS; 0 to 32767"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold"), Text("0"));
    QCOMPARE(hint(3), Text("silence; 0 to 32767"));
    // Assistive tools read them with the field.
    const auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold");
    QCOMPARE(field.accessibleDescription(), Text("silence; 0 to 32767"));
    QCOMPARE(field.accessibleName(), Text("Quiet up to"));
}

void tst_DurationsPanel::defaults_areRestored()
{
    m_configuration->setAverageVolumeCalculationDuration(3.0);
    m_configuration->setBPMCalculationDuration(20.0);
    m_configuration->setStopDetectionDuration(4.0);
    m_configuration->setStopDetectionThreshold(1);
    m_panel->Refresh();
    PanelTest::Click(*m_panel, "defaults");
    QCOMPARE(m_configuration->getAverageVolumeCalculationDuration(), 2.0);
    QCOMPARE(m_configuration->getBPMCalculationDuration(), 10.0);
    // That of live hosts.
    QCOMPARE(m_configuration->getStopDetectionDuration(), 1.5);
    QCOMPARE(m_configuration->getStopDetectionThreshold(), short(3276));
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration").value(), 10.0);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop-threshold").value(), 3276.0);
    QCOMPARE(m_changed->count(), 4);
}

void tst_DurationsPanel::defaults_changeNothing_whenTheyHold()
{
    m_configuration->setStopDetectionDuration(1.5);
    m_configuration->setIsModified(false);
    m_panel->Refresh();
    PanelTest::Click(*m_panel, "defaults");
    QCOMPARE(m_changed->count(), 0);
    QVERIFY(!m_configuration->isModified());
}

void tst_DurationsPanel::refresh_changesNothing()
{
    m_configuration->setBPMCalculationDuration(33.0);
    m_configuration->setIsModified(false);
    m_panel->Refresh();
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm-duration").value(), 33.0);
    QVERIFY(!m_configuration->isModified());
    QCOMPARE(m_changed->count(), 0);
}

void tst_DurationsPanel::everything_hasAName()
{
    QCOMPARE(PanelTest::Unnamed(*m_panel), QStringList());
    QCOMPARE(m_panel->windowTitle(), Text("Durations"));
}

void tst_DurationsPanel::mnemonics_differ()
{
    QString letters = PanelTest::Mnemonics(*m_panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("ADQST"));
}

AA_TEST(tst_DurationsPanel, QApplication)
#include "tst_DurationsPanel.moc"
