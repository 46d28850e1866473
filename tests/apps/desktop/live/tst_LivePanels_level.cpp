// SPDX-License-Identifier: MIT
#include <desktop/live/LevelMeter.h>
#include <desktop/live/LevelPanel.h>
#include <desktop/live/Readout.h>
#include <desktop/live/SpectrumPanel.h>
#include <desktop/live/detail/Decibels.h>

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QSlider>
#include <qwt_plot.h>

#include <apps/desktop/live/LivePanelTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace livetest;

/// What the level panel shows, and sets.
class tst_LivePanels_level : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void meter_showsTheVolumes();
    void input_isShownBesideTheBand();
    void newInput_beginsWithoutMarks();
    void meter_hasNoNumbers_withoutSamples();
    void threshold_isAutomaticAtFirst();
    void threshold_isSetByTheSlider();
    void threshold_followsTheConfiguration();
};

void tst_LivePanels_level::meter_showsTheVolumes()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    LiveValues values = Playing();
    values.current = 16384;
    values.average = 3277;
    values.maximal = 32767;
    values.threshold = 6554;
    panel.Refresh(values, 1000);
    QCOMPARE(panel.m_readouts[LevelPanel::eCurrent]->getValue(), QStringLiteral("-6"));
    QCOMPARE(panel.m_readouts[LevelPanel::eAverage]->getValue(), QStringLiteral("-20"));
    QCOMPARE(panel.m_readouts[LevelPanel::eMaximal]->getValue(), QStringLiteral("0"));
    QCOMPARE(panel.m_readouts[LevelPanel::eThreshold]->getValue(), QStringLiteral("-14"));
    const LevelMeter::Levels& levels = panel.getMeter().getLevels();
    QVERIFY(std::abs(levels.current + 6.02) < 0.01);
    QVERIFY(std::abs(levels.average + 20.0) < 0.01);
    QCOMPARE(levels.maximal, 0.0);
    QVERIFY(std::abs(levels.threshold + 13.98) < 0.01);
}

void tst_LivePanels_level::input_isShownBesideTheBand()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    LiveValues values = Playing();
    values.input = 29204;  // -1 dBFS
    values.current = 3277;
    panel.Refresh(values, 1000);
    QCOMPARE(panel.m_readouts[LevelPanel::eInput]->getValue(), QStringLiteral("-1"));
    QCOMPARE(panel.m_readouts[LevelPanel::eCurrent]->getValue(), QStringLiteral("-20"));
    QVERIFY(panel.m_pClipped->isHidden());
    values.input = 32767;
    values.clipTime = 2000;
    panel.Refresh(values, 2000);
    QVERIFY(!panel.m_pClipped->isHidden());
    QVERIFY(panel.getInputMeter().getLevels().isClipped);
    // It falls by 24 dB a second, its mark rests.
    values.input = 0;
    panel.Refresh(values, 2500);
    QCOMPARE(panel.getInputMeter().getLevels().current, -12.0);
    QCOMPARE(panel.getInputMeter().getLevels().maximal, 0.0);
    panel.Refresh(values, 2000 + LevelPanel::kClipMs);
    QVERIFY(panel.m_pClipped->isHidden());
    QVERIFY(!panel.getInputMeter().getLevels().isClipped);
}

void tst_LivePanels_level::newInput_beginsWithoutMarks()
{
    Configuration configuration;
    LevelPanel levels(configuration);
    SpectrumPanel spectrum(configuration);
    LiveValues values = Playing();
    values.input = 32767;
    values.amplitudes.assign(512, 1.0);
    values.spectrumCount = 1;
    levels.Refresh(values, 1000);
    spectrum.Refresh(values, 1000);
    QCOMPARE(spectrum.getBars().getPeaks().front(), 0.0);
    LiveValues other;
    other.inputCount = 1;
    levels.Refresh(other, 1300);
    spectrum.Refresh(other, 1300);
    QCOMPARE(levels.getInputMeter().getLevels().maximal, desktop::kLeastDecibels);
    QCOMPARE(levels.m_readouts[LevelPanel::eInput]->getValue(), QStringLiteral("–"));
    for (const double peak : spectrum.getBars().getPeaks())
        QCOMPARE(peak, SpectrumBars::kLeast);
}

void tst_LivePanels_level::meter_hasNoNumbers_withoutSamples()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    LiveValues values;
    values.average = -1;
    panel.Refresh(values, 1000);
    for (const Readout* pReadout : panel.m_readouts)
        QCOMPARE(pReadout->getValue(), QStringLiteral("–"));
}

void tst_LivePanels_level::threshold_isAutomaticAtFirst()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    QVERIFY(panel.getAutomatic().isChecked());
    QVERIFY(!panel.getSlider().isEnabled());
    LiveValues values = Playing();
    values.threshold = 3277;
    panel.Refresh(values, 1000);
    QCOMPARE(panel.getSlider().value(), -200);
    QCOMPARE(configuration.getThreshold(), qint16(-1));
}

void tst_LivePanels_level::threshold_isSetByTheSlider()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    QSignalSpy changes(&panel, &LevelPanel::OnConfigurationChanged);
    LiveValues values = Playing();
    values.threshold = 3277;
    panel.Refresh(values, 1000);
    panel.getAutomatic().click();
    QVERIFY(panel.getSlider().isEnabled());
    QCOMPARE(configuration.getThreshold(), qint16(3277));
    QCOMPARE(changes.count(), 1);
    panel.getSlider().setValue(-60);  // -6 dBFS
    QCOMPARE(configuration.getThreshold(), qint16(16422));
    QCOMPARE(changes.count(), 2);
    panel.getAutomatic().click();
    QCOMPARE(configuration.getThreshold(), qint16(-1));
    QVERIFY(!panel.getSlider().isEnabled());
    QCOMPARE(changes.count(), 3);
}

void tst_LivePanels_level::threshold_followsTheConfiguration()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    QSignalSpy changes(&panel, &LevelPanel::OnConfigurationChanged);
    configuration.setThreshold(3277);
    panel.Refresh(Playing(), 1000);
    QVERIFY(!panel.getAutomatic().isChecked());
    QVERIFY(panel.getSlider().isEnabled());
    QCOMPARE(panel.getSlider().value(), -200);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(configuration.getThreshold(), qint16(3277));
}

AA_TEST(tst_LivePanels_level, InVirtualTime<QApplication>)
#include "tst_LivePanels_level.moc"
