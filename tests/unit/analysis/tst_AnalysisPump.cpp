// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/detail/SampleTime.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>
#include <support/Waves.h>
#include <vector>

namespace {

constexpr int kPumpRate = 44100;
constexpr std::size_t kPumpBlock = 1024;

/// A pump whose follower's beats are kept.
struct PumpFixture
{
    PumpFixture() : pump(&configuration, kPumpRate)
    {
        QObject::connect(
            &pump.getFollower(),
            &BeatFollower::OnBeatFound,
            &pump.getFollower(),
            [this](const BeatFollower::Beat& pBeat) { beats.push_back(pBeat.index); });
    }

    /// Commits the samples in portions of at most pPortion.
    void push(const waves::Samples& pSamples, std::size_t pPortion)
    {
        for (std::size_t at = 0; at < pSamples.size();) {
            const std::size_t count =
                std::min({pPortion, pump.getSpaceCount(), pSamples.size() - at});
            std::copy_n(pSamples.begin() + std::ptrdiff_t(at), count, pump.getSpace());
            pump.Commit(count);
            at += count;
        }
    }

    Configuration configuration;
    AnalysisPump pump;
    std::vector<quint64> beats;
};

}  // namespace

class tst_AnalysisPump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sampleTime_countsFromItsStart_data();
    void sampleTime_countsFromItsStart();
    void space_isTheRestOfABlock();
    void block_isAnalysed_whenItIsComplete();
    void clock_standsAtTheEndOfTheBlock();
    void beats_areTheSame_inAnyPortions_data();
    void beats_areTheSame_inAnyPortions();
    void finish_tellsTheLastBeat_andNothingBehindTheEnd();
    void analysis_startsWithTheFirstBlock();
};

void tst_AnalysisPump::sampleTime_countsFromItsStart_data()
{
    QTest::addColumn<quint64>("count");
    QTest::addColumn<int>("rate");
    QTest::addColumn<quint64>("time");
    QTest::newRow("none") << quint64(0) << 44100 << quint64(1000000);
    QTest::newRow("a second") << quint64(44100) << 44100 << quint64(2000000);
    QTest::newRow("cut, not rounded") << quint64(2) << 3 << quint64(1666666);
    // 2^44 samples at 8 kHz are 2199023255.552 s; times a million it would not fit.
    QTest::newRow("70 years") << (quint64(1) << 44) << 8000 << quint64(2199023256552000);
}

void tst_AnalysisPump::sampleTime_countsFromItsStart()
{
    QFETCH(quint64, count);
    QFETCH(int, rate);
    QTEST(detail::SampleTime(count, rate), "time");
}

void tst_AnalysisPump::space_isTheRestOfABlock()
{
    PumpFixture fixture;
    QCOMPARE(fixture.pump.getBlockSize(), kPumpBlock);
    QCOMPARE(fixture.pump.getSpaceCount(), kPumpBlock);
    const qint16* pStart = fixture.pump.getSpace();
    fixture.pump.Commit(1000);
    QCOMPARE(fixture.pump.getSpaceCount(), std::size_t(24));
    QCOMPARE(fixture.pump.getSpace() - pStart, std::ptrdiff_t(1000));
    fixture.pump.Commit(24);
    QCOMPARE(fixture.pump.getSpaceCount(), kPumpBlock);
    QCOMPARE(fixture.pump.getSpace() - pStart, std::ptrdiff_t(0));
    QCOMPARE(fixture.pump.getSampleCount(), quint64(1024));
}

void tst_AnalysisPump::block_isAnalysed_whenItIsComplete()
{
    PumpFixture fixture;
    int blocks = 0;
    connect(&fixture.pump.getAnalyzer(), &AudioAnalyzer::OnAudioSamplesAnalyzed, this, [&] {
        ++blocks;
    });
    fixture.push(waves::Samples(kPumpBlock - 1, 7), kPumpBlock);
    QCOMPARE(blocks, 0);
    fixture.push(waves::Samples(1, 7), 1);
    QCOMPARE(blocks, 1);
    QCOMPARE(fixture.pump.getBlockIndex(), quint64(0));
    fixture.push(waves::Samples(kPumpBlock, 7), kPumpBlock);
    QCOMPARE(blocks, 2);
    QCOMPARE(fixture.pump.getBlockIndex(), quint64(1024));
}

// 1024 samples at 44100 Hz last 23219.95 µs.
void tst_AnalysisPump::clock_standsAtTheEndOfTheBlock()
{
    PumpFixture fixture;
    std::vector<quint64> times;
    connect(&fixture.pump.getAnalyzer(), &AudioAnalyzer::OnAudioSamplesAnalyzed, this, [&] {
        times.push_back(HighResolutionTimer::getTime());
    });
    fixture.push(waves::Samples(2 * kPumpBlock, 7), kPumpBlock);
    QCOMPARE(times, (std::vector<quint64>{1023219, 1046439}));
    QCOMPARE(fixture.pump.getAnalyzer().getAnalysisStartTime(), quint64(1000000));
    // Outside the clock is the machine's, which has left 1970 behind.
    QVERIFY(HighResolutionTimer::getTime() > quint64(1000000000) * 1000000);
}

void tst_AnalysisPump::beats_areTheSame_inAnyPortions_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {1, 7, 480, 1023, 1024, 1025, 100000})
        QTest::addRow("%d samples", portion) << portion;
}

void tst_AnalysisPump::beats_areTheSame_inAnyPortions()
{
    QFETCH(int, portion);
    const waves::Samples music = waves::kickTrack(12.0, kPumpRate, 128.0);
    PumpFixture whole;
    whole.push(music, kPumpBlock);
    whole.pump.Finish();
    QVERIFY(whole.beats.size() > 15);
    PumpFixture parts;
    parts.push(music, std::size_t(portion));
    parts.pump.Finish();
    QCOMPARE(parts.beats, whole.beats);
}

void tst_AnalysisPump::finish_tellsTheLastBeat_andNothingBehindTheEnd()
{
    PumpFixture fixture;
    fixture.configuration.setDisplayVirtualBeatsWhenStopped(true);
    const waves::Samples music = waves::kickTrack(10.1, kPumpRate, 120.0);
    fixture.push(music, kPumpBlock);
    const std::size_t before = fixture.beats.size();
    fixture.pump.Finish();
    // Kicks fall at 0, 0.5 ... 10.0 s: the last one lies 0.1 s before the end.
    QVERIFY(fixture.beats.size() > before);
    const double last = double(fixture.beats.back()) / kPumpRate;
    QVERIFY2(last > 9.95 && last < 10.05, qPrintable(QString::number(last)));
    QCOMPARE(fixture.pump.getSampleCount(), quint64(music.size()));
}

void tst_AnalysisPump::analysis_startsWithTheFirstBlock()
{
    PumpFixture fixture;
    QVERIFY(!fixture.pump.getAnalyzer().isAnalyzing());
    QVERIFY(!fixture.pump.getAnalyzer().isPlaying());
    fixture.configuration.setStopDetectionDuration(0.5);
    fixture.push(waves::kickTrack(2.0, kPumpRate, 120.0), kPumpBlock);
    QVERIFY(fixture.pump.getAnalyzer().isAnalyzing());
    QVERIFY(fixture.pump.getAnalyzer().isPlaying());
    fixture.push(waves::Samples(kPumpRate * 2, 0), kPumpBlock);
    QVERIFY(!fixture.pump.getAnalyzer().isPlaying());
    fixture.pump.getAnalyzer().Stop();
    QVERIFY(!fixture.pump.getAnalyzer().isPlaying());
}

AA_TEST(tst_AnalysisPump, QCoreApplication)
#include "tst_AnalysisPump.moc"
