// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <desktop/settings/DecimalField.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ManualBeatPanel.h>

#include <QPushButton>
#include <QSignalSpy>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

constexpr std::int64_t kSecond = 1000000;  // µs

/// A panel on a clock of the test, with its signals in one log.
struct HandStand
{
    HandStand()
    {
        using M = ManualBeatPanel;
        const auto log = [this](const QString& pText) { return [=] { told.append(pText); }; };
        QObject::connect(&panel, &M::OnTapped, log(Text("tap")));
        QObject::connect(&panel, &M::OnRounded, log(Text("round")));
        QObject::connect(&panel, &M::OnOneMarked, log(Text("one")));
        QObject::connect(
            &panel,
            &M::OnScaled,
            [this](int pNumerator, int pDenominator) {
                told.append(Text("%1/%2").arg(pNumerator).arg(pDenominator));
            });
        QObject::connect(
            &panel,
            &M::OnHoldChosen,
            [this](bool pIsHeld) { told.append(pIsHeld ? Text("hold") : Text("release")); });
        QObject::connect(&panel, &M::OnOffsetChanged, [this](double pMs) {
            told.append(Text("%1 ms").arg(pMs));
        });
    }

    QPushButton& Button(const char* pName) { return PanelTest::Get<QPushButton>(panel, pName); }
    void Click(const char* pName) { QTest::mouseClick(&Button(pName), Qt::LeftButton); }
    QString Tempo() { return PanelTest::Get<QLabel>(panel, "tempo").text(); }
    QString Charge() { return PanelTest::Get<QLabel>(panel, "charge").text(); }
    QString Enabled()
    {
        QStringList names;
        for (const char* pName : {"half", "double", "round", "one", "lock"})
            if (Button(pName).isEnabled())
                names.append(Text(pName));
        return names.join(QLatin1Char(' '));
    }
    void Show() { panel.setClock(clock.getState(), clock.getState().bpm); }

    Configuration configuration;
    ManualBeatPanel panel{configuration};
    BeatClock clock;
    QStringList told;
};

}  // namespace

/// What the panel shows of the clock, and what its buttons ask for.
class tst_ManualBeatPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void clock_isShown();
    void lock_looksLocked();
    void buttons_areEnabled_whereTheyCanAct_data();
    void buttons_areEnabled_whereTheyCanAct();
    void buttons_tellAtOnce();
    void tap_countsWhenTheButtonGoesDown();
    void lock_showsTheAnswer_notTheClick();
    void offset_isToldAndShown();
    void everything_hasAName();
    void mnemonics_differ();
};

void tst_ManualBeatPanel::clock_isShown()
{
    HandStand stand;
    QCOMPARE(stand.Tempo(), Text("–"));
    QCOMPARE(stand.Charge(), Text("Tap with the beat"));
    for (int beat = 0; beat < 12; ++beat)
        stand.clock.Hear({beat * kSecond / 2, 120.0}, beat * kSecond / 2);
    stand.Show();
    QCOMPARE(stand.Tempo(), Text("120.0 BPM"));
    QCOMPARE(stand.Charge(), Text("The music leads"));
    QVERIFY(stand.clock.Scale(1, 2, 6 * kSecond));
    stand.Show();
    QCOMPARE(stand.Tempo(), Text("60.0 BPM"));
    QCOMPARE(stand.Charge(), Text("The music leads, at 1/2 of its tempo"));
    stand.clock.Tap(7 * kSecond);
    stand.clock.Tap(8 * kSecond);
    stand.Show();
    QCOMPARE(stand.Charge(), Text("The hand leads"));
    QVERIFY(stand.clock.HoldAt(111.0, 9 * kSecond));
    stand.Show();
    QCOMPARE(stand.Tempo(), Text("111.0 BPM"));
    QCOMPARE(stand.Charge(), Text("Held until released"));
}

void tst_ManualBeatPanel::lock_looksLocked()
{
    HandStand stand;
    QVERIFY(stand.clock.HoldAt(128.0, 0));
    stand.Show();
    const QPushButton& lock = stand.Button("lock");
    QVERIFY(lock.isChecked());
    QCOMPARE(lock.text(), Text("Lo&cked (H)"));
    QCOMPARE(lock.palette().color(QPalette::Button),
             QApplication::palette().color(QPalette::Highlight));
    stand.clock.Release(0);
    stand.Show();
    QVERIFY(!lock.isChecked());
    QCOMPARE(lock.text(), Text("Lo&ck (H)"));
    QCOMPARE(lock.palette().color(QPalette::Button),
             QApplication::palette().color(QPalette::Button));
}

void tst_ManualBeatPanel::buttons_areEnabled_whereTheyCanAct_data()
{
    QTest::addColumn<double>("tempo");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("none") << 0.0 << QString();
    QTest::newRow("usual") << 120.0 << Text("half double round one lock");
    QTest::newRow("fast") << 500.0 << Text("half round one lock");
    QTest::newRow("slow") << 19.0 << Text("double round one lock");
}

void tst_ManualBeatPanel::buttons_areEnabled_whereTheyCanAct()
{
    QFETCH(const double, tempo);
    QFETCH(const QString, enabled);
    HandStand stand;
    if (tempo > 0.0)
        QVERIFY(stand.clock.HoldAt(tempo, 0));
    stand.Show();
    QCOMPARE(stand.Enabled(), enabled);
}

void tst_ManualBeatPanel::buttons_tellAtOnce()
{
    HandStand stand;
    QVERIFY(stand.clock.HoldAt(128.0, 0));
    stand.Show();
    for (const char* pButton : {"half", "double", "round", "one", "tap", "lock"})
        stand.Click(pButton);
    QCOMPARE(stand.told.join(QLatin1Char(' ')), Text("1/2 2/1 round one tap release"));
    QVERIFY(!stand.configuration.isModified());
}

void tst_ManualBeatPanel::tap_countsWhenTheButtonGoesDown()
{
    HandStand stand;
    QTest::mousePress(&stand.Button("tap"), Qt::LeftButton);
    QCOMPARE(stand.told, QStringList(Text("tap")));
    QTest::mouseRelease(&stand.Button("tap"), Qt::LeftButton);
    QCOMPARE(stand.told, QStringList(Text("tap")));
}

void tst_ManualBeatPanel::lock_showsTheAnswer_notTheClick()
{
    HandStand stand;
    QVERIFY(stand.clock.HoldAt(128.0, 0));
    stand.clock.Release(0);
    stand.Show();
    // Nobody holds the clock here.
    stand.Click("lock");
    QCOMPARE(stand.told, QStringList(Text("hold")));
    QVERIFY(!stand.Button("lock").isChecked());
}

void tst_ManualBeatPanel::offset_isToldAndShown()
{
    HandStand stand;
    auto& field = PanelTest::Get<DecimalField>(stand.panel, "offset");
    stand.panel.setOffset(-35.0);
    QCOMPARE(field.text(), Text("-35 ms"));
    QCOMPARE(stand.told, QStringList());
    field.stepUp();
    QCOMPARE(stand.told, QStringList(Text("-30 ms")));
    field.setValue(1000.0);
    QCOMPARE(field.value(), 500.0);
}

void tst_ManualBeatPanel::everything_hasAName()
{
    const HandStand stand;
    QCOMPARE(PanelTest::Unnamed(stand.panel), QStringList());
    QCOMPARE(stand.panel.windowTitle(), Text("Manual beat"));
}

void tst_ManualBeatPanel::mnemonics_differ()
{
    const HandStand stand;
    QString letters = PanelTest::Mnemonics(stand.panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("BCLR"));
}

AA_TEST(tst_ManualBeatPanel, QApplication)
#include "tst_ManualBeatPanel.moc"
