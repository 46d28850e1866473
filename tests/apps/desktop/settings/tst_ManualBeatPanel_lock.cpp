// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <apps/desktop/settings/ManualBeatFixture.h>

#include <QFile>

#include <support/TestClass.h>
#include <support/VirtualTime.h>

/// The tempo that is imposed, and released.
class tst_ManualBeatPanel_lock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void tempo_isOnlyShown_withoutLocking();
    void lock_imposesTheTappedTempo();
    void lock_imposesTheMeasuredTempo_withoutTaps();
    void lock_isReleased();
    void lockedTempo_followsTheHand();
    void locking_imposesAtOnce();
    void locking_comesFromTheIniFile_data();
    void locking_comesFromTheIniFile();
    void tempo_outsideTheProfile_isToldWithWhatHolds();
    void profileChange_isShown_onRefresh();
    void otherAnalyzer_getsTheLockedTempo();
    void unlockedTempo_isForgotten();
    void lockedTempo_isNotForgotten();
};

void tst_ManualBeatPanel_lock::tempo_isOnlyShown_withoutLocking()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.Tap({500, 500});
    QCOMPARE(analyzer->getFixedBPM(), 0.0);
    QVERIFY(!panel.panel.isLocked());
    QVERIFY(!panel.Button("lock").isChecked());
}

void tst_ManualBeatPanel_lock::lock_imposesTheTappedTempo()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.Tap({500});
    panel.TakeLog();
    panel.Click("lock");
    QCOMPARE(analyzer->getFixedBPM(), 120.0);
    QVERIFY(panel.panel.isLocked());
    QVERIFY(panel.Button("lock").isChecked());
    QCOMPARE(panel.State().text(), Text("Locked until released"));
    QCOMPARE(panel.log, QStringList(Text("120.0")));
}

void tst_ManualBeatPanel_lock::lock_imposesTheMeasuredTempo_withoutTaps()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    Measure(*analyzer, 128.4);
    panel.Click("lock");
    QCOMPARE(analyzer->getFixedBPM(), 128.4);
    QCOMPARE(panel.Tempo(), Text("128.4 BPM"));
    Measure(*analyzer, 131.0);
    QCOMPARE(analyzer->getCurrentBPM(), 128.4);
    QCOMPARE(panel.log, QStringList(Text("128.4")));
}

void tst_ManualBeatPanel_lock::lock_isReleased()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.Tap({500});
    panel.Click("lock");
    panel.TakeLog();
    panel.Click("lock");
    QCOMPARE(analyzer->getFixedBPM(), 0.0);
    QVERIFY(!panel.panel.isLocked());
    QVERIFY(!panel.Button("lock").isChecked());
    QCOMPARE(panel.Tempo(), Text("–"));
    QCOMPARE(panel.State().text(), Text("Tap with the beat"));
    QCOMPARE(panel.log, QStringList(Text("0.0")));
    // And the taps before are forgotten: the next one is a first one.
    panel.Wait(500);
    panel.Tap();
    QCOMPARE(panel.Tempo(), Text("–"));
}

void tst_ManualBeatPanel_lock::lockedTempo_followsTheHand()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.Tap({500});
    panel.Click("lock");
    panel.Wait(5000);
    panel.Tap({400});
    QCOMPARE(analyzer->getFixedBPM(), 150.0);
    panel.TakeLog();
    panel.Click("round");
    panel.Click("half");
    QCOMPARE(panel.log, QStringList({Text("150.0"), Text("75.0")}));
    QCOMPARE(analyzer->m_fixedBPM, 75.0);
    QVERIFY(panel.panel.isLocked());
}

void tst_ManualBeatPanel_lock::locking_imposesAtOnce()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.panel.setLocking(true);
    panel.Tap();
    QVERIFY(!panel.panel.isLocked());
    panel.Wait(500);
    panel.Tap();
    QVERIFY(panel.panel.isLocked());
    QCOMPARE(analyzer->getFixedBPM(), 120.0);
    QCOMPARE(panel.log, QStringList({Text("tap"), Text("tap"), Text("120.0")}));
    panel.Click("lock");
    QCOMPARE(analyzer->getFixedBPM(), 0.0);
    Measure(*analyzer, 100.0);
    panel.Click("round");
    QVERIFY(panel.panel.isLocked());
    QCOMPARE(analyzer->getFixedBPM(), 100.0);
}

void tst_ManualBeatPanel_lock::locking_comesFromTheIniFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("isLocking");
    QTest::newRow("no file") << QByteArray() << false;
    QTest::newRow("no key") << QByteArray("[MainWindow]\nBPM=true\n") << false;
    QTest::newRow("on") << QByteArray("[MainWindow]\nManualBeatLock=true\n") << true;
    QTest::newRow("off") << QByteArray("[MainWindow]\nManualBeatLock=0\n") << false;
}

void tst_ManualBeatPanel_lock::locking_comesFromTheIniFile()
{
    QFETCH(const QByteArray, file);
    QFETCH(const bool, isLocking);
    if (!file.isEmpty()) {
        QFile ini(UISettings::_getDefaultPath());
        QVERIFY(ini.open(QIODevice::WriteOnly));
        QCOMPARE(ini.write(file), qint64(file.size()));
    }
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setLocking(UISettings::Load().isManualBeatLockingBPM());
    panel.Tap({500});
    QCOMPARE(panel.panel.isLocked(), isLocking);
}

void tst_ManualBeatPanel_lock::tempo_outsideTheProfile_isToldWithWhatHolds()
{
    // Electro looks from 90 to 175 BPM.
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    const auto analyzer = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(analyzer.get());
    panel.panel.setLocking(true);
    panel.Tap({1000});
    QCOMPARE(analyzer->getFixedBPM(), 90.0);
    QVERIFY(panel.State().isRefusal());
    QCOMPARE(panel.State().text(), Text("The profile takes 90 to 175 BPM: 90.0 holds"));
    panel.Click("double");
    QVERIFY(!panel.State().isRefusal());
    QCOMPARE(analyzer->getFixedBPM(), 120.0);
    panel.Click("double");
    QCOMPARE(panel.State().text(), Text("The profile takes 90 to 175 BPM: 175.0 holds"));
    QCOMPARE(analyzer->getFixedBPM(), 175.0);
}

void tst_ManualBeatPanel_lock::profileChange_isShown_onRefresh()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setLocking(true);
    panel.Tap({800});
    // 75 BPM: outside Electro's range, inside Slow's 70 to 135.
    QVERIFY(panel.State().isRefusal());
    panel.configuration.setSelectedProfile(panel.configuration.getProfiles().last());
    panel.panel.Refresh();
    QVERIFY(!panel.State().isRefusal());
}

void tst_ManualBeatPanel_lock::otherAnalyzer_getsTheLockedTempo()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setLocking(true);
    panel.Tap({500});
    auto first = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(first.get());
    QCOMPARE(first->getFixedBPM(), 120.0);
    first.reset();
    const auto second = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(second.get());
    QCOMPARE(second->getFixedBPM(), 120.0);
    panel.Click("lock");
    QCOMPARE(second->getFixedBPM(), 0.0);
    const auto third = PanelTest::MakeAnalyzer(panel.configuration);
    panel.panel.setAnalyzer(third.get());
    QCOMPARE(third->getFixedBPM(), 0.0);
}

void tst_ManualBeatPanel_lock::unlockedTempo_isForgotten()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    QCOMPARE(panel.panel.m_forget.interval(), 10000);
    panel.panel.m_forget.setInterval(50);
    panel.Tap({500});
    QTRY_COMPARE(panel.Tempo(), Text("–"));
    QCOMPARE(panel.State().text(), Text("Tap with the beat"));
    panel.Tap();
    QCOMPARE(panel.State().text(), Text("1 tap(s)"));
    QTRY_COMPARE(panel.State().text(), Text("Tap with the beat"));
}

void tst_ManualBeatPanel_lock::lockedTempo_isNotForgotten()
{
    Panel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.m_forget.setInterval(20);
    panel.Tap({500});
    panel.Click("lock");
    // A single tap by mistake, and a long wait.
    panel.Wait(60000);
    panel.Tap();
    QTest::qWait(100);
    QCOMPARE(panel.Tempo(), Text("120.0 BPM"));
    QVERIFY(panel.panel.isLocked());
}

AA_TEST(tst_ManualBeatPanel_lock, InVirtualTime<QApplication>)
#include "tst_ManualBeatPanel_lock.moc"
