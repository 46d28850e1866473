// SPDX-License-Identifier: MIT
#include "InputDevicesTest.h"
#include <desktop/settings/InputDevicesModel.h>

#include <QAbstractItemModelTester>

#include <apps/desktop/PanelTest.h>
#include <fake/FakeAudioTrack.h>
#include <fake/Machine.h>
#include <support/TestClass.h>
#include <support/Text.h>

/// Which device is chosen, and whether it is there.
class tst_InputDevicesModel_choice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void chosenDevice_staysListed_whenItVanishes();
    void chosenDevice_isPresentAgain_whenItReturns();
    void absentDevice_isListed_whenItIsChosen();
    void absentDevice_isDropped_whenAnotherIsChosen();
    void choice_isByTheExactName();
    void choice_tellsBothRows();
    void chosenPresent_followsTheRecorder();
    void noChoice_hasNoPresence();
};

void tst_InputDevicesModel_choice::initTestCase()
{
    PanelTest::Install();
}

void tst_InputDevicesModel_choice::init()
{
    PanelTest::Clear();
}

void tst_InputDevicesModel_choice::chosenDevice_staysListed_whenItVanishes()
{
    const QByteArray deck = Machine().Plug(Text("Deck"));
    Machine().Plug(Text("Mixer"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Deck"));
    Machine().Unplug(deck);
    PanelTest::Poll();
    QCOMPARE(watched.Texts(), QStringList({Text("Deck (absent)"), Text("Mixer (default)")}));
    QVERIFY(!watched.Is("Deck", InputDevicesModel::ePresentRole));
    QVERIFY(watched.Is("Deck", InputDevicesModel::eChosenRole));
    QCOMPARE(watched.model.getPresentCount(), 1);
}

void tst_InputDevicesModel_choice::chosenDevice_isPresentAgain_whenItReturns()
{
    const QByteArray deck = Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Deck"));
    Machine().Unplug(deck);
    PanelTest::Poll();
    QSignalSpy inserted(&watched.model, &QAbstractItemModel::rowsInserted);
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (default)")));
    QVERIFY(watched.Is("Deck", InputDevicesModel::ePresentRole));
}

void tst_InputDevicesModel_choice::absentDevice_isListed_whenItIsChosen()
{
    Machine().Plug(Text("Mixer"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Gone"));
    QCOMPARE(watched.Texts(), QStringList({Text("Mixer (default)"), Text("Gone (absent)")}));
    QCOMPARE(watched.model.getChosen(), Text("Gone"));
    QCOMPARE(watched.model.getPresentCount(), 1);
}

void tst_InputDevicesModel_choice::absentDevice_isDropped_whenAnotherIsChosen()
{
    Machine().Plug(Text("Mixer"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Gone"));
    watched.model.setChosen(Text("Mixer"));
    QCOMPARE(watched.Texts(), QStringList(Text("Mixer (default)")));
    watched.model.setChosen(QString());
    QCOMPARE(watched.Texts(), QStringList(Text("Mixer (default)")));
    QVERIFY(!watched.Is("Mixer", InputDevicesModel::eChosenRole));
}

void tst_InputDevicesModel_choice::choice_isByTheExactName()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("deck"));
    QCOMPARE(watched.Texts(), QStringList({Text("Deck (default)"), Text("deck (absent)")}));
    QVERIFY(!watched.Is("Deck", InputDevicesModel::eChosenRole));
}

void tst_InputDevicesModel_choice::choice_tellsBothRows()
{
    Machine().Plug(Text("Mixer"));
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Mixer"));
    QSignalSpy changed(&watched.model, &QAbstractItemModel::dataChanged);
    watched.model.setChosen(Text("Deck"));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 0);
    QCOMPARE(changed.at(1).at(0).toModelIndex().row(), 1);
    watched.model.setChosen(Text("Deck"));
    QCOMPARE(changed.count(), 2);
}

void tst_InputDevicesModel_choice::chosenPresent_followsTheRecorder()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Deck"));
    QSignalSpy changed(&watched.model, &QAbstractItemModel::dataChanged);
    watched.model.setChosenPresent(false);
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (absent, default)")));
    watched.model.setChosenPresent(false);
    watched.model.setChosenPresent(true);
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (default)")));
    QCOMPARE(changed.count(), 2);
}

void tst_InputDevicesModel_choice::noChoice_hasNoPresence()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosenPresent(false);
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (default)")));
}

AA_TEST(tst_InputDevicesModel_choice, QApplication)
#include "tst_InputDevicesModel_choice.moc"
