// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <support/TestClass.h>

using waves::Samples;

namespace {

/// A stop block of 66150 samples at 44100 Hz.
struct StopFixture : AnalyzerFixture
{
    explicit StopFixture(double seconds = 1.5) { configuration.setStopDetectionDuration(seconds); }
    void detect(const Samples& samples) { analyzer.DetectStops(samples.data(), samples.size()); }
};

Samples makeMusic(std::size_t count)
{
    return waves::sine(count, 44100, 440.0, 20000.0);
}

/// Silence with one bump of a millisecond in its middle: its sound lies below 1000 Hz.
Samples makeBump(std::size_t count, double amplitude)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double distance = (double(i) - double(count) / 2.0) / 22.05;
        samples[i] = waves::toSample(amplitude * std::exp(-distance * distance));
    }
    return samples;
}

Samples bandPassed(const Samples& samples, int sampleRate = 44100)
{
    FastFourierTransform transform;
    transform.Compute(samples.data(), samples.size());
    transform.BandPassFilter(50, 2000, sampleRate);
    short* pResult = nullptr;
    std::size_t count = 0;
    transform.ComputeInverse(pResult, count);
    return Samples(pResult, pResult + count);
}

}  // namespace

class tst_AudioAnalyzer_stops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decision_comesWithTheBatchThatCompletesTheBlock();
    void decision_holdsUntilTheNextOne();
    void decision_isTheSame_howeverTheBlockIsCut();
    void leftOver_beginsTheNextBlock();
    void block_isExactlyComplete_withoutLeftOver();
    void longBatch_isJudgedByItsLastBlock_data();
    void longBatch_isJudgedByItsLastBlock();
    void music_isWhatLiesBetween50And2000Hertz_data();
    void music_isWhatLiesBetween50And2000Hertz();
    void music_mustExceedTheThreshold();
    void negativePeaks_proveNoMusic_isIntended();
    void duration0_leavesTheState_data();
    void duration0_leavesTheState();
    void block_isBuiltOnce_withTheConfiguredDuration();
    void block_isRebuilt_withTheConfiguredDurationNotTheArgument_isIntended();
    void stopAndReset_clearTheFillAndKeepTheBlock();
    void emptyBatch_onlyBuildsTheBlock();
    void detection_emitsNothing();
    void volumes_readTheMembers();
    void maximalVolume_isTheGreaterOfTwoWindows_data();
    void maximalVolume_isTheGreaterOfTwoWindows();
    void averageVolumeDuration_resizesTheWindow();
};

void tst_AudioAnalyzer_stops::decision_comesWithTheBatchThatCompletesTheBlock()
{
    // 64 batches of 1024 are 65536 samples, 614 short of a block.
    StopFixture fixture;
    const Samples music = makeMusic(65 * 1024);
    for (std::size_t batch = 0; batch < 64; ++batch) {
        fixture.analyzer.DetectStops(music.data() + batch * 1024, 1024);
        QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64((batch + 1) * 1024));
        QVERIFY(fixture.analyzer.m_isStopped);
    }
    QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(66150));
    fixture.analyzer.DetectStops(music.data() + std::size_t(64 * 1024), 1024);
    QVERIFY(!fixture.analyzer.m_isStopped);
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(410));
}

void tst_AudioAnalyzer_stops::decision_holdsUntilTheNextOne()
{
    StopFixture fixture;
    fixture.detect(makeMusic(66150));
    QVERIFY(!fixture.analyzer.m_isStopped);
    fixture.detect(waves::silence(66149));
    QVERIFY(!fixture.analyzer.m_isStopped);
    fixture.detect(waves::silence(1));
    QVERIFY(fixture.analyzer.m_isStopped);
    fixture.detect(makeMusic(66149));
    QVERIFY(fixture.analyzer.m_isStopped);
    fixture.detect(waves::silence(1));
    QVERIFY(!fixture.analyzer.m_isStopped);
}

void tst_AudioAnalyzer_stops::decision_isTheSame_howeverTheBlockIsCut()
{
    // Loud enough only if every sample of the block is in its place.
    const Samples bump = makeBump(66150, 20000.0);
    const Samples filtered = bandPassed(bump);
    const short peak = *std::max_element(filtered.begin(), filtered.end());
    for (const std::size_t batch : {1, 7, 1000, 66149, 66150}) {
        for (const bool isLoud : {true, false}) {
            StopFixture fixture;
            fixture.configuration.setStopDetectionThreshold(short(isLoud ? peak - 1 : peak));
            fixture.analyzer.m_isStopped = isLoud;
            for (std::size_t at = 0; at < bump.size(); at += batch)
                fixture.analyzer.DetectStops(bump.data() + at, std::min(batch, bump.size() - at));
            QCOMPARE(fixture.analyzer.m_isStopped, !isLoud);
        }
    }
}

void tst_AudioAnalyzer_stops::leftOver_beginsTheNextBlock()
{
    StopFixture fixture(100.0 / 44100.0);
    fixture.detect(Samples(90, 1));
    QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(100));
    fixture.detect({2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 3, 4, 5});
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(3));
    const qint16* pBlock = fixture.analyzer.m_pStopBlock;
    QCOMPARE(Samples(pBlock, pBlock + 3), Samples({3, 4, 5}));
    fixture.detect({6});
    QCOMPARE(Samples(pBlock, pBlock + 4), Samples({3, 4, 5, 6}));
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(4));
}

void tst_AudioAnalyzer_stops::block_isExactlyComplete_withoutLeftOver()
{
    StopFixture fixture(100.0 / 44100.0);
    fixture.detect(Samples(90, 1));
    fixture.detect(Samples(10, 1));
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(0));
}

void tst_AudioAnalyzer_stops::longBatch_isJudgedByItsLastBlock_data()
{
    QTest::addColumn<int>("gathered");  // samples of the opposite kind, before
    QTest::addColumn<int>("older");     // samples of the opposite kind, in the batch
    QTest::newRow("just one block") << 0 << 0;
    QTest::newRow("older samples") << 0 << 50000;
    QTest::newRow("gathered samples") << 66149 << 0;
    QTest::newRow("both") << 40000 << 140000;
}

void tst_AudioAnalyzer_stops::longBatch_isJudgedByItsLastBlock()
{
    QFETCH(int, gathered);
    QFETCH(int, older);
    for (const bool isMusic : {true, false}) {
        StopFixture fixture;
        fixture.analyzer.m_isStopped = isMusic;
        const auto make = [](bool music, std::size_t count) {
            return music ? makeMusic(count) : waves::silence(count);
        };
        fixture.detect(make(!isMusic, std::size_t(gathered)));
        QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(gathered));
        Samples batch = make(!isMusic, std::size_t(older));
        waves::append(batch, make(isMusic, 66150));
        fixture.detect(batch);
        QCOMPARE(fixture.analyzer.m_isStopped, !isMusic);
        QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(0));
    }
}

void tst_AudioAnalyzer_stops::music_isWhatLiesBetween50And2000Hertz_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<bool>("isStopped");
    QTest::newRow("20 Hz") << 20.0 << true;
    QTest::newRow("70 Hz") << 70.0 << false;
    QTest::newRow("440 Hz") << 440.0 << false;
    QTest::newRow("1900 Hz") << 1900.0 << false;
    // Nearer to the edge the block's own ends would be heard.
    QTest::newRow("5000 Hz") << 5000.0 << true;
    QTest::newRow("10000 Hz") << 10000.0 << true;
}

void tst_AudioAnalyzer_stops::music_isWhatLiesBetween50And2000Hertz()
{
    QFETCH(double, frequency);
    QFETCH(bool, isStopped);
    StopFixture fixture;
    fixture.configuration.setStopDetectionThreshold(8000);
    fixture.analyzer.m_isStopped = !isStopped;
    fixture.detect(waves::sine(66150, 44100, frequency, 20000.0));
    QCOMPARE(fixture.analyzer.m_isStopped, isStopped);
}

void tst_AudioAnalyzer_stops::music_mustExceedTheThreshold()
{
    const Samples music = makeMusic(66150);
    const Samples filtered = bandPassed(music);
    const short peak = *std::max_element(filtered.begin(), filtered.end());
    QVERIFY(peak > 10000);
    for (const int above : {0, 1, -1}) {
        StopFixture fixture;
        fixture.configuration.setStopDetectionThreshold(short(peak + above));
        fixture.analyzer.m_isStopped = above < 0;
        fixture.detect(music);
        QCOMPARE(fixture.analyzer.m_isStopped, above >= 0);
    }
}

void tst_AudioAnalyzer_stops::negativePeaks_proveNoMusic_isIntended()
{
    // The same bump, once downwards and once upwards, as loud either way.
    for (const bool isNegative : {true, false}) {
        StopFixture fixture;
        fixture.analyzer.m_isStopped = !isNegative;
        const Samples bump = makeBump(66150, isNegative ? -30000.0 : 30000.0);
        const Samples filtered = bandPassed(bump);
        if (isNegative)
            QVERIFY(*std::min_element(filtered.begin(), filtered.end()) < -10000);
        fixture.detect(bump);
        QCOMPARE(fixture.analyzer.m_isStopped, isNegative);
    }
}

void tst_AudioAnalyzer_stops::duration0_leavesTheState_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("0") << 0.0;
    QTest::newRow("rounds to 0 samples") << 0.00001;  // 0.441
}

void tst_AudioAnalyzer_stops::duration0_leavesTheState()
{
    QFETCH(double, seconds);
    for (const bool isStopped : {true, false}) {
        StopFixture fixture(seconds);
        fixture.analyzer.m_isStopped = isStopped;
        fixture.analyzer.m_stopBlockFill = 5;
        fixture.analyzer.m_stopBlockSize = 6;
        fixture.detect(isStopped ? makeMusic(100000) : waves::silence(100000));
        QCOMPARE(fixture.analyzer.m_isStopped, isStopped);
        QVERIFY(!fixture.analyzer.m_pStopBlock);
        QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(0));
        QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(0));
        // As soon as there is a duration, detection goes on.
        fixture.configuration.setStopDetectionDuration(1.5);
        fixture.detect(isStopped ? makeMusic(100000) : waves::silence(100000));
        QCOMPARE(fixture.analyzer.m_isStopped, !isStopped);
    }
}

void tst_AudioAnalyzer_stops::block_isBuiltOnce_withTheConfiguredDuration()
{
    StopFixture fixture;
    fixture.detect({1, 2, 3});
    const qint16* const pBlock = fixture.analyzer.m_pStopBlock;
    QVERIFY(pBlock);
    QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(66150));
    fixture.configuration.setStopDetectionDuration(0.5);
    fixture.detect({4});
    QCOMPARE(fixture.analyzer.m_pStopBlock, pBlock);
    QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(66150));
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(4));
}

void tst_AudioAnalyzer_stops::block_isRebuilt_withTheConfiguredDurationNotTheArgument_isIntended()
{
    StopFixture fixture;
    QVERIFY(fixture.analyzer.setStopDetectionDuration(7.0));  // without a block
    fixture.detect({1, 2, 3});
    fixture.configuration.setStopDetectionDuration(0.5);
    QVERIFY(fixture.analyzer.setStopDetectionDuration(7.0));
    QVERIFY(!fixture.analyzer.m_pStopBlock);
    QVERIFY(fixture.analyzer.m_isStopped);
    QCOMPARE(fixture.configuration.getStopDetectionDuration(), 0.5);
    fixture.detect({4});
    QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(22050));
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(1));
    QCOMPARE(fixture.analyzer.m_pStopBlock[0], qint16(4));
    QVERIFY(fixture.analyzer.setStopDetectionDuration(-1.0));
    QVERIFY(!fixture.analyzer.m_pStopBlock);
}

void tst_AudioAnalyzer_stops::stopAndReset_clearTheFillAndKeepTheBlock()
{
    StopFixture fixture;
    for (const bool isReset : {true, false}) {
        fixture.analyzer.Start();
        fixture.analyzer.m_isStopped = false;
        fixture.detect({1, 2, 3});
        const qint16* const pBlock = fixture.analyzer.m_pStopBlock;
        if (isReset)
            fixture.analyzer.Reset();
        else
            fixture.analyzer.Stop();
        QVERIFY(fixture.analyzer.m_isStopped);
        QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(0));
        QCOMPARE(fixture.analyzer.m_pStopBlock, pBlock);
        QCOMPARE(fixture.analyzer.m_stopBlockSize, quint64(66150));
    }
}

void tst_AudioAnalyzer_stops::emptyBatch_onlyBuildsTheBlock()
{
    StopFixture fixture;
    fixture.analyzer.DetectStops(nullptr, 0);
    QVERIFY(fixture.analyzer.m_pStopBlock);
    fixture.detect(makeMusic(66149));
    fixture.analyzer.DetectStops(nullptr, 0);
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(66149));
    QVERIFY(fixture.analyzer.m_isStopped);
}

void tst_AudioAnalyzer_stops::detection_emitsNothing()
{
    StopFixture fixture;
    fixture.detect(makeMusic(66150));
    fixture.detect(waves::silence(66150));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_stops::volumes_readTheMembers()
{
    AnalyzerFixture fixture;
    QCOMPARE(fixture.analyzer.getAverageVolume(), qint16(-1));
    QCOMPARE(fixture.analyzer.getCurrentVolume(), qint16(0));
    QCOMPARE(fixture.analyzer.getMaximalVolume(), qint16(0));
    Samples samples = {10, 20, 60};
    fixture.analyzer.m_volumeStats.Update(samples.data(), samples.size());
    fixture.analyzer.m_currentVolume = 123;
    QCOMPARE(fixture.analyzer.getAverageVolume(), qint16(30));
    QCOMPARE(fixture.analyzer.getCurrentVolume(), qint16(123));
}

void tst_AudioAnalyzer_stops::maximalVolume_isTheGreaterOfTwoWindows_data()
{
    QTest::addColumn<int>("previous");
    QTest::addColumn<int>("current");
    QTest::addColumn<qint16>("maximal");
    QTest::newRow("previous") << 200 << 100 << qint16(200);
    QTest::newRow("current") << 100 << 200 << qint16(200);
    QTest::newRow("equal") << 150 << 150 << qint16(150);
    QTest::newRow("full scale") << 0 << 32767 << qint16(32767);
}

void tst_AudioAnalyzer_stops::maximalVolume_isTheGreaterOfTwoWindows()
{
    QFETCH(int, previous);
    QFETCH(int, current);
    AnalyzerFixture fixture;
    fixture.analyzer.m_previousVolume = qint16(previous);
    fixture.analyzer.m_currentVolume = qint16(current);
    QTEST(fixture.analyzer.getMaximalVolume(), "maximal");
}

void tst_AudioAnalyzer_stops::averageVolumeDuration_resizesTheWindow()
{
    AnalyzerFixture fixture;
    QVERIFY(!fixture.analyzer.setAverageVolumeCalculationDuration(2.0));
    QVERIFY(fixture.analyzer.setAverageVolumeCalculationDuration(0.5));
    QCOMPARE(fixture.analyzer.m_volumeStats.m_capacity, quint64(22050));
    QVERIFY(!fixture.analyzer.setAverageVolumeCalculationDuration(0.0));
    QVERIFY(!fixture.analyzer.setAverageVolumeCalculationDuration(-1.0));
    QCOMPARE(fixture.analyzer.m_volumeStats.m_capacity, quint64(22050));
    QCOMPARE(fixture.configuration.getAverageVolumeCalculationDuration(), 2.0);
}

AA_TEST(tst_AudioAnalyzer_stops, QCoreApplication)
#include "tst_AudioAnalyzer_stops.moc"
