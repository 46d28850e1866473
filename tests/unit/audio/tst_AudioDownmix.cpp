// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>
#include <vector>

/// The arithmetic of mono samples.
class tst_AudioDownmix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toSample16_roundsHalvesAwayFromZeroAndSaturates_data();
    void toSample16_roundsHalvesAwayFromZeroAndSaturates();
    void toSample16_roundsLikeTheStandard_besideEveryHalf();
    void toMono_averagesEachFrame();
    void toMono_averagesIntegersAndRoundsOnce();
    void toMono_keepsMonoIntegers();
    void toMono_takesNoFrames();
};

void tst_AudioDownmix::toSample16_roundsHalvesAwayFromZeroAndSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint16>("sample");
    const double step = 1.0 / 32768.0;
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("zero") << 0.0 << qint16(0);
    QTest::newRow("below a half") << 0.49 * step << qint16(0);
    QTest::newRow("a half") << 0.5 * step << qint16(1);
    QTest::newRow("the number before a half") << std::nextafter(0.5, 0.0) * step << qint16(0);
    QTest::newRow("minus a half") << -0.5 * step << qint16(-1);
    QTest::newRow("minus below a half") << -0.49 * step << qint16(0);
    QTest::newRow("half scale") << 0.5 << qint16(16384);
    QTest::newRow("greatest") << 32767 * step << qint16(32767);
    QTest::newRow("rounds over the greatest") << 32767.5 * step << qint16(32767);
    QTest::newRow("full scale") << 1.0 << qint16(32767);
    QTest::newRow("negative full scale") << -1.0 << qint16(-32768);
    QTest::newRow("just inside negative") << -32767.5 * step << qint16(-32768);
    QTest::newRow("next to negative full scale") << -32767.4 * step << qint16(-32767);
    QTest::newRow("above") << 7.5 << qint16(32767);
    QTest::newRow("below") << -7.5 << qint16(-32768);
    QTest::newRow("infinity") << infinity << qint16(32767);
    QTest::newRow("minus infinity") << -infinity << qint16(-32768);
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << qint16(0);
}

void tst_AudioDownmix::toSample16_roundsHalvesAwayFromZeroAndSaturates()
{
    QFETCH(double, value);
    QFETCH(qint16, sample);
    QCOMPARE(AudioDownmix::ToSample16(value), sample);
}

void tst_AudioDownmix::toSample16_roundsLikeTheStandard_besideEveryHalf()
{
    for (int whole = -32768; whole < 32767; ++whole) {
        const double half = whole + 0.5;
        for (const double value : {std::nextafter(half, -1e9), half, std::nextafter(half, 1e9)})
            QCOMPARE(AudioDownmix::ToSample16(value / 32768.0), qint16(std::round(value)));
    }
}

void tst_AudioDownmix::toMono_averagesEachFrame()
{
    // Opposite, equal, and one loud channel among three.
    const std::vector<float> frames = {0.5f, -0.5f, 0.0f, 0.25f, 0.25f, 0.25f, 0.75f, 0.0f, 0.0f};
    std::vector<qint16> samples(3);
    AudioDownmix::ToMono(frames.data(), 3, 3, samples.data());
    QCOMPARE(samples, (std::vector<qint16>{0, 8192, 8192}));
}

// Sums 3, -3, 1 and the extremes over two channels: halves are rounded away from zero.
void tst_AudioDownmix::toMono_averagesIntegersAndRoundsOnce()
{
    const std::vector<qint16> frames = {
        1, 2, -1, -2, 0, 1, 32767, 32767, -32768, -32768, 32767, -32768};
    std::vector<qint16> samples(6);
    AudioDownmix::ToMono(frames.data(), 2, 6, samples.data());
    QCOMPARE(samples, (std::vector<qint16>{2, -2, 1, 32767, -32768, -1}));
}

void tst_AudioDownmix::toMono_keepsMonoIntegers()
{
    for (int value = -32768; value <= 32767; ++value) {
        const auto sample = qint16(value);
        qint16 mono = 0;
        AudioDownmix::ToMono(&sample, 1, 1, &mono);
        QCOMPARE(mono, sample);
    }
}

void tst_AudioDownmix::toMono_takesNoFrames()
{
    AudioDownmix::ToMono(static_cast<const float*>(nullptr), 2, 0, nullptr);
    qint16 untouched = 7;
    const float frame[] = {1.0f, 1.0f};
    AudioDownmix::ToMono(frame, 2, 0, &untouched);
    QCOMPARE(untouched, qint16(7));
}

AA_TEST(tst_AudioDownmix, NoApplication)
#include "tst_AudioDownmix.moc"
