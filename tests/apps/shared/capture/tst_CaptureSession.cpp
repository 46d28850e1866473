// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <cmath>
#include <fake/Machine.h>
#include <memory>
#include <support/TestClass.h>
#include <support/Text.h>
#include <support/VirtualTime.h>

namespace {

std::vector<qint16> Noise(int pMagnitude, std::size_t pCount)
{
    std::vector<qint16> samples;
    for (std::size_t i = 0; i < pCount; ++i)
        samples.push_back(qint16(i % 5 < 2 ? pMagnitude : -pMagnitude));
    return samples;
}

}  // namespace

/// How a session survives what devices do.
class tst_CaptureSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void open_recordsTheDevice();
    void open_waits_whenTheDeviceIsNotThere();
    void open_recordsTheDeviceOfExactlyThatName();
    void anchor_isTheArrivalOfTheFirstBlock();
    void anchor_leavesOutTheBlockThatArrivedAtOnce();
    void vanishing_isNoticedAndResumedFrom_data();
    void vanishing_isNoticedAndResumedFrom();
    void movedRecording_isEnded_whenTheWatcherMissesTheDevice();
    void resuming_keepsTheTempo();
    void resuming_atAnotherRate_makesAnotherAnalyzer();
    void noData_isToldOncePerOccurrence();
    void noData_atTheStart_isToldLater();
    void noData_forLong_opensTheDeviceAnew();
    void failingStart_isTriedAgain();
    void severalChannels_areUnusable_data();
    void severalChannels_areUnusable();
    void noFormat_isUnusable();
    void unusable_endsWithTheDevice();
    void level_isNoticed_data();
    void level_isNoticed();
    void peak_isThatOfTheSamples();
    void watcher_rests_whereEnumerationIsSlow();
    void watcher_works_whereEnumerationIsFast();
    void switching_recordsTheOtherDevice_atOnce();
    void switching_waits_whereTheOtherDeviceIsAway();
    void switching_watchesAgain_whereEnumerationIsSlow();
    void end_releasesTheDevice();
};

void tst_CaptureSession::initTestCase()
{
    FakeAudioState::Install();
}

void tst_CaptureSession::init()
{
    Machine().Clear();
    SessionLog::Poll();
}

void tst_CaptureSession::open_recordsTheDevice()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Open();
    QCOMPARE(log.Take(), Text("analyzer starting"));
    QCOMPARE(log.session.getInputFormat().sampleRate(), 48000);
    QVERIFY(!log.session.getAnalyzer()->isAnalyzing());
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), Text("running anchored"));
    QVERIFY(log.session.getAnalyzer()->isAnalyzing());
    QCOMPARE(log.session.getAnalyzer()->getConfiguration(), &log.configuration);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), QString());
}

void tst_CaptureSession::open_waits_whenTheDeviceIsNotThere()
{
    SessionLog log;
    log.Open();
    QCOMPARE(log.Take(), Text("waiting"));
    QVERIFY(!log.session.getAnalyzer());
    log.session.m_limits.retryMs = 60000;
    Machine().Plug(SessionLog::Device());
    QTest::qWait(250);
    QCOMPARE(log.Take(), QString());
    // The watcher's signal is enough.
    SessionLog::Poll();
    QTRY_COMPARE(log.Peek(), Text("analyzer starting"));
}

void tst_CaptureSession::open_recordsTheDeviceOfExactlyThatName()
{
    Machine().Plug(SessionLog::Device("deck"));
    Machine().Plug(SessionLog::Device("Deck 2"));
    SessionLog log;
    log.Open("Deck");
    QTest::qWait(250);
    QCOMPARE(log.Take(), Text("waiting"));
    QCOMPARE(Machine().createdInputs(), 0);
}

void tst_CaptureSession::anchor_isTheArrivalOfTheFirstBlock()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Open();
    QTest::qWait(200);
    const quint64 before = HighResolutionTimer::getTime();
    SessionLog::Push({1, 2, 3});
    const quint64 start = log.session.getAnalyzer()->getAnalysisStartTime();
    QVERIFY(start >= before);
    QVERIFY(start <= HighResolutionTimer::getTime());
}

void tst_CaptureSession::anchor_leavesOutTheBlockThatArrivedAtOnce()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Open();
    // Two seconds that the server had gathered: they sounded before the anchor.
    SessionLog::Push(std::vector<qint16>(96001, 7));
    const AudioAnalyzer* pAnalyzer = log.session.getAnalyzer();
    QCOMPARE(pAnalyzer->m_sampleIndex + pAnalyzer->m_pulseBlockFill, quint64(0));
    SessionLog::Push(std::vector<qint16>(2400, 7));
    QCOMPARE(pAnalyzer->m_sampleIndex + pAnalyzer->m_pulseBlockFill, quint64(2400));
    QCOMPARE(log.session.getSampleClock().getCount(), quint64(2400));
    QVERIFY(log.session.getArrivals().getArrival(2399) != 0);
    QCOMPARE(log.session.getArrivals().getArrival(2400), quint64(0));
}

void tst_CaptureSession::vanishing_isNoticedAndResumedFrom_data()
{
    QTest::addColumn<int>("vanishing");
    QTest::addColumn<bool>("isWatched");
    QTest::newRow("capture stops") << int(eVanishing::eStopped) << false;
    QTest::newRow("stream is deleted") << int(eVanishing::eStreamDeleted) << false;
    QTest::newRow("watcher tells") << int(eVanishing::eSilent) << true;
    QTest::newRow("data just ends") << int(eVanishing::eSilent) << false;
}

void tst_CaptureSession::vanishing_isNoticedAndResumedFrom()
{
    QFETCH(int, vanishing);
    QFETCH(bool, isWatched);
    FakeAudioDevice device = SessionLog::Device();
    device.vanishing = eVanishing(vanishing);
    const QByteArray handle = Machine().Plug(device);
    SessionLog log;
    log.Run();
    Machine().Unplug(handle);
    if (isWatched)
        SessionLog::Poll();
    QTRY_COMPARE(log.Peek(), Text("waiting"));
    QVERIFY(!log.session.getAnalyzer()->isAnalyzing());
    QTest::qWait(200);
    QCOMPARE(log.Take(), Text("waiting"));

    Machine().Plug(device);
    QTRY_COMPARE(log.Peek(), Text("starting"));
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), Text("starting running anchored"));
    QCOMPARE(log.session.getAnchorCount(), 2);
    QVERIFY(log.session.getAnalyzer()->isAnalyzing());
}

void tst_CaptureSession::movedRecording_isEnded_whenTheWatcherMissesTheDevice()
{
    const QByteArray handle = Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    FakeAudioInput* pInput = Machine().LastInput();
    Machine().Unplug(handle);
    pInput->Push(QByteArray(64, '\1'));  // another source's sound goes on
    SessionLog::Poll();
    QCOMPARE(log.Take(), Text("waiting"));
}

void tst_CaptureSession::resuming_keepsTheTempo()
{
    const QByteArray handle = Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    log.session.getAnalyzer()->m_lastBPM = 128.0;
    Machine().Unplug(handle);
    SessionLog::Poll();
    Machine().Plug(SessionLog::Device());
    QTRY_VERIFY(log.session.getState() == eCaptureStarting);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getAnalyzer()->m_lastBPM, 128.0);
    // At 48000 Hz a beat of 128 BPM lasts 22500 samples: the search begins there.
    QCOMPARE(log.session.getAnalyzer()->m_beatLength, quint64(22500));
}

void tst_CaptureSession::resuming_atAnotherRate_makesAnotherAnalyzer()
{
    const QByteArray handle = Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    Machine().Unplug(handle);
    SessionLog::Poll();
    FakeAudioDevice other = SessionLog::Device();
    other.sampleRates = {44100};
    Machine().Plug(other);
    QTRY_VERIFY(log.session.getState() == eCaptureStarting);
    QCOMPARE(log.Take(), Text("waiting analyzer starting"));
    QCOMPARE(log.session.getSampleClock().getSampleRate(), 44100);
    QCOMPARE(log.session.getAnalyzer()->m_sampleRate, 44100);
}

void tst_CaptureSession::noData_isToldOncePerOccurrence()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    QTRY_COMPARE(log.Peek(), Text("no data"));
    QVERIFY(!log.session.getAnalyzer()->isAnalyzing());
    QTest::qWait(300);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), Text("no data anchored"));
    QTRY_COMPARE(log.Peek(), Text("no data"));
}

void tst_CaptureSession::noData_atTheStart_isToldLater()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Open();
    log.Take();
    QTest::qWait(400);
    QCOMPARE(log.Take(), QString());
    QTRY_COMPARE(log.Peek(), Text("no data"));
}

void tst_CaptureSession::noData_forLong_opensTheDeviceAnew()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    QTRY_COMPARE(log.Peek(), Text("no data waiting starting"));
    QCOMPARE(Machine().createdInputs(), 2);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), Text("no data waiting starting running anchored"));
}

void tst_CaptureSession::failingStart_isTriedAgain()
{
    FakeAudioDevice device = SessionLog::Device();
    device.givesStream = false;
    const QByteArray handle = Machine().Plug(device);
    SessionLog log;
    log.Open();
    QCOMPARE(log.Take(), Text("analyzer waiting"));
    QTRY_VERIFY(Machine().createdInputs() >= 3);
    QCOMPARE(log.Take(), QString());
    Machine().Unplug(handle);
    Machine().Plug(SessionLog::Device());
    QTRY_COMPARE(log.Peek(), Text("starting"));
}

void tst_CaptureSession::severalChannels_areUnusable_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("size");
    QTest::newRow("stereo 16") << 2 << 16;
    QTest::newRow("stereo 32") << 2 << 32;
    QTest::newRow("stereo 8") << 2 << 8;
    QTest::newRow("six 16") << 6 << 16;
}

void tst_CaptureSession::severalChannels_areUnusable()
{
    QFETCH(int, channels);
    QFETCH(int, size);
    FakeAudioDevice device = SessionLog::Device();
    device.channelCounts = {channels};
    device.sampleSizes = {size};
    Machine().Plug(device);
    SessionLog log;
    log.Open();
    QTest::qWait(250);
    QCOMPARE(log.Take(), Text("unusable"));
    QCOMPARE(log.session.getInputFormat().channelCount(), channels);
    QCOMPARE(Machine().createdInputs(), 0);
}

void tst_CaptureSession::noFormat_isUnusable()
{
    FakeAudioDevice device = SessionLog::Device();
    device.sampleSizes = {24};
    Machine().Plug(device);
    SessionLog log;
    log.Open();
    QCOMPARE(log.Take(), Text("unusable"));
    QVERIFY(!log.session.getInputFormat().isValid());
}

void tst_CaptureSession::unusable_endsWithTheDevice()
{
    FakeAudioDevice device = SessionLog::Device();
    device.channelCounts = {2};
    const QByteArray handle = Machine().Plug(device);
    SessionLog log;
    log.Open();
    Machine().Unplug(handle);
    QTRY_COMPARE(log.Peek(), Text("unusable waiting"));
    Machine().Plug(SessionLog::Device());
    QTRY_COMPARE(log.Peek(), Text("unusable waiting analyzer starting"));
}

void tst_CaptureSession::level_isNoticed_data()
{
    QTest::addColumn<int>("magnitude");
    QTest::addColumn<QString>("notices");
    QTest::newRow("silence") << 0 << Text("silence");
    QTest::newRow("noise floor") << 20 << QString();
    QTest::newRow("too quiet") << 900 << Text("too quiet");
}

void tst_CaptureSession::level_isNoticed()
{
    QFETCH(int, magnitude);
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    for (int i = 0; i < 20; ++i)
        SessionLog::Push(Noise(magnitude, 2400));
    QTEST(log.Take(), "notices");
}

void tst_CaptureSession::peak_isThatOfTheSamples()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    log.session.TakePeak();
    SessionLog::Push({5, -321, 17});
    QCOMPARE(log.session.TakePeak(), 321);
    QCOMPARE(log.session.TakePeak(), 0);
}

void tst_CaptureSession::watcher_rests_whereEnumerationIsSlow()
{
    const QByteArray handle = Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.session.m_limits.slowEnumerationMs = 0;
    const auto* pWatcher = QtAudioInputDevicesManager::GetInstance();
    log.Open();
    QVERIFY(pWatcher->m_pTimer);
    SessionLog::Push({1, 2, 3});
    QVERIFY(!pWatcher->m_pTimer);
    Machine().Unplug(handle);
    QTRY_VERIFY(log.session.getState() == eCaptureWaiting);
    QVERIFY(pWatcher->m_pTimer);
}

void tst_CaptureSession::watcher_works_whereEnumerationIsFast()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    QVERIFY(QtAudioInputDevicesManager::GetInstance()->m_pTimer);
}

void tst_CaptureSession::switching_recordsTheOtherDevice_atOnce()
{
    Machine().Plug(SessionLog::Device());
    Machine().Plug(SessionLog::Device("Line"));
    SessionLog log;
    log.Run();
    const AudioAnalyzer* pAnalyzer = log.session.getAnalyzer();
    const QPointer<FakeAudioInput> before(Machine().LastInput());
    log.session.Switch(QStringLiteral("Line"));
    QCOMPARE(log.Take(), Text("starting"));
    QCOMPARE(log.session.getSource().name, QStringLiteral("Line"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!before);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Take(), Text("running anchored"));
    QCOMPARE(log.session.getAnalyzer(), pAnalyzer);
    // To itself is no change.
    const int inputs = Machine().createdInputs();
    log.session.Switch(QStringLiteral("Line"));
    QCOMPARE(Machine().createdInputs(), inputs);
    QCOMPARE(log.Take(), QString());
}

void tst_CaptureSession::switching_waits_whereTheOtherDeviceIsAway()
{
    const QByteArray handle = Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.Run();
    log.session.Switch(QStringLiteral("Line"));
    QCOMPARE(log.Take(), Text("waiting"));
    // What becomes of the one before is nobody's business any more.
    Machine().Unplug(handle);
    SessionLog::Poll();
    QCOMPARE(log.Take(), QString());
    Machine().Plug(SessionLog::Device("Line"));
    QTRY_COMPARE(log.Peek(), Text("starting"));
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getState(), eCaptureRunning);
}

void tst_CaptureSession::switching_watchesAgain_whereEnumerationIsSlow()
{
    Machine().Plug(SessionLog::Device());
    SessionLog log;
    log.session.m_limits.slowEnumerationMs = 0;
    log.Run();
    const auto* pWatcher = QtAudioInputDevicesManager::GetInstance();
    QVERIFY(!pWatcher->m_pTimer);
    log.session.Switch(QStringLiteral("Line"));
    QVERIFY(pWatcher->m_pTimer);
}

void tst_CaptureSession::end_releasesTheDevice()
{
    Machine().Plug(SessionLog::Device());
    auto log = std::make_unique<SessionLog>();
    log->Run();
    const QPointer<FakeAudioInput> input(Machine().LastInput());
    QVERIFY(input);
    log.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!input);
}

AA_TEST(tst_CaptureSession, InVirtualTime<QCoreApplication>)
#include "tst_CaptureSession.moc"
