// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/SoundFeed.h>

#include <QAudioFormat>
#include <QtTest>

#include <cmath>
#include <memory>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <vector>

namespace {

constexpr int kFeedRate = 51200;  ///< Hz; a bin of 1024 samples is 50 Hz, and a block 20 ms

/// A source that is fed by hand.
class FedSource : public LiveSource
{
public:
    explicit FedSource(Configuration& pConfiguration) : LiveSource(pConfiguration)
    {
        QAudioFormat format;
        format.setCodec(QStringLiteral("audio/pcm"));
        format.setSampleRate(kFeedRate);
        format.setChannelCount(1);
        format.setSampleSize(16);
        format.setSampleType(QAudioFormat::SignedInt);
        _Prepare(format, 3.0);
    }
    SourceState getSource() const override { return {}; }

    /// A sine, whose last sample sounds so many µs ago.
    void play(double pFrequency, double pVolume, std::size_t pCount, qint64 pAge = 0)
    {
        std::vector<qint16> samples;
        for (std::size_t i = 0; i < pCount; ++i)
            samples.push_back(qint16(std::lround(
                32767.0 * pVolume * std::sin(2.0 * M_PI * pFrequency * double(i) / kFeedRate))));
        Q_EMIT OnSamples(
            samples.data(), samples.size(), HighResolutionTimer::getTime() - quint64(pAge));
    }
};

struct FeedBench
{
    FeedBench()
    {
        feed.Follow(source);
        QObject::connect(&feed, &SoundFeed::OnSound, [this](const shared::OutputSound& pSound) {
            sounds.push_back(pSound);
        });
    }

    Configuration configuration;
    FedSource source{configuration};
    SoundFeed feed;
    std::vector<shared::OutputSound> sounds;
};

}  // namespace

class tst_SoundFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sound_comesBlockByBlock_whenItSounded();
    void sine_hasItsLevelBandAndFrequency();
    void silence_isSilent();
    void quietMusic_isAsColourful();
};

// 2.5 blocks of 20 ms, the last sample now; then the rest of the third.
void tst_SoundFeed::sound_comesBlockByBlock_whenItSounded()
{
    FeedBench bench;
    const qint64 now = shared::ClockThread::getTime();
    bench.source.play(1000.0, 0.5, 2560);
    QCOMPARE(int(bench.sounds.size()), 2);
    QCOMPARE(qint64(bench.sounds[0].time), now - 30000);
    QCOMPARE(qint64(bench.sounds[1].time), now - 10000);
    QTest::qSleep(17);
    bench.source.play(1000.0, 0.5, 512, 7000);
    QCOMPARE(int(bench.sounds.size()), 3);
    QCOMPARE(qint64(bench.sounds[2].time), now + 10000);
}

// 1000 Hz lies in the tenth half octave from 40 Hz on: 40 * 2^(9/2) = 905, 40 * 2^5 = 1280.
void tst_SoundFeed::sine_hasItsLevelBandAndFrequency()
{
    FeedBench bench;
    bench.source.play(1000.0, 0.5, 1024);
    QCOMPARE(int(bench.sounds.size()), 1);
    const shared::OutputSound& sound = bench.sounds[0];
    QVERIFY(std::fabs(sound.level - 0.5) < 0.001);
    QCOMPARE(sound.frequency, 1000.0);
    QCOMPARE(sound.magnitude, 1.0);
    for (std::size_t i = 0; i < sound.bands.size(); ++i)
        QCOMPARE(sound.bands[i] > 0.9, i == 9);
}

void tst_SoundFeed::silence_isSilent()
{
    FeedBench bench;
    bench.source.play(1000.0, 0.5, 1024);
    QTest::qSleep(20);
    bench.source.play(1000.0, 0.0, 1024);
    QCOMPARE(int(bench.sounds.size()), 2);
    QCOMPARE(bench.sounds[1].level, 0.0);
    QCOMPARE(bench.sounds[1].magnitude, 0.0);
    for (const double band : bench.sounds[1].bands)
        QCOMPARE(band, 0.0);
}

// Below the engine's threshold for a stop, which does not count here.
void tst_SoundFeed::quietMusic_isAsColourful()
{
    FeedBench bench;
    bench.source.play(1000.0, 0.01, 1024);
    QVERIFY(bench.sounds[0].bands[9] > 0.9);
    QVERIFY(std::fabs(bench.sounds[0].level - 0.01) < 0.001);
}

AA_TEST(tst_SoundFeed, InVirtualTime<QCoreApplication>)
#include "tst_SoundFeed.moc"
