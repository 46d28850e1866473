// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/HintLabel.h>
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/settings/InputDevicesPanel.h>

#include <QListView>

#include <apps/desktop/PanelTest.h>
#include <fake/Machine.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

/// A panel with its signals in one log.
struct DevicesPanel
{
    DevicesPanel()
    {
        QObject::connect(
            &panel,
            &InputDevicesPanel::OnDeviceChosen,
            [this](const QString& pName) { log.append(Text("chosen ") + pName); });
        QObject::connect(&panel, &InputDevicesPanel::OnConfigurationChanged, [this] {
            log.append(Text("changed"));
        });
    }

    QListView& List() { return PanelTest::Get<QListView>(panel, "devices"); }
    HintLabel& Status()
    {
        return *static_cast<HintLabel*>(&PanelTest::Get<QLabel>(panel, "status"));
    }
    void Click(const char* pName)
    {
        const QModelIndex index = panel.m_pModel->index(panel.m_pModel->Find(Text(pName)));
        List().scrollTo(index);
        QTest::mouseClick(
            List().viewport(), Qt::LeftButton, Qt::NoModifier, List().visualRect(index).center());
    }
    QString Chosen() { return panel.m_pModel->getChosen(); }
    QString Current() { return List().currentIndex().data().toString(); }

    Configuration configuration;
    InputDevicesPanel panel{configuration};
    QStringList log;
};

}  // namespace

class tst_InputDevicesPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void click_choosesADevice();
    void click_onTheChosenOne_changesNothing();
    void keys_choose_data();
    void keys_choose();
    void arrows_chooseNothing();
    void storedDevice_isShown_whenItIsPresent();
    void currentDevice_isShown_withoutChangingASetting();
    void vanishedDevice_isNamedAbsent_andPresentAgain();
    void status_saysWhatToDo();
    void lookAgain_asksTheMachineNow();
    void watcher_isStarted();
    void focusedList_keepsItsPlace_whenTheRecorderReports();
    void everything_hasAName();
    void mnemonics_differ();
};

void tst_InputDevicesPanel::initTestCase()
{
    PanelTest::Install();
}

void tst_InputDevicesPanel::init()
{
    PanelTest::Clear();
    Machine().Plug(Text("Mixer"));
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
}

void tst_InputDevicesPanel::click_choosesADevice()
{
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.Click("Deck");
    QCOMPARE(panel.log, QStringList({Text("chosen Deck"), Text("changed")}));
    QVERIFY(panel.configuration.isSelected(QtAudioInputDeviceInfo(Text("Deck"), false)));
    QVERIFY(panel.configuration.isModified());
    QCOMPARE(panel.Chosen(), Text("Deck"));
}

void tst_InputDevicesPanel::click_onTheChosenOne_changesNothing()
{
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setCurrentDevice(Text("Deck"), true);
    panel.Click("Deck");
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.configuration.isModified());
}

void tst_InputDevicesPanel::keys_choose_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
}

void tst_InputDevicesPanel::keys_choose()
{
    QFETCH(const int, key);
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setCurrentDevice(Text("Mixer"), true);
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    QTest::keyClick(&panel.List(), Qt::Key(key));
    QCOMPARE(panel.log, QStringList({Text("chosen Deck"), Text("changed")}));
    QCOMPARE(panel.Chosen(), Text("Deck"));
}

void tst_InputDevicesPanel::arrows_chooseNothing()
{
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setCurrentDevice(Text("Mixer"), true);
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    QCOMPARE(panel.Current(), Text("Deck"));
    QCOMPARE(panel.Chosen(), Text("Mixer"));
    QCOMPARE(panel.log, QStringList());
}

void tst_InputDevicesPanel::storedDevice_isShown_whenItIsPresent()
{
    Configuration configuration;
    configuration.setSelectedAudioInputDevice(QtAudioInputDeviceInfo(Text("Deck"), false));
    configuration.setIsModified(false);
    InputDevicesPanel panel(configuration);
    QCOMPARE(panel.m_pModel->getChosen(), Text("Deck"));
    QCOMPARE(panel.m_pList->currentIndex().data().toString(), Text("Deck"));
    QVERIFY(!configuration.isModified());
}

void tst_InputDevicesPanel::currentDevice_isShown_withoutChangingASetting()
{
    DevicesPanel panel;
    panel.panel.setCurrentDevice(Text("Gone"), false);
    QCOMPARE(panel.Chosen(), Text("Gone"));
    QCOMPARE(panel.Current(), Text("Gone (absent)"));
    panel.panel.setCurrentDevice(Text("Gone"), true);
    QCOMPARE(panel.Current(), Text("Gone"));
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.configuration.isModified());
}

void tst_InputDevicesPanel::vanishedDevice_isNamedAbsent_andPresentAgain()
{
    DevicesPanel panel;
    const QByteArray line = Machine().Plug(Text("Line"));
    PanelTest::Poll();
    panel.panel.setCurrentDevice(Text("Line"), true);
    QVERIFY(!panel.Status().isRefusal());
    Machine().Unplug(line);
    PanelTest::Poll();
    QCOMPARE(panel.Current(), Text("Line (absent)"));
    QVERIFY(panel.Status().isRefusal());
    QCOMPARE(panel.Status().text(),
             Text("The chosen input is absent; it is resumed when it returns"));
    Machine().Plug(Text("Line"));
    PanelTest::Poll();
    QCOMPARE(panel.Current(), Text("Line"));
    QVERIFY(!panel.Status().isRefusal());
    QCOMPARE(panel.log, QStringList());
}

void tst_InputDevicesPanel::status_saysWhatToDo()
{
    DevicesPanel panel;
    QCOMPARE(panel.Status().text(), Text("Choose an input"));
    QVERIFY(!panel.Status().isRefusal());
    panel.panel.setCurrentDevice(Text("Deck"), true);
    QCOMPARE(panel.Status().text(), Text("2 input(s)"));
    panel.panel.setCurrentDevice(QString(), false);
    Machine().Clear();
    PanelTest::Poll();
    QCOMPARE(panel.Status().text(), Text("No input found; connect one"));
    QVERIFY(panel.Status().isRefusal());
}

void tst_InputDevicesPanel::lookAgain_asksTheMachineNow()
{
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    Machine().Plug(Text("Line"));
    QCOMPARE(panel.panel.m_pModel->rowCount(), 2);
    PanelTest::Click(panel.panel, "lookAgain");
    QCOMPARE(panel.panel.m_pModel->rowCount(), 3);
}

void tst_InputDevicesPanel::watcher_isStarted()
{
    QtAudioInputDevicesManager* pWatcher = QtAudioInputDevicesManager::GetInstance();
    pWatcher->Stop();
    const DevicesPanel panel;
    QVERIFY(pWatcher->m_pTimer);
}

void tst_InputDevicesPanel::focusedList_keepsItsPlace_whenTheRecorderReports()
{
    DevicesPanel panel;
    QVERIFY(PanelTest::Show(panel.panel));
    panel.panel.setCurrentDevice(Text("Mixer"), true);
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    panel.panel.setCurrentDevice(Text("Mixer"), true);
    QCOMPARE(panel.Current(), Text("Deck"));
}

void tst_InputDevicesPanel::everything_hasAName()
{
    const DevicesPanel panel;
    QCOMPARE(PanelTest::Unnamed(panel.panel), QStringList());
    QCOMPARE(panel.panel.windowTitle(), Text("Audio inputs"));
}

void tst_InputDevicesPanel::mnemonics_differ()
{
    const DevicesPanel panel;
    QCOMPARE(PanelTest::Mnemonics(panel.panel), Text("O"));
}

AA_TEST(tst_InputDevicesPanel, QApplication)
#include "tst_InputDevicesPanel.moc"
