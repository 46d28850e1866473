// SPDX-License-Identifier: MIT
#include "FieldOrder.h"
#include "WatcherBench.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include <cstdint>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

class tst_QtAudioInputDevicesManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void getInstance_givesTheSameManager();
    void getInstance_makesManagerAndCountersInOneAllocation();
    void getInstance_hasNoParentAndDoesNotPoll();
    void manager_hasItsFieldsInOrder();
    void getAudioInputDevice_findsTheExactName();
    void getAudioInputDevice_givesTheFirstOfTwo();
    void getAudioInputDevice_givesNull_whenNameDiffers_isIntended_data();
    void getAudioInputDevice_givesNull_whenNameDiffers_isIntended();
    void getAudioInputDevice_pointsIntoTheList();
    void start_makesARepeatingTimerOf2000Ms();
    void start_changesNothing_whenPolling();
    void stop_deletesTheTimerAtOnce();
    void stop_changesNothing_whenIdle();
    void restart_makesANewTimer_andKeepsTheList();
    void destructor_endsThePolling();
    void stop_worksInASlotOfTheTimer();
    void timer_reportsAChange_withinItsPeriod();
    void idleManager_noticesNothing();
    void cleanupTestCase();
};

void tst_QtAudioInputDevicesManager::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevicesManager::getInstance_givesTheSameManager()
{
    Boot("");
    const QtAudioInputDevicesManager* pFirst = QtAudioInputDevicesManager::GetInstance();
    QVERIFY(pFirst);
    QCOMPARE(
        static_cast<const QtAudioInputDevicesManager*>(QtAudioInputDevicesManager::GetInstance()),
        pFirst);
    QCOMPARE(static_cast<const QtAudioInputDevicesManager*>(
                 QtAudioInputDevicesManager::s_instance.data()),
             pFirst);
}

void tst_QtAudioInputDevicesManager::getInstance_makesManagerAndCountersInOneAllocation()
{
    Boot("");
    const auto counters =
        reinterpret_cast<std::uintptr_t>(QtAudioInputDevicesManager::s_instance.d);
    const auto object = reinterpret_cast<std::uintptr_t>(&Manager());
    QVERIFY(object > counters && object - counters < 64);
    QCOMPARE(QtAudioInputDevicesManager::s_instance.d->strongref.loadRelaxed(), 1);
}

void tst_QtAudioInputDevicesManager::getInstance_hasNoParentAndDoesNotPoll()
{
    Boot("Mic");
    QCOMPARE(Manager().parent(), static_cast<QObject*>(nullptr));
    QCOMPARE(Manager().m_pTimer, static_cast<QTimer*>(nullptr));
    QVERIFY(Manager().children().isEmpty());
}

void tst_QtAudioInputDevicesManager::manager_hasItsFieldsInOrder()
{
    Boot("");
    QVERIFY(AreInOrder(Manager().m_devices, Manager().m_pTimer));
}

void tst_QtAudioInputDevicesManager::getAudioInputDevice_findsTheExactName()
{
    Boot(" a |b");
    const QtAudioInputDeviceInfo* pDevice = Manager().GetAudioInputDevice(QStringLiteral("a"));
    QVERIFY(pDevice);
    QCOMPARE(pDevice->getDeviceName(), QStringLiteral("a"));
    QVERIFY(pDevice->isDefault());
}

void tst_QtAudioInputDevicesManager::getAudioInputDevice_givesTheFirstOfTwo()
{
    Boot("a|USB|USB");
    QCOMPARE(static_cast<const QtAudioInputDeviceInfo*>(
                 Manager().GetAudioInputDevice(QStringLiteral("USB"))),
             &qAsConst(Manager().m_devices).at(1));
}

void tst_QtAudioInputDevicesManager::getAudioInputDevice_givesNull_whenNameDiffers_isIntended_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("letter case") << QStringLiteral("usb audio");
    QTest::newRow("blanks") << QStringLiteral(" USB Audio");
    QTest::newRow("unknown") << QStringLiteral("Mic");
    QTest::newRow("empty") << QString();
}

void tst_QtAudioInputDevicesManager::getAudioInputDevice_givesNull_whenNameDiffers_isIntended()
{
    QFETCH(QString, name);
    Boot("USB Audio");
    QCOMPARE(Manager().GetAudioInputDevice(name), static_cast<QtAudioInputDeviceInfo*>(nullptr));
}

void tst_QtAudioInputDevicesManager::getAudioInputDevice_pointsIntoTheList()
{
    Boot("a");
    const QtAudioInputDeviceInfo* pDevice = Manager().GetAudioInputDevice(QStringLiteral("a"));
    QCOMPARE(pDevice, &qAsConst(Manager().m_devices).at(0));
    Manager().Enumerate(true);  // no change: the list and the pointer stay
    QCOMPARE(pDevice, &qAsConst(Manager().m_devices).at(0));
}

void tst_QtAudioInputDevicesManager::start_makesARepeatingTimerOf2000Ms()
{
    Boot("");
    QVERIFY(Manager().Start());
    const QTimer* pTimer = Manager().m_pTimer;
    QVERIFY(pTimer);
    QCOMPARE(pTimer->parent(), static_cast<QObject*>(&Manager()));
    QCOMPARE(pTimer->interval(), 2000);
    QVERIFY(pTimer->isActive());
    QVERIFY(!pTimer->isSingleShot());
}

void tst_QtAudioInputDevicesManager::start_changesNothing_whenPolling()
{
    Boot("");
    QVERIFY(Manager().Start());
    const QTimer* pTimer = Manager().m_pTimer;
    QVERIFY(Manager().Start());
    QCOMPARE(static_cast<const QTimer*>(Manager().m_pTimer), pTimer);
    QCOMPARE(Manager().children().size(), 1);
}

void tst_QtAudioInputDevicesManager::stop_deletesTheTimerAtOnce()
{
    Boot("");
    QVERIFY(Manager().Start());
    const QPointer<QTimer> pTimer(Manager().m_pTimer);
    QVERIFY(Manager().Stop());
    QVERIFY(!pTimer);
    QCOMPARE(Manager().m_pTimer, static_cast<QTimer*>(nullptr));
}

void tst_QtAudioInputDevicesManager::stop_changesNothing_whenIdle()
{
    Boot("a");
    QVERIFY(Manager().Stop());
    QVERIFY(Manager().Start());
    QVERIFY(Manager().Stop());
    QVERIFY(Manager().Stop());
    QCOMPARE(List(), QByteArray("a*"));
}

void tst_QtAudioInputDevicesManager::restart_makesANewTimer_andKeepsTheList()
{
    Boot("a");
    WatcherLog log(&Manager());
    QVERIFY(Manager().Start());
    QVERIFY(Manager().Stop());
    Machine().Plug(QStringLiteral("b"));
    QVERIFY(Manager().Start());
    QVERIFY(Manager().m_pTimer->isActive());
    QCOMPARE(List(), QByteArray("a*"));
    QCOMPARE(log.Take(), QByteArray());
    QVERIFY(QMetaObject::invokeMethod(Manager().m_pTimer, "timeout", Qt::DirectConnection));
    QCOMPARE(log.Take(), QByteArray("modified +b"));
}

void tst_QtAudioInputDevicesManager::destructor_endsThePolling()
{
    Boot("");
    QVERIFY(Manager().Start());
    const QPointer<QTimer> pTimer(Manager().m_pTimer);
    QtAudioInputDevicesManager::s_instance.reset();
    QVERIFY(!pTimer);
}

void tst_QtAudioInputDevicesManager::stop_worksInASlotOfTheTimer()
{
    Boot("");
    WatcherLog log(&Manager());
    log.observer = [] { QVERIFY(Manager().Stop()); };
    QVERIFY(Manager().Start());
    Manager().m_pTimer->setInterval(0);
    Machine().Plug(QStringLiteral("a"));
    QTRY_COMPARE(Manager().m_pTimer, static_cast<QTimer*>(nullptr));
    QCOMPARE(log.Take(), QByteArray("modified +a*"));
}

void tst_QtAudioInputDevicesManager::timer_reportsAChange_withinItsPeriod()
{
    Boot("a");
    WatcherLog log(&Manager());
    QElapsedTimer clock;
    qint64 elapsed = 0;
    log.observer = [&] { elapsed = clock.elapsed(); };
    clock.start();
    QVERIFY(Manager().Start());
    Machine().Plug(QStringLiteral("b"));
    QTRY_VERIFY_WITH_TIMEOUT(elapsed != 0, 5000);
    QCOMPARE(log.Take(), QByteArray("modified +b"));
    // A coarse timer may be 5% early, and is moved to a tick that it shares with others.
    QVERIFY2(elapsed >= 1800, QByteArray::number(elapsed).constData());
    QVERIFY(Manager().Stop());
}

void tst_QtAudioInputDevicesManager::idleManager_noticesNothing()
{
    Boot("a");
    WatcherLog log(&Manager());
    Machine().Plug(QStringLiteral("b"));
    QTest::qWait(2200);
    QCOMPARE(log.Take(), QByteArray());
    QCOMPARE(List(), QByteArray("a*"));
}

void tst_QtAudioInputDevicesManager::cleanupTestCase()
{
    // Left polling: the manager then outlives the application, and ends with the process.
    Boot("a");
    QVERIFY(Manager().Start());
}

AA_TEST(tst_QtAudioInputDevicesManager, InVirtualTime<QCoreApplication>)
#include "tst_QtAudioInputDevicesManager.moc"
