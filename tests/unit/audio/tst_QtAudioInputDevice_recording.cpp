// SPDX-License-Identifier: MIT
#include "Capture.h"
#include "FieldOrder.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Text.h>

class tst_QtAudioInputDevice_recording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void device_isEmpty_whenCreated();
    void device_hasItsFieldsInOrder();
    void name_isTrimmed();
    void start_isRefused_whenNoFormatIsSet();
    void stop_isRefused_whenNotStarted();
    void destructor_emitsNothing_whenNotStarted();
    void start_createsAndStartsTheCapture();
    void start_leavesBufferAndNotifyIntervalToThePlatform();
    void start_isRefused_whenRecording();
    void setFormat_isRefused_whenRecording();
    void startFailed_countsAsRecording_isIntended();
    void startFailed_canBeStopped();
    void stop_endsTheCapture();
    void stop_keepsTheReference_isIntended();
    void stop_emitsAgain_whenRepeated_isIntended();
    void stop_dropsLateData();
    void stop_ignoresLateStates();
    void state_isIgnored_whenNotStopped_data();
    void state_isIgnored_whenNotStopped();
    void state_stopsTheRecording_whenStopped();
    void restart_needsANewDevice_isIntended();
};

void tst_QtAudioInputDevice_recording::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevice_recording::device_isEmpty_whenCreated()
{
    const Capture c;
    QVERIFY(!c.pCapture->isRecording());
    QVERIFY(!c.pCapture->getInputFormat().isValid());
    QVERIFY(!c.pCapture->getOutputFormat().isValid());
    QCOMPARE(c.pCapture->m_pAudioInput, static_cast<QAudioInput*>(nullptr));
    QCOMPARE(c.pCapture->m_pResampler, static_cast<AudioResampler*>(nullptr));
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(nullptr));
    QCOMPARE(c.pCapture->m_frameSize, quint64(0));
    QCOMPARE(c.pCapture->m_pBuffer, static_cast<char*>(nullptr));
    QCOMPARE(c.pCapture->m_bufferCapacity, quint64(0));
    QCOMPARE(FakeAudioState::Get().createdInputs(), 0);
}

void tst_QtAudioInputDevice_recording::device_hasItsFieldsInOrder()
{
    const Capture c;
    const QtAudioInputDevice& d = *c.pCapture;
    QVERIFY(AreInOrder(d.m_pAudioInput,
                       d.m_pResampler,
                       d.m_pInputStream,
                       d.m_deviceInfo,
                       d.m_frameSize,
                       d.m_inputFormat,
                       d.m_outputFormat,
                       d.m_pBuffer,
                       d.m_bufferCapacity,
                       d.m_audioInputGuard));
}

void tst_QtAudioInputDevice_recording::name_isTrimmed()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(QStringLiteral("\t USB  Mic \n"));
    const QtAudioInputDevice device(QAudioDeviceInfo::defaultInputDevice(), nullptr);
    QCOMPARE(device.getName(), Text("USB  Mic"));
    const QtAudioInputDevice none(QAudioDeviceInfo(), nullptr);
    QCOMPARE(none.getName(), QString());
}

void tst_QtAudioInputDevice_recording::start_isRefused_whenNoFormatIsSet()
{
    Capture c;
    QVERIFY(!c.pCapture->StartRecording());
    QVERIFY(!c.Configure(24, 1));
    QVERIFY(!c.pCapture->StartRecording());
    QVERIFY(!c.pCapture->isRecording());
    QCOMPARE(FakeAudioState::Get().createdInputs(), 0);
    QCOMPARE(c.Take(), QString());
}

void tst_QtAudioInputDevice_recording::stop_isRefused_whenNotStarted()
{
    Capture c;
    QVERIFY(!c.pCapture->StopRecording());
    QVERIFY(c.Configure(16, 1));
    QVERIFY(!c.pCapture->StopRecording());
    QCOMPARE(c.Take(), QString());
}

void tst_QtAudioInputDevice_recording::destructor_emitsNothing_whenNotStarted()
{
    Capture c;
    QVERIFY(c.Configure(8, 2));
    delete c.pCapture;
    QCOMPARE(c.Take(), QString());
}

void tst_QtAudioInputDevice_recording::start_createsAndStartsTheCapture()
{
    Capture c;
    QVERIFY(c.Configure(16, 2));
    QVERIFY(c.pCapture->StartRecording());
    QCOMPARE(c.Take(), Text("started"));
    QVERIFY(c.pCapture->isRecording());
    QCOMPARE(c.pCapture->m_pAudioInput->parent(), static_cast<QObject*>(c.pCapture));
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(c.backEnd()->stream()));
    QCOMPARE(c.backEnd()->startCount(), 1);
    QCOMPARE(c.backEnd()->format(), c.pCapture->getInputFormat());
}

void tst_QtAudioInputDevice_recording::start_leavesBufferAndNotifyIntervalToThePlatform()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QCOMPARE(c.backEnd()->bufferSize(), 0);
    QCOMPARE(c.backEnd()->notifyInterval(), 0);
}

void tst_QtAudioInputDevice_recording::start_isRefused_whenRecording()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QVERIFY(!c.pCapture->StartRecording());
    QCOMPARE(FakeAudioState::Get().createdInputs(), 1);
    QCOMPARE(c.Take(), QString());
    c.Push({1, 0});
    QCOMPARE(c.Take(), Text("samples(1)"));
}

void tst_QtAudioInputDevice_recording::setFormat_isRefused_whenRecording()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const QAudioFormat format = c.pCapture->getInputFormat();
    QVERIFY(!c.Configure(8, 2));
    QVERIFY(!c.pCapture->SetRecordingFormat(format));
    QCOMPARE(c.pCapture->getInputFormat(), format);
    QCOMPARE(c.pCapture->m_frameSize, quint64(2));
    QCOMPARE(c.pCapture->m_pResampler, static_cast<AudioResampler*>(nullptr));
}

void tst_QtAudioInputDevice_recording::startFailed_countsAsRecording_isIntended()
{
    FakeAudioDevice device;
    device.givesStream = false;
    Capture c(device);
    QVERIFY(c.Configure(16, 1));
    QVERIFY(!c.pCapture->StartRecording());
    QVERIFY(c.pCapture->isRecording());
    QVERIFY(c.pCapture->m_pAudioInput);
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(nullptr));
    QVERIFY(!c.pCapture->StartRecording());
    QVERIFY(!c.Configure(16, 1));
    QCOMPARE(FakeAudioState::Get().createdInputs(), 1);
    // Nothing was connected: neither data nor a stop reaches the device.
    c.backEnd()->SignalState(QAudio::StoppedState);
    QCOMPARE(c.Take(), QString());
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_recording::startFailed_canBeStopped()
{
    FakeAudioDevice device;
    device.givesStream = false;
    Capture c(device);
    QVERIFY(c.Configure(16, 1));
    QVERIFY(!c.pCapture->StartRecording());
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 0);
    QVERIFY(c.pCapture->isRecording());
    QVERIFY(!c.pCapture->StartRecording());
}

void tst_QtAudioInputDevice_recording::stop_endsTheCapture()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const QPointer<QAudioInput> pAudioInput(c.pCapture->m_pAudioInput);
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 1);
    QCOMPARE(c.backEnd()->state(), QAudio::StoppedState);
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(nullptr));
    QVERIFY(pAudioInput);
    Capture::RunDeletions();
    QVERIFY(!pAudioInput);
}

void tst_QtAudioInputDevice_recording::stop_keepsTheReference_isIntended()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const QAudioInput* pAudioInput = c.pCapture->m_pAudioInput;
    QVERIFY(c.pCapture->StopRecording());
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(static_cast<const QAudioInput*>(c.pCapture->m_pAudioInput), pAudioInput);
        QVERIFY(c.pCapture->isRecording());
        QVERIFY(!c.pCapture->StartRecording());
        QVERIFY(!c.Configure(16, 1));
        Capture::RunDeletions();
    }
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_recording::stop_emitsAgain_whenRepeated_isIntended()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QVERIFY(c.pCapture->StopRecording());
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 1);
    Capture::RunDeletions();
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_recording::stop_dropsLateData()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QVERIFY(c.pCapture->StopRecording());
    c.Take();
    c.Push({1, 0, 2, 0});
    QCOMPARE(c.Take(), QString());
    QVERIFY(c.reads().isEmpty());
}

void tst_QtAudioInputDevice_recording::stop_ignoresLateStates()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QVERIFY(c.pCapture->StopRecording());
    c.Take();
    c.backEnd()->SignalState(QAudio::StoppedState);
    QCOMPARE(c.Take(), QString());
}

void tst_QtAudioInputDevice_recording::state_isIgnored_whenNotStopped_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("active") << int(QAudio::ActiveState);
    QTest::newRow("suspended") << int(QAudio::SuspendedState);
    QTest::newRow("idle") << int(QAudio::IdleState);
    QTest::newRow("interrupted") << int(QAudio::InterruptedState);
}

void tst_QtAudioInputDevice_recording::state_isIgnored_whenNotStopped()
{
    QFETCH(int, state);
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.backEnd()->SignalState(QAudio::State(state));
    QCOMPARE(c.Take(), QString());
    c.Push({7, 0});
    QCOMPARE(c.Take(), Text("samples(7)"));
}

void tst_QtAudioInputDevice_recording::state_stopsTheRecording_whenStopped()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.backEnd()->StopSpontaneously();
    QCOMPARE(c.Take(), Text("stopped"));
    QCOMPARE(c.backEnd()->stopCount(), 0);  // stopped already
    QVERIFY(c.pCapture->isRecording());
    QCOMPARE(c.pCapture->m_pInputStream, static_cast<QIODevice*>(nullptr));
    delete c.pCapture;
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_recording::restart_needsANewDevice_isIntended()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    QVERIFY(c.pCapture->StopRecording());
    QVERIFY(!c.pCapture->StartRecording());
    QtAudioInputDevice next(QAudioDeviceInfo::defaultInputDevice(), nullptr);
    QVERIFY(next.SetRecordingFormat(c.pCapture->getInputFormat()));
    QVERIFY(next.StartRecording());
    DeviceLog log(&next);
    c.Push({5, 0});
    QCOMPARE(log.Take(), Text("samples(5)"));
}

AA_TEST(tst_QtAudioInputDevice_recording, QCoreApplication)
#include "tst_QtAudioInputDevice_recording.moc"
