// SPDX-License-Identifier: MIT
#include "WatcherBench.h"

#include <QtTest>

#include <support/TestClass.h>

class tst_QtAudioInputDevicesManager_enumerate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void constructor_takesTheFirstListSilently();
    void enumerate_reportsAddedAndRemoved_inOrder();
    void enumerate_reportsTwoAdded_inThePlatformsOrder();
    void enumerate_reportsRemoved_inTheOldOrder();
    void enumerate_reportsAllGone_whenThePlatformIsEmpty();
    void enumerate_isSilent_whenNothingChanged();
    void enumerate_isSilent_whenAskedTo();
    void enumerate_hasReplacedTheList_whenItEmits();
    void enumerate_reportsDuplicates_whenTheNameIsNew();
    void enumerate_ignoresTheOrder_isIntended();
    void enumerate_ignoresTheDefault_isIntended();
    void enumerate_takesTheDefault_whenAnythingElseChanged();
    void enumerate_ignoresLetterCase_isIntended();
    void enumerate_ignoresASecondDeviceOfTheName_isIntended();
    void enumerate_ignoresOneOfTwoGone_isIntended();
    void enumerate_ignoresNamelessDevices();
    void enumerate_survivesBeingCalledFromASlot();
    void onTimer_enumeratesWithSignals();
};

void tst_QtAudioInputDevicesManager_enumerate::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevicesManager_enumerate::constructor_takesTheFirstListSilently()
{
    Boot("a|b");
    QCOMPARE(List(), QByteArray("a*|b"));
    WatcherLog log(&Manager());
    QCoreApplication::processEvents();
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_reportsAddedAndRemoved_inOrder()
{
    const QList<QByteArray> handles = Boot("a|b");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(1));
    Machine().Plug(QStringLiteral("c"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified +c -b"));
    QCOMPARE(List(), QByteArray("a*|c"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_reportsTwoAdded_inThePlatformsOrder()
{
    Boot("m");
    WatcherLog log(&Manager());
    FakeAudioDevice device;
    device.name = QStringLiteral("z");
    Machine().Plug(device, 0);
    Machine().Plug(QStringLiteral("a"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified +z* +a"));
    QCOMPARE(List(), QByteArray("z*|m|a"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_reportsRemoved_inTheOldOrder()
{
    const QList<QByteArray> handles = Boot("z|m|a");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(2));
    Machine().Unplug(handles.at(0));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified -z* -a"));
    QCOMPARE(List(), QByteArray("m*"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_reportsAllGone_whenThePlatformIsEmpty()
{
    Boot("a|b");
    WatcherLog log(&Manager());
    Machine().Clear();
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified -a* -b"));
    QCOMPARE(List(), QByteArray());
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_isSilent_whenNothingChanged()
{
    Boot("a|b");
    WatcherLog log(&Manager());
    Manager().Enumerate(true);
    Manager().Enumerate(false);
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("a*|b"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_isSilent_whenAskedTo()
{
    const QList<QByteArray> handles = Boot("a");
    WatcherLog log(&Manager());
    Machine().Plug(QStringLiteral("b"));
    Machine().Unplug(handles.at(0));
    Manager().Enumerate(false);
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("b*"));
    Manager().Enumerate(true);
    QCOMPARE(log.Take(), QByteArray());
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_hasReplacedTheList_whenItEmits()
{
    Boot("a");
    WatcherLog log(&Manager());
    QByteArrayList lists;
    log.observer = [&] { lists.append(List()); };
    Machine().Plug(QStringLiteral("b"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified +b"));
    QCOMPARE(lists, (QByteArrayList{"a*|b", "a*|b"}));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_reportsDuplicates_whenTheNameIsNew()
{
    const QList<QByteArray> handles = Boot("a|b|b");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(1));
    Machine().Unplug(handles.at(2));
    Machine().Plug(QStringLiteral("c"));
    Machine().Plug(QStringLiteral("c"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified +c +c -b -b"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresTheOrder_isIntended()
{
    const QList<QByteArray> handles = Boot("a|b");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(0));
    Machine().Plug(QStringLiteral("a"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("a*|b"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresTheDefault_isIntended()
{
    Boot("a|b");
    WatcherLog log(&Manager());
    Machine().SetDefault(1);
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("a*|b"));
    Machine().SetDefault(-1);
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("a*|b"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_takesTheDefault_whenAnythingElseChanged()
{
    Boot("a|b");
    WatcherLog log(&Manager());
    Machine().SetDefault(1);
    Machine().Plug(QStringLiteral("c"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified +c"));
    QCOMPARE(List(), QByteArray("a|b*|c"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresLetterCase_isIntended()
{
    const QList<QByteArray> handles = Boot("USB Audio");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(0));
    Machine().Plug(QStringLiteral("usb audio"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("USB Audio*"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresASecondDeviceOfTheName_isIntended()
{
    Boot("USB");
    WatcherLog log(&Manager());
    Machine().Plug(QStringLiteral("usb"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("USB*"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresOneOfTwoGone_isIntended()
{
    const QList<QByteArray> handles = Boot("USB|USB");
    WatcherLog log(&Manager());
    Machine().Unplug(handles.at(1));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("USB*|USB*"));
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_ignoresNamelessDevices()
{
    Boot("a");
    WatcherLog log(&Manager());
    Machine().Plug(QString());
    Machine().Plug(QStringLiteral("  "));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray());
}

void tst_QtAudioInputDevicesManager_enumerate::enumerate_survivesBeingCalledFromASlot()
{
    const QList<QByteArray> handles = Boot("a|b");
    WatcherLog log(&Manager());
    bool isFirst = true;
    log.observer = [&] {
        if (!isFirst)
            return;
        isFirst = false;
        Machine().Plug(QStringLiteral("d"));
        Manager().OnTimer();
    };
    Machine().Unplug(handles.at(1));
    Machine().Plug(QStringLiteral("c"));
    Manager().OnTimer();
    QCOMPARE(log.Take(), QByteArray("modified modified +d +c -b"));
    QCOMPARE(List(), QByteArray("a*|c|d"));
}

void tst_QtAudioInputDevicesManager_enumerate::onTimer_enumeratesWithSignals()
{
    Boot("");
    WatcherLog log(&Manager());
    Machine().Plug(QStringLiteral("a"));
    QVERIFY(QMetaObject::invokeMethod(&Manager(), "OnTimer"));
    QCOMPARE(log.Take(), QByteArray("modified +a*"));
}

AA_TEST(tst_QtAudioInputDevicesManager_enumerate, QCoreApplication)
#include "tst_QtAudioInputDevicesManager_enumerate.moc"
