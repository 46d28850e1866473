// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>

#include "TestSeed.h"

#include <QtTest>

#include <reference/PlainStatistics.h>
#include <support/TestClass.h>
#include <support/Waves.h>

/// Windows that are put together from the figures of several chunks of 1024 samples equal one pass
/// over the window, after every history.
class tst_AudioSamplesStats_chunks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void window_equalsOnePass_atEveryChunkBoundary();
    void window_equalsOnePass_inRandomHistories();
    void figures_followTheExtremes_whenTheyLeaveTheWindow();
};

namespace {

bool isEqual(const AudioSamplesStats& stats, const plain::Statistics& expected)
{
    return stats.getAverageVolume() == expected.average() &&
           stats.getMaximalVolume() == expected.maximum() &&
           stats.getMinimalVolume() == expected.minimum();
}

/// A window of so many samples beside its plain twin.
struct Twins
{
    explicit Twins(std::size_t capacity) : stats(1.0, double(capacity)), expected(capacity) {}

    bool update(waves::Samples samples)
    {
        stats.Update(samples.data(), samples.size());
        expected.update(samples.data(), samples.size());
        return isEqual(stats, expected);
    }

    AudioSamplesStats stats;
    plain::Statistics expected;
};

}  // namespace

void tst_AudioSamplesStats_chunks::window_equalsOnePass_atEveryChunkBoundary()
{
    waves::Random random(testSeed());
    for (const std::size_t capacity : {1023u, 1024u, 1025u, 2047u, 2048u, 2049u, 4096u, 5000u})
        for (const std::size_t step : {1u, 511u, 1023u, 1024u, 1025u, 2048u, 4999u, 5001u}) {
            Twins twins(capacity);
            for (int i = 0; i < 12; ++i)
                QVERIFY(twins.update(waves::noise(step, 32767, random)));
        }
}

void tst_AudioSamplesStats_chunks::window_equalsOnePass_inRandomHistories()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 30; ++run) {
        std::size_t capacity = 2 + random.below(6000);
        Twins twins(capacity);
        for (int step = 0; step < 40; ++step) {
            // Loudness changes from step to step, so that extremes come and go.
            waves::Samples samples =
                waves::noise(1 + random.below(3000), random.between(1, 32767), random);
            if (random.chance(0.1))
                samples[random.below(samples.size())] = -32768;
            QVERIFY(twins.update(samples));
            if (random.chance(0.05)) {
                twins.stats.Reset();
                twins.expected.reset();
                QVERIFY(isEqual(twins.stats, twins.expected));
            }
            const std::size_t next = 2 + random.below(6000);
            if (random.chance(0.1) && twins.stats._Resize(next)) {
                capacity = next;
                twins.expected.resize(capacity);
                // The old figures stay until the next samples.
                QVERIFY(twins.update(waves::noise(1 + random.below(10), 500, random)));
            }
        }
    }
}

void tst_AudioSamplesStats_chunks::figures_followTheExtremes_whenTheyLeaveTheWindow()
{
    Twins twins(3000);
    QVERIFY(twins.update(waves::constant(1000, 100)));
    QVERIFY(twins.update({20000, 1}));
    QVERIFY(twins.update(waves::constant(1998, 100)));
    QCOMPARE(twins.stats.getMaximalVolume(), qint16(20000));
    // The next thousand takes the place of the first; then the loud sample goes, then the quiet.
    QVERIFY(twins.update(waves::constant(1000, 100)));
    QCOMPARE(twins.stats.getMaximalVolume(), qint16(20000));
    QVERIFY(twins.update({100}));
    QCOMPARE(twins.stats.getMaximalVolume(), qint16(100));
    QCOMPARE(twins.stats.getMinimalVolume(), qint16(1));
    QVERIFY(twins.update({100}));
    QCOMPARE(twins.stats.getMinimalVolume(), qint16(100));
    QCOMPARE(twins.stats.getAverageVolume(), qint16(100));
}

AA_TEST(tst_AudioSamplesStats_chunks, NoApplication)

#include "tst_AudioSamplesStats_chunks.moc"
