// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>

#include "AnalyzerFixture.h"

#include <QtTest>

#include <support/FakeClock.h>
#include <support/TestClass.h>

/// The watch that starts the tracker anew after ten seconds of poor accuracy.
class tst_AudioAnalyzer_watch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void watch_startsWithTheSecondMissedBeat();
    void watch_startsWithABeatAfterTwoMissedOnes();
    void watch_keepsItsStart_whileInaccurate();
    void watch_ends_withAnAccurateBeat();
    void watch_resetsTheTracker_afterTenSeconds_data();
    void watch_resetsTheTracker_afterTenSeconds();
    void watch_doesNotReset_inTheWindowThatStartsIt();
    void tempo_isMeasuredFromTheClearedState_afterTheReset();
    void lastTempo_outlivesTheReset_whenConsistent();
    void lastTempo_isForgotten_whenNotConsistent();
    void fixedTempo_outlivesTheReset();
    void noTimer_isArmed_inTheWindowThatResets();
    void virtualBeat_isEmitted_beforeTheReset();
    void watch_endsForTheCall_whenTheClockReads0();
    void elapsedSeconds_areWholeSecondsAndTheRest_data();
    void elapsedSeconds_areWholeSecondsAndTheRest();
};

namespace {

constexpr quint64 kNow = 1700000000000000;

/// Two beats were missed at kNow, so the watch runs; beats 22050 samples apart gave 120 BPM.
struct WatchFixture : AnalyzerFixture
{
    WatchFixture()
    {
        clock.setTime(kNow);
        analyzer.m_analysisStartTime = kNow - 5000000;
        analyzer.m_isStopped = false;
        analyzer.m_sampleIndex = 300000;
        closeWindow();
        closeWindow();
        analyzer.m_beatIndexes = {22050, 44100, 66150, 88200};
        analyzer.m_nextBeatIndex = 110250;
        log.take();
    }
    void closeWindowAfter(quint64 microSeconds)
    {
        clock.setTime(kNow + microSeconds);
        closeWindow();
    }

    HighResolutionTimerOverride clock{1};
};

}  // namespace

void tst_AudioAnalyzer_watch::watch_startsWithTheSecondMissedBeat()
{
    const HighResolutionTimerOverride clock(kNow);
    AnalyzerFixture fixture;
    fixture.closeWindow();  // accuracy 1/2
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, quint64(0));
    QCOMPARE(fixture.analyzer.getInaccuracyElapsedSeconds(), 0.0);
    fixture.closeWindow();  // 1/3
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, kNow);
}

void tst_AudioAnalyzer_watch::watch_startsWithABeatAfterTwoMissedOnes()
{
    const HighResolutionTimerOverride clock(kNow);
    AnalyzerFixture fixture;
    fixture.analyzer.m_missedBeatsCount = 2;
    fixture.closeWindowWithPulse(5000);
    QCOMPARE(fixture.analyzer.getAccuracy(), 1.0 / 3.0);
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, kNow);
}

void tst_AudioAnalyzer_watch::watch_keepsItsStart_whileInaccurate()
{
    WatchFixture fixture;
    fixture.closeWindowAfter(3000000);
    fixture.closeWindowAfter(9000000);
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, kNow);
    QCOMPARE(fixture.analyzer.getInaccuracyElapsedSeconds(), 9.0);
}

void tst_AudioAnalyzer_watch::watch_ends_withAnAccurateBeat()
{
    WatchFixture fixture;
    fixture.closeWindowWithPulse(400000);  // the first real beat after two missed ones: 1/3
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, kNow);
    fixture.closeWindowWithPulse(420000);
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, quint64(0));
    QCOMPARE(fixture.analyzer.getInaccuracyElapsedSeconds(), 0.0);

    // One missed beat, exactly one half, is accurate enough.
    fixture.analyzer.m_inaccuracyStartTime = kNow;
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.getAccuracy(), 0.5);
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, quint64(0));
}

void tst_AudioAnalyzer_watch::watch_resetsTheTracker_afterTenSeconds_data()
{
    QTest::addColumn<quint64>("elapsed");
    QTest::addColumn<bool>("isReset");
    QTest::newRow("almost") << quint64(9999999) << false;
    QTest::newRow("exactly") << quint64(10000000) << true;
    QTest::newRow("later") << quint64(3600000000) << true;
}

void tst_AudioAnalyzer_watch::watch_resetsTheTracker_afterTenSeconds()
{
    QFETCH(quint64, elapsed);
    QFETCH(bool, isReset);
    WatchFixture fixture;
    fixture.closeWindowAfter(elapsed);
    QCOMPARE(fixture.analyzer.m_isStopped, isReset);
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(isReset ? 0 : 3));
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, isReset ? quint64(0) : kNow);
    QCOMPARE(fixture.analyzer.getAccuracy(), isReset ? 1.0 : 0.25);
}

void tst_AudioAnalyzer_watch::watch_doesNotReset_inTheWindowThatStartsIt()
{
    const HighResolutionTimerOverride clock(kNow);
    AnalyzerFixture fixture;
    fixture.analyzer.m_missedBeatsCount = 100;
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(101));
}

void tst_AudioAnalyzer_watch::tempo_isMeasuredFromTheClearedState_afterTheReset()
{
    // Without the reset five beats 22050 samples apart would give 120 BPM.
    WatchFixture fixture;
    fixture.closeWindowAfter(10000000);
    QCOMPARE(fixture.beatIndexes(), std::vector<quint64>({0}));
    QCOMPARE(fixture.analyzer.m_computedBPM, 0.0);
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, quint64(0));
    // The search begins anew at the present position, at the default tempo.
    QCOMPARE(fixture.analyzer.m_beatWindowStart, quint64(300000));
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(19970));
    QCOMPARE(fixture.analyzer.m_beatWindowEnd, quint64(329400));
}

void tst_AudioAnalyzer_watch::lastTempo_outlivesTheReset_whenConsistent()
{
    WatchFixture fixture;
    fixture.analyzer.m_lastBPM = 100.0;
    fixture.closeWindowAfter(10000000);
    QCOMPARE(fixture.analyzer.m_lastBPM, 100.0);
    QCOMPARE(fixture.log.select(SignalKind::BPMChanged).at(0).bpm, 100.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(26460));
}

void tst_AudioAnalyzer_watch::lastTempo_isForgotten_whenNotConsistent()
{
    WatchFixture fixture;
    fixture.analyzer.setConsistencyAllowed(false);
    fixture.analyzer.m_lastBPM = 100.0;
    fixture.closeWindowAfter(10000000);
    QCOMPARE(fixture.analyzer.m_lastBPM, 0.0);
    QCOMPARE(fixture.log.select(SignalKind::BPMChanged).at(0).bpm, 0.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(19970));
}

void tst_AudioAnalyzer_watch::fixedTempo_outlivesTheReset()
{
    WatchFixture fixture;
    fixture.analyzer.setFixedBPM(150.0);
    fixture.closeWindowAfter(10000000);
    QCOMPARE(fixture.log.select(SignalKind::BPMChanged).at(0).bpm, 150.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(17640));
    QCOMPARE(fixture.log.count(SignalKind::TimerArmed), std::size_t(0));
}

void tst_AudioAnalyzer_watch::noTimer_isArmed_inTheWindowThatResets()
{
    for (const bool isReset : {false, true}) {
        WatchFixture fixture;
        fixture.closeWindowAfter(isReset ? 10000000 : 1000000);
        QCOMPARE(kindsOf(fixture.log.getRecords()),
                 isReset ? QStringLiteral("Pulse BPM") : QStringLiteral("Pulse BPM Timer"));
    }
}

void tst_AudioAnalyzer_watch::virtualBeat_isEmitted_beforeTheReset()
{
    WatchFixture fixture;
    bool isResetBefore = true;
    fixture.log.setObserver([&](const SignalRecord& record) {
        if (record.kind == SignalKind::PulseDetected)
            isResetBefore = fixture.analyzer.m_isStopped;
    });
    fixture.closeWindowAfter(10000000);
    QVERIFY(!isResetBefore);
    QVERIFY(fixture.analyzer.m_isStopped);
    QCOMPARE(fixture.log.getRecords().at(0).pulse.startIndex, quint64(110250));
}

void tst_AudioAnalyzer_watch::watch_endsForTheCall_whenTheClockReads0()
{
    FakeClock clock(0);
    AnalyzerFixture fixture;
    fixture.analyzer.m_missedBeatsCount = 5;
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, quint64(0));
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(6));
    clock.setTime(kNow);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_inaccuracyStartTime, kNow);
}

void tst_AudioAnalyzer_watch::elapsedSeconds_areWholeSecondsAndTheRest_data()
{
    QTest::addColumn<quint64>("start");
    QTest::addColumn<quint64>("now");
    QTest::addColumn<double>("seconds");
    QTest::newRow("not set") << quint64(0) << kNow << 0.0;
    QTest::newRow("none") << kNow << kNow << 0.0;
    QTest::newRow("one microsecond") << kNow << kNow + 1 << 0.000001;
    QTest::newRow("one and a half") << kNow << kNow + 1500000 << 1.5;
    QTest::newRow("whole") << kNow << kNow + 12000000 << 12.0;
    QTest::newRow("many") << quint64(1) << kNow << 1699999999.999999;
}

void tst_AudioAnalyzer_watch::elapsedSeconds_areWholeSecondsAndTheRest()
{
    QFETCH(quint64, start);
    QFETCH(quint64, now);
    const HighResolutionTimerOverride clock(now);
    AnalyzerFixture fixture;
    fixture.analyzer.m_inaccuracyStartTime = start;
    QTEST(fixture.analyzer.getInaccuracyElapsedSeconds(), "seconds");
}

AA_TEST(tst_AudioAnalyzer_watch, QCoreApplication)
#include "tst_AudioAnalyzer_watch.moc"
