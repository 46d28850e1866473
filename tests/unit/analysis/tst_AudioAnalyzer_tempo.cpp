// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

using Indexes = std::vector<quint64>;

/// The tempo measured from beat indexes, the tempo in force, and what is reported.
class tst_AudioAnalyzer_tempo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isMeasuredFromFiveBeatsOn();
    void tempo_isThatOfTheMeanInterval_data();
    void tempo_isThatOfTheMeanInterval();
    void virtualBeats_countForTheTempo();
    void beats_areForgotten_behindTheSpan_data();
    void beats_areForgotten_behindTheSpan();
    void span_isRounded();
    void gettersOfTempo_clampToTheProfile_data();
    void gettersOfTempo_clampToTheProfile();
    void fixedTempo_isStored_unlessNotPositive_data();
    void fixedTempo_isStored_unlessNotPositive();
    void fixedTempo_winsOverTheMeasuredOne();
    void clamp_followsTheSelectedProfile();
    void beatLength_followsTheTempoInForce_data();
    void beatLength_followsTheTempoInForce();
    void everyWindow_reportsTheTempo();
    void unknownTempo_isReportedAsTheLastOne_whenConsistent_data();
    void unknownTempo_isReportedAsTheLastOne_whenConsistent();
    void lastTempo_isTheOneInForce();
    void report_comesBeforeTheNextWindow();

private:
    /// Closes one window per index, each with a pulse there.
    static void closeWindows(AnalyzerFixture& fixture, const Indexes& indexes)
    {
        for (const quint64 index : indexes)
            fixture.closeWindowWithPulse(index);
    }
    static std::vector<double> reports(const AnalyzerFixture& fixture)
    {
        std::vector<double> tempos;
        for (const SignalRecord& record : fixture.log.select(SignalKind::BPMChanged))
            tempos.push_back(record.bpm);
        return tempos;
    }
};

void tst_AudioAnalyzer_tempo::tempo_isMeasuredFromFiveBeatsOn()
{
    AnalyzerFixture fixture;
    closeWindows(fixture, {22050, 44100, 66150, 88200});
    QCOMPARE(fixture.analyzer.m_computedBPM, 0.0);
    QCOMPARE(fixture.analyzer.getComputedBPM(), 0.0);
    QCOMPARE(fixture.analyzer.getCurrentBPM(), 0.0);
    closeWindows(fixture, {110250});
    QCOMPARE(fixture.analyzer.m_computedBPM, 120.0);
    QCOMPARE(fixture.analyzer.getComputedBPM(), 120.0);
    QCOMPARE(fixture.analyzer.getCurrentBPM(), 120.0);
    QCOMPARE(reports(fixture), std::vector<double>({0.0, 0.0, 0.0, 0.0, 120.0}));
}

void tst_AudioAnalyzer_tempo::tempo_isThatOfTheMeanInterval_data()
{
    QTest::addColumn<Indexes>("indexes");
    QTest::addColumn<double>("bpm");
    QTest::newRow("even") << Indexes{20000, 40000, 60000, 80000, 100000} << 132.3;
    QTest::newRow("uneven") << Indexes{20000, 35000, 60000, 85000, 100000} << 132.3;
    // 80003 / 4 is 20000 whole samples.
    QTest::newRow("whole samples") << Indexes{1000, 21000, 41000, 61000, 81003} << 132.3;
    QTest::newRow("six beats") << Indexes{1000, 21000, 41000, 61000, 81000, 111000}
                               << 120.27272727272727;  // 110000 / 5 = 22000
    QTest::newRow("all at one index") << Indexes{500, 500, 500, 500, 500} << 0.0;
    QTest::newRow("less than a sample apart") << Indexes{500, 500, 501, 502, 503} << 0.0;
    QTest::newRow("a sample apart") << Indexes{500, 501, 502, 503, 504} << 2646000.0;
}

void tst_AudioAnalyzer_tempo::tempo_isThatOfTheMeanInterval()
{
    QFETCH(Indexes, indexes);
    AnalyzerFixture fixture;
    closeWindows(fixture, indexes);
    QCOMPARE(fixture.beatIndexes(), indexes);
    QTEST(fixture.analyzer.m_computedBPM, "bpm");
}

void tst_AudioAnalyzer_tempo::virtualBeats_countForTheTempo()
{
    AnalyzerFixture fixture;
    closeWindows(fixture, {22050, 44100, 66150, 88200});
    fixture.analyzer.m_nextBeatIndex = 110250;
    fixture.closeWindow();
    QVERIFY(fixture.analyzer.m_isLastBeatVirtual);
    QCOMPARE(fixture.beatIndexes(), Indexes({22050, 44100, 66150, 88200, 110250}));
    QCOMPARE(fixture.analyzer.m_computedBPM, 120.0);
}

void tst_AudioAnalyzer_tempo::beats_areForgotten_behindTheSpan_data()
{
    QTest::addColumn<quint64>("last");
    QTest::addColumn<Indexes>("kept");
    // Ten seconds are 441000 samples; 100, 1000, 2000 and 300000 went before.
    QTest::newRow("all within") << quint64(400000) << Indexes{100, 1000, 2000, 300000, 400000};
    QTest::newRow("at the span itself")
        << quint64(441000) << Indexes{100, 1000, 2000, 300000, 441000};
    QTest::newRow("the limit stays") << quint64(442000) << Indexes{1000, 2000, 300000, 442000};
    QTest::newRow("one sample further") << quint64(442001) << Indexes{2000, 300000, 442001};
    QTest::newRow("nothing left but the last") << quint64(5000000) << Indexes{5000000};
}

void tst_AudioAnalyzer_tempo::beats_areForgotten_behindTheSpan()
{
    QFETCH(quint64, last);
    AnalyzerFixture fixture;
    fixture.analyzer.m_beatIndexes = {100, 1000, 2000, 300000};
    fixture.closeWindowWithPulse(last);
    QTEST(fixture.beatIndexes(), "kept");
}

void tst_AudioAnalyzer_tempo::span_isRounded()
{
    // 22050 Hz * 0.00009 s is 1.98, so beats up to 2 samples old stay.
    AnalyzerFixture fixture(22050);
    QVERIFY(fixture.configuration.setBPMCalculationDuration(0.00009));
    fixture.analyzer.m_beatIndexes = {1007, 1008, 1009};
    fixture.closeWindowWithPulse(1010);
    QCOMPARE(fixture.beatIndexes(), Indexes({1008, 1009, 1010}));
}

void tst_AudioAnalyzer_tempo::gettersOfTempo_clampToTheProfile_data()
{
    QTest::addColumn<double>("minimal");
    QTest::addColumn<double>("maximal");
    QTest::addColumn<double>("tempo");
    QTest::addColumn<double>("clamped");
    QTest::newRow("inside") << 90.0 << 175.0 << 120.5 << 120.5;
    QTest::newRow("at the minimum") << 90.0 << 175.0 << 90.0 << 90.0;
    QTest::newRow("at the maximum") << 90.0 << 175.0 << 175.0 << 175.0;
    QTest::newRow("below") << 90.0 << 175.0 << 60.0 << 90.0;
    QTest::newRow("above") << 90.0 << 200.0 << 300.0 << 200.0;
    QTest::newRow("minimum beyond maximum, below both") << 150.0 << 100.0 << 50.0 << 150.0;
    QTest::newRow("minimum beyond maximum, between") << 150.0 << 100.0 << 120.0 << 150.0;
    QTest::newRow("minimum beyond maximum, above both") << 150.0 << 100.0 << 200.0 << 150.0;
    QTest::newRow("empty range") << 0.0 << 0.0 << 120.0 << 0.0;
}

void tst_AudioAnalyzer_tempo::gettersOfTempo_clampToTheProfile()
{
    QFETCH(double, minimal);
    QFETCH(double, maximal);
    QFETCH(double, tempo);
    AnalyzerFixture fixture;
    fixture.selectProfile(minimal, maximal);
    QCOMPARE(fixture.analyzer.getComputedBPM(), 0.0);
    QCOMPARE(fixture.analyzer.getFixedBPM(), 0.0);
    QCOMPARE(fixture.analyzer.getCurrentBPM(), 0.0);
    fixture.analyzer.m_computedBPM = tempo;
    QTEST(fixture.analyzer.getComputedBPM(), "clamped");
    QTEST(fixture.analyzer.getCurrentBPM(), "clamped");
    fixture.analyzer.m_computedBPM = 0.0;
    fixture.analyzer.setFixedBPM(tempo);
    QTEST(fixture.analyzer.getFixedBPM(), "clamped");
    QTEST(fixture.analyzer.getCurrentBPM(), "clamped");
    QCOMPARE(fixture.analyzer.m_fixedBPM, tempo);
}

void tst_AudioAnalyzer_tempo::fixedTempo_isStored_unlessNotPositive_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("stored");
    QTest::newRow("tempo") << 120.0 << 120.0;
    QTest::newRow("tiny") << 0.001 << 0.001;
    QTest::newRow("out of range, unclamped") << 5000.0 << 5000.0;
    QTest::newRow("0") << 0.0 << 0.0;
    QTest::newRow("-5") << -5.0 << 0.0;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

void tst_AudioAnalyzer_tempo::fixedTempo_isStored_unlessNotPositive()
{
    QFETCH(double, given);
    AnalyzerFixture fixture;
    fixture.analyzer.setFixedBPM(99.0);
    QVERIFY(fixture.analyzer.setFixedBPM(given));
    QTEST(fixture.analyzer.m_fixedBPM, "stored");
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_tempo::fixedTempo_winsOverTheMeasuredOne()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_computedBPM = 120.0;
    fixture.analyzer.setFixedBPM(100.0);
    QCOMPARE(fixture.analyzer.getCurrentBPM(), 100.0);
    QCOMPARE(fixture.analyzer.getComputedBPM(), 120.0);
    fixture.analyzer.setFixedBPM(-1.0);
    QCOMPARE(fixture.analyzer.getCurrentBPM(), 120.0);
}

void tst_AudioAnalyzer_tempo::clamp_followsTheSelectedProfile()
{
    AnalyzerFixture fixture;
    fixture.analyzer.setFixedBPM(300.0);
    Profile profile = fixture.selectProfile(100.0, 200.0);
    QCOMPARE(fixture.analyzer.getFixedBPM(), 200.0);
    QVERIFY(profile.setMaximalBPM(160.0));
    QCOMPARE(fixture.analyzer.getFixedBPM(), 160.0);
    fixture.selectProfile(100.0, 140.0);
    QCOMPARE(fixture.analyzer.getFixedBPM(), 140.0);
}

void tst_AudioAnalyzer_tempo::beatLength_followsTheTempoInForce_data()
{
    QTest::addColumn<quint64>("interval");
    QTest::addColumn<double>("bpm");
    QTest::addColumn<quint64>("beatLength");
    QTest::newRow("inside") << quint64(22050) << 120.0 << quint64(22050);
    QTest::newRow("too slow") << quint64(40000) << 90.0 << quint64(29400);
    QTest::newRow("too fast") << quint64(10000) << 175.0 << quint64(15120);
}

void tst_AudioAnalyzer_tempo::beatLength_followsTheTempoInForce()
{
    QFETCH(quint64, interval);
    QFETCH(double, bpm);
    AnalyzerFixture fixture;
    for (quint64 beat = 1; beat <= 5; ++beat)
        fixture.closeWindowWithPulse(beat * interval);
    QCOMPARE(reports(fixture).back(), bpm);
    QCOMPARE(fixture.analyzer.m_lastBPM, bpm);
    QTEST(fixture.analyzer.m_beatLength, "beatLength");
    QCOMPARE(fixture.analyzer.m_nextBeatIndex, 5 * interval + fixture.analyzer.m_beatLength);
}

void tst_AudioAnalyzer_tempo::everyWindow_reportsTheTempo()
{
    AnalyzerFixture fixture;
    fixture.analyzer.setFixedBPM(300.0);
    fixture.closeWindow();
    fixture.closeWindow();
    fixture.closeWindowWithPulse(500000);
    QCOMPARE(reports(fixture), std::vector<double>({175.0, 175.0, 175.0}));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("BPM BPM BPM"));
}

void tst_AudioAnalyzer_tempo::unknownTempo_isReportedAsTheLastOne_whenConsistent_data()
{
    QTest::addColumn<bool>("isConsistencyAllowed");
    QTest::addColumn<double>("lastBPM");
    QTest::addColumn<double>("reported");
    QTest::addColumn<quint64>("beatLength");
    QTest::newRow("consistent") << true << 100.0 << 100.0 << quint64(26460);
    QTest::newRow("not clamped") << true << 60.0 << 60.0 << quint64(44100);
    QTest::newRow("no last tempo") << true << 0.0 << 0.0 << quint64(19970);
    QTest::newRow("not consistent") << false << 100.0 << 0.0 << quint64(19970);
}

void tst_AudioAnalyzer_tempo::unknownTempo_isReportedAsTheLastOne_whenConsistent()
{
    QFETCH(bool, isConsistencyAllowed);
    QFETCH(double, lastBPM);
    QFETCH(double, reported);
    AnalyzerFixture fixture;
    fixture.analyzer.setConsistencyAllowed(isConsistencyAllowed);
    fixture.analyzer.m_lastBPM = lastBPM;
    fixture.analyzer.m_beatLength = 5;
    quint64 beatLengthWhileReporting = 1;
    fixture.log.setObserver(
        [&](const SignalRecord&) { beatLengthWhileReporting = fixture.analyzer.m_beatLength; });
    fixture.closeWindowWithPulse(5000);
    QCOMPARE(reports(fixture), std::vector<double>({reported}));
    QCOMPARE(beatLengthWhileReporting, quint64(0));
    QTEST(fixture.analyzer.m_beatLength, "beatLength");
    QCOMPARE(fixture.analyzer.m_lastBPM, lastBPM);
    QCOMPARE(fixture.log.count(SignalKind::TimerArmed), std::size_t(0));
}

void tst_AudioAnalyzer_tempo::lastTempo_isTheOneInForce()
{
    AnalyzerFixture fixture;
    fixture.analyzer.setFixedBPM(100.0);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_lastBPM, 100.0);
    fixture.analyzer.setFixedBPM(0.0);
    fixture.closeWindow();
    QCOMPARE(fixture.analyzer.m_lastBPM, 100.0);
    QCOMPARE(reports(fixture), std::vector<double>({100.0, 100.0}));
}

void tst_AudioAnalyzer_tempo::report_comesBeforeTheNextWindow()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_beatWindowEnd = 777;
    quint64 endWhileReporting = 0;
    fixture.log.setObserver(
        [&](const SignalRecord&) { endWhileReporting = fixture.analyzer.m_beatWindowEnd; });
    fixture.closeWindow();
    QCOMPARE(endWhileReporting, quint64(777));
    QVERIFY(fixture.analyzer.m_beatWindowEnd != 777);
}

AA_TEST(tst_AudioAnalyzer_tempo, QCoreApplication)
#include "tst_AudioAnalyzer_tempo.moc"
