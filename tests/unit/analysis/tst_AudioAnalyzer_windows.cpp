// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"
#include "AnalyzerState.h"

#include <QtTest>

#include <support/TestClass.h>

/// Which beat length is predicted, and where the beat window opens.
class tst_AudioAnalyzer_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beatLength_comesFromTheBestKnownTempo_data();
    void beatLength_comesFromTheBestKnownTempo();
    void beatLength_isKept_whenKnown();
    void beatLength_isRounded_halvesUp();
    void window_isCleared_withoutATempo();
    void window_runsFromFourBlocksBeforeToSixAfterTheBeat_data();
    void window_runsFromFourBlocksBeforeToSixAfterTheBeat();
    void firstWindow_isOneSlowestBeatLong_data();
    void firstWindow_isOneSlowestBeatLong();
    void volumes_moveOn_withEveryWindow();
    void prediction_emitsNothing();
};

void tst_AudioAnalyzer_windows::beatLength_comesFromTheBestKnownTempo_data()
{
    QTest::addColumn<double>("fixedBPM");
    QTest::addColumn<double>("computedBPM");
    QTest::addColumn<double>("lastBPM");
    QTest::addColumn<bool>("isConsistencyAllowed");
    QTest::addColumn<quint64>("beatLength");
    // The profile holds 90 to 175 BPM; its default is 132.5.
    QTest::newRow("fixed") << 100.0 << 120.0 << 140.0 << true << quint64(26460);
    QTest::newRow("fixed, clamped") << 300.0 << 120.0 << 140.0 << true << quint64(15120);
    QTest::newRow("computed") << 0.0 << 120.0 << 140.0 << true << quint64(22050);
    QTest::newRow("computed, clamped") << 0.0 << 60.0 << 140.0 << true << quint64(29400);
    QTest::newRow("last") << 0.0 << 0.0 << 140.0 << true << quint64(18900);
    QTest::newRow("last, not clamped") << 0.0 << 0.0 << 60.0 << true << quint64(44100);
    QTest::newRow("last, not allowed") << 0.0 << 0.0 << 140.0 << false << quint64(19970);
    QTest::newRow("default") << 0.0 << 0.0 << 0.0 << true << quint64(19970);
    QTest::newRow("computed, consistency not allowed")
        << 0.0 << 120.0 << 140.0 << false << quint64(22050);
}

void tst_AudioAnalyzer_windows::beatLength_comesFromTheBestKnownTempo()
{
    QFETCH(double, fixedBPM);
    QFETCH(double, computedBPM);
    QFETCH(double, lastBPM);
    QFETCH(bool, isConsistencyAllowed);
    AnalyzerFixture fixture;
    fixture.analyzer.setFixedBPM(fixedBPM);
    fixture.analyzer.m_computedBPM = computedBPM;
    fixture.analyzer.m_lastBPM = lastBPM;
    fixture.analyzer.setConsistencyAllowed(isConsistencyAllowed);
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QTEST(fixture.analyzer.m_beatLength, "beatLength");
    QCOMPARE(fixture.analyzer.m_lastBPM, lastBPM);
}

void tst_AudioAnalyzer_windows::beatLength_isKept_whenKnown()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_beatLength = 12345;
    fixture.analyzer.m_computedBPM = 120.0;
    fixture.analyzer.setFixedBPM(100.0);
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(12345));
    QCOMPARE(fixture.analyzer.m_nextBeatIndex, quint64(12345));
}

void tst_AudioAnalyzer_windows::beatLength_isRounded_halvesUp()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_computedBPM = 160.0;  // 16537.5 samples
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(16538));
}

void tst_AudioAnalyzer_windows::window_isCleared_withoutATempo()
{
    AnalyzerFixture fixture;
    fixture.selectProfile(0.0, 0.0);
    setSentinels(fixture.analyzer);
    fixture.analyzer.m_beatLength = 0;
    fixture.analyzer.m_fixedBPM = 0.0;
    fixture.analyzer.m_computedBPM = 0.0;
    AnalyzerState expected = stateOf(fixture.analyzer);
    expected[QStringLiteral("m_beatWindowEnd")] = 0.0;
    expected[QStringLiteral("m_beatWindowStart")] = 0.0;
    expected[QStringLiteral("m_nextBeatIndex")] = 0.0;
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(stateOf(fixture.analyzer), expected);  // the volumes have not moved on
}

void tst_AudioAnalyzer_windows::window_runsFromFourBlocksBeforeToSixAfterTheBeat_data()
{
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<quint64>("lastBeat");
    QTest::addColumn<quint64>("beatLength");
    QTest::addColumn<quint64>("nextBeat");
    QTest::addColumn<quint64>("start");
    QTest::addColumn<quint64>("end");
    QTest::newRow("44100 Hz") << 44100 << quint64(100000) << quint64(20000) << quint64(120000)
                              << quint64(115904) << quint64(126144);
    QTest::newRow("8000 Hz") << 8000 << quint64(4000) << quint64(4000) << quint64(8000)
                             << quint64(7488) << quint64(8768);
    QTest::newRow("beyond 32 bits")
        << 44100 << Q_UINT64_C(4294967296) << quint64(22050) << Q_UINT64_C(4294989346)
        << Q_UINT64_C(4294985250) << Q_UINT64_C(4294995490);
    // 300 - 4096 is unsigned: 2^64 - 3796.
    QTest::newRow("start before zero wraps")
        << 44100 << quint64(100) << quint64(200) << quint64(300) << Q_UINT64_C(18446744073709547820)
        << quint64(6444);
}

void tst_AudioAnalyzer_windows::window_runsFromFourBlocksBeforeToSixAfterTheBeat()
{
    QFETCH(int, sampleRate);
    QFETCH(quint64, lastBeat);
    QFETCH(quint64, beatLength);
    AnalyzerFixture fixture(sampleRate);
    fixture.analyzer.m_sampleIndex = 777777;  // plays no part
    fixture.analyzer.m_lastBeatIndex = lastBeat;
    fixture.analyzer.m_beatLength = beatLength;
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QTEST(fixture.analyzer.m_nextBeatIndex, "nextBeat");
    QTEST(fixture.analyzer.m_beatWindowStart, "start");
    QTEST(fixture.analyzer.m_beatWindowEnd, "end");
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, lastBeat);
}

void tst_AudioAnalyzer_windows::firstWindow_isOneSlowestBeatLong_data()
{
    QTest::addColumn<quint64>("position");
    QTest::addColumn<double>("minimalBPM");
    QTest::addColumn<quint64>("nextBeat");
    QTest::addColumn<quint64>("end");
    QTest::newRow("at the start") << quint64(0) << 90.0 << quint64(20000) << quint64(29400);
    QTest::newRow("later") << quint64(5000) << 90.0 << quint64(25000) << quint64(34400);
    QTest::newRow("beyond 32 bits")
        << Q_UINT64_C(4294967296) << 90.0 << Q_UINT64_C(4294987296) << Q_UINT64_C(4294996696);
    // 2646000 / 64 is 41343.75.
    QTest::newRow("rounded") << quint64(0) << 64.0 << quint64(20000) << quint64(41344);
}

void tst_AudioAnalyzer_windows::firstWindow_isOneSlowestBeatLong()
{
    QFETCH(quint64, position);
    QFETCH(double, minimalBPM);
    AnalyzerFixture fixture;
    fixture.selectProfile(minimalBPM, 175.0);
    fixture.analyzer.m_sampleIndex = position;
    fixture.analyzer.m_beatLength = 20000;
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(fixture.analyzer.m_beatWindowStart, position);
    QTEST(fixture.analyzer.m_nextBeatIndex, "nextBeat");
    QTEST(fixture.analyzer.m_beatWindowEnd, "end");
}

void tst_AudioAnalyzer_windows::volumes_moveOn_withEveryWindow()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_currentVolume = 500;
    fixture.analyzer.m_previousVolume = 9000;
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(fixture.analyzer.m_previousVolume, qint16(500));
    QCOMPARE(fixture.analyzer.m_currentVolume, qint16(0));
    QCOMPARE(fixture.analyzer.getMaximalVolume(), qint16(500));
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(fixture.analyzer.getMaximalVolume(), qint16(0));
}

void tst_AudioAnalyzer_windows::prediction_emitsNothing()
{
    AnalyzerFixture fixture;
    fixture.analyzer.ComputeNextBeatStartIndexes();
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

AA_TEST(tst_AudioAnalyzer_windows, QCoreApplication)
#include "tst_AudioAnalyzer_windows.moc"
