// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>

#include "AnalyzerFixture.h"

#include <QSignalSpy>
#include <QtTest>

#include <support/TestClass.h>
#include <support/VirtualTime.h>

namespace {

constexpr quint64 kStart = 1700000000000000;

/// Four beats 22050 samples, half a second, apart; the next window makes the tempo 120 BPM.
void prepareBeats(AudioAnalyzer& analyzer)
{
    analyzer.m_analysisStartTime = kStart;
    analyzer.m_isStopped = false;
    analyzer.m_beatIndexes = {22050, 44100, 66150, 88200};
    analyzer.m_nextBeatIndex = 110250;
}

}  // namespace

/// When beats are sent. The fifth beat lies at 110250, 2.5 s after the start.
class tst_AudioAnalyzer_schedule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beat_isScheduledOnePeriodLater_orTheFirstNotPast_data();
    void beat_isScheduledOnePeriodLater_orTheFirstNotPast();
    void beat_isScheduledAtOnce_beforeStart();
    void period_isCutToMicroseconds();
    void timer_callsThePrivateSlot();
    void timer_isArmed_afterTheReport();
    void timer_isArmed_forAVirtualBeatThatIsSent();
    void noTimer_isArmed_forAVirtualBeatThatIsNotSent();
    void noTimer_isArmed_withoutATempo();
    void noTimer_isArmed_underAFixedTempo_isIntended();
    void noTimer_isArmed_whenTheHostWantsNone();
    void timer_isArmed_onceTheFixedTempoIsLifted();
    void beat_isSent_whenTheTimerFires();
    void beat_isNotSent_afterStopOrReset_data();
    void beat_isNotSent_afterStopOrReset();
};

void tst_AudioAnalyzer_schedule::beat_isScheduledOnePeriodLater_orTheFirstNotPast_data()
{
    QTest::addColumn<quint64>("now");  // since the start, µs
    QTest::addColumn<int>("delay");    // ms
    QTest::newRow("right after the beat") << quint64(2500000) << 500;
    QTest::newRow("a little later") << quint64(2600000) << 400;
    QTest::newRow("just before it is due") << quint64(2999999) << 0;
    QTest::newRow("due now") << quint64(3000000) << 0;
    QTest::newRow("just missed: 499.999 ms") << quint64(3000001) << 499;
    QTest::newRow("several missed") << quint64(7700000) << 300;
    QTest::newRow("clock before the beat: at least one period") << quint64(2000000) << 1000;
    QTest::newRow("cut to milliseconds") << quint64(2500001) << 499;
}

void tst_AudioAnalyzer_schedule::beat_isScheduledOnePeriodLater_orTheFirstNotPast()
{
    QFETCH(quint64, now);
    QFETCH(int, delay);
    const HighResolutionTimerOverride clock(kStart + now);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.closeWindowWithPulse(110250);
    const SignalRecords timers = fixture.log.select(SignalKind::TimerArmed);
    QCOMPARE(timers.size(), std::size_t(1));
    QCOMPARE(timers[0].delay, delay);
}

void tst_AudioAnalyzer_schedule::beat_isScheduledAtOnce_beforeStart()
{
    // From the epoch on, beats fall on every half second; the next one is at .5 s.
    const HighResolutionTimerOverride clock(1700000000123456);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.m_analysisStartTime = 0;
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(fixture.log.select(SignalKind::TimerArmed).at(0).delay, 376);  // 376544 µs
}

void tst_AudioAnalyzer_schedule::period_isCutToMicroseconds()
{
    // Beats 20001 samples apart: 453537.4 µs, taken as 453537. The fifth is at 100005 samples,
    // 2267687.07 µs, so ten periods later are 6803057 µs.
    const HighResolutionTimerOverride clock(kStart + 6803057);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.m_beatIndexes = {20001, 40002, 60003, 80004};
    fixture.closeWindowWithPulse(100005);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(20001));
    QCOMPARE(fixture.log.select(SignalKind::TimerArmed).at(0).delay, 0);
}

void tst_AudioAnalyzer_schedule::timer_callsThePrivateSlot()
{
    struct Call
    {
        const QObject* pReceiver = nullptr;
        QByteArray member;
    };
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    Call call;
    fixture.timers.setHandler(
        [](void* pContext, int, const QObject* pReceiver, const char* pMember) {
            *static_cast<Call*>(pContext) = {pReceiver, pMember};
        },
        &call);
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(call.pReceiver, &fixture.analyzer);
    QCOMPARE(call.member, QByteArray("1_OnBeat()"));
}

void tst_AudioAnalyzer_schedule::timer_isArmed_afterTheReport()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM Timer"));
}

void tst_AudioAnalyzer_schedule::timer_isArmed_forAVirtualBeatThatIsSent()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.closeWindow();
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Pulse BPM Timer"));
    QCOMPARE(fixture.log.getRecords()[2].delay, 400);
}

void tst_AudioAnalyzer_schedule::noTimer_isArmed_forAVirtualBeatThatIsNotSent()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.m_isStopped = true;
    fixture.closeWindow();
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM"));
    QCOMPARE(fixture.log.getRecords()[0].bpm, 120.0);
}

void tst_AudioAnalyzer_schedule::noTimer_isArmed_withoutATempo()
{
    // Four beats are too few; the last tempo only serves to predict the next window.
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.m_beatIndexes = {44100, 66150, 88200};
    fixture.analyzer.m_lastBPM = 120.0;
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM"));
    QCOMPARE(fixture.log.getRecords()[0].bpm, 120.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(22050));
}

void tst_AudioAnalyzer_schedule::noTimer_isArmed_underAFixedTempo_isIntended()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.setFixedBPM(100.0);
    fixture.closeWindowWithPulse(110250);
    fixture.closeWindow();
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM Pulse BPM"));
    QCOMPARE(fixture.log.getRecords()[0].bpm, 100.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(26460));
}

// The setting outlives Stop() and Reset().
void tst_AudioAnalyzer_schedule::noTimer_isArmed_whenTheHostWantsNone()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    fixture.analyzer.setBeatTimerAllowed(false);
    fixture.analyzer.Start();
    fixture.analyzer.Stop();
    fixture.analyzer.Reset();
    prepareBeats(fixture.analyzer);
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Started Stopped BPM"));
    fixture.analyzer.setBeatTimerAllowed(true);
    fixture.closeWindowWithPulse(132300);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Started Stopped BPM BPM Timer"));
}

void tst_AudioAnalyzer_schedule::timer_isArmed_onceTheFixedTempoIsLifted()
{
    const HighResolutionTimerOverride clock(kStart + 2600000);
    AnalyzerFixture fixture;
    prepareBeats(fixture.analyzer);
    fixture.analyzer.setFixedBPM(100.0);
    fixture.analyzer.setFixedBPM(-5.0);
    fixture.closeWindowWithPulse(110250);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM Timer"));
}

void tst_AudioAnalyzer_schedule::beat_isSent_whenTheTimerFires()
{
    // No trap here: Qt's own timer, 20 ms.
    const HighResolutionTimerOverride clock(kStart + 2980000);
    Configuration configuration;
    AudioAnalyzer analyzer(&configuration, makeFormat(44100), nullptr);
    QSignalSpy spy(&analyzer, &AudioAnalyzer::OnBeat);
    prepareBeats(analyzer);
    analyzer.DetectBeats(1024, 0, 0, 0);
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE(spy.count(), 1);
    QTest::qWait(60);
    QCOMPARE(spy.count(), 1);
}

void tst_AudioAnalyzer_schedule::beat_isNotSent_afterStopOrReset_data()
{
    QTest::addColumn<bool>("isReset");
    QTest::addColumn<bool>("isDisplayed");
    QTest::addColumn<int>("beats");
    QTest::newRow("stop") << false << false << 0;
    QTest::newRow("reset") << true << false << 0;
    // The timer itself is not cancelled.
    QTest::newRow("stop, virtual beats shown") << false << true << 1;
    QTest::newRow("reset, virtual beats shown") << true << true << 1;
}

void tst_AudioAnalyzer_schedule::beat_isNotSent_afterStopOrReset()
{
    QFETCH(bool, isReset);
    QFETCH(bool, isDisplayed);
    QFETCH(int, beats);
    const HighResolutionTimerOverride clock(kStart + 2980000);
    Configuration configuration;
    configuration.setDisplayVirtualBeatsWhenStopped(isDisplayed);
    AudioAnalyzer analyzer(&configuration, makeFormat(44100), nullptr);
    QVERIFY(analyzer.Start());
    QSignalSpy spy(&analyzer, &AudioAnalyzer::OnBeat);
    prepareBeats(analyzer);
    analyzer.DetectBeats(1024, analyzer.m_beatWindowEnd, 0, 0);
    if (isReset)
        analyzer.Reset();
    else
        QVERIFY(analyzer.Stop());
    QTest::qWait(100);
    QCOMPARE(spy.count(), beats);
}

AA_TEST(tst_AudioAnalyzer_schedule, InVirtualTime<QCoreApplication>)
#include "tst_AudioAnalyzer_schedule.moc"
