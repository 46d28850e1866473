// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/SampleLoops.h>

#include "TestSeed.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

using waves::Samples;

class tst_SampleLoops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectify_replacesEachSampleByItsMagnitude_forEverySample();
    void rectify_touchesNothingBehindTheCount();
    void peak_isTheGreatestOfFloorAndSamples_data();
    void peak_isTheGreatestOfFloorAndSamples();
    void pulse_needsAQuarterOfTheSamples_data();
    void pulse_needsAQuarterOfTheSamples();
    void pulse_isTheOppositeBelowFourSamples_isIntended();
    void pulse_equalsTheCountdown_forRandomBlocks();
    void automaticThreshold_isRoundedAndLimitedAbove_data();
    void automaticThreshold_isRoundedAndLimitedAbove();
};

void tst_SampleLoops::rectify_replacesEachSampleByItsMagnitude_forEverySample()
{
    Samples samples;
    for (int value = -32768; value <= 32767; ++value)
        samples.push_back(qint16(value));
    detail::Rectify(samples.data(), samples.size());
    QCOMPARE(samples[0], qint16(32767));
    for (int value = -32767; value <= 32767; ++value)
        QCOMPARE(int(samples[std::size_t(value + 32768)]), std::abs(value));
}

void tst_SampleLoops::rectify_touchesNothingBehindTheCount()
{
    Samples samples = {-1, -2, -3};
    detail::Rectify(samples.data(), 2);
    QCOMPARE(samples, Samples({1, 2, -3}));
    detail::Rectify(nullptr, 0);
}

void tst_SampleLoops::peak_isTheGreatestOfFloorAndSamples_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<qint16>("floor");
    QTest::addColumn<qint16>("peak");
    QTest::newRow("no samples") << Samples() << qint16(5) << qint16(5);
    QTest::newRow("sample") << Samples({1, 9, 3}) << qint16(5) << qint16(9);
    QTest::newRow("floor") << Samples({1, 4, 3}) << qint16(5) << qint16(5);
    QTest::newRow("signed") << Samples({-32768, -2, -3}) << qint16(-7) << qint16(-2);
    QTest::newRow("last") << Samples({0, 0, 32767}) << qint16(0) << qint16(32767);
}

void tst_SampleLoops::peak_isTheGreatestOfFloorAndSamples()
{
    QFETCH(Samples, samples);
    QFETCH(qint16, floor);
    QTEST(detail::Peak(samples.data(), samples.size(), floor), "peak");
}

void tst_SampleLoops::pulse_needsAQuarterOfTheSamples_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("reaching");
    QTest::addColumn<bool>("isPulse");

    QTest::newRow("256 of 1024") << 1024 << 256 << true;
    QTest::newRow("255 of 1024") << 1024 << 255 << false;
    QTest::newRow("all of 1024") << 1024 << 1024 << true;
    QTest::newRow("none of 1024") << 1024 << 0 << false;
    QTest::newRow("1 of 4") << 4 << 1 << true;
    QTest::newRow("0 of 4") << 4 << 0 << false;
    QTest::newRow("quota of 7 is 1") << 7 << 1 << true;
    QTest::newRow("quota of 8 is 2") << 8 << 1 << false;
    QTest::newRow("2 of 11") << 11 << 2 << true;
}

void tst_SampleLoops::pulse_needsAQuarterOfTheSamples()
{
    QFETCH(int, count);
    QFETCH(int, reaching);
    QFETCH(bool, isPulse);
    // A sample at the threshold itself reaches it; one below does not.
    Samples samples(std::size_t(count), 499);
    std::fill_n(samples.begin(), reaching, qint16(500));
    QCOMPARE(detail::IsPulse(samples.data(), samples.size(), 500), isPulse);
    std::reverse(samples.begin(), samples.end());
    QCOMPARE(detail::IsPulse(samples.data(), samples.size(), 500), isPulse);
}

void tst_SampleLoops::pulse_isTheOppositeBelowFourSamples_isIntended()
{
    for (std::size_t count = 0; count < 4; ++count) {
        Samples samples(count, 499);
        QVERIFY(detail::IsPulse(samples.data(), count, 500));
        for (std::size_t reaching = 0; reaching < count; ++reaching) {
            samples[reaching] = 500;
            QVERIFY(!detail::IsPulse(samples.data(), count, 500));
        }
    }
}

void tst_SampleLoops::pulse_equalsTheCountdown_forRandomBlocks()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 5000; ++run) {
        const Samples samples = waves::noise(random.below(70), 40, random);
        const auto threshold = qint16(random.between(-45, 45));
        quint64 quota = samples.size() / 4;
        bool isPulse = false;
        for (const qint16 sample : samples) {
            if (sample >= threshold && --quota == 0) {
                isPulse = true;
                break;
            }
        }
        isPulse = isPulse || quota == 0;
        QCOMPARE(detail::IsPulse(samples.data(), samples.size(), threshold), isPulse);
    }
}

void tst_SampleLoops::automaticThreshold_isRoundedAndLimitedAbove_data()
{
    QTest::addColumn<double>("sensibility");
    QTest::addColumn<qint16>("average");
    QTest::addColumn<qint16>("maximum");
    QTest::addColumn<qint16>("threshold");

    QTest::newRow("whole") << 2.0 << qint16(500) << qint16(32000) << qint16(1000);
    QTest::newRow("151.5 up") << 1.5 << qint16(101) << qint16(32000) << qint16(152);
    QTest::newRow("2.5 up") << 0.5 << qint16(5) << qint16(32000) << qint16(3);
    QTest::newRow("1.25 down") << 0.25 << qint16(5) << qint16(32000) << qint16(1);
    QTest::newRow("limited") << 2.0 << qint16(20000) << qint16(32000) << qint16(32000);
    QTest::newRow("at the limit") << 2.0 << qint16(16000) << qint16(32000) << qint16(32000);
    QTest::newRow("rounded to the limit") << 0.5 << qint16(19) << qint16(10) << qint16(10);
    QTest::newRow("limit 0") << 2.0 << qint16(500) << qint16(0) << qint16(0);
    QTest::newRow("far beyond 32 bits") << 1e30 << qint16(5) << qint16(32000) << qint16(32000);
    QTest::newRow("no lower bound") << 0.1 << qint16(1) << qint16(32000) << qint16(0);
    QTest::newRow("sensibility 0") << 0.0 << qint16(5000) << qint16(32000) << qint16(0);
    QTest::newRow("no samples") << 2.0 << qint16(-1) << qint16(32000) << qint16(-2);
    // -65536 and -98304 cut to 16 bits.
    QTest::newRow("cut to 0") << 2.0 << qint16(-32768) << qint16(32000) << qint16(0);
    QTest::newRow("cut to -32768") << 3.0 << qint16(-32768) << qint16(32000) << qint16(-32768);
}

void tst_SampleLoops::automaticThreshold_isRoundedAndLimitedAbove()
{
    QFETCH(double, sensibility);
    QFETCH(qint16, average);
    QFETCH(qint16, maximum);
    QTEST(detail::AutomaticThreshold(sensibility, average, maximum), "threshold");
}

AA_TEST(tst_SampleLoops, NoApplication)
#include "tst_SampleLoops.moc"
