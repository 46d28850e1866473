// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>

#include "AnalyzerFixture.h"
#include "AnalyzerState.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <support/TestClass.h>

class tst_AudioAnalyzer_core : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void construction_givesEveryMemberItsInitialValue_data();
    void construction_givesEveryMemberItsInitialValue();
    void construction_keepsFormatConfigurationAndParent();
    void construction_leavesTheTransformsUnused();
    void volumeWindow_hasTheConfiguredDuration();
    void getters_readTheMembers();
    void start_setsTheStartTimeAndTheFirstWindow();
    void start_forgetsTheMeasuredTempo_beforeItPredicts();
    void start_isRefused_whenRunning();
    void start_isDone_whenItIsReported();
    void stop_isRefused_whenNotRunning();
    void stop_clearsTheRunAndKeepsTheRest_data();
    void stop_clearsTheRunAndKeepsTheRest();
    void stop_isDone_whenItIsReported();
    void pause_neverPauses_isIntended();
    void analyzer_mayBeStartedAgain();
    void destructor_stops();
    void destructor_leavesTheConfiguration();
};

void tst_AudioAnalyzer_core::construction_givesEveryMemberItsInitialValue_data()
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
        {"m_pAmplitudes != nullptr", 0.0},
        {"m_amplitudesCount", 0.0},
        {"m_analysisStartTime", 0.0},
        {"m_sampleIndex", 0.0},
        {"m_isAnalyzing", 0.0},
        {"m_isConsistencyAllowed", 1.0},
        {"m_isStopped", 1.0},
        {"m_beatIndexes.size()", 0.0},
        {"m_computedBPM", 0.0},
        {"m_pConfiguration != nullptr", 1.0},
        {"m_missedBeatsCount", 0.0},
        {"m_beatLength", 0.0},
        {"m_volumeStats.m_writePosition", 0.0},
        {"m_volumeStats.m_isFull", 0.0},
        {"m_volumeStats.m_capacity", 88200.0},
        {"m_fixedBPM", 0.0},
        {"m_lastBPM", 0.0},
        {"m_inaccuracyStartTime", 0.0},
        {"m_lastBeatIndex", 0.0},
        {"m_isLastBeatVirtual", 1.0},
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
        {"m_pStopBlock != nullptr", 0.0},
        {"m_stopBlockFill", 0.0},
        {"m_stopBlockSize", 0.0},
    };
    for (const auto& row : rows)
        QTest::newRow(row.pMember) << row.value;
}

void tst_AudioAnalyzer_core::construction_givesEveryMemberItsInitialValue()
{
    Configuration configuration;
    const AudioAnalyzer analyzer(&configuration, makeFormat(44100), nullptr);
    const AnalyzerState state = stateOf(analyzer);
    QCOMPARE(state.size(), 37);  // as many as there are rows
    const QString member = QLatin1String(QTest::currentDataTag());
    QVERIFY(state.contains(member));
    QTEST(state.value(member), "value");
}

void tst_AudioAnalyzer_core::construction_keepsFormatConfigurationAndParent()
{
    Configuration configuration;
    QObject parent;
    QAudioFormat format = makeFormat(48000);
    format.setCodec(QStringLiteral("audio/pcm"));
    auto* const pAnalyzer = new AudioAnalyzer(&configuration, format, &parent);
    QCOMPARE(pAnalyzer->m_format, format);
    QCOMPARE(pAnalyzer->m_sampleRate, 48000);
    QCOMPARE(pAnalyzer->m_samplesPerMinute, 2880000.0);
    QCOMPARE(pAnalyzer->getConfiguration(), &configuration);
    QCOMPARE(pAnalyzer->parent(), &parent);
    QVERIFY(!configuration.isModified());
}

void tst_AudioAnalyzer_core::construction_leavesTheTransformsUnused()
{
    Configuration configuration;
    AudioAnalyzer analyzer(&configuration, makeFormat(44100), nullptr);
    QCOMPARE(analyzer.m_filterFFT.m_length, std::size_t(0));
    QCOMPARE(analyzer.m_stopFFT.m_length, std::size_t(0));
}

void tst_AudioAnalyzer_core::volumeWindow_hasTheConfiguredDuration()
{
    Configuration configuration;
    configuration.setAverageVolumeCalculationDuration(0.7);
    const AudioAnalyzer analyzer(&configuration, makeFormat(8000), nullptr);
    QCOMPARE(analyzer.m_volumeStats.m_capacity, quint64(5600));
}

void tst_AudioAnalyzer_core::getters_readTheMembers()
{
    AnalyzerFixture fixture;
    AudioAnalyzer& analyzer = fixture.analyzer;
    QVERIFY(!analyzer.isAnalyzing());
    QVERIFY(!analyzer.getAmplitudes());
    setSentinels(analyzer);
    QVERIFY(analyzer.isAnalyzing());
    QCOMPARE(analyzer.getConfiguration(), &fixture.configuration);
    QVERIFY(analyzer.getAmplitudes());
    QCOMPARE(analyzer.getAmplitudes(), analyzer.m_pAmplitudes);
    QCOMPARE(analyzer.getAmplitudesCount(), quint64(101));
    QCOMPARE(analyzer.getAnalysisStartTime(), quint64(102));
    QCOMPARE(analyzer.getPulseBlockSize(), quint64(1024));
    const AudioValues values = analyzer.getCurrentPulseBlock();
    QCOMPARE(values.size, quint32(1024));
    QCOMPARE(values.samples, analyzer.m_pPulseBlock);
}

void tst_AudioAnalyzer_core::start_setsTheStartTimeAndTheFirstWindow()
{
    const HighResolutionTimerOverride clock(123456789);
    AnalyzerFixture fixture;
    AnalyzerState expected = stateOf(fixture.analyzer);
    expected[QStringLiteral("m_analysisStartTime")] = 123456789.0;
    expected[QStringLiteral("m_isAnalyzing")] = 1.0;
    // 132.5 BPM, the middle of the profile's range, is 19969.8 samples; 90 BPM is 29400.
    expected[QStringLiteral("m_beatLength")] = 19970.0;
    expected[QStringLiteral("m_nextBeatIndex")] = 19970.0;
    expected[QStringLiteral("m_beatWindowEnd")] = 29400.0;

    QVERIFY(fixture.analyzer.Start());
    QCOMPARE(stateOf(fixture.analyzer), expected);
    QVERIFY(fixture.analyzer.isAnalyzing());
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Started"));
}

void tst_AudioAnalyzer_core::start_forgetsTheMeasuredTempo_beforeItPredicts()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_computedBPM = 100.0;
    QVERIFY(fixture.analyzer.Start());
    QCOMPARE(fixture.analyzer.m_computedBPM, 0.0);
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(19970));  // not the 26460 of 100 BPM
}

void tst_AudioAnalyzer_core::start_isRefused_whenRunning()
{
    HighResolutionTimerOverride clock(1000000);
    AnalyzerFixture fixture;
    QVERIFY(fixture.analyzer.Start());
    setSentinels(fixture.analyzer);
    const AnalyzerState before = stateOf(fixture.analyzer);
    fixture.log.take();
    clock.setTime(2000000);
    QVERIFY(!fixture.analyzer.Start());
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_core::start_isDone_whenItIsReported()
{
    AnalyzerFixture fixture;
    AnalyzerState reported;
    fixture.log.setObserver([&](const SignalRecord&) { reported = stateOf(fixture.analyzer); });
    QVERIFY(fixture.analyzer.Start());
    QCOMPARE(reported, stateOf(fixture.analyzer));
}

void tst_AudioAnalyzer_core::stop_isRefused_whenNotRunning()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    fixture.analyzer.m_isAnalyzing = false;
    const AnalyzerState before = stateOf(fixture.analyzer);
    QVERIFY(!fixture.analyzer.Stop());
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_core::stop_clearsTheRunAndKeepsTheRest_data()
{
    QTest::addColumn<double>("value");
    const struct
    {
        const char* pMember;
        double value;
    } rows[] = {
        {"m_samplesPerMinute", 2646000.0},
        {"m_sampleRate", 44100.0},
        {"m_accuracy", 0.25},
        {"m_pAmplitudes != nullptr", 0.0},
        {"m_amplitudesCount", 0.0},
        {"m_analysisStartTime", 0.0},
        {"m_sampleIndex", 0.0},
        {"m_isAnalyzing", 0.0},
        {"m_isConsistencyAllowed", 0.0},
        {"m_isStopped", 1.0},
        {"m_beatIndexes.size()", 0.0},
        {"m_computedBPM", 0.0},
        {"m_pConfiguration != nullptr", 1.0},
        {"m_missedBeatsCount", 107.0},
        {"m_beatLength", 0.0},
        {"m_volumeStats.m_writePosition", 0.0},
        {"m_volumeStats.m_isFull", 0.0},
        {"m_volumeStats.m_capacity", 88200.0},
        {"m_fixedBPM", 109.0},
        {"m_lastBPM", 110.0},
        {"m_inaccuracyStartTime", 111.0},
        {"m_lastBeatIndex", 0.0},
        {"m_isLastBeatVirtual", 0.0},
        {"m_lastPulseIndex", 0.0},
        {"m_virtualBeatIndex", 0.0},
        {"m_currentVolume", 115.0},
        {"m_previousVolume", 116.0},
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

void tst_AudioAnalyzer_core::stop_clearsTheRunAndKeepsTheRest()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    QVERIFY(fixture.analyzer.Stop());
    const AnalyzerState state = stateOf(fixture.analyzer);
    QCOMPARE(state.size(), 37);  // as many as there are rows
    QTEST(state.value(QLatin1String(QTest::currentDataTag()), -1.0), "value");
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Stopped"));
}

void tst_AudioAnalyzer_core::stop_isDone_whenItIsReported()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    AnalyzerState reported;
    fixture.log.setObserver([&](const SignalRecord&) { reported = stateOf(fixture.analyzer); });
    QVERIFY(fixture.analyzer.Stop());
    QCOMPARE(reported, stateOf(fixture.analyzer));
}

void tst_AudioAnalyzer_core::pause_neverPauses_isIntended()
{
    AnalyzerFixture fixture;
    setSentinels(fixture.analyzer);
    AnalyzerState before = stateOf(fixture.analyzer);
    QVERIFY(!fixture.analyzer.PauseAnalysis());
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());

    fixture.analyzer.m_isAnalyzing = false;
    before = stateOf(fixture.analyzer);
    QVERIFY(fixture.analyzer.PauseAnalysis());
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Stopped"));
}

void tst_AudioAnalyzer_core::analyzer_mayBeStartedAgain()
{
    HighResolutionTimerOverride clock(1000000);
    AnalyzerFixture fixture;
    QVERIFY(fixture.analyzer.Start());
    QVERIFY(fixture.analyzer.Stop());
    QVERIFY(!fixture.analyzer.Stop());
    clock.setTime(2000000);
    QVERIFY(fixture.analyzer.Start());
    QCOMPARE(fixture.analyzer.getAnalysisStartTime(), quint64(2000000));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Started Stopped Started"));
}

void tst_AudioAnalyzer_core::destructor_stops()
{
    Configuration configuration;
    for (const bool isRunning : {true, false}) {
        auto pAnalyzer =
            std::make_unique<AudioAnalyzer>(&configuration, makeFormat(44100), nullptr);
        if (isRunning)
            pAnalyzer->Start();
        const QSignalSpy spy(pAnalyzer.get(), &AudioAnalyzer::OnAnalysisStopped);
        pAnalyzer.reset();
        QCOMPARE(spy.count(), isRunning ? 1 : 0);
    }
}

void tst_AudioAnalyzer_core::destructor_leavesTheConfiguration()
{
    Configuration configuration;
    {
        AudioAnalyzer analyzer(&configuration, makeFormat(44100), nullptr);
        setSentinels(analyzer);
    }
    QVERIFY(!configuration.isModified());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
}

AA_TEST(tst_AudioAnalyzer_core, QCoreApplication)
#include "tst_AudioAnalyzer_core.moc"
