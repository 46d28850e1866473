// SPDX-License-Identifier: MIT
#include "Capture.h"

#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>
#include <stdexcept>
#include <support/TestClass.h>
#include <support/Text.h>
#include <support/VirtualTime.h>

namespace {

FakeAudioDevice Vanishing(eVanishing pVanishing)
{
    FakeAudioDevice device;
    device.vanishing = pVanishing;
    return device;
}

/// Runs pAction once, on the first record of that name.
void OnFirst(Capture& pCapture, const char* pRecord, const std::function<void()>& pAction)
{
    pCapture.pLog->observer = [&pCapture, pRecord, pAction](const QString& pSeen) {
        if (pSeen != QLatin1String(pRecord))
            return;
        pCapture.pLog->observer = nullptr;
        pAction();
    };
}

}  // namespace

class tst_QtAudioInputDevice_lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void destructor_stopsTheRecording();
    void destructor_processesNoEvents();
    void destructor_destroysTheCaptureObject();
    void stop_processesPendingEventsOnce();
    void stop_emitsTwice_whenStoppedByItsPendingEvents();
    void stop_emitsOnce_whenDeletedByItsPendingEvents();
    void pendingStop_isDone_whenTheBackEndStops();
    void deviceIsDeleted_inASlot_data();
    void deviceIsDeleted_inASlot();
    void deviceIsDeleted_inTheStoppedSlotOfAStop();
    void deviceIsDeleted_inTheStoppedSlotOfASpontaneousStop();
    void captureObject_outlivesItsSignal_whenTheDeviceIsDeletedInASlot();
    void deviceIsStopped_inTheSamplesSlot();
    void deviceIsStopped_inTheStartedSlot();
    void deviceIsStopped_inTheStoppedSlot();
    void exceptionOfAListener_isNotSwallowed();
    void vanishing_isUnnoticed_whenSilent();
    void vanishing_stopsTheRecording_whenSignalled();
    void vanishing_stopsTheRecording_whenTheStreamIsDeletedFirst();
    void streamDeletedByTheBackEnd_isNotTouched_data();
    void streamDeletedByTheBackEnd_isNotTouched();
    void captureObjectDeletedByTheBackEnd_isNotTouched_data();
    void captureObjectDeletedByTheBackEnd_isNotTouched();
    void privateSlots_doNothing_whenNotRecording();
    void capture_endsWithTheParent();
};

void tst_QtAudioInputDevice_lifetime::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevice_lifetime::destructor_stopsTheRecording()
{
    int stopCount = 0;
    bool isRecording = false;
    Capture c;
    QVERIFY(c.Record(8, 2));
    c.Push({1, 1});
    c.Take();
    connect(c.pCapture, &QtAudioInputDevice::OnRecordingStopped, this, [&] {
        stopCount = c.backEnd()->stopCount();
        isRecording = c.pCapture->isRecording();
    });
    QtAudioInputDevice* pCapture = c.pCapture;
    delete pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
    QCOMPARE(stopCount, 1);
    QVERIFY(isRecording);
}

void tst_QtAudioInputDevice_lifetime::destructor_processesNoEvents()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    bool hasRun = false;
    QTimer::singleShot(0, this, [&] { hasRun = true; });
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
    QVERIFY(!hasRun);
    QCoreApplication::processEvents();
    QVERIFY(hasRun);
}

void tst_QtAudioInputDevice_lifetime::destructor_destroysTheCaptureObject()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const QPointer<QAudioInput> pAudioInput(c.pCapture->m_pAudioInput);
    delete c.pCapture;
    QVERIFY(!pAudioInput);
    QVERIFY(!c.backEnd());
}

void tst_QtAudioInputDevice_lifetime::stop_processesPendingEventsOnce()
{
    QStringList order;
    Capture c;
    QVERIFY(c.Record(16, 1));
    QMetaObject::invokeMethod(
        this,
        [&] {
            order << Text("event of state %1").arg(c.backEnd()->state());
            // Posted while the events run: left for later.
            QTimer::singleShot(
                1, this, [&] { order << Text("late"); });
        },
        Qt::QueuedConnection);
    connect(c.pCapture, &QtAudioInputDevice::OnRecordingStopped, this, [&] {
        order << Text("stopped");
    });
    QVERIFY(c.pCapture->StopRecording());
    // The capture was stopped (2) before the events, the signal came after.
    QCOMPARE(order, QStringList({Text("event of state 2"), Text("stopped")}));
    QTRY_COMPARE(order.size(), 3);
}

void tst_QtAudioInputDevice_lifetime::stop_emitsTwice_whenStoppedByItsPendingEvents()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    bool isStopped = false;
    QMetaObject::invokeMethod(
        this, [&] { isStopped = c.pCapture->StopRecording(); }, Qt::QueuedConnection);
    QVERIFY(c.pCapture->StopRecording());
    QVERIFY(isStopped);
    QCOMPARE(c.Take(), Text("stopped stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 1);
    Capture::RunDeletions();
}

void tst_QtAudioInputDevice_lifetime::stop_emitsOnce_whenDeletedByItsPendingEvents()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QMetaObject::invokeMethod(
        this, [&] { delete c.pCapture; }, Qt::QueuedConnection);
    QVERIFY(c.pCapture->StopRecording());
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_lifetime::pendingStop_isDone_whenTheBackEndStops()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QMetaObject::invokeMethod(
        this, [&] { delete c.pCapture; }, Qt::QueuedConnection);
    c.backEnd()->StopSpontaneously();
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), Text("stopped"));
    Capture::RunDeletions();
    QVERIFY(!c.backEnd());
}

void tst_QtAudioInputDevice_lifetime::deviceIsDeleted_inASlot_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<QString>("log");
    QTest::newRow("started") << Text("started") << 1 << Text("started stopped");
    QTest::newRow("raw samples") << Text("samples") << 1 << Text("started samples(1,2) stopped");
    QTest::newRow("converted samples")
        << Text("samples") << 2 << Text("started samples(0) stopped");
}

void tst_QtAudioInputDevice_lifetime::deviceIsDeleted_inASlot()
{
    QFETCH(QString, record);
    QFETCH(int, channelCount);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Configure(16, channelCount));
    const QByteArray name = record.toLatin1();
    OnFirst(c, name.constData(), [&] { delete c.pCapture; });
    QVERIFY(c.pCapture->StartRecording());
    if (c.pCapture)
        c.Push({1, 0, 2, 0});
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), log);
    Capture::RunDeletions();
    QVERIFY(!c.backEnd());
}

void tst_QtAudioInputDevice_lifetime::deviceIsDeleted_inTheStoppedSlotOfAStop()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    OnFirst(c, "stopped", [&] { delete c.pCapture; });
    QVERIFY(c.pCapture->StopRecording());
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), Text("stopped stopped"));
}

void tst_QtAudioInputDevice_lifetime::deviceIsDeleted_inTheStoppedSlotOfASpontaneousStop()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    OnFirst(c, "stopped", [&] { delete c.pCapture; });
    c.backEnd()->StopSpontaneously();
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), Text("stopped stopped"));
    Capture::RunDeletions();
    QVERIFY(!c.backEnd());
}

void tst_QtAudioInputDevice_lifetime::
    captureObject_outlivesItsSignal_whenTheDeviceIsDeletedInASlot()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const QPointer<QAudioInput> pAudioInput(c.pCapture->m_pAudioInput);
    bool wasAlive = false;
    OnFirst(c, "samples", [&] {
        delete c.pCapture;
        wasAlive = !pAudioInput.isNull();
    });
    c.Push({1, 0});
    QVERIFY(wasAlive);
    QVERIFY(pAudioInput);
    Capture::RunDeletions();
    QVERIFY(!pAudioInput);
}

void tst_QtAudioInputDevice_lifetime::deviceIsStopped_inTheSamplesSlot()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    OnFirst(c, "samples", [&] { QVERIFY(c.pCapture->StopRecording()); });
    c.Push({1, 0});
    c.Push({2, 0});
    QCOMPARE(c.Take(), Text("samples(1) stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 1);
}

void tst_QtAudioInputDevice_lifetime::deviceIsStopped_inTheStartedSlot()
{
    Capture c;
    QVERIFY(c.Configure(16, 1));
    OnFirst(c, "started", [&] { QVERIFY(c.pCapture->StopRecording()); });
    QVERIFY(c.pCapture->StartRecording());
    c.Push({1, 0});
    QCOMPARE(c.Take(), Text("started stopped"));
}

void tst_QtAudioInputDevice_lifetime::deviceIsStopped_inTheStoppedSlot()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    OnFirst(c, "stopped", [&] { QVERIFY(c.pCapture->StopRecording()); });
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped stopped"));
    Capture::RunDeletions();
}

void tst_QtAudioInputDevice_lifetime::exceptionOfAListener_isNotSwallowed()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    OnFirst(c, "samples", [] { throw std::runtime_error("listener"); });
    c.backEnd()->stream()->Append(QByteArray(2, '\1'));
    QVERIFY_EXCEPTION_THROWN(c.pCapture->_OnAudioSamplesRecorded(), std::runtime_error);
    c.Take();
    c.Push({1, 0});
    QCOMPARE(c.Take(), Text("samples(1)"));
}

void tst_QtAudioInputDevice_lifetime::vanishing_isUnnoticed_whenSilent()
{
    Capture c(Vanishing(eVanishing::eSilent));
    QVERIFY(c.Record(16, 1));
    FakeAudioState::Get().Unplug(c.handle);
    QTest::qWait(20);
    QCOMPARE(c.Take(), QString());
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_lifetime::vanishing_stopsTheRecording_whenSignalled()
{
    Capture c(Vanishing(eVanishing::eStopped));
    QVERIFY(c.Record(16, 1));
    c.Push({1, 0});
    FakeAudioState::Get().Unplug(c.handle);
    QCOMPARE(c.Take(), Text("samples(1) stopped"));
    QVERIFY(c.pCapture->isRecording());
}

void tst_QtAudioInputDevice_lifetime::vanishing_stopsTheRecording_whenTheStreamIsDeletedFirst()
{
    Capture c(Vanishing(eVanishing::eStreamDeleted));
    QVERIFY(c.Record(16, 1));
    FakeAudioState::Get().Unplug(c.handle);
    QCOMPARE(c.Take(), Text("stopped"));
    QVERIFY(!c.backEnd()->stream());
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(nullptr));
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_lifetime::streamDeletedByTheBackEnd_isNotTouched_data()
{
    QTest::addColumn<int>("channelCount");
    QTest::newRow("raw") << 1;
    QTest::newRow("converted") << 2;
}

void tst_QtAudioInputDevice_lifetime::streamDeletedByTheBackEnd_isNotTouched()
{
    QFETCH(int, channelCount);
    Capture c;
    QVERIFY(c.Record(16, channelCount));
    c.backEnd()->ScriptBytesReady(8);
    c.backEnd()->DeleteStream();
    QVERIFY(c.pCapture->isRecording());
    c.pCapture->_OnAudioSamplesRecorded();
    QCOMPARE(c.Take(), QString());
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 1);
}

void tst_QtAudioInputDevice_lifetime::captureObjectDeletedByTheBackEnd_isNotTouched_data()
{
    QTest::addColumn<int>("channelCount");
    QTest::newRow("raw") << 1;
    QTest::newRow("converted") << 2;
}

void tst_QtAudioInputDevice_lifetime::captureObjectDeletedByTheBackEnd_isNotTouched()
{
    QFETCH(int, channelCount);
    Capture c;
    QVERIFY(c.Record(16, channelCount));
    delete c.pCapture->m_pAudioInput;
    QVERIFY(c.pCapture->isRecording());
    c.pCapture->_OnAudioSamplesRecorded();
    c.pCapture->_OnStateChanged(QAudio::ActiveState);
    QCOMPARE(c.Take(), QString());
    c.pCapture->_OnStateChanged(QAudio::StoppedState);
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped stopped"));
    QVERIFY(c.pCapture->isRecording());
    QVERIFY(!c.pCapture->StartRecording());
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_lifetime::privateSlots_doNothing_whenNotRecording()
{
    Capture c;
    c.pCapture->_OnAudioSamplesRecorded();
    c.pCapture->_OnStateChanged(QAudio::StoppedState);
    QVERIFY(c.Configure(8, 2));
    c.pCapture->_OnAudioSamplesRecorded();
    c.pCapture->_OnStateChanged(QAudio::StoppedState);
    QCOMPARE(c.Take(), QString());
    QVERIFY(!c.pCapture->isRecording());
}

void tst_QtAudioInputDevice_lifetime::capture_endsWithTheParent()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    auto pParent = std::make_unique<QObject>();
    c.pCapture->setParent(pParent.get());
    pParent.reset();
    QVERIFY(!c.pCapture);
    QCOMPARE(c.Take(), Text("stopped"));
}

AA_TEST(tst_QtAudioInputDevice_lifetime, InVirtualTime<QCoreApplication>)
#include "tst_QtAudioInputDevice_lifetime.moc"
