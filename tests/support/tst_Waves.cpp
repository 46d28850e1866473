// SPDX-License-Identifier: MIT
#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

class tst_Waves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void random_givesThePublishedNumbers();
    void random_staysInsideItsLimits();
    void kickTrack_hasAKickOnEveryBeat();
    void sine_hasItsPeriodAndAmplitude();
    void toSample_roundsAndSaturates();
};

void tst_Waves::random_givesThePublishedNumbers()
{
    // First outputs of splitmix64 for the seed 1234567, as published with the generator.
    waves::Random random(1234567);
    QCOMPARE(quint64(random.next()), Q_UINT64_C(6457827717110365317));
    QCOMPARE(quint64(random.next()), Q_UINT64_C(3203168211198807973));
    QCOMPARE(quint64(random.next()), Q_UINT64_C(9817491932198370423));
}

void tst_Waves::random_staysInsideItsLimits()
{
    waves::Random random(1);
    for (int i = 0; i < 10000; ++i) {
        const int value = random.between(-3, 4);
        QVERIFY(value >= -3 && value <= 4);
        const double fraction = random.uniform();
        QVERIFY(fraction >= 0.0 && fraction < 1.0);
    }
    const waves::Samples noise = waves::noise(100000, 32767, random);
    const auto [low, high] = std::minmax_element(noise.begin(), noise.end());
    QVERIFY(*low >= -32767 && *low < -32700);
    QVERIFY(*high > 32700);
}

void tst_Waves::kickTrack_hasAKickOnEveryBeat()
{
    // 120 BPM at 8000 Hz is a kick every 4000 samples; a kick of 0.1 s is over after 800.
    waves::Kick shape;
    shape.duration = 0.1;
    const waves::Samples track = waves::kickTrack(2.0, 8000, 120, shape);
    const waves::Samples kick = waves::kick(8000, shape);
    QCOMPARE(track.size(), std::size_t(16000));
    QCOMPARE(kick.size(), std::size_t(800));
    for (std::size_t i = 0; i < track.size(); ++i) {
        const std::size_t offset = i % 4000;
        QCOMPARE(track[i], offset < kick.size() ? kick[offset] : qint16(0));
    }
    QCOMPARE(waves::kickIndex(3, 44100, 174), std::size_t(45621));  // 3 * 15206.896...
}

void tst_Waves::sine_hasItsPeriodAndAmplitude()
{
    const waves::Samples sine = waves::sine(16, 16, 2, 1000);  // two periods of eight samples
    QCOMPARE(
        sine,
        waves::Samples(
            {0, 707, 1000, 707, 0, -707, -1000, -707, 0, 707, 1000, 707, 0, -707, -1000, -707}));
}

void tst_Waves::toSample_roundsAndSaturates()
{
    QCOMPARE(waves::toSample(1.5), qint16(2));
    QCOMPARE(waves::toSample(-0.4), qint16(0));
    QCOMPARE(waves::toSample(40000), qint16(32767));
    QCOMPARE(waves::toSample(-40000), qint16(-32768));
}

AA_TEST(tst_Waves, NoApplication)
#include "tst_Waves.moc"
