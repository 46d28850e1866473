// SPDX-License-Identifier: MIT
#include <apps/desktop/live/LivePanelTest.h>
#include <desktop/live/SpectrumCanvas.h>
#include <desktop/live/SpectrumPanel.h>

#include <qwt_plot.h>

#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace livetest;

/// What the spectrum shows of given values.
class tst_SpectrumPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void bars_showTheAmplitudes();
    void peaks_areHeld();
    void bars_fallToTheFloor_andRest();
    void band_ofTheProfileIsShaded();
    void movedArea_holdsWhatHasMoved_once();
};

void tst_SpectrumPanel::bars_showTheAmplitudes()
{
    Configuration configuration;
    SpectrumPanel panel(configuration);
    LiveValues values = Playing();
    values.amplitudes.assign(512, 0.0);
    values.amplitudes[21] = 0.01;  // 984 to 1031 Hz at 48000 Hz
    values.spectrumCount = 1;
    panel.Refresh(values, 1000);
    const SpectrumBars& bars = panel.getBars();
    int raised = 0;
    for (std::size_t i = 0; i < bars.m_bars.size(); ++i)
        if (bars.getLevels()[i] > SpectrumBars::kLeast) {
            ++raised;
            QCOMPARE(bars.getLevels()[i], -20.0);
            QVERIFY(bars.m_bars[i].low < 1032.0 && bars.m_bars[i].high > 984.0);
        }
    QCOMPARE(raised, 1);
}

void tst_SpectrumPanel::peaks_areHeld()
{
    Configuration configuration;
    SpectrumPanel panel(configuration);
    LiveValues values = Playing();
    values.amplitudes.assign(512, 1.0);
    values.spectrumCount = 1;
    panel.Refresh(values, 1000);
    QCOMPARE(panel.getBars().getLevels().front(), 0.0);
    panel.Refresh(values, 1500);
    QVERIFY(panel.getBars().getLevels().front() < -40.0);
    QCOMPARE(panel.getBars().getPeaks().front(), 0.0);
    panel.Refresh(values, 2000);
    panel.Refresh(values, 2500);
    QVERIFY(panel.getBars().getPeaks().front() < -5.0);
}

void tst_SpectrumPanel::bars_fallToTheFloor_andRest()
{
    Configuration configuration;
    SpectrumPanel panel(configuration);
    panel.setColors(getColors(eLightLook));
    panel.resize(400, 200);
    QVERIFY(PanelTest::Show(panel));
    LiveValues values = Playing();
    values.amplitudes.assign(512, 1.0);
    values.spectrumCount = 1;
    for (qint64 now = 1000; now < 8000; now += 100)
        panel.Refresh(values, now);
    QCOMPARE(panel.getBars().getPeaks().front(), SpectrumBars::kLeast);
    QTest::qWait(50);
    PaintCounter counter(*panel.m_pCanvas);
    for (qint64 now = 8000; now < 9000; now += 100) {
        panel.Refresh(values, now);
        QTest::qWait(2);
    }
    QCOMPARE(counter.count, 0);
}

void tst_SpectrumPanel::band_ofTheProfileIsShaded()
{
    Configuration configuration;
    SpectrumPanel panel(configuration);
    // "Electro" has no lower edge.
    QCOMPARE(panel.getCanvas().getLow(), 0);
    QCOMPARE(panel.getCanvas().getHigh(), 75);
    configuration.setSelectedProfile(
        configuration.Add(QStringLiteral("Mine"), 90.0, 120.0, 2.0, 100, 900));
    panel.Refresh(Playing(), 1000);
    QCOMPARE(panel.getCanvas().getLow(), 100);
    QCOMPARE(panel.getCanvas().getHigh(), 900);
}

void tst_SpectrumPanel::movedArea_holdsWhatHasMoved_once()
{
    SpectrumBars bars;
    std::vector<double> amplitudes(512, 0.0);
    bars.Add(amplitudes, 48000, 0);
    const SpectrumBars::Moved first = bars.TakeMoved();
    QCOMPARE(first.left, SpectrumBars::kLow);
    QCOMPARE(first.right, SpectrumBars::kHigh);
    QVERIFY(bars.TakeMoved().left >= bars.TakeMoved().right);
    amplitudes[21] = 0.01;  // 984 to 1031 Hz at 48000 Hz, -20 dB
    bars.Add(amplitudes, 48000, 0);
    const SpectrumBars::Moved raised = bars.TakeMoved();
    QVERIFY(raised.left <= 984.0 && raised.left > 800.0);
    QVERIFY(raised.right >= 1031.0 && raised.right < 1250.0);
    QCOMPARE(raised.low, SpectrumBars::kLeast);
    QCOMPARE(raised.high, -20.0);
    QVERIFY(bars.TakeMoved().left >= bars.TakeMoved().right);
}

AA_TEST(tst_SpectrumPanel, InVirtualTime<QApplication>)
#include "tst_SpectrumPanel.moc"
