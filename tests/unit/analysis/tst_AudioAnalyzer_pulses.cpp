// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"
#include "AnalyzerState.h"
#include "PlayingFixture.h"

#include <QtTest>

#include <support/TestClass.h>

class tst_AudioAnalyzer_pulses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectify_isByMagnitude();
    void block_isAPulse_whenAQuarterReachesTheThreshold_data();
    void block_isAPulse_whenAQuarterReachesTheThreshold();
    void pulse_carriesTheStateAtDetection();
    void pulse_carriesTheStartTime();
    void pulse_endsByTheBlocksOwnCount_isIntended();
    void pulse_isAsLoudAsTheWindow();
    void pulse_isAsLoudAsTheThreshold_whenThatIsHigher();
    void shortBlock_isAPulse_whenNoSampleReaches_isIntended();
    void everyBlock_isAPulse_atAThresholdOf0();
    void pulse_isACandidate_insideTheWindowOnly_data();
    void pulse_isACandidate_insideTheWindowOnly();
    void lastPulseIndex_isTheLastPulse();
    void keptPulse_becomesABeat_whenItIsChosen();
    void candidate_isChosenBeforeItIsEmitted_atTheWindowsEnd();
    void currentVolume_isTheLoudestSample();
    void volumeStats_takeTheRectifiedSamples();
};

void tst_AudioAnalyzer_pulses::rectify_isByMagnitude()
{
    AnalyzerFixture fixture;
    Samples samples = {0, 1, -1, 32767, -32767, -32768, -5};
    fixture.analyzer.FullWaveRectify(samples.data(), 6);
    QCOMPARE(samples, Samples({0, 1, 1, 32767, 32767, 32767, -5}));
    fixture.analyzer.FullWaveRectify(nullptr, 0);
}

void tst_AudioAnalyzer_pulses::block_isAPulse_whenAQuarterReachesTheThreshold_data()
{
    QTest::addColumn<int>("loud");
    QTest::addColumn<int>("sign");
    QTest::addColumn<bool>("isPulse");
    QTest::newRow("256 of 1024") << 256 << 1 << true;
    QTest::newRow("255 of 1024") << 255 << 1 << false;
    QTest::newRow("256 negative ones") << 256 << -1 << true;
    QTest::newRow("255 negative ones") << 255 << -1 << false;
    QTest::newRow("all") << 1024 << 1 << true;
    QTest::newRow("none") << 0 << 1 << false;
}

void tst_AudioAnalyzer_pulses::block_isAPulse_whenAQuarterReachesTheThreshold()
{
    QFETCH(int, loud);
    QFETCH(int, sign);
    QFETCH(bool, isPulse);
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    Samples samples = loudBlock(std::size_t(loud));
    for (qint16& sample : samples)
        sample = qint16(sign * sample);
    fixture.detect(samples);
    QCOMPARE(fixture.log.count(SignalKind::PulseDetected), std::size_t(isPulse ? 1 : 0));
    QCOMPARE(fixture.log.count(SignalKind::AudioSamplesAnalyzed), std::size_t(1));
}

void tst_AudioAnalyzer_pulses::pulse_carriesTheStateAtDetection()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    fixture.detect(loudBlock(512), 4096);
    const auto pulses = fixture.log.getPulseRecords();
    QCOMPARE(pulses.size(), std::size_t(1));
    QCOMPARE(pulses[0].startIndex, quint64(4096));
    QCOMPARE(pulses[0].endIndex, quint64(5119));
    QCOMPARE(pulses[0].threshold, 900);
    QCOMPARE(pulses[0].type, int(ePulse));
    QCOMPARE(pulses[0].averageVolume, int(fixture.analyzer.getAverageVolume()));
    QCOMPARE(pulses[0].maximalValue, int(fixture.analyzer.m_volumeStats.getMaximalVolume()));
    // Half of the samples are 1000; the transform may lose one unit.
    QVERIFY(std::abs(pulses[0].averageVolume - 500) <= 1);
    QVERIFY(std::abs(pulses[0].maximalValue - 1000) <= 1);
}

void tst_AudioAnalyzer_pulses::pulse_carriesTheStartTime()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(0);
    fixture.detect(loudBlock(512), 44100);
    fixture.analyzer.m_analysisStartTime = 5000000;
    fixture.detect(loudBlock(512), 44100);
    const auto pulses = fixture.log.getPulseRecords();
    QCOMPARE(pulses.size(), std::size_t(2));
    QCOMPARE(pulses[0].startTime, quint64(1000000));
    QCOMPARE(pulses[1].startTime, quint64(6000000));
}

void tst_AudioAnalyzer_pulses::pulse_endsByTheBlocksOwnCount_isIntended()
{
    // 1000 samples are transformed as 1024.
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    fixture.detect(loudBlock(250, 1000), 7000);
    const auto pulses = fixture.log.getPulseRecords();
    QCOMPARE(pulses.size(), std::size_t(1));
    QCOMPARE(pulses[0].endIndex, quint64(7999));
    QCOMPARE(fixture.log.select(SignalKind::AudioSamplesAnalyzed)[0].samples.size(),
             std::size_t(1000));
}

void tst_AudioAnalyzer_pulses::pulse_isAsLoudAsTheWindow()
{
    // The loudest sample of the volumes' window, not of the block.
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    short loud = 30000;
    fixture.analyzer.m_volumeStats.Update(&loud, 1);
    fixture.detect(loudBlock(256));
    QCOMPARE(fixture.log.getPulseRecords().at(0).maximalValue, 30000);
}

void tst_AudioAnalyzer_pulses::pulse_isAsLoudAsTheThreshold_whenThatIsHigher()
{
    // Below four samples a block is a pulse although nothing reaches the threshold.
    PlayingFixture fixture(60);
    fixture.configuration.setThreshold(20000);
    fixture.detect({100, 100});
    QCOMPARE(fixture.log.getPulseRecords().at(0).maximalValue, 20000);
    QCOMPARE(fixture.log.getPulseRecords().at(0).endIndex, quint64(1));
}

void tst_AudioAnalyzer_pulses::shortBlock_isAPulse_whenNoSampleReaches_isIntended()
{
    PlayingFixture fixture(60);
    QCOMPARE(fixture.analyzer.getPulseBlockSize(), quint64(2));
    fixture.configuration.setThreshold(900);
    fixture.detect({1000, 0});
    fixture.detect({0, 1000});
    fixture.detect({1000, 1000});
    QCOMPARE(fixture.log.count(SignalKind::PulseDetected), std::size_t(0));
    fixture.detect({0, 0});
    QCOMPARE(fixture.log.count(SignalKind::PulseDetected), std::size_t(1));
}

void tst_AudioAnalyzer_pulses::everyBlock_isAPulse_atAThresholdOf0()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(0);
    fixture.detect(waves::silence(1024));
    fixture.detect(waves::constant(1024, -5000));
    fixture.detect(waves::constant(1024, -32768));
    QCOMPARE(fixture.log.count(SignalKind::PulseDetected), std::size_t(3));
}

void tst_AudioAnalyzer_pulses::pulse_isACandidate_insideTheWindowOnly_data()
{
    QTest::addColumn<quint64>("index");
    QTest::addColumn<bool>("isCandidate");
    QTest::newRow("far before") << quint64(0) << false;
    QTest::newRow("just before") << quint64(899999) << false;
    QTest::newRow("first") << quint64(900000) << true;
    QTest::newRow("inside") << quint64(950000) << true;
    QTest::newRow("just before the end") << quint64(999999) << true;
}

void tst_AudioAnalyzer_pulses::pulse_isACandidate_insideTheWindowOnly()
{
    QFETCH(quint64, index);
    QFETCH(bool, isCandidate);
    PlayingFixture fixture;
    fixture.configuration.setThreshold(0);
    fixture.detect(loudBlock(512), index);
    QCOMPARE(fixture.log.count(SignalKind::PulseDetected), std::size_t(1));
    QCOMPARE(fixture.analyzer.m_candidatePulses.size(), std::size_t(isCandidate ? 1 : 0));
    if (isCandidate)
        QCOMPARE(fixture.analyzer.m_candidatePulses.front().m_pData,
                 fixture.log.getPulses()[0].m_pData);
}

void tst_AudioAnalyzer_pulses::lastPulseIndex_isTheLastPulse()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    fixture.detect(loudBlock(256), 2048);
    QCOMPARE(fixture.analyzer.m_lastPulseIndex, quint64(2048));
    fixture.detect(loudBlock(255), 3072);
    QCOMPARE(fixture.analyzer.m_lastPulseIndex, quint64(2048));
    fixture.detect(loudBlock(256), 4096);
    QCOMPARE(fixture.analyzer.m_lastPulseIndex, quint64(4096));
}

void tst_AudioAnalyzer_pulses::keptPulse_becomesABeat_whenItIsChosen()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    fixture.detect(loudBlock(256), 950000);
    fixture.detect(loudBlock(256), 960000);
    QCOMPARE(fixture.log.getPulses()[0].getType(), ePulse);
    fixture.detect(loudBlock(0), 1000000);  // the window has passed
    QCOMPARE(fixture.log.getPulses().size(), std::size_t(2));
    QCOMPARE(fixture.log.getPulses()[0].getType(), eBeat);
    QCOMPARE(fixture.log.getPulses()[1].getType(), ePulse);
    QCOMPARE(fixture.analyzer.m_lastBeatIndex, quint64(950000));
}

void tst_AudioAnalyzer_pulses::candidate_isChosenBeforeItIsEmitted_atTheWindowsEnd()
{
    for (const bool isInside : {true, false}) {
        PlayingFixture fixture;
        fixture.configuration.setThreshold(900);
        const quint64 index = isInside ? 1000000 : 1000001;
        fixture.detect(loudBlock(256), index);
        const SignalRecords pulses = fixture.log.select(SignalKind::PulseDetected);
        QCOMPARE(pulses.size(), std::size_t(1));
        QCOMPARE(pulses[0].pulse.startIndex, index);
        QCOMPARE(pulses[0].pulse.type, int(isInside ? eBeat : ePulse));
        QCOMPARE(fixture.analyzer.m_isLastBeatVirtual, !isInside);
        QCOMPARE(fixture.analyzer.m_lastBeatIndex, isInside ? index : quint64(950000));
    }
}

void tst_AudioAnalyzer_pulses::currentVolume_isTheLoudestSample()
{
    PlayingFixture fixture;
    Samples samples = loudBlock(1);
    samples[500] = -7000;
    fixture.detect(samples);
    const int loudest = fixture.analyzer.getCurrentVolume();
    QVERIFY(std::abs(loudest - 7000) <= 1);
    fixture.detect(loudBlock(10));  // not louder
    QCOMPARE(int(fixture.analyzer.getCurrentVolume()), loudest);
    samples[501] = 9000;
    fixture.detect(samples);
    QVERIFY(std::abs(fixture.analyzer.getCurrentVolume() - 9000) <= 1);
}

void tst_AudioAnalyzer_pulses::volumeStats_takeTheRectifiedSamples()
{
    PlayingFixture fixture;
    fixture.detect(waves::sine(1024, 44100, 1000.0, 10000.0));
    const AudioSamplesStats& stats = fixture.analyzer.m_volumeStats;
    QCOMPARE(stats.m_writePosition, quint64(1024));
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 1024),
             fixture.log.select(SignalKind::AudioSamplesAnalyzed).at(0).samples);
    QVERIFY(*std::min_element(stats.m_pSamples, stats.m_pSamples + 1024) >= 0);
}

AA_TEST(tst_AudioAnalyzer_pulses, QCoreApplication)
#include "tst_AudioAnalyzer_pulses.moc"
