// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <support/SignalLog.h>
#include <support/TestClass.h>
#include <support/Waves.h>

using waves::Samples;

namespace {

constexpr int kChunkRate = 8000;
constexpr std::size_t kChunkBlock = 128;  // 8000 / 40 = 200, and the power of two below

/// Ten seconds of kicks and noise, and a remainder that fills no block.
Samples makeTrack()
{
    waves::Random random(7);
    Samples track = waves::kickTrack(10, kChunkRate, 125);
    waves::mix(track, 0, waves::noise(track.size(), 900, random));
    waves::append(track, waves::noise(77, 3000, random));
    return track;
}

/// An analyzer that hears music and decides no more about it: the only way for results not to
/// depend on the batches, since a batch is examined for stops before its blocks are.
class Run
{
public:
    Run() : m_clock(1700000000000000)
    {
        QAudioFormat format;
        format.setSampleRate(kChunkRate);
        m_configuration.setStopDetectionDuration(0);
        m_pAnalyzer = std::make_unique<AudioAnalyzer>(&m_configuration, format, nullptr);
        m_pLog = std::make_unique<SignalLog>(m_pAnalyzer.get());
        m_pAnalyzer->Start();
        m_pAnalyzer->m_isStopped = false;
    }

    void feed(Samples samples, std::size_t batchSize)
    {
        for (std::size_t at = 0; at < samples.size(); at += batchSize) {
            const std::size_t count = std::min(batchSize, samples.size() - at);
            m_pAnalyzer->Analyze(samples.data() + at, count);
        }
    }

    const SignalLog& getLog() const { return *m_pLog; }
    const AudioAnalyzer& getAnalyzer() const { return *m_pAnalyzer; }
    AudioAnalyzer& getAnalyzer() { return *m_pAnalyzer; }

private:
    HighResolutionTimerOverride m_clock;
    Configuration m_configuration;
    std::unique_ptr<AudioAnalyzer> m_pAnalyzer;
    std::unique_ptr<SignalLog> m_pLog;
};

void addBatchSizes()
{
    QTest::addColumn<int>("batchSize");
    for (const int size : {1, 2, 3, 5, 7, 17, 127, 128, 129, 511, 997, 1024, 4096})
        QTest::addRow("%d", size) << size;
}

}  // namespace

class tst_ChunkInvariance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signals_areTheSame_whateverTheBatchSize_data() { addBatchSizes(); }
    void signals_areTheSame_whateverTheBatchSize();
    void rawBlocks_areTheInputInOrder_whileStopped_data() { addBatchSizes(); }
    void rawBlocks_areTheInputInOrder_whileStopped();
    void remainder_standsInThePulseBlock_data() { addBatchSizes(); }
    void remainder_standsInThePulseBlock();

private:
    const Samples m_track = makeTrack();
};

void tst_ChunkInvariance::signals_areTheSame_whateverTheBatchSize()
{
    QFETCH(int, batchSize);
    Run whole;
    whole.feed(m_track, m_track.size());
    Run pieces;
    pieces.feed(m_track, static_cast<std::size_t>(batchSize));

    const SignalRecords& expected = whole.getLog().getRecords();
    QVERIFY(whole.getLog().count(SignalKind::PulseDetected) > 15);
    QVERIFY(whole.getLog().count(SignalKind::BPMChanged) > 15);
    const QString difference = describeDifference(expected, pieces.getLog().getRecords());
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QCOMPARE(pieces.getLog().getPulseRecords(), whole.getLog().getPulseRecords());
    QCOMPARE(pieces.getAnalyzer().m_isStopped, false);
    QCOMPARE(pieces.getAnalyzer().getCurrentBPM(), whole.getAnalyzer().getCurrentBPM());
}

void tst_ChunkInvariance::rawBlocks_areTheInputInOrder_whileStopped()
{
    QFETCH(int, batchSize);
    Run run;
    run.getAnalyzer().m_isStopped = true;
    run.feed(m_track, static_cast<std::size_t>(batchSize));

    const SignalRecords blocks = run.getLog().select(SignalKind::AudioSamplesAnalyzed);
    QCOMPARE(blocks.size(), m_track.size() / kChunkBlock);
    Samples all;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        QCOMPARE(blocks[i].index, quint64(i * kChunkBlock));
        QCOMPARE(blocks[i].samples.size(), kChunkBlock);
        waves::append(all, blocks[i].samples);
    }
    QVERIFY(std::equal(all.begin(), all.end(), m_track.begin()));
    QCOMPARE(run.getLog().count(SignalKind::AmplitudesComputed), std::size_t(0));
}

void tst_ChunkInvariance::remainder_standsInThePulseBlock()
{
    QFETCH(int, batchSize);
    Run run;
    run.feed(m_track, static_cast<std::size_t>(batchSize));
    // 80000 + 77 samples are 625 blocks and 77 samples more.
    const AudioAnalyzer& analyzer = run.getAnalyzer();
    QCOMPARE(quint64(analyzer.m_sampleIndex), quint64(80000));
    QCOMPARE(quint64(analyzer.m_pulseBlockFill), quint64(77));
    const AudioValues block = analyzer.getCurrentPulseBlock();
    QCOMPARE(quint64(block.size), quint64(kChunkBlock));
    QVERIFY(std::equal(m_track.end() - 77, m_track.end(), block.samples));
}

AA_TEST(tst_ChunkInvariance, QCoreApplication)
#include "tst_ChunkInvariance.moc"
