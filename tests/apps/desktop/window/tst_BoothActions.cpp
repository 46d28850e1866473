// SPDX-License-Identifier: MIT
#include <desktop/settings/ProfilesPanel.h>
#include <desktop/stage/KeysPage.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/SettingsColumn.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>

#include <apps/desktop/window/WindowTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

namespace {

int KeyOf(eBoothAction pAction)
{
    return BoothKeys::getSequence(BoothKeys::getTable()[pAction])[0] & ~Qt::SHIFT;
}

/// A window with a clock that runs at 128 BPM.
struct BoothStand : Stand
{
    BoothStand()
    {
        session.getHand().HoldAt(128.0);
        session.getHand().Release();
        session.getHand().HoldAt(128.0);
        if (!PanelTest::Show(window))
            qFatal("the window is not active");
    }

    double getTempo() { return session.getBeats().getClock().getState().bpm; }
};

}  // namespace

/// The keys of an operator, in every window and whatever has the focus.
class tst_BoothActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
    }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void keys_differ();
    void keys_doWhatTheySay();
    void keys_workOnTheStage();
    void key_isNotLost_data();
    void key_isNotLost();
    void field_keepsWhatItCanUse();
    void field_letsGo();
    void enter_pressesWhatHasTheFocus();
    void digits_chooseProfiles();
    void outputs_areSwitched();
    void everyAction_isInAMenu();
    void everyAction_isInTheDocuments();
    void stage_comesAndGoes();
};

void tst_BoothActions::keys_differ()
{
    QSet<QString> keys;
    for (const BoothKeys::Key& key : BoothKeys::getTable()) {
        QVERIFY2(!BoothKeys::getSequence(key).isEmpty(), key.pName);
        keys.insert(BoothKeys::getSequence(key).toString());
    }
    QCOMPARE(keys.size(), int(eBoothActionCount));
}

void tst_BoothActions::keys_doWhatTheySay()
{
    BoothStand stand;
    const auto press = [&](eBoothAction pAction) {
        QTest::keyClick(&stand.window, Qt::Key(KeyOf(pAction)));
    };
    press(eHalfAction);
    QCOMPARE(stand.getTempo(), 64.0);
    press(eDoubleAction);
    QCOMPARE(stand.getTempo(), 128.0);
    stand.session.getHand().HoldAt(127.6);
    press(eRoundAction);
    QCOMPARE(stand.getTempo(), 128.0);
    QVERIFY(stand.session.getHand().isHeld());
    press(eHoldAction);
    QVERIFY(!stand.session.getHand().isHeld());
    stand.session.getHand().HoldAt(120.0);
    QTest::qWait(700);
    const auto state = [&] { return stand.session.getBeats().getClock().getState(); };
    press(eOneAction);
    const std::int64_t now = shared::ClockThread::getTime();
    QCOMPARE(state().getBeatInBar(std::llround(state().getPosition(now))), 0);
    const std::int64_t due = state().getTickTime(state().getBeat(now) + 8);
    press(eLaterAction);
    QCOMPARE(state().getTickTime(state().getBeat(now) + 8), due + 10000);
    press(eEarlierAction);
    QCOMPARE(state().getTickTime(state().getBeat(now) + 8), due);
    for (int tap = 0; tap < 4; ++tap, QTest::qWait(600))
        press(eTapAction);
    QVERIFY(std::abs(stand.getTempo() - 100.0) < 0.1);
    press(eSearchAction);
    QVERIFY(!state().isRunning());
}

void tst_BoothActions::keys_workOnTheStage()
{
    BoothStand stand;
    stand.window.TurnStage();
    // What a window manager does.
    QApplication::setActiveWindow(&stand.window.getStage());
    QTest::keyClick(&stand.window.getStage(), Qt::Key_Down);
    QCOMPARE(stand.getTempo(), 64.0);
    QTest::keyClick(&stand.window.getStage(), Qt::Key_Question);
    QVERIFY(stand.window.m_pStageKeys->isVisible());
    QTest::keyClick(stand.window.m_pStageKeys, Qt::Key_Up);
    QCOMPARE(stand.getTempo(), 128.0);
    QTest::keyClick(&stand.window.getStage(), Qt::Key_Escape);
    QVERIFY(!stand.window.m_pStageKeys->isVisible());
    QVERIFY(stand.window.getStage().isVisible());
    QTest::keyClick(&stand.window.getStage(), Qt::Key_Escape);
    QVERIFY(!stand.window.getStage().isVisible());
}

void tst_BoothActions::key_isNotLost_data()
{
    QTest::addColumn<QString>("focus");
    QTest::newRow("list of inputs") << QStringLiteral("devices");
    QTest::newRow("list of profiles") << QStringLiteral("profiles");
    QTest::newRow("button") << QStringLiteral("tap");
    QTest::newRow("box") << QStringLiteral("gray-mode");
    QTest::newRow("choice of the language") << QStringLiteral("language");
}

void tst_BoothActions::key_isNotLost()
{
    QFETCH(const QString, focus);
    Machine().Plug(desktoptest::SilentDevice("Tape"));
    Machine().Plug(desktoptest::SilentDevice("Yard"));
    PanelTest::Poll();
    BoothStand stand;
    auto* pFocus = stand.window.findChild<QWidget*>(focus);
    QVERIFY(pFocus);
    for (int i = 0; i < eBoothActionCount; ++i) {
        if (i == eProfileAction || i == eStageAction || i == eKeysAction)
            continue;
        pFocus->setFocus();
        QVERIFY(pFocus->hasFocus());
        QSignalSpy triggered(&stand.window.getActions().get(eBoothAction(i)), &QAction::triggered);
        QTest::keyClick(pFocus, Qt::Key(KeyOf(eBoothAction(i))));
        QVERIFY2(triggered.count() == 1, BoothKeys::getTable()[std::size_t(i)].pName);
    }
}

void tst_BoothActions::field_keepsWhatItCanUse()
{
    BoothStand stand;
    auto& offset = PanelTest::Get<QDoubleSpinBox>(stand.window.getSettings(), "offset");
    offset.setFocus();
    offset.selectAll();
    QTest::keyClick(&offset, Qt::Key_4);
    QTest::keyClick(&offset, Qt::Key_0);
    QTest::keyClick(&offset, Qt::Key_Up);
    QCOMPARE(stand.session.getOffset(), 45.0);
    QCOMPARE(stand.getTempo(), 128.0);
    // Letters and the space bar mean nothing to a number.
    QTest::keyClick(&offset, Qt::Key_H);
    QVERIFY(!stand.session.getHand().isHeld());
    QSignalSpy ones(&stand.window.getActions().get(eOneAction), &QAction::triggered);
    QTest::keyClick(&offset, Qt::Key_Space);
    QCOMPARE(ones.count(), 1);
    QLineEdit text(&stand.window);
    text.show();
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("ht 1"));
    QCOMPARE(text.text(), QStringLiteral("ht 1"));
    QCOMPARE(ones.count(), 1);
}

void tst_BoothActions::field_letsGo()
{
    BoothStand stand;
    auto& offset = PanelTest::Get<QDoubleSpinBox>(stand.window.getSettings(), "offset");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        offset.setFocus();
        QTest::keyClick(&offset, key);
        QCoreApplication::processEvents();
        QVERIFY(!offset.hasFocus());
    }
    offset.setFocus();
    QTest::keyClick(&offset, Qt::Key_5);
    QTest::qWait(BoothActions::kFieldMs * 9 / 10);
    QVERIFY(offset.hasFocus());
    QTest::qWait(BoothActions::kFieldMs * 2 / 10);
    QVERIFY(!offset.hasFocus());
    QTest::keyClick(&stand.window, Qt::Key_Down);
    QCOMPARE(stand.getTempo(), 64.0);
}

void tst_BoothActions::enter_pressesWhatHasTheFocus()
{
    BoothStand stand;
    auto& gray = PanelTest::Get<QCheckBox>(stand.window.getSettings(), "gray-mode");
    const bool wasGray = gray.isChecked();
    gray.setFocus();
    QTest::keyClick(&gray, Qt::Key_Return);
    QCOMPARE(gray.isChecked(), !wasGray);
    // The space bar is the one, and nothing else.
    QTest::keyClick(&gray, Qt::Key_Space);
    QCOMPARE(gray.isChecked(), !wasGray);
}

void tst_BoothActions::digits_chooseProfiles()
{
    BoothStand stand;
    Configuration& configuration = stand.session.getConfiguration();
    const QList<Profile> profiles = configuration.getProfiles();
    QCOMPARE(profiles.size(), 3);
    QVERIFY(stand.session.isAutomatic());
    for (int row = 2; row >= 0; --row) {
        QTest::keyClick(&stand.window, Qt::Key(Qt::Key_1 + row));
        QCOMPARE(configuration.getSelectedProfile().getName(), profiles[row].getName());
        QVERIFY(!stand.session.isAutomatic());
    }
    QTest::keyClick(&stand.window, Qt::Key_4);
    QCOMPARE(configuration.getSelectedProfile().getName(), profiles[0].getName());
    QTest::keyClick(&stand.window, Qt::Key_0);
    QVERIFY(stand.session.isAutomatic());
    // The one that was in force before.
    QTest::keyClick(&stand.window, Qt::Key_1);
    QVERIFY(!stand.session.isAutomatic());
}

void tst_BoothActions::outputs_areSwitched()
{
    BoothStand stand;
    const QAction& action = stand.window.getActions().get(eOutputsAction);
    QVERIFY(!action.isChecked());
    stand.window.BeginOutputs();
    QVERIFY(stand.session.getOutputs().isOn());
    QVERIFY(action.isChecked());
    QTest::keyClick(&stand.window, Qt::Key_O);
    QVERIFY(!stand.session.getOutputs().isOn());
    QVERIFY(!action.isChecked());
    QTest::keyClick(&stand.window, Qt::Key_O);
    QVERIFY(stand.session.getOutputs().isOn());
}

void tst_BoothActions::everyAction_isInAMenu()
{
    Stand stand;
    QList<QAction*> actions;
    const auto menus = stand.window.menuBar()->findChildren<QMenu*>();
    for (const QMenu* pMenu : menus)
        actions += pMenu->actions();
    for (int i = 0; i < eBoothActionCount; ++i)
        if (i != eProfileAction)
            QVERIFY2(actions.contains(&stand.window.getActions().get(eBoothAction(i))),
                     BoothKeys::getTable()[std::size_t(i)].pName);
}

void tst_BoothActions::everyAction_isInTheDocuments()
{
    QFile page(QStringLiteral(PROJECT_FOLDER "/docs/beat-monitor.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    for (const BoothKeys::Key& key : BoothKeys::getTable()) {
        const QString row = QStringLiteral("| %1 | %2 |")
                                .arg(BoothKeys::getName(key), BoothKeys::getPlainText(key));
        QVERIFY2(text.contains(row), qPrintable(row));
    }
}

void tst_BoothActions::stage_comesAndGoes()
{
    BoothStand stand;
    QTest::keyClick(&stand.window, Qt::Key_F11);
    QVERIFY(stand.window.getStage().isVisible());
    QVERIFY(stand.window.getStage().isFullScreen());
    QVERIFY(stand.window.isRefreshing());
    // There is one screen only.
    QTest::keyClick(&stand.window.getStage(), Qt::Key_F11);
    QVERIFY(!stand.window.getStage().isVisible());
    QTest::mouseDClick(stand.window.m_pBpm, Qt::LeftButton);
    QVERIFY(stand.window.getStage().isVisible());
    // The beat is seen while only the stage is.
    stand.window.hide();
    QVERIFY(stand.window.isRefreshing());
    QTRY_VERIFY(stand.window.getStage().getGround().lightness() > 40);
    stand.window.LeaveStage();
    QVERIFY(!stand.window.isRefreshing());
}

AA_TEST(tst_BoothActions, InVirtualTime<QApplication>)
#include "tst_BoothActions.moc"
