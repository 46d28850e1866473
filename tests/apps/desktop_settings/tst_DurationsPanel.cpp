// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "PanelTest.h"
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/HintLabel.h>

#include <QDoubleSpinBox>
#include <QSpinBox>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using C = Configuration;
using Getter = double (C::*)() const;
using LevelGetter = short (C::*)() const;

QString Text(const char* pText)
{
    return QString::fromUtf8(pText);
}

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

Q_DECLARE_METATYPE(Getter)
Q_DECLARE_METATYPE(LevelGetter)

class tst_DurationsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void fields_showTheConfiguration();
    void duration_isStored_data();
    void duration_isStored();
    void level_isStored_data();
    void level_isStored();
    void sameValue_isNoChange();
    void limits_hold_data();
    void limits_hold();
    void refusedLetters_leaveTheValue();
    void averageVolume_reachesTheAnalysis();
    void stopDuration_reachesTheAnalysis_afterTheConfiguration();
    void otherAnalyzer_isServed_andNoneIsBorne();
    void storedValue_outsideTheLimits_isToldAndKept();
    void storedValue_thatIsNoNumber_isToldAndKept();
    void hints_tellUnitsAndLimits();
    void defaults_areRestored();
    void defaults_changeNothing_whenTheyHold();
    void refresh_changesNothing();
    void everything_hasAName();
    void mnemonics_differ();

private:
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
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "averageVolume").value(), 2.0);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm").value(), 10.0);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop").value(), 0.5);
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "normalization").value(), 5.0);
    QCOMPARE(PanelTest::Get<QSpinBox>(*m_panel, "stopLevel").value(), 3276);
    QCOMPARE(PanelTest::Get<QSpinBox>(*m_panel, "normalizationLevel").value(), 16383);
    QVERIFY(!m_configuration->isModified());
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm").text(), Text("10.00 s"));
}

void tst_DurationsPanel::duration_isStored_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<Getter>("getter");
    QTest::newRow("average") << QByteArray("averageVolume")
                             << Getter(&C::getAverageVolumeCalculationDuration);
    QTest::newRow("tempo") << QByteArray("bpm") << Getter(&C::getBPMCalculationDuration);
    QTest::newRow("stop") << QByteArray("stop") << Getter(&C::getStopDetectionDuration);
    QTest::newRow("normalization")
        << QByteArray("normalization") << Getter(&C::getNormalizationDuration);
}

void tst_DurationsPanel::duration_isStored()
{
    QFETCH(const QByteArray, name);
    QFETCH(const Getter, getter);
    const double others = m_configuration->getAverageVolumeCalculationDuration() +
                          m_configuration->getBPMCalculationDuration() +
                          m_configuration->getStopDetectionDuration() +
                          m_configuration->getNormalizationDuration();
    const double before = (*m_configuration.*getter)();
    auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, name.constData());
    Type(field, Text("7.25"));
    QCOMPARE((*m_configuration.*getter)(), 7.25);
    QVERIFY(m_configuration->isModified());
    QCOMPARE(m_changed->count(), 1);
    QTest::keyClick(&field, Qt::Key_Up);
    QCOMPARE((*m_configuration.*getter)(), 7.25 + field.singleStep());
    QCOMPARE(m_changed->count(), 2);
    // And none of the others is touched.
    const double now = m_configuration->getAverageVolumeCalculationDuration() +
                       m_configuration->getBPMCalculationDuration() +
                       m_configuration->getStopDetectionDuration() +
                       m_configuration->getNormalizationDuration();
    QCOMPARE(now, others - before + 7.25 + field.singleStep());
}

void tst_DurationsPanel::level_isStored_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<LevelGetter>("getter");
    QTest::newRow("stop") << QByteArray("stopLevel") << LevelGetter(&C::getStopDetectionThreshold);
    QTest::newRow("normalization")
        << QByteArray("normalizationLevel") << LevelGetter(&C::getNormalizationThreshold);
}

void tst_DurationsPanel::level_isStored()
{
    QFETCH(const QByteArray, name);
    QFETCH(const LevelGetter, getter);
    auto& field = PanelTest::Get<QSpinBox>(*m_panel, name.constData());
    const short values[] = {0, 1, 1000, 32767};
    int changes = 0;
    for (const short value : values) {
        Type(field, QString::number(value));
        QCOMPARE((*m_configuration.*getter)(), value);
        QCOMPARE(m_changed->count(), ++changes);
    }
    QVERIFY(m_configuration->isModified());
}

void tst_DurationsPanel::sameValue_isNoChange()
{
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm"), Text("10"));
    Type(PanelTest::Get<QSpinBox>(*m_panel, "stopLevel"), Text("3276"));
    QCOMPARE(m_changed->count(), 0);
    QVERIFY(!m_configuration->isModified());
}

void tst_DurationsPanel::limits_hold_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::newRow("average") << QByteArray("averageVolume") << 0.05 << 60.0;
    QTest::newRow("tempo") << QByteArray("bpm") << 0.05 << 600.0;
    QTest::newRow("stop") << QByteArray("stop") << 0.05 << 10.0;
    QTest::newRow("normalization") << QByteArray("normalization") << 0.05 << 60.0;
}

void tst_DurationsPanel::limits_hold()
{
    QFETCH(const QByteArray, name);
    QFETCH(const double, minimum);
    QFETCH(const double, maximum);
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
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm"), Text("abc"));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop"), Text("-3"));
    Type(PanelTest::Get<QSpinBox>(*m_panel, "stopLevel"), Text("x"));
    QCOMPARE(m_configuration->getBPMCalculationDuration(), 10.0);
    QVERIFY(m_configuration->getStopDetectionDuration() > 0.0);
    QCOMPARE(m_configuration->getStopDetectionThreshold(), short(3276));
}

void tst_DurationsPanel::averageVolume_reachesTheAnalysis()
{
    const auto analyzer = PanelTest::MakeAnalyzer(*m_configuration);
    m_panel->setAnalyzer(analyzer.get());
    QCOMPARE(analyzer->m_volumeStats.m_capacity, quint64(96000));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "averageVolume"), Text("3.5"));
    QCOMPARE(analyzer->m_volumeStats.m_capacity, quint64(168000));
}

void tst_DurationsPanel::stopDuration_reachesTheAnalysis_afterTheConfiguration()
{
    const auto analyzer = PanelTest::MakeAnalyzer(*m_configuration);
    m_panel->setAnalyzer(analyzer.get());
    Feed(*analyzer, 100);
    QCOMPARE(analyzer->m_stopBlockSize, quint64(24000));
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop"), Text("2"));
    // The block is rebuilt from the configuration, with the next samples.
    QVERIFY(!analyzer->m_pStopBlock);
    Feed(*analyzer, 100);
    QCOMPARE(analyzer->m_stopBlockSize, quint64(96000));
}

void tst_DurationsPanel::otherAnalyzer_isServed_andNoneIsBorne()
{
    auto& field = PanelTest::Get<QDoubleSpinBox>(*m_panel, "averageVolume");
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

void tst_DurationsPanel::storedValue_outsideTheLimits_isToldAndKept()
{
    m_configuration->setStopDetectionDuration(0.0);
    m_configuration->setStopDetectionThreshold(-5);
    m_configuration->setIsModified(false);
    m_panel->Refresh();
    const HintLabel* pDuration = m_panel->m_durations[DurationsPanel::eStop].pHint;
    const HintLabel* pLevel = m_panel->m_levels[DurationsPanel::eStopLevel].pHint;
    QVERIFY(pDuration->isRefusal());
    QCOMPARE(pDuration->text(),
             Text("0 s is stored, outside 0.05 to 10 s; it stays until you change it"));
    QVERIFY(pLevel->isRefusal());
    QCOMPARE(pLevel->text(), Text("-5 is stored, below 0; it stays until you change it"));
    QCOMPARE(m_configuration->getStopDetectionDuration(), 0.0);
    QCOMPARE(m_configuration->getStopDetectionThreshold(), short(-5));
    QVERIFY(!m_configuration->isModified());
    Type(PanelTest::Get<QDoubleSpinBox>(*m_panel, "stop"), Text("1"));
    QVERIFY(!pDuration->isRefusal());
}

void tst_DurationsPanel::storedValue_thatIsNoNumber_isToldAndKept()
{
    m_configuration->setBPMCalculationDuration(std::numeric_limits<double>::quiet_NaN());
    m_configuration->setNormalizationDuration(std::numeric_limits<double>::infinity());
    m_configuration->setIsModified(false);
    m_panel->Refresh();
    QVERIFY(m_panel->m_durations[DurationsPanel::eBPM].pHint->isRefusal());
    QVERIFY(m_panel->m_durations[DurationsPanel::eNormalization].pHint->isRefusal());
    QVERIFY(std::isnan(m_configuration->getBPMCalculationDuration()));
    QVERIFY(!m_configuration->isModified());
}

void tst_DurationsPanel::hints_tellUnitsAndLimits()
{
    const auto& durations = m_panel->m_durations;
    QCOMPARE(durations[DurationsPanel::eAverageVolume].pHint->text(), Text("0.05 to 60 s"));
    QCOMPARE(durations[DurationsPanel::eBPM].pHint->text(), Text("0.05 to 600 s"));
    QCOMPARE(durations[DurationsPanel::eStop].pHint->text(), Text("0.05 to 10 s of quiet"));
    const auto& levels = m_panel->m_levels;
    QCOMPARE(levels[DurationsPanel::eStopLevel].pHint->text(), Text("-20.0 dBFS; 0 to 32767"));
    Type(PanelTest::Get<QSpinBox>(*m_panel, "stopLevel"), Text("0"));
    QCOMPARE(levels[DurationsPanel::eStopLevel].pHint->text(), Text("silence; 0 to 32767"));
    // Assistive tools read them with the field.
    const auto& field = PanelTest::Get<QSpinBox>(*m_panel, "stopLevel");
    QCOMPARE(field.accessibleDescription(), Text("silence; 0 to 32767"));
    QCOMPARE(field.accessibleName(), Text("Quiet up to"));
}

void tst_DurationsPanel::defaults_areRestored()
{
    m_configuration->setAverageVolumeCalculationDuration(3.0);
    m_configuration->setBPMCalculationDuration(20.0);
    m_configuration->setStopDetectionDuration(4.0);
    m_configuration->setNormalizationDuration(9.0);
    m_configuration->setStopDetectionThreshold(1);
    m_configuration->setNormalizationThreshold(2);
    m_panel->Refresh();
    PanelTest::Click(*m_panel, "defaults");
    QCOMPARE(m_configuration->getAverageVolumeCalculationDuration(), 2.0);
    QCOMPARE(m_configuration->getBPMCalculationDuration(), 10.0);
    // That of live hosts.
    QCOMPARE(m_configuration->getStopDetectionDuration(), 1.5);
    QCOMPARE(m_configuration->getNormalizationDuration(), 5.0);
    QCOMPARE(m_configuration->getStopDetectionThreshold(), short(3276));
    QCOMPARE(m_configuration->getNormalizationThreshold(), short(16383));
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm").value(), 10.0);
    QCOMPARE(PanelTest::Get<QSpinBox>(*m_panel, "stopLevel").value(), 3276);
    QCOMPARE(m_changed->count(), 6);
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
    QCOMPARE(PanelTest::Get<QDoubleSpinBox>(*m_panel, "bpm").value(), 33.0);
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
    QCOMPARE(letters, Text("ADLNQST"));
}

QTEST_MAIN(tst_DurationsPanel)
#include "tst_DurationsPanel.moc"
