// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <QMetaMethod>
#include <QtTest>

#include <fake/FakeAudioState.h>
#include <support/TestClass.h>

namespace {

/// "signal OnX(type) name,name": kind, signature and parameter names.
QByteArray Text(const QMetaMethod& pMethod)
{
    const QByteArray kind = pMethod.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
    return (kind + pMethod.methodSignature() + ' ' + pMethod.parameterNames().join(',')).trimmed();
}

QByteArrayList OwnMethods(const QMetaObject& pMetaObject)
{
    QByteArrayList methods;
    for (int i = pMetaObject.methodOffset(); i < pMetaObject.methodCount(); ++i)
        methods.append(Text(pMetaObject.method(i)));
    return methods;
}

}  // namespace

class tst_AudioMetaObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void device_hasItsMethodsInOrder();
    void device_hasPrivateSlots();
    void manager_hasItsMethodsInOrder();
    void manager_registersTheArgumentTypeLazily();
    void manager_deliversTheDeviceThroughAQueuedConnection();
};

void tst_AudioMetaObjects::device_hasItsMethodsInOrder()
{
    QCOMPARE(OwnMethods(QtAudioInputDevice::staticMetaObject),
             (QByteArrayList{"signal OnAudioSamplesRecorded(qint16*,uint) pAudioSamples,pCount",
                             "signal OnRecordingStarted()",
                             "signal OnRecordingStopped()",
                             "slot _OnAudioSamplesRecorded()",
                             "slot _OnStateChanged(QAudio::State) pState"}));
    QCOMPARE(QByteArray(QtAudioInputDevice::staticMetaObject.className()),
             QByteArray("QtAudioInputDevice"));
    QCOMPARE(QByteArray(QtAudioInputDevice::staticMetaObject.superClass()->className()),
             QByteArray("QObject"));
}

void tst_AudioMetaObjects::device_hasPrivateSlots()
{
    const QMetaObject& metaObject = QtAudioInputDevice::staticMetaObject;
    for (const char* slot : {"_OnAudioSamplesRecorded()", "_OnStateChanged(QAudio::State)"}) {
        const int index = metaObject.indexOfSlot(slot);
        QVERIFY(index >= 0);
        QCOMPARE(metaObject.method(index).access(), QMetaMethod::Private);
    }
}

void tst_AudioMetaObjects::manager_registersTheArgumentTypeLazily()
{
    const QMetaObject& metaObject = QtAudioInputDevicesManager::staticMetaObject;
    QCOMPARE(QMetaType::type("QtAudioInputDeviceInfo"), int(QMetaType::UnknownType));
    const int type = metaObject.method(metaObject.methodOffset()).parameterType(0);
    QVERIFY(type != QMetaType::UnknownType);
    QCOMPARE(QMetaType::type("QtAudioInputDeviceInfo"), type);
}

void tst_AudioMetaObjects::manager_hasItsMethodsInOrder()
{
    QCOMPARE(OwnMethods(QtAudioInputDevicesManager::staticMetaObject),
             (QByteArrayList{"signal OnConnected(QtAudioInputDeviceInfo) pDevice",
                             "signal OnDisconnected(QtAudioInputDeviceInfo) pDevice",
                             "signal OnModified()",
                             "slot OnTimer()"}));
    QCOMPARE(QByteArray(QtAudioInputDevicesManager::staticMetaObject.superClass()->className()),
             QByteArray("QObject"));
}

void tst_AudioMetaObjects::manager_deliversTheDeviceThroughAQueuedConnection()
{
    FakeAudioState::Install();
    QtAudioInputDevicesManager* pManager = QtAudioInputDevicesManager::GetInstance();
    QStringList names;
    const QMetaObject::Connection connection = connect(
        pManager,
        &QtAudioInputDevicesManager::OnConnected,
        this,
        [&](const QtAudioInputDeviceInfo& pDevice) { names << pDevice.getDeviceName(); },
        Qt::QueuedConnection);
    FakeAudioState::Get().Plug(QStringLiteral("Mic"));
    pManager->OnTimer();
    QCOMPARE(names, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(names, QStringList{QStringLiteral("Mic")});
    disconnect(connection);
}

AA_TEST(tst_AudioMetaObjects, QCoreApplication)
#include "tst_AudioMetaObjects.moc"
