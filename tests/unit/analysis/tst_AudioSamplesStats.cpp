// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>
#include <type_traits>

using waves::Samples;

static_assert(!std::is_polymorphic_v<AudioSamplesStats>);

class tst_AudioSamplesStats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void construction_inSeconds_roundsTheCapacity_data();
    void construction_inSeconds_roundsTheCapacity();
    void construction_inMicroseconds_roundsTheCapacity_data();
    void construction_inMicroseconds_roundsTheCapacity();
    void construction_setsEveryMember();
    void figures_areMinusOne_whileTheWindowIsEmpty();
    void figures_areThoseOfTheMagnitudes_data();
    void figures_areThoseOfTheMagnitudes();
    void figures_areComputedTogetherAndOnlyOnce();
    void figures_areForgotten_byTheNextUpdate();
    void update_isRefused_withoutSamples();
    void update_keepsTheNewest_whenThereIsMoreThanTheWindow();
    void update_movesTheWritePosition_data();
    void update_movesTheWritePosition();
    void update_onlyReadsTheSamples();
    void reset_emptiesTheWindowAndKeepsItsSize();
    void window_ofNoSamples_staysEmpty();
    void window_ofOneSample_keepsTheNewest();

private:
    static constexpr unsigned long long kOneSecond = 1000000;
};

void tst_AudioSamplesStats::construction_inSeconds_roundsTheCapacity_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<double>("sampleRate");
    QTest::addColumn<quint64>("capacity");
    QTest::newRow("2 s at 44100 Hz") << 2.0 << 44100.0 << quint64(88200);
    QTest::newRow("halves up") << 0.5 << 5.0 << quint64(3);
    QTest::newRow("below a half") << 0.25 << 5.0 << quint64(1);
    QTest::newRow("nothing") << 0.0 << 44100.0 << quint64(0);
}

void tst_AudioSamplesStats::construction_inSeconds_roundsTheCapacity()
{
    QFETCH(double, duration);
    QFETCH(double, sampleRate);
    const AudioSamplesStats stats(duration, sampleRate);
    QTEST(stats.m_capacity, "capacity");
}

void tst_AudioSamplesStats::construction_inMicroseconds_roundsTheCapacity_data()
{
    QTest::addColumn<quint64>("duration");
    QTest::addColumn<quint64>("sampleRate");
    QTest::addColumn<quint64>("capacity");
    QTest::newRow("2 s at 44100 Hz") << quint64(2000000) << quint64(44100) << quint64(88200);
    QTest::newRow("2.5 up") << quint64(500000) << quint64(5) << quint64(3);
    QTest::newRow("2.499995 down") << quint64(499999) << quint64(5) << quint64(2);
    QTest::newRow("0.5 up") << quint64(500000) << quint64(1) << quint64(1);
    QTest::newRow("0.499999 down") << quint64(499999) << quint64(1) << quint64(0);
    QTest::newRow("nothing") << quint64(0) << quint64(44100) << quint64(0);
}

void tst_AudioSamplesStats::construction_inMicroseconds_roundsTheCapacity()
{
    QFETCH(quint64, duration);
    QFETCH(quint64, sampleRate);
    const AudioSamplesStats stats(static_cast<unsigned long long>(duration),
                                  static_cast<unsigned long long>(sampleRate));
    QTEST(stats.m_capacity, "capacity");
}

void tst_AudioSamplesStats::construction_setsEveryMember()
{
    const AudioSamplesStats inSeconds(2.0, 10.0);
    const AudioSamplesStats inMicroseconds(2 * kOneSecond, 10ULL);
    for (const AudioSamplesStats* pStats : {&inSeconds, &inMicroseconds}) {
        QCOMPARE(pStats->m_timeScale, quint64(1000000));
        QCOMPARE(pStats->m_rounding, quint64(500000));
        QVERIFY(pStats->m_pSamples);
        QCOMPARE(pStats->m_isFull, quint64(0));
        QCOMPARE(pStats->m_writePosition, quint64(0));
        QCOMPARE(pStats->m_capacity, quint64(20));
        QCOMPARE(pStats->m_average, qint16(-1));
        QCOMPARE(pStats->m_maximum, qint16(-1));
        QCOMPARE(pStats->m_minimum, qint16(-1));
    }
}

void tst_AudioSamplesStats::figures_areMinusOne_whileTheWindowIsEmpty()
{
    const AudioSamplesStats stats(1.0, 10.0);
    QVERIFY(!stats._Compute());
    QCOMPARE(stats.getAverageVolume(), qint16(-1));
    QCOMPARE(stats.getMaximalVolume(), qint16(-1));
    QCOMPARE(stats.getMinimalVolume(), qint16(-1));
}

void tst_AudioSamplesStats::figures_areThoseOfTheMagnitudes_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<qint16>("average");
    QTest::addColumn<qint16>("maximum");
    QTest::addColumn<qint16>("minimum");

    QTest::newRow("one sample") << Samples({7}) << qint16(7) << qint16(7) << qint16(7);
    QTest::newRow("negative") << Samples({-7}) << qint16(7) << qint16(7) << qint16(7);
    QTest::newRow("zero") << Samples({0, 0}) << qint16(0) << qint16(0) << qint16(0);
    QTest::newRow("average cut") << Samples({1, 2, 2}) << qint16(1) << qint16(2) << qint16(1);
    QTest::newRow("mixed signs") << Samples({-10, 4, -1}) << qint16(5) << qint16(10) << qint16(1);
    QTest::newRow("falling") << Samples({9, 5, 3}) << qint16(5) << qint16(9) << qint16(3);
    QTest::newRow("full scale") << Samples({32767, -32767}) << qint16(32767) << qint16(32767)
                                << qint16(32767);
    // -32768 has no magnitude in 16 bits and stays as it is.
    QTest::newRow("-32768 alone") << Samples({-32768}) << qint16(-32768) << qint16(-32768)
                                  << qint16(-32768);
    QTest::newRow("-32768 and more")
        << Samples({-32768, 32767, 4}) << qint16(1) << qint16(32767) << qint16(-32768);
    // The sum of -32768 is divided unsigned: (2^64 - 32768) / 2 = 2^63 - 16384, of which 16 bits
    // are -16384.
    QTest::newRow("negative sum") << Samples({-32768, 0}) << qint16(-16384) << qint16(0)
                                  << qint16(-32768);
}

void tst_AudioSamplesStats::figures_areThoseOfTheMagnitudes()
{
    QFETCH(Samples, samples);
    AudioSamplesStats stats(1.0, 10.0);
    QVERIFY(stats.Update(samples.data(), samples.size()));
    QTEST(stats.getAverageVolume(), "average");
    QTEST(stats.getMaximalVolume(), "maximum");
    QTEST(stats.getMinimalVolume(), "minimum");
    // Asked again, in another order.
    QTEST(stats.getMinimalVolume(), "minimum");
    QTEST(stats.getAverageVolume(), "average");
    QTEST(stats.getMaximalVolume(), "maximum");
}

void tst_AudioSamplesStats::figures_areComputedTogetherAndOnlyOnce()
{
    AudioSamplesStats stats(1.0, 10.0);
    Samples samples = {1, -3, 2};
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.getMaximalVolume(), qint16(3));
    QCOMPARE(stats.m_average, qint16(2));
    QCOMPARE(stats.m_minimum, qint16(1));
    stats.m_pSamples[0] = 100;  // seen only by a new computation
    QCOMPARE(stats.getMaximalVolume(), qint16(3));
    QCOMPARE(stats.getAverageVolume(), qint16(2));
    QCOMPARE(stats.getMinimalVolume(), qint16(1));
    QVERIFY(stats._Compute());
    QCOMPARE(stats.getMaximalVolume(), qint16(100));
    QCOMPARE(stats.getAverageVolume(), qint16(35));
    QCOMPARE(stats.getMinimalVolume(), qint16(2));
}

void tst_AudioSamplesStats::figures_areForgotten_byTheNextUpdate()
{
    AudioSamplesStats stats(1.0, 10.0);
    Samples samples = {1, -3, 2};
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.getAverageVolume(), qint16(2));
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.m_average, qint16(-1));
    QCOMPARE(stats.m_maximum, qint16(-1));
    QCOMPARE(stats.m_minimum, qint16(-1));
}

void tst_AudioSamplesStats::update_isRefused_withoutSamples()
{
    AudioSamplesStats stats(1.0, 10.0);
    Samples samples = {5, 6};
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.getAverageVolume(), qint16(5));
    QVERIFY(!stats.Update(samples.data(), 0));
    QVERIFY(!stats.Update(nullptr, 5));
    QVERIFY(!stats.Update(nullptr, 0));
    QCOMPARE(stats.m_writePosition, quint64(2));
    QCOMPARE(stats.m_isFull, quint64(0));
    QCOMPARE(stats.m_average, qint16(5));
}

void tst_AudioSamplesStats::update_keepsTheNewest_whenThereIsMoreThanTheWindow()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {9, 8, 1, 2, 3, 4};
    QVERIFY(stats.Update(samples.data(), samples.size()));
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 4), Samples({1, 2, 3, 4}));
    QCOMPARE(stats.m_isFull, quint64(1));
    QCOMPARE(stats.m_writePosition, quint64(0));
    QCOMPARE(stats.getMaximalVolume(), qint16(4));
}

void tst_AudioSamplesStats::update_movesTheWritePosition_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("count");
    QTest::addColumn<quint64>("position");
    QTest::addColumn<quint64>("isFull");
    // A window of 8 samples.
    QTest::newRow("part") << 0 << 3 << quint64(3) << quint64(0);
    QTest::newRow("more") << 3 << 4 << quint64(7) << quint64(0);
    QTest::newRow("up to the end") << 3 << 5 << quint64(0) << quint64(1);
    QTest::newRow("round the end") << 3 << 6 << quint64(1) << quint64(1);
    QTest::newRow("one less than all") << 5 << 7 << quint64(4) << quint64(1);
    QTest::newRow("all") << 3 << 8 << quint64(0) << quint64(1);
    QTest::newRow("more than all") << 3 << 20 << quint64(0) << quint64(1);
}

void tst_AudioSamplesStats::update_movesTheWritePosition()
{
    QFETCH(int, before);
    QFETCH(int, count);
    AudioSamplesStats stats(1.0, 8.0);
    Samples samples(20, 1);
    stats.Update(samples.data(), quint64(before));
    QVERIFY(stats.Update(samples.data(), quint64(count)));
    QTEST(stats.m_writePosition, "position");
    QTEST(stats.m_isFull, "isFull");
}

void tst_AudioSamplesStats::update_onlyReadsTheSamples()
{
    AudioSamplesStats stats(1.0, 3.0);
    Samples samples = {-1, 2, -3, 4};
    stats.Update(samples.data(), 2);
    stats.Update(samples.data(), 4);
    stats.getAverageVolume();
    QCOMPARE(samples, Samples({-1, 2, -3, 4}));
}

void tst_AudioSamplesStats::reset_emptiesTheWindowAndKeepsItsSize()
{
    AudioSamplesStats stats(1.0, 3.0);
    Samples samples = {1, 2, 3, 4};
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.getAverageVolume(), qint16(3));
    const qint16* pRing = stats.m_pSamples;
    QVERIFY(stats.Reset());
    QCOMPARE(stats.m_isFull, quint64(0));
    QCOMPARE(stats.m_writePosition, quint64(0));
    QCOMPARE(stats.m_capacity, quint64(3));
    QCOMPARE(stats.m_pSamples, pRing);
    QCOMPARE(stats.m_average, qint16(-1));
    QCOMPARE(stats.m_maximum, qint16(-1));
    QCOMPARE(stats.m_minimum, qint16(-1));
    QCOMPARE(stats.getAverageVolume(), qint16(-1));
    QVERIFY(stats.Reset());
}

void tst_AudioSamplesStats::window_ofNoSamples_staysEmpty()
{
    AudioSamplesStats stats(0.0, 44100.0);
    Samples samples = {1, 2, 3};
    QVERIFY(stats.Update(samples.data(), samples.size()));
    QCOMPARE(stats.getAverageVolume(), qint16(-1));
    QCOMPARE(stats.getMaximalVolume(), qint16(-1));
    QCOMPARE(stats.getMinimalVolume(), qint16(-1));
}

void tst_AudioSamplesStats::window_ofOneSample_keepsTheNewest()
{
    AudioSamplesStats stats(1.0, 1.0);
    Samples samples = {1, -2};
    stats.Update(samples.data(), 1);
    QCOMPARE(stats.getAverageVolume(), qint16(1));
    stats.Update(samples.data(), 2);
    QCOMPARE(stats.getAverageVolume(), qint16(2));
}

AA_TEST(tst_AudioSamplesStats, NoApplication)
#include "tst_AudioSamplesStats.moc"
