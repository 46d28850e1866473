// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <desktop/live/BpmPanel.h>
#include <desktop/live/Led.h>
#include <desktop/live/LedPanel.h>
#include <desktop/live/LevelMeter.h>
#include <desktop/live/LevelPanel.h>
#include <desktop/live/Readout.h>
#include <desktop/live/SpeakersPanel.h>
#include <desktop/live/SpectrumCanvas.h>
#include <desktop/live/SpectrumPanel.h>
#include <desktop/live/detail/Decibels.h>
#include <desktop/live/detail/Flash.h>

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QSlider>
#include <qwt_plot.h>

#include <apps/desktop/live/LivePanelTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

Q_DECLARE_METATYPE(LiveValues)

using namespace livetest;

/// What the live panels show of given values.
class tst_LivePanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void led_flashesAndFades_data();
    void led_flashesAndFades();
    void led_tellsVirtualFromReal();
    void led_isPainted_onlyWhenItChanges();
    void tempo_hasOneDecimal();
    void tempo_isDimmed_whenUnknownOrHeld_data();
    void tempo_isDimmed_whenUnknownOrHeld();
    void tempo_isExplained_data();
    void tempo_isExplained();
    void confidence_isShown_whenAnythingIsKnown();
    void bar_showsThePlaceOfTheBeat();
    void speakers_pumpWithTheBeat();
    void captions_stayNearTheirLamp();
    void colors_reachEveryPanel();
    void widgets_haveAccessibleNames();
};

void tst_LivePanels::led_flashesAndFades_data()
{
    QTest::addColumn<bool>("isBeat");
    QTest::newRow("beat") << true;
    QTest::newRow("pulse") << false;
}

void tst_LivePanels::led_flashesAndFades()
{
    QFETCH(bool, isBeat);
    LedPanel panel(isBeat ? LedPanel::eBeats : LedPanel::ePulses);
    panel.setColors(getColors(eDarkLook));
    LiveValues values = Playing();
    panel.Refresh(values, 5000);
    QCOMPARE(panel.getLed().getStep(), 0);
    (isBeat ? values.beatTime : values.pulseTime) = 5000;
    panel.Refresh(values, 5000);
    QCOMPARE(panel.getLed().getStep(), desktop::kFlashSteps);
    panel.Refresh(values, 5040);
    QCOMPARE(panel.getLed().getStep(), desktop::kFlashSteps / 2);
    panel.Refresh(values, 5099);
    QCOMPARE(panel.getLed().getStep(), 0);
    // The other lamp stays dark.
    LedPanel other(isBeat ? LedPanel::ePulses : LedPanel::eBeats);
    other.Refresh(values, 5000);
    QCOMPARE(other.getLed().getStep(), 0);
}

void tst_LivePanels::led_tellsVirtualFromReal()
{
    LedPanel panel(LedPanel::eBeats);
    const LookColors& colors = getColors(eDarkLook);
    panel.setColors(colors);
    panel.resize(200, 200);
    LiveValues values = Playing();
    values.beatTime = 0;
    panel.Refresh(values, 0);
    QVERIFY(!panel.getLed().isRing());
    QCOMPARE(panel.m_pType->text(), QStringLiteral("real"));
    const int realDisc = Count(panel.grab().toImage(), colors.beat);
    values.isBeatVirtual = true;
    panel.Refresh(values, 0);
    QVERIFY(panel.getLed().isRing());
    QCOMPARE(panel.m_pType->text(), QStringLiteral("virtual"));
    const QImage ring = panel.grab().toImage();
    QCOMPARE(Count(ring, colors.beat), 0);
    // A ring has far fewer lit points than a disc.
    QVERIFY(Count(ring, colors.virtualBeat) > 50);
    QVERIFY(Count(ring, colors.virtualBeat) * 2 < realDisc);
}

void tst_LivePanels::led_isPainted_onlyWhenItChanges()
{
    LedPanel panel(LedPanel::eBeats);
    panel.setColors(getColors(eDarkLook));
    QVERIFY(PanelTest::Show(panel));
    QTest::qWait(50);
    PaintCounter counter(*panel.m_pLed);
    LiveValues values = Playing();
    for (int i = 0; i < 10; ++i) {
        panel.Refresh(values, 5000 + 16 * i);
        QTest::qWait(2);
    }
    QCOMPARE(counter.count, 0);
    values.beatTime = 6000;
    panel.Refresh(values, 6000);
    QTRY_COMPARE(counter.count, 1);
}

void tst_LivePanels::tempo_hasOneDecimal()
{
    Configuration configuration;
    BpmPanel panel(configuration);
    panel.Refresh(Playing(), 1000);
    QCOMPARE(panel.m_pTempo->text(), QStringLiteral("128.0"));
    LiveValues values = Playing();
    values.bpm = 0.0;
    panel.Refresh(values, 2000);
    QCOMPARE(panel.m_pTempo->text(), QStringLiteral("–"));
}

void tst_LivePanels::tempo_isDimmed_whenUnknownOrHeld_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<bool>("isHeld");
    QTest::addColumn<bool>("isDimmed");
    QTest::newRow("measured") << 128.0 << false << false;
    QTest::newRow("held") << 128.0 << true << true;
    QTest::newRow("unknown") << 0.0 << false << true;
}

void tst_LivePanels::tempo_isDimmed_whenUnknownOrHeld()
{
    QFETCH(double, bpm);
    QFETCH(bool, isHeld);
    QFETCH(bool, isDimmed);
    Configuration configuration;
    BpmPanel panel(configuration);
    LiveValues values = Playing();
    values.bpm = bpm;
    values.isHeld = isHeld;
    panel.Refresh(values, 1000);
    QCOMPARE(panel.m_pTempo->foregroundRole(),
             isDimmed ? QPalette::PlaceholderText : QPalette::WindowText);
}

void tst_LivePanels::tempo_isExplained_data()
{
    QTest::addColumn<LiveValues>("values");
    QTest::addColumn<bool>("isStoppedShown");
    QTest::addColumn<QString>("hint");
    LiveValues values = Playing();
    QTest::newRow("measured") << values << true << QString();
    values.measuredBPM = 200.0;
    values.bpm = 175.0;
    QTest::newRow("too fast") << values << true
                              << QStringLiteral("Measured 200.0 BPM, out of the range of "
                                                "“Electro”; half of it: 100.0.");
    values.measuredBPM = 80.0;
    QTest::newRow("too slow") << values << true
                              << QStringLiteral("Measured 80.0 BPM, out of the range of "
                                                "“Electro”; the double: 160.0.");
    values.measuredBPM = 40.0;
    QTest::newRow("far too slow") << values << true
                                  << QStringLiteral("Measured 40.0 BPM, out of the range of "
                                                    "“Electro”.");
    values = Playing();
    values.isHeld = true;
    QTest::newRow("held") << values << true << QStringLiteral("Held: not measured now.");
    values.isHeld = false;
    values.bpm = 0.0;
    QTest::newRow("measuring") << values << true << QStringLiteral("Measuring…");
    values.isPlaying = false;
    QTest::newRow("stopped") << values << true << QStringLiteral("Stopped: no music.");
    QTest::newRow("stopped, not shown") << values << false << QString();
    values.bpm = 128.0;
    QTest::newRow("stopped after music")
        << values << true << QStringLiteral("Stopped; this was the tempo.");
    values.isAnalyzing = false;
    QTest::newRow("no sound") << values << true << QStringLiteral("Waiting for sound.");
    values.charge = BeatClockCharge_Hand;
    QTest::newRow("tapped") << values << true << QStringLiteral("Led by hand.");
    values.charge = BeatClockCharge_Held;
    QTest::newRow("held by hand") << values << true << QStringLiteral("Held by hand.");
}

void tst_LivePanels::tempo_isExplained()
{
    QFETCH(LiveValues, values);
    QFETCH(bool, isStoppedShown);
    Configuration configuration;
    BpmPanel panel(configuration);
    panel.setStoppedShown(isStoppedShown);
    panel.Refresh(values, 1000);
    QTEST(panel.m_pHint->text(), "hint");
}

void tst_LivePanels::confidence_isShown_whenAnythingIsKnown()
{
    Configuration configuration;
    BpmPanel panel(configuration);
    LiveValues values = Playing();
    panel.Refresh(values, 1000);
    QCOMPARE(panel.m_pConfidence->value(), 0);
    QVERIFY(!panel.m_pConfidence->isTextVisible());
    values.confidence = 1.0 / 3.0;
    panel.Refresh(values, 2000);
    QCOMPARE(panel.m_pConfidence->value(), 33);
    QVERIFY(panel.m_pConfidence->isTextVisible());
    values.confidence = 0.0;
    panel.Refresh(values, 3000);
    QCOMPARE(panel.m_pConfidence->value(), 0);
    QVERIFY(panel.m_pConfidence->isTextVisible());
}

void tst_LivePanels::bar_showsThePlaceOfTheBeat()
{
    Configuration configuration;
    BpmPanel panel(configuration);
    LiveValues values = Playing();
    panel.Refresh(values, 1000);
    QCOMPARE(panel.m_pBar->text(), QStringLiteral("○ ○ ○ ○"));
    values.beatInBar = 3;
    panel.Refresh(values, 2000);
    QCOMPARE(panel.m_pBar->text(), QStringLiteral("○ ○ ● ○"));
    values.beatsPerBar = 3;
    values.beatInBar = 1;
    panel.Refresh(values, 3000);
    QCOMPARE(panel.m_pBar->text(), QStringLiteral("● ○ ○"));
}

void tst_LivePanels::speakers_pumpWithTheBeat()
{
    SpeakersPanel panel;
    panel.setColors(getColors(eDarkLook));
    panel.resize(200, 120);
    LiveValues values = Playing();
    panel.Refresh(values, 1000);
    QCOMPARE(panel.getStep(), 0);
    const QImage still = panel.grab().toImage();
    values.beatTime = 1100;
    panel.Refresh(values, 1100);
    QCOMPARE(panel.getStep(), desktop::kFlashSteps);
    QVERIFY(panel.grab().toImage() != still);
    panel.Refresh(values, 1350);
    QCOMPARE(panel.grab().toImage(), still);
}

void tst_LivePanels::captions_stayNearTheirLamp()
{
    LedPanel panel(LedPanel::eBeats);
    panel.resize(300, 900);
    PanelTest::Show(panel);
    const int lamp = panel.getLed().geometry().bottom();
    QVERIFY(panel.m_pTitle->geometry().top() - lamp < panel.fontMetrics().height());
}

void tst_LivePanels::colors_reachEveryPanel()
{
    Configuration configuration;
    LevelPanel panel(configuration);
    panel.resize(400, 120);
    LiveValues values = Playing();
    values.current = 32767;
    panel.Refresh(values, 1000);
    for (const eLook look : {eLightLook, eDarkLook, eGrayLook}) {
        panel.setColors(getColors(look));
        QVERIFY(Count(panel.grab().toImage(), getColors(look).spectrum) > 1000);
    }
}

void tst_LivePanels::widgets_haveAccessibleNames()
{
    Configuration configuration;
    LevelPanel level(configuration);
    QCOMPARE(PanelTest::Unnamed(level), QStringList());
    QVERIFY(!level.getMeter().accessibleName().isEmpty());
    LedPanel led(LedPanel::eBeats);
    QCOMPARE(led.getLed().accessibleName(), QStringLiteral("Beat lamp"));
    SpectrumPanel spectrum(configuration);
    QVERIFY(!spectrum.m_pPlot->accessibleName().isEmpty());
    BpmPanel bpm(configuration);
    QVERIFY(!bpm.m_pTempo->accessibleName().isEmpty());
    QVERIFY(!bpm.m_pConfidence->accessibleName().isEmpty());
}

AA_TEST(tst_LivePanels, InVirtualTime<QApplication>)
#include "tst_LivePanels.moc"
