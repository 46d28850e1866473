// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UISettings.h>

#include "PanelTest.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ManualBeatPanel.h>

namespace {

constexpr quint64 kStart = 1700000000000000;  // µs

QString Text(const char* pText)
{
    return QString::fromUtf8(pText);
}

/// A panel on a clock of the test, with its signals in one log.
struct Panel
{
    Panel()
    {
        QObject::connect(
            &panel, &ManualBeatPanel::OnTapped, [this] { log.append(Text("tap")); });
        QObject::connect(
            &panel,
            &ManualBeatPanel::OnFixedTempoChanged,
            [this](double pBPM) { log.append(QString::number(pBPM, 'f', 1)); });
        QObject::connect(&panel, &SettingsPanel::OnConfigurationChanged, [this] {
            log.append(Text("changed"));
        });
    }

    QPushButton& Button(const char* pName) { return PanelTest::Get<QPushButton>(panel, pName); }
    void Tap()
    {
        QTest::mousePress(&Button("tap"), Qt::LeftButton);
        Release();
    }
    void Release() { QTest::mouseRelease(&Button("tap"), Qt::LeftButton); }
    /// Taps now and after each of the pauses.
    void Tap(const QList<int>& pPausesMs)
    {
        Tap();
        for (const int pause : pPausesMs) {
            Wait(pause);
            Tap();
        }
    }
    void Wait(int pMs) { clock.setTime(clock.getTime() + quint64(pMs) * 1000); }
    void Click(const char* pName) { QTest::mouseClick(&Button(pName), Qt::LeftButton); }
    QString Tempo() { return PanelTest::Get<QLabel>(panel, "tempo").text(); }
    HintLabel& State() { return *static_cast<HintLabel*>(&PanelTest::Get<QLabel>(panel, "state")); }
    QString Enabled()
    {
        QString names;
        for (const char* pName : {"half", "double", "round", "lock"})
            if (Button(pName).isEnabled())
                names += Text(pName) + QLatin1Char(' ');
        return names.trimmed();
    }
    QStringList TakeLog() { return std::exchange(log, {}); }

    Configuration configuration;
    HighResolutionTimerOverride clock{kStart};
    ManualBeatPanel panel{configuration};
    QStringList log;
};

/// What the analysis would measure.
void Measure(AudioAnalyzer& pAnalyzer, double pBPM)
{
    pAnalyzer.m_computedBPM = pBPM;
    Q_EMIT pAnalyzer.OnBPMChanged(pBPM);
}

}  // namespace

class tst_ManualBeatPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void taps_makeATempo();
    void tap_countsWhenTheButtonGoesDown();
    void key_taps();
    void key_doesNotTap_whenItIsHeldOrTyped();
    void key_doesNotTap_whenThePanelIsHidden();
    void staleTaps_areDropped();
    void bounce_isNoTap();
    void tempo_isOnlyShown_withoutLocking();
    void lock_imposesTheTappedTempo();
    void lock_imposesTheMeasuredTempo_withoutTaps();
    void lock_isReleased();
    void lockedTempo_followsTheHand();
    void locking_imposesAtOnce();
    void locking_comesFromTheIniFile_data();
    void locking_comesFromTheIniFile();
    void half_double_round_data();
    void half_double_round();
    void half_beginsWithTheMeasuredTempo();
    void half_beginsTapsAnew();
    void buttons_areEnabled_whereTheyCanAct_data();
    void buttons_areEnabled_whereTheyCanAct();
    void buttons_followTheMeasurement();
    void tempo_outsideTheProfile_isToldWithWhatHolds();
    void profileChange_isShown_onRefresh();
    void otherAnalyzer_getsTheLockedTempo();
    void unlockedTempo_isForgotten();
    void lockedTempo_isNotForgotten();
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

void tst_ManualBeatPanel::tempo_isOnlyShown_withoutLocking()
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

void tst_ManualBeatPanel::lock_imposesTheTappedTempo()
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

void tst_ManualBeatPanel::lock_imposesTheMeasuredTempo_withoutTaps()
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

void tst_ManualBeatPanel::lock_isReleased()
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

void tst_ManualBeatPanel::lockedTempo_followsTheHand()
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

void tst_ManualBeatPanel::locking_imposesAtOnce()
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

void tst_ManualBeatPanel::locking_comesFromTheIniFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("isLocking");
    QTest::newRow("no file") << QByteArray() << false;
    QTest::newRow("no key") << QByteArray("[MainWindow]\nBPM=true\n") << false;
    QTest::newRow("on") << QByteArray("[MainWindow]\nManualBeatLock=true\n") << true;
    QTest::newRow("off") << QByteArray("[MainWindow]\nManualBeatLock=0\n") << false;
}

void tst_ManualBeatPanel::locking_comesFromTheIniFile()
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

void tst_ManualBeatPanel::tempo_outsideTheProfile_isToldWithWhatHolds()
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

void tst_ManualBeatPanel::profileChange_isShown_onRefresh()
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

void tst_ManualBeatPanel::otherAnalyzer_getsTheLockedTempo()
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

void tst_ManualBeatPanel::unlockedTempo_isForgotten()
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

void tst_ManualBeatPanel::lockedTempo_isNotForgotten()
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

QTEST_MAIN(tst_ManualBeatPanel)
#include "tst_ManualBeatPanel.moc"
