// SPDX-License-Identifier: MIT
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <apps/desktop/settings/ManualBeatFixture.h>
#include <support/TestClass.h>

/// Taps, and what is made of them.
class tst_ManualBeatPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void taps_makeATempo();
    void tap_countsWhenTheButtonGoesDown();
    void key_taps();
    void key_doesNotTap_whenItIsHeldOrTyped();
    void key_doesNotTap_whenThePanelIsHidden();
    void staleTaps_areDropped();
    void bounce_isNoTap();
    void half_double_round_data();
    void half_double_round();
    void half_beginsWithTheMeasuredTempo();
    void buttons_tellWhatIsToBeDone_atOnce();
    void half_beginsTapsAnew();
    void buttons_areEnabled_whereTheyCanAct_data();
    void buttons_areEnabled_whereTheyCanAct();
    void buttons_followTheMeasurement();
    void state_countsTaps();
    void everything_hasAName();
    void mnemonics_differ();
};

void tst_ManualBeatPanel::taps_makeATempo()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QCOMPARE(panel.Tempo(), Text("–"));
    panel.Tap();
    QCOMPARE(panel.Tempo(), Text("–"));
    panel.Wait(500);
    panel.Tap();
    QCOMPARE(panel.Tempo(), Text("120.0 BPM"));
    QCOMPARE(panel.panel.getTempo(), 120.0);
    panel.Wait(600);
    panel.Tap();
    // The middle of 500 and 600 ms: 109.09.
    QCOMPARE(panel.Tempo(), Text("109.1 BPM"));
    QCOMPARE(panel.log, QStringList({Text("tap"), Text("tap"), Text("tap")}));
    QVERIFY(!panel.configuration.isModified());
}

void tst_ManualBeatPanel::tap_countsWhenTheButtonGoesDown()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QTest::mousePress(&panel.Button("tap"), Qt::LeftButton);
    QCOMPARE(panel.log.size(), 1);
    panel.Wait(500);
    panel.Release();
    QCOMPARE(panel.log.size(), 1);
    panel.Button("tap").setFocus();
    QTest::keyPress(&panel.Button("tap"), Qt::Key_Space);
    QCOMPARE(panel.log.size(), 2);
    QCOMPARE(panel.Tempo(), Text("120.0 BPM"));
    QTest::keyRelease(&panel.Button("tap"), Qt::Key_Space);
    QCOMPARE(panel.log.size(), 2);
}

void tst_ManualBeatPanel::key_taps()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QTest::keyClick(&panel.panel, Qt::Key_T);
    panel.Wait(400);
    QTest::keyClick(&panel.panel, Qt::Key_T);
    QCOMPARE(panel.Tempo(), Text("150.0 BPM"));
    QCOMPARE(panel.log.size(), 2);
}

void tst_ManualBeatPanel::key_doesNotTap_whenItIsHeldOrTyped()
{
    Panel panel;
    QWidget window;
    auto* pLayout = new QVBoxLayout(&window);
    auto* pEdit = new QLineEdit(&window);
    pLayout->addWidget(pEdit);
    pLayout->addWidget(&panel.panel);
    QVERIFY(PanelTest::Show(window));
    pEdit->setFocus();
    QTest::keyClick(pEdit, Qt::Key_T);
    QCOMPARE(pEdit->text(), Text("t"));
    QCOMPARE(panel.log, QStringList());
    panel.Button("lock").setFocus();
    window.setFocus();
    QTest::keyClick(&window, Qt::Key_T);
    QCOMPARE(panel.log.size(), 1);
    // What a held key sends.
    panel.Wait(500);
    QTest::simulateEvent(&window, true, Qt::Key_T, Qt::NoModifier, Text("t"), true);
    QCOMPARE(panel.log.size(), 1);
    panel.panel.setParent(nullptr);
}

void tst_ManualBeatPanel::key_doesNotTap_whenThePanelIsHidden()
{
    Panel panel;
    QWidget window;
    auto* pLayout = new QVBoxLayout(&window);
    pLayout->addWidget(&panel.panel);
    QVERIFY(PanelTest::Show(window));
    panel.panel.hide();
    QTest::keyClick(&window, Qt::Key_T);
    QCOMPARE(panel.log, QStringList());
    panel.panel.show();
    QTest::keyClick(&window, Qt::Key_T);
    QCOMPARE(panel.log.size(), 1);
    panel.panel.setParent(nullptr);
}

void tst_ManualBeatPanel::staleTaps_areDropped()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.Tap({500, 500});
    panel.Wait(3001);
    panel.Tap();
    QCOMPARE(panel.State().text(), Text("1 tap(s)"));
    // The tempo of the earlier taps stays until there is another.
    QCOMPARE(panel.Tempo(), Text("120.0 BPM"));
    panel.Wait(1000);
    panel.Tap();
    QCOMPARE(panel.Tempo(), Text("60.0 BPM"));
}

void tst_ManualBeatPanel::bounce_isNoTap()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.Tap({50, 450});
    QCOMPARE(panel.log.size(), 2);
    QCOMPARE(panel.Tempo(), Text("120.0 BPM"));
}

void tst_ManualBeatPanel::half_double_round_data()
{
    QTest::addColumn<int>("interval");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("tempo");
    QTest::newRow("half") << 500 << QByteArray("half") << Text("60.0 BPM");
    QTest::newRow("double") << 500 << QByteArray("double") << Text("240.0 BPM");
    // 60000 / 470 = 127.66
    QTest::newRow("round up") << 470 << QByteArray("round") << Text("128.0 BPM");
    // 60000 / 468 = 128.21
    QTest::newRow("round down") << 468 << QByteArray("round") << Text("128.0 BPM");
    QTest::newRow("rounded already") << 500 << QByteArray("round") << Text("120.0 BPM");
}

void tst_ManualBeatPanel::half_double_round()
{
    QFETCH(const int, interval);
    QFETCH(const QByteArray, button);
    QFETCH(const QString, tempo);
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.Tap({interval});
    panel.Click(button.constData());
    QCOMPARE(panel.Tempo(), tempo);
    QVERIFY(!panel.panel.isLocked());
    QCOMPARE(panel.State().text(), Text("Lock to impose it"));
}

void tst_ManualBeatPanel::half_beginsWithTheMeasuredTempo()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    Measure(*analyzer, 170.0);
    panel.Click("half");
    QCOMPARE(panel.Tempo(), Text("85.0 BPM"));
    QCOMPARE(analyzer->getFixedBPM(), 0.0);
}

void tst_ManualBeatPanel::buttons_tellWhatIsToBeDone_atOnce()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QStringList told;
    using M = ManualBeatPanel;
    connect(
        &panel.panel,
        &M::OnScaled,
        this,
        [&](int pNumerator, int pDenominator) {
            told.append(QStringLiteral("%1/%2").arg(pNumerator).arg(pDenominator));
        });
    connect(
        &panel.panel, &M::OnRounded, this, [&] { told.append(Text("round")); });
    connect(&panel.panel, &M::OnOneMarked, this, [&] { told.append(Text("one")); });
    panel.panel.setFollowedTempo(127.6);
    QCOMPARE(panel.Enabled(), Text("half double round lock"));
    for (const char* pButton : {"half", "double", "round", "one"})
        panel.Click(pButton);
    QTest::keyClick(&panel.panel, Qt::Key_1);
    QCOMPARE(told.join(QLatin1Char(' ')), Text("1/2 2/1 round one one"));
    // Half of it, the double of that, rounded.
    QCOMPARE(panel.Tempo(), Text("128.0 BPM"));
}

void tst_ManualBeatPanel::half_beginsTapsAnew()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.Tap({500, 500});
    panel.Click("half");
    panel.Wait(500);
    panel.Tap();
    QCOMPARE(panel.Tempo(), Text("60.0 BPM"));
    QCOMPARE(panel.State().text(), Text("1 tap(s)"));
}

void tst_ManualBeatPanel::buttons_areEnabled_whereTheyCanAct_data()
{
    QTest::addColumn<double>("tempo");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("none") << 0.0 << QString();
    QTest::newRow("usual") << 120.0 << Text("half double round lock");
    QTest::newRow("fast") << 500.0 << Text("half round lock");
    QTest::newRow("just below") << 499.9 << Text("half double round lock");
    QTest::newRow("slow") << 1.9 << Text("double round lock");
    QTest::newRow("fastest") << 999.9 << Text("half lock");
}

void tst_ManualBeatPanel::buttons_areEnabled_whereTheyCanAct()
{
    QFETCH(const double, tempo);
    QFETCH(const QString, enabled);
    Panel panel;
    panel.panel.m_tempo = tempo;
    panel.panel.Refresh();
    QCOMPARE(panel.Enabled(), enabled);
}

void tst_ManualBeatPanel::buttons_followTheMeasurement()
{
    Panel panel;
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    QCOMPARE(panel.Enabled(), QString());
    Measure(*analyzer, 128.0);
    QCOMPARE(panel.Enabled(), Text("half double round lock"));
    panel.panel.setAnalyzer(nullptr);
    QCOMPARE(panel.Enabled(), QString());
}

void tst_ManualBeatPanel::state_countsTaps()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QCOMPARE(panel.State().text(), Text("Tap with the beat"));
    panel.Tap({500, 500});
    QCOMPARE(panel.State().text(), Text("3 tap(s)"));
}

void tst_ManualBeatPanel::everything_hasAName()
{
    const Panel panel;
    QCOMPARE(PanelTest::Unnamed(panel.panel), QStringList());
    QCOMPARE(panel.panel.windowTitle(), Text("Manual beat"));
}

void tst_ManualBeatPanel::mnemonics_differ()
{
    const Panel panel;
    QString letters = PanelTest::Mnemonics(panel.panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("BCLR"));
}

AA_TEST(tst_ManualBeatPanel, QApplication)
#include "tst_ManualBeatPanel.moc"
