// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"
#include "AnalyzerState.h"

#include <QtTest>

#include <support/TestClass.h>

/// Choosing the beat of a window that has passed, and what Reset keeps.
class tst_AudioAnalyzer_beats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void window_staysOpen_untilItsEnd();
    void window_closesAtItsEnd_data();
    void window_closesAtItsEnd();
    void beat_isTheLoudestCandidate_data();
    void beat_isTheLoudestCandidate();
    void chosenBeat_setsTheMembers();
    void otherCandidates_stayPulses();
    void candidates_areGone_afterTheWindow();
    void missedBeat_setsTheMembers();
    void virtualBeat_isMade_onlyWhileBeatsAreSent_data();
    void virtualBeat_isMade_onlyWhileBeatsAreSent();
    void virtualBeat_standsAtThePredictedPlace();
    void virtualBeat_isEmittedBeforeTheTempo();
    void sending_needsMusicAndAStart_data();
    void sending_needsMusicAndAStart();
    void accuracy_fallsWithMissedBeats();
    void accuracy_isSetByTheNextRealBeat_data();
    void accuracy_isSetByTheNextRealBeat();
    void reset_clearsTheSearchAndKeepsTheRest_data();
    void reset_clearsTheSearchAndKeepsTheRest();
    void reset_emitsNothing();
};

void tst_AudioAnalyzer_beats::window_staysOpen_untilItsEnd()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    fixture.analyzer.m_beatWindowEnd = 5000;
    const AnalyzerState before = stateOf(fixture.analyzer);
    fixture.analyzer.DetectBeats(1024, 0, 100, 200);
    fixture.analyzer.DetectBeats(1024, 4999, 100, 200);
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_beats::window_closesAtItsEnd_data()
{
    QTest::addColumn<quint64>("index");
    QTest::newRow("at the end") << quint64(5000);
    QTest::newRow("after") << quint64(5001);
    QTest::newRow("far after") << Q_UINT64_C(5000000000);
}

void tst_AudioAnalyzer_beats::window_closesAtItsEnd()
{
    QFETCH(quint64, index);
    AnalyzerFixture fixture;
    fixture.analyzer.m_beatWindowEnd = 5000;
    fixture.analyzer.m_nextBeatIndex = 4000;
    fixture.analyzer.DetectBeats(1024, index, 100, 200);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM"));
    QCOMPARE(fixture.analyzer.m_nextBeatIndex, quint64(23970));  // the next window is open
}

void tst_AudioAnalyzer_beats::beat_isTheLoudestCandidate_data()
{
    QTest::addColumn<std::vector<int>>("volumes");
    QTest::addColumn<int>("chosen");
    QTest::newRow("only one") << std::vector<int>{5} << 0;
    QTest::newRow("first") << std::vector<int>{9, 5, 3} << 0;
    QTest::newRow("middle") << std::vector<int>{1, 300, 200} << 1;
    QTest::newRow("last") << std::vector<int>{1, 2, 3} << 2;
    QTest::newRow("tie goes to the earliest") << std::vector<int>{100, 300, 300, 200} << 1;
    QTest::newRow("all equal") << std::vector<int>{7, 7, 7} << 0;
    QTest::newRow("signed") << std::vector<int>{-5, -3, -4} << 1;
}

void tst_AudioAnalyzer_beats::beat_isTheLoudestCandidate()
{
    QFETCH(std::vector<int>, volumes);
    QFETCH(int, chosen);
    AnalyzerFixture fixture;
    for (std::size_t i = 0; i < volumes.size(); ++i)
        fixture.analyzer.m_candidatePulses.push_back(
            fixture.makePulse(1000 * (i + 1), qint16(volumes[i])));
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, quint64(1000 * (chosen + 1)));
}

void tst_AudioAnalyzer_beats::chosenBeat_setsTheMembers()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_missedBeatsCount = 1;
    fixture.analyzer.m_virtualBeatIndex = 55;
    fixture.closeWindowWithPulse(7000);
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, quint64(7000));
    QVERIFY(!fixture.analyzer.m_isLastBeatVirtual);
    QCOMPARE(fixture.analyzer.m_virtualBeatIndex, quint64(0));
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(0));
    QCOMPARE(fixture.analyzer.m_accuracy, 0.5);
    QCOMPARE(fixture.beatIndexes(), std::vector<quint64>({7000}));
    // 132.5 BPM, the default, from the beat on.
    QCOMPARE(fixture.analyzer.m_nextBeatIndex, quint64(26970));
    // A pulse was emitted when it was found, not again as a beat.
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM"));
}

void tst_AudioAnalyzer_beats::otherCandidates_stayPulses()
{
    AnalyzerFixture fixture;
    const Pulse quiet = fixture.makePulse(1000, 100);
    const Pulse loud = fixture.makePulse(2000, 200);
    fixture.analyzer.m_candidatePulses = {quiet, loud};
    fixture.closeWindow();
    QCOMPARE(quiet.getType(), ePulse);
    QCOMPARE(loud.getType(), eBeat);
}

void tst_AudioAnalyzer_beats::candidates_areGone_afterTheWindow()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_candidatePulses = {fixture.makePulse(1000), fixture.makePulse(2000)};
    bool isKeptWhileReporting = false;
    fixture.log.setObserver([&](const SignalRecord&) {
        isKeptWhileReporting = fixture.analyzer.m_candidatePulses.size() == 2;
    });
    fixture.closeWindow();
    QVERIFY(isKeptWhileReporting);
    QVERIFY(fixture.analyzer.m_candidatePulses.empty());
}

void tst_AudioAnalyzer_beats::missedBeat_setsTheMembers()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_nextBeatIndex = 9000;
    fixture.analyzer.m_isLastBeatVirtual = false;
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(1));
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, quint64(9000));
    QCOMPARE(fixture.analyzer.m_virtualBeatIndex, quint64(9000));
    QVERIFY(fixture.analyzer.m_isLastBeatVirtual);
    QCOMPARE(fixture.analyzer.m_accuracy, 1.0);
    QCOMPARE(fixture.beatIndexes(), std::vector<quint64>({9000}));
    QCOMPARE(fixture.analyzer.m_nextBeatIndex, quint64(28970));
}

void tst_AudioAnalyzer_beats::virtualBeat_isMade_onlyWhileBeatsAreSent_data()
{
    sending_needsMusicAndAStart_data();
}

void tst_AudioAnalyzer_beats::virtualBeat_isMade_onlyWhileBeatsAreSent()
{
    QFETCH(bool, isStopped);
    QFETCH(quint64, startTime);
    QFETCH(bool, isDisplayed);
    QFETCH(bool, isSending);
    AnalyzerFixture fixture;
    fixture.analyzer.m_isStopped = isStopped;
    fixture.analyzer.m_analysisStartTime = startTime;
    fixture.configuration.setDisplayVirtualBeatsWhenStopped(isDisplayed);
    fixture.closeWindow();
    QCOMPARE(kindsOf(fixture.log.getRecords()),
             isSending ? QStringLiteral("Pulse BPM") : QStringLiteral("BPM"));
    QCOMPARE(fixture.analyzer.m_missedBeatsCount, quint64(1));
}

void tst_AudioAnalyzer_beats::virtualBeat_standsAtThePredictedPlace()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_isStopped = false;
    fixture.analyzer.m_analysisStartTime = 5000000;
    fixture.analyzer.m_nextBeatIndex = 44100;
    fixture.analyzer.DetectBeats(1000, 60000, 123, 456);
    const PulseRecord pulse = fixture.log.select(SignalKind::PulseDetected).at(0).pulse;
    QCOMPARE(pulse.startIndex, quint64(44100));
    QCOMPARE(pulse.endIndex, quint64(45099));
    QCOMPARE(pulse.startTime, quint64(6000000));
    QCOMPARE(pulse.averageVolume, 123);
    QCOMPARE(pulse.threshold, 456);
    QCOMPARE(pulse.maximalValue, 456);
    QCOMPARE(pulse.type, int(eVirtualBeat));
    QCOMPARE(fixture.log.getPulses()[0].getType(), eVirtualBeat);
}

void tst_AudioAnalyzer_beats::virtualBeat_isEmittedBeforeTheTempo()
{
    AnalyzerFixture fixture;
    fixture.configuration.setDisplayVirtualBeatsWhenStopped(true);
    fixture.analyzer.m_nextBeatIndex = 9000;
    AnalyzerState seen;
    fixture.log.setObserver([&](const SignalRecord& record) {
        if (record.kind == SignalKind::PulseDetected)
            seen = stateOf(fixture.analyzer);
    });
    fixture.closeWindow();
    QCOMPARE(seen.value(QStringLiteral("m_missedBeatsCount")), 1.0);
    QCOMPARE(seen.value(QStringLiteral("m_lastBeatIndex")), 9000.0);
    QCOMPARE(seen.value(QStringLiteral("m_virtualBeatIndex")), 9000.0);
    QCOMPARE(seen.value(QStringLiteral("m_beatIndexes.size()")), 0.0);
}

void tst_AudioAnalyzer_beats::sending_needsMusicAndAStart_data()
{
    QTest::addColumn<bool>("isStopped");
    QTest::addColumn<quint64>("startTime");
    QTest::addColumn<bool>("isDisplayed");
    QTest::addColumn<bool>("isSending");
    QTest::newRow("silent, not started") << true << quint64(0) << false << false;
    QTest::newRow("silent, started") << true << quint64(1) << false << false;
    QTest::newRow("music, not started") << false << quint64(0) << false << false;
    QTest::newRow("music, started") << false << quint64(1) << false << true;
    QTest::newRow("silent, not started, shown") << true << quint64(0) << true << true;
    QTest::newRow("silent, started, shown") << true << quint64(1) << true << true;
    QTest::newRow("music, not started, shown") << false << quint64(0) << true << true;
    QTest::newRow("music, started, shown") << false << quint64(1) << true << true;
}

void tst_AudioAnalyzer_beats::sending_needsMusicAndAStart()
{
    QFETCH(bool, isStopped);
    QFETCH(quint64, startTime);
    QFETCH(bool, isDisplayed);
    QFETCH(bool, isSending);
    AnalyzerFixture fixture;
    fixture.analyzer.m_isStopped = isStopped;
    fixture.analyzer.m_analysisStartTime = startTime;
    fixture.configuration.setDisplayVirtualBeatsWhenStopped(isDisplayed);
    QCOMPARE(fixture.analyzer.isSendingBeats(), isSending);
    fixture.analyzer._OnBeat();
    QCOMPARE(kindsOf(fixture.log.getRecords()), isSending ? QStringLiteral("Beat") : QString());
}

void tst_AudioAnalyzer_beats::accuracy_fallsWithMissedBeats()
{
    AnalyzerFixture fixture;
    QCOMPARE(fixture.analyzer.getAccuracy(), 1.0);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.getAccuracy(), 0.5);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.getAccuracy(), 1.0 / 3.0);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.getAccuracy(), 0.25);
    fixture.analyzer.m_accuracy = 0.125;  // the lesser of the two counts
    QCOMPARE(fixture.analyzer.getAccuracy(), 0.125);
    QVERIFY(fixture.analyzer.m_missedBeatsCount == 3);
}

void tst_AudioAnalyzer_beats::accuracy_isSetByTheNextRealBeat_data()
{
    QTest::addColumn<int>("missed");
    QTest::addColumn<double>("accuracy");
    QTest::newRow("none") << 0 << 1.0;
    QTest::newRow("one") << 1 << 0.5;
    QTest::newRow("two") << 2 << 1.0 / 3.0;
    QTest::newRow("nine") << 9 << 0.1;
}

void tst_AudioAnalyzer_beats::accuracy_isSetByTheNextRealBeat()
{
    QFETCH(int, missed);
    QFETCH(double, accuracy);
    AnalyzerFixture fixture;
    for (int i = 0; i < missed; ++i)
        fixture.closeWindow();
    fixture.closeWindowWithPulse(900000);
    QCOMPARE(fixture.analyzer.m_accuracy, accuracy);
    QCOMPARE(fixture.analyzer.getAccuracy(), accuracy);
    fixture.closeWindowWithPulse(920000);
    QCOMPARE(fixture.analyzer.getAccuracy(), 1.0);
}

void tst_AudioAnalyzer_beats::reset_clearsTheSearchAndKeepsTheRest_data()
{
    QTest::addColumn<double>("value");
    const struct
    {
        const char* pMember;
        double value;
    } rows[] = {
        {"m_samplesPerMinute", 2646000.0},
        {"m_sampleRate", 44100.0},
        {"m_accuracy", 1.0},
        {"m_pAmplitudes != nullptr", 1.0},
        {"m_amplitudesCount", 101.0},
        {"m_analysisStartTime", 102.0},
        {"m_sampleIndex", 103.0},
        {"m_isAnalyzing", 1.0},
        {"m_isConsistencyAllowed", 0.0},
        {"m_isStopped", 1.0},
        {"m_beatIndexes.size()", 0.0},
        {"m_computedBPM", 0.0},
        {"m_pConfiguration != nullptr", 1.0},
        {"m_missedBeatsCount", 0.0},
        {"m_beatLength", 0.0},
        {"m_volumeStats.m_writePosition", 0.0},
        {"m_volumeStats.m_isFull", 0.0},
        {"m_volumeStats.m_capacity", 88200.0},
        {"m_fixedBPM", 109.0},
        {"m_lastBPM", 0.0},
        {"m_inaccuracyStartTime", 0.0},
        {"m_lastBeatIndex", 0.0},
        {"m_isLastBeatVirtual", 0.0},
        {"m_lastPulseIndex", 0.0},
        {"m_virtualBeatIndex", 0.0},
        {"m_currentVolume", 0.0},
        {"m_previousVolume", 0.0},
        {"m_beatWindowEnd", 0.0},
        {"m_beatWindowStart", 0.0},
        {"m_nextBeatIndex", 0.0},
        {"m_candidatePulses.size()", 0.0},
        {"m_pPulseBlock != nullptr", 1.0},
        {"m_pulseBlockFill", 0.0},
        {"m_pulseBlockSize", 1024.0},
        {"m_pStopBlock != nullptr", 1.0},
        {"m_stopBlockFill", 0.0},
        {"m_stopBlockSize", 122.0},
    };
    for (const auto& row : rows)
        QTest::newRow(row.pMember) << row.value;
}

void tst_AudioAnalyzer_beats::reset_clearsTheSearchAndKeepsTheRest()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    fixture.analyzer.Reset();
    const AnalyzerState state = stateOf(fixture.analyzer);
    QCOMPARE(state.size(), 37);  // as many as there are rows
    QTEST(state.value(QLatin1String(QTest::currentDataTag()), -1.0), "value");
}

void tst_AudioAnalyzer_beats::reset_emitsNothing()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    fixture.analyzer.Reset();
    fixture.analyzer.Reset();
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

AA_TEST(tst_AudioAnalyzer_beats, QCoreApplication)
#include "tst_AudioAnalyzer_beats.moc"
