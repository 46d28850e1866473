// SPDX-License-Identifier: MIT
#include "InputDevicesTest.h"
#include <desktop/settings/InputDevicesModel.h>

#include <QAbstractItemModelTester>

#include <apps/desktop/PanelTest.h>
#include <fake/FakeAudioTrack.h>
#include <fake/Machine.h>
#include <support/TestClass.h>
#include <support/Text.h>

class tst_InputDevicesModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void list_isThatOfTheMachine();
    void list_hasEachNameOnce();
    void list_isEmpty_withoutDevices();
    void monitor_isMarked_data();
    void monitor_isMarked();
    void device_isDescribed_whereTheServerDoes();
    void roles_tellNameAndMarks();
    void newDevice_isListed_whenTheWatcherSeesIt();
    void goneDevice_isDropped();
    void goneDefault_leavesItsMarkToAnother();
    void defaultMark_isTheWatchers();
    void list_takesAManyChanges();
    void data_isEmpty_whereThereIsNone();
    void retranslate_tellsEveryRow();
    void default_standsFirst_withASoundServer();
};

void tst_InputDevicesModel::initTestCase()
{
    PanelTest::Install();
}

void tst_InputDevicesModel::init()
{
    PanelTest::Clear();
}

void tst_InputDevicesModel::list_isThatOfTheMachine()
{
    Machine().Plug(Text("Mixer"));
    Machine().Plug(Text(" Deck "));
    PanelTest::Poll();
    const WatchedDevices watched;
    QCOMPARE(watched.Texts(), QStringList({Text("Mixer (default)"), Text("Deck")}));
    QCOMPARE(watched.model.getPresentCount(), 2);
    QCOMPARE(watched.model.Find(Text("Deck")), 1);
    QCOMPARE(watched.model.Find(Text("deck")), -1);
    QCOMPARE(watched.model.getChosen(), QString());
}

void tst_InputDevicesModel::list_hasEachNameOnce()
{
    Machine().Plug(Text("Deck"));
    Machine().Plug(Text("deck"));
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    const WatchedDevices watched;
    QCOMPARE(watched.Texts(), QStringList({Text("Deck (default)"), Text("deck")}));
}

void tst_InputDevicesModel::list_isEmpty_withoutDevices()
{
    const WatchedDevices watched;
    QCOMPARE(watched.model.rowCount(), 0);
    QCOMPARE(watched.model.getPresentCount(), 0);
}

void tst_InputDevicesModel::monitor_isMarked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isMonitor");
    QTest::newRow("server name") << Text("alsa_output.pci.analog-stereo.monitor") << true;
    QTest::newRow("description") << Text("Monitor of Speakers") << true;
    QTest::newRow("input") << Text("alsa_input.pci.analog-stereo") << false;
    QTest::newRow("word inside") << Text("Studio monitor input") << false;
}

void tst_InputDevicesModel::monitor_isMarked()
{
    QFETCH(const QString, name);
    QFETCH(const bool, isMonitor);
    Machine().Plug(name);
    Machine().SetDefault(-1);
    PanelTest::Poll();
    const WatchedDevices watched;
    const QModelIndex index = watched.model.index(0);
    QCOMPARE(index.data(InputDevicesModel::eMonitorRole).toBool(), isMonitor);
    QCOMPARE(index.data().toString(), isMonitor ? name + Text(" (monitor)") : name);
    const QString help = Text("%1: records what this computer plays").arg(name);
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), isMonitor ? help : name);
}

void tst_InputDevicesModel::device_isDescribed_whereTheServerDoes()
{
    AnsweringBackEnd server;
    for (const char* pName : {"alsa.usb", "alsa.line", "alsa.line.2", "nameless", "alsa.out"})
        Machine().Plug(
            FakeAudioTrack::FromGenerator(Text(pName), 48000, [](qint64) { return qint16(0); }));
    PanelTest::Poll();
    server.sources = {{Text("alsa.usb"), Text("Mixer USB"), 2, 48000, false, false},
                      {Text("alsa.line"), Text("Line in"), 2, 48000, false, false},
                      {Text("alsa.line.2"), Text("Line in"), 2, 48000, false, false},
                      {Text("nameless"), QString(), 2, 48000, false, false},
                      {Text("alsa.out"), Text("Monitor of Speakers"), 2, 48000, true, false}};
    const WatchedDevices devices;
    const QStringList texts = devices.Texts();
    QVERIFY(texts.contains(Text("Line in, alsa.line")));
    QVERIFY(texts.contains(Text("Line in, alsa.line.2")));
    QVERIFY(texts.contains(Text("nameless")));
    QVERIFY(texts.contains(Text("Monitor of Speakers (monitor)")));
    // Chosen and opened by their names all the same.
    QVERIFY(devices.model.Find(Text("alsa.usb")) >= 0);
    QVERIFY(devices.Is("alsa.out", InputDevicesModel::eMonitorRole));
    const QModelIndex usb = devices.model.index(devices.model.Find(Text("alsa.usb")));
    QVERIFY(usb.data().toString().startsWith(Text("Mixer USB")));
    QCOMPARE(usb.data(Qt::ToolTipRole).toString(), Text("alsa.usb"));
}

void tst_InputDevicesModel::roles_tellNameAndMarks()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Deck"));
    const QModelIndex index = watched.model.index(0);
    QCOMPARE(index.data(InputDevicesModel::eNameRole).toString(), Text("Deck"));
    QVERIFY(index.data(InputDevicesModel::eDefaultRole).toBool());
    QVERIFY(index.data(InputDevicesModel::ePresentRole).toBool());
    QVERIFY(index.data(InputDevicesModel::eChosenRole).toBool());
    const QHash<int, QByteArray> names = watched.model.roleNames();
    QCOMPARE(names.value(InputDevicesModel::eNameRole), QByteArray("name"));
    QCOMPARE(names.value(InputDevicesModel::eDefaultRole), QByteArray("isDefault"));
    QCOMPARE(names.value(InputDevicesModel::eMonitorRole), QByteArray("isMonitor"));
    QCOMPARE(names.value(InputDevicesModel::ePresentRole), QByteArray("isPresent"));
    QCOMPARE(names.value(InputDevicesModel::eChosenRole), QByteArray("isChosen"));
}

void tst_InputDevicesModel::newDevice_isListed_whenTheWatcherSeesIt()
{
    WatchedDevices watched;
    QSignalSpy inserted(&watched.model, &QAbstractItemModel::rowsInserted);
    Machine().Plug(Text("Deck"));
    QCOMPARE(inserted.count(), 0);
    PanelTest::Poll();
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.at(0).at(1).toInt(), 0);
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (default)")));
}

void tst_InputDevicesModel::goneDevice_isDropped()
{
    Machine().Plug(Text("Mixer"));
    const QByteArray deck = Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    WatchedDevices watched;
    QSignalSpy removed(&watched.model, &QAbstractItemModel::rowsRemoved);
    Machine().Unplug(deck);
    PanelTest::Poll();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(1).toInt(), 1);
    QCOMPARE(watched.Texts(), QStringList(Text("Mixer (default)")));
}

void tst_InputDevicesModel::goneDefault_leavesItsMarkToAnother()
{
    const QByteArray mixer = Machine().Plug(Text("Mixer"));
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    const WatchedDevices watched;
    Machine().Unplug(mixer);
    PanelTest::Poll();
    QCOMPARE(watched.Texts(), QStringList(Text("Deck (default)")));
}

void tst_InputDevicesModel::defaultMark_isTheWatchers()
{
    Machine().Plug(Text("Mixer"));
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    const WatchedDevices watched;
    // Another default alone is no change to the watcher; with a change it is.
    Machine().SetDefault(1);
    PanelTest::Poll();
    QVERIFY(watched.Is("Mixer", InputDevicesModel::eDefaultRole));
    Machine().Plug(Text("Line"));
    PanelTest::Poll();
    QCOMPARE(watched.Texts(), QStringList({Text("Mixer"), Text("Deck (default)"), Text("Line")}));
}

void tst_InputDevicesModel::list_takesAManyChanges()
{
    QList<QByteArray> handles;
    for (int i = 0; i < 20; ++i)
        handles.append(Machine().Plug(Text("Input %1").arg(i)));
    PanelTest::Poll();
    WatchedDevices watched;
    watched.model.setChosen(Text("Input 7"));
    for (int i = 0; i < 20; i += 2)
        Machine().Unplug(handles.at(i));
    Machine().Plug(Text("Late"));
    PanelTest::Poll();
    QCOMPARE(watched.model.rowCount(), 11);
    for (int i = 1; i < 20; i += 2)
        Machine().Unplug(handles.at(i));
    PanelTest::Poll();
    QCOMPARE(watched.Texts(), QStringList({Text("Input 7 (absent)"), Text("Late (default)")}));
}

void tst_InputDevicesModel::data_isEmpty_whereThereIsNone()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    const WatchedDevices watched;
    QVERIFY(!watched.model.data(QModelIndex(), Qt::DisplayRole).isValid());
    QVERIFY(!watched.model.index(1).isValid());
    QVERIFY(!watched.model.index(0).data(Qt::DecorationRole).isValid());
    QCOMPARE(watched.model.rowCount(watched.model.index(0)), 0);
}

void tst_InputDevicesModel::retranslate_tellsEveryRow()
{
    Machine().Plug(Text("Deck"));
    Machine().Plug(Text("Mixer"));
    PanelTest::Poll();
    WatchedDevices watched;
    QSignalSpy changed(&watched.model, &QAbstractItemModel::dataChanged);
    watched.model.Retranslate();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 0);
    QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 1);
}

void tst_InputDevicesModel::default_standsFirst_withASoundServer()
{
    Machine().Plug(Text("Mic"));
    const AnsweringBackEnd backEnd;
    WatchedDevices devices;
    QCOMPARE(devices.Texts().first(), Text("The system's default, whichever it is"));
    QCOMPARE(devices.model.rowCount(), 2);
    QCOMPARE(devices.model.getPresentCount(), 1);
    devices.model.setChosen(kDefaultInput);
    devices.model.setChosenPresent(false);
    QVERIFY(devices.Is("default", InputDevicesModel::eChosenRole));
    // It stays when another is chosen.
    devices.model.setChosen(Text("Mic"));
    QCOMPARE(devices.model.rowCount(), 2);
}

AA_TEST(tst_InputDevicesModel, QApplication)
#include "tst_InputDevicesModel.moc"
