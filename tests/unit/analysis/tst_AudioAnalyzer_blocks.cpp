// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"
#include "AnalyzerState.h"
#include "TestSeed.h"

#include <QtTest>

#include <limits>
#include <numeric>
#include <support/TestClass.h>

using waves::Samples;

namespace {

/// 1, 2, 3, ... so that every sample tells its place.
Samples countUp(std::size_t count, int first = 1)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = qint16(first + int(i));
    return samples;
}

/// The samples [from, to).
Samples slice(const Samples& samples, std::size_t from, std::size_t to)
{
    return Samples(samples.begin() + std::ptrdiff_t(from), samples.begin() + std::ptrdiff_t(to));
}

}  // namespace

/// Without music, each block is reported raw: what comes out is how the input was cut.
class tst_AudioAnalyzer_blocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blockSize_followsTheSampleRate_data();
    void blockSize_followsTheSampleRate();
    void analyze_makesNoBlocks_belowTwentyHertz_data();
    void analyze_makesNoBlocks_belowTwentyHertz();
    void analyze_onlyAccumulates_untilABlockIsComplete();
    void analyze_carriesTheRemainder();
    void analyze_ofOneBlock_goesThroughThePulseBlock();
    void analyze_ofMoreBlocks_usesTheCallersSamples();
    void analyze_ofNothing_changesNothing();
    void analyze_withoutAPulseBlock_onlyDetectsStops();
    void analyze_worksWithoutStart();
    void analyze_detectsStopsFirst();
    void blocks_areTheInput_forRandomBatches();
    void index_wrapsAfter32Bits();
    void index_beginsAnew_afterStop();
    void currentPulseBlock_isTheLastOneUnderThePendingRemainder();

private:
    static AudioValues blockOf(const AnalyzerFixture& fixture)
    {
        return fixture.analyzer.getCurrentPulseBlock();
    }
};

void tst_AudioAnalyzer_blocks::blockSize_followsTheSampleRate_data()
{
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<quint64>("blockSize");
    const struct
    {
        int sampleRate;
        quint64 blockSize;
    } rows[] = {{44100, 1024},
                {48000, 1024},
                {22050, 512},
                {96000, 2048},
                {192000, 4096},
                {8000, 128},
                {40, 1},
                {20, 1}};
    for (const auto& row : rows)
        QTest::addRow("%d Hz", row.sampleRate) << row.sampleRate << row.blockSize;
}

void tst_AudioAnalyzer_blocks::blockSize_followsTheSampleRate()
{
    QFETCH(int, sampleRate);
    QFETCH(quint64, blockSize);
    AnalyzerFixture fixture(sampleRate);
    QCOMPARE(fixture.analyzer.getPulseBlockSize(), blockSize);
    QCOMPARE(blockOf(fixture).size, quint32(blockSize));

    Samples samples = countUp(blockSize);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    const SignalRecords blocks = fixture.log.select(SignalKind::AudioSamplesAnalyzed);
    QCOMPARE(blocks.size(), std::size_t(1));
    QCOMPARE(blocks[0].samples, samples);
    QCOMPARE(fixture.analyzer.m_sampleIndex, blockSize);
}

void tst_AudioAnalyzer_blocks::analyze_makesNoBlocks_belowTwentyHertz_data()
{
    QTest::addColumn<int>("sampleRate");
    for (const int sampleRate : {19, 2, 1, 0, -1, -44100, std::numeric_limits<int>::min()})
        QTest::addRow("%d Hz", sampleRate) << sampleRate;
}

void tst_AudioAnalyzer_blocks::analyze_makesNoBlocks_belowTwentyHertz()
{
    QFETCH(int, sampleRate);
    AnalyzerFixture fixture(sampleRate);
    QCOMPARE(fixture.analyzer.getPulseBlockSize(), quint64(0));
    QCOMPARE(blockOf(fixture).size, quint32(0));
    QVERIFY(fixture.analyzer.Start());
    Samples samples = countUp(100);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    fixture.analyzer.Analyze(samples.data(), 0);
    QCOMPARE(fixture.analyzer.m_sampleIndex, quint64(0));
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(0));
    QVERIFY(fixture.analyzer.Stop());
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Started Stopped"));
}

void tst_AudioAnalyzer_blocks::analyze_onlyAccumulates_untilABlockIsComplete()
{
    AnalyzerFixture fixture;
    Samples samples = countUp(1024);
    fixture.analyzer.Analyze(samples.data(), 1000);
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(1000));
    fixture.analyzer.Analyze(samples.data() + 1000, 23);
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(1023));
    QCOMPARE(fixture.analyzer.m_sampleIndex, quint64(0));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());

    fixture.analyzer.Analyze(samples.data() + 1023, 1);
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(0));
    QCOMPARE(fixture.analyzer.m_sampleIndex, quint64(1024));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Samples"));
    QCOMPARE(fixture.log.getRecords()[0].index, quint64(0));
    QCOMPARE(fixture.log.getRecords()[0].samples, samples);
}

void tst_AudioAnalyzer_blocks::analyze_carriesTheRemainder()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_beatWindowEnd = 1000000;  // no beat window ends here
    fixture.analyzer.m_beatLength = 20000;
    Samples samples = countUp(4000);
    fixture.analyzer.Analyze(samples.data(), 3000);
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(952));  // 3000 - 2 * 1024
    fixture.analyzer.Analyze(samples.data() + 3000, 1000);
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(928));  // 4000 - 3 * 1024

    const SignalRecords blocks = fixture.log.getRecords();
    QCOMPARE(kindsOf(blocks), QStringLiteral("Samples Samples Samples"));
    for (std::size_t i = 0; i < 3; ++i) {
        QCOMPARE(blocks[i].index, quint64(i * 1024));
        QCOMPARE(blocks[i].samples, slice(samples, i * 1024, (i + 1) * 1024));
    }
}

void tst_AudioAnalyzer_blocks::analyze_ofOneBlock_goesThroughThePulseBlock()
{
    AnalyzerFixture fixture;
    std::vector<const qint16*> reported;
    connect(&fixture.analyzer,
            &AudioAnalyzer::OnAudioSamplesAnalyzed,
            this,
            [&](unsigned int, const qint16* pSamples) { reported.push_back(pSamples); });
    Samples samples = countUp(1024);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    QCOMPARE(reported, std::vector<const qint16*>({blockOf(fixture).samples}));
    QCOMPARE(Samples(blockOf(fixture).samples, blockOf(fixture).samples + 1024), samples);
}

void tst_AudioAnalyzer_blocks::analyze_ofMoreBlocks_usesTheCallersSamples()
{
    AnalyzerFixture fixture;
    std::vector<const qint16*> reported;
    std::vector<quint64> fills;
    connect(&fixture.analyzer,
            &AudioAnalyzer::OnAudioSamplesAnalyzed,
            this,
            [&](unsigned int, const qint16* pSamples) {
                reported.push_back(pSamples);
                fills.push_back(fixture.analyzer.m_pulseBlockFill);
            });
    Samples samples = countUp(4000);
    fixture.analyzer.Analyze(samples.data(), 100);
    fixture.analyzer.Analyze(samples.data() + 100, 3900);
    QCOMPARE(reported,
             std::vector<const qint16*>(
                 {blockOf(fixture).samples, samples.data() + 1024, samples.data() + 2048}));
    QCOMPARE(fills, std::vector<quint64>({0, 0, 0}));
}

void tst_AudioAnalyzer_blocks::analyze_ofNothing_changesNothing()
{
    AnalyzerFixture fixture;
    Samples samples = countUp(100);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    const AnalyzerState before = stateOf(fixture.analyzer);
    fixture.analyzer.Analyze(samples.data(), 0);
    fixture.analyzer.Analyze(nullptr, 0);
    QCOMPARE(stateOf(fixture.analyzer), before);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_blocks::analyze_withoutAPulseBlock_onlyDetectsStops()
{
    AnalyzerFixture fixture;
    delete[] std::exchange(fixture.analyzer.m_pPulseBlock, nullptr);
    Samples samples = countUp(3000);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    QCOMPARE(fixture.analyzer.m_stopBlockFill, quint64(3000));
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(0));
    QCOMPARE(fixture.analyzer.m_sampleIndex, quint64(0));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QString());
}

void tst_AudioAnalyzer_blocks::analyze_worksWithoutStart()
{
    AnalyzerFixture fixture;
    Samples samples = countUp(1024);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    QVERIFY(!fixture.analyzer.isAnalyzing());
    QCOMPARE(fixture.analyzer.m_beatLength, quint64(19970));
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Samples"));
}

void tst_AudioAnalyzer_blocks::analyze_detectsStopsFirst()
{
    // The stop block ends with this batch, so its first pulse block is filtered already.
    AnalyzerFixture fixture;
    fixture.configuration.setStopDetectionDuration(2048.0 / 44100.0);
    Samples samples = waves::sine(2048, 44100, 440.0, 20000.0);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    QVERIFY(!fixture.analyzer.m_isStopped);
    QCOMPARE(fixture.log.count(SignalKind::AmplitudesComputed), std::size_t(2));
}

void tst_AudioAnalyzer_blocks::blocks_areTheInput_forRandomBatches()
{
    waves::Random random(testSeed());
    for (const int rate : {44100, 22050, 8000, 60}) {
        AnalyzerFixture fixture(rate);
        fixture.configuration.setStopDetectionThreshold(32767);  // never music
        const std::size_t size = fixture.analyzer.getPulseBlockSize();
        Samples samples = waves::noise(size * 60 + size / 2, 32767, random);
        for (std::size_t at = 0; at < samples.size();) {
            const std::size_t count = std::min(random.below(size * 4), samples.size() - at);
            fixture.analyzer.Analyze(samples.data() + at, count);
            at += count;
            QCOMPARE(fixture.analyzer.m_sampleIndex, quint64(at / size * size));
            QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(at % size));
        }
        const SignalRecords blocks = fixture.log.select(SignalKind::AudioSamplesAnalyzed);
        QCOMPARE(blocks.size(), std::size_t(60));
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            QCOMPARE(blocks[i].index, quint64(i * size));
            QCOMPARE(blocks[i].samples, slice(samples, i * size, (i + 1) * size));
        }
    }
}

void tst_AudioAnalyzer_blocks::index_wrapsAfter32Bits()
{
    AnalyzerFixture fixture;
    fixture.analyzer.m_sampleIndex = Q_UINT64_C(4294966272);  // 2^32 - 1024
    Samples samples = countUp(2048);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    const SignalRecords blocks = fixture.log.select(SignalKind::AudioSamplesAnalyzed);
    QCOMPARE(blocks.size(), std::size_t(2));
    QCOMPARE(blocks[0].index, Q_UINT64_C(4294966272));
    QCOMPARE(blocks[1].index, quint64(0));
    QCOMPARE(fixture.analyzer.m_sampleIndex, Q_UINT64_C(4294968320));
    // The window is not cut: it began at the full index.
    QCOMPARE(fixture.analyzer.m_beatWindowStart, Q_UINT64_C(4294966272));
}

void tst_AudioAnalyzer_blocks::index_beginsAnew_afterStop()
{
    AnalyzerFixture fixture;
    fixture.analyzer.Start();
    Samples samples = countUp(1500);
    fixture.analyzer.Analyze(samples.data(), samples.size());
    fixture.analyzer.Stop();
    fixture.log.take();
    fixture.analyzer.Analyze(samples.data(), samples.size());
    const SignalRecords blocks = fixture.log.select(SignalKind::AudioSamplesAnalyzed);
    QCOMPARE(blocks.size(), std::size_t(1));
    QCOMPARE(blocks[0].index, quint64(0));
    QCOMPARE(blocks[0].samples, slice(samples, 0, 1024));
    QCOMPARE(fixture.analyzer.m_pulseBlockFill, quint64(476));
}

void tst_AudioAnalyzer_blocks::currentPulseBlock_isTheLastOneUnderThePendingRemainder()
{
    AnalyzerFixture fixture;
    Samples first = countUp(1024, 1);
    Samples second = countUp(2048 + 100, 5000);
    fixture.analyzer.Analyze(first.data(), 1000);
    fixture.analyzer.Analyze(first.data() + 1000, 24);
    const AudioValues values = blockOf(fixture);
    QCOMPARE(Samples(values.samples, values.samples + values.size), first);

    // Of two blocks at once only the first goes through the pulse block.
    fixture.analyzer.Analyze(second.data(), second.size());
    Samples expected = slice(second, 0, 1024);
    std::copy_n(second.begin() + 2048, 100, expected.begin());
    QCOMPARE(blockOf(fixture).samples, values.samples);
    QCOMPARE(Samples(values.samples, values.samples + values.size), expected);
}

AA_TEST(tst_AudioAnalyzer_blocks, QCoreApplication)
#include "tst_AudioAnalyzer_blocks.moc"
