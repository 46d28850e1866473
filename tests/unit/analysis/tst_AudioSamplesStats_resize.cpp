// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>
#include <support/Waves.h>

using waves::Samples;

class tst_AudioSamplesStats_resize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resize_inSeconds_roundsTheCapacity_data();
    void resize_inSeconds_roundsTheCapacity();
    void resize_inMicroseconds_roundsTheCapacity_data();
    void resize_inMicroseconds_roundsTheCapacity();
    void resize_leavesEverything_whenRefused();
    void resize_ofAnEmptyWindow_onlyChangesItsSize();
    void resize_keepsTheExtremes_data();
    void resize_keepsTheExtremes();
    void resize_keepsTheOldFigures_untilTheNextUpdate();
    void resize_keepsAllThreeFigures_whenNoneWasAskedBefore();
    void resize_toTwoSamples_leavesAFullWindow();
    void resize_twiceInARow_keepsTheSameExtremes();
    void resize_keepsMinus32768();
    void resize_ofAFullWindow_goesOnBehindTheSeed();
};

void tst_AudioSamplesStats_resize::resize_inSeconds_roundsTheCapacity_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<double>("sampleRate");
    QTest::addColumn<bool>("isResized");
    QTest::addColumn<quint64>("capacity");
    // The window holds 20 samples before.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("grown") << 3.0 << 10.0 << true << quint64(30);
    QTest::newRow("shrunk") << 1.0 << 10.0 << true << quint64(10);
    QTest::newRow("same") << 2.0 << 10.0 << false << quint64(20);
    QTest::newRow("same after rounding") << 2.04 << 10.0 << false << quint64(20);
    QTest::newRow("halves up") << 0.5 << 5.0 << true << quint64(3);
    QTest::newRow("two") << 0.2 << 10.0 << true << quint64(2);
    QTest::newRow("1.5 is two") << 0.5 << 3.0 << true << quint64(2);
    QTest::newRow("one") << 0.1 << 10.0 << false << quint64(20);
    QTest::newRow("less than one") << 0.01 << 10.0 << false << quint64(20);
    QTest::newRow("no duration") << 0.0 << 10.0 << false << quint64(20);
    QTest::newRow("no rate") << 3.0 << 0.0 << false << quint64(20);
    QTest::newRow("negative duration") << -3.0 << 10.0 << false << quint64(20);
    QTest::newRow("negative rate") << 3.0 << -10.0 << false << quint64(20);
    QTest::newRow("both negative") << -3.0 << -10.0 << false << quint64(20);
    QTest::newRow("no number") << nan << 10.0 << false << quint64(20);
}

void tst_AudioSamplesStats_resize::resize_inSeconds_roundsTheCapacity()
{
    QFETCH(double, duration);
    QFETCH(double, sampleRate);
    AudioSamplesStats stats(2.0, 10.0);
    QTEST(stats.Resize(duration, sampleRate), "isResized");
    QTEST(stats.m_capacity, "capacity");
}

void tst_AudioSamplesStats_resize::resize_inMicroseconds_roundsTheCapacity_data()
{
    QTest::addColumn<quint64>("duration");
    QTest::addColumn<quint64>("sampleRate");
    QTest::addColumn<bool>("isResized");
    QTest::addColumn<quint64>("capacity");
    QTest::newRow("grown") << quint64(3000000) << quint64(10) << true << quint64(30);
    QTest::newRow("same") << quint64(2000000) << quint64(10) << false << quint64(20);
    QTest::newRow("20.5 up") << quint64(2050000) << quint64(10) << true << quint64(21);
    QTest::newRow("20.49999 down") << quint64(2049999) << quint64(10) << false << quint64(20);
    QTest::newRow("1.5 is two") << quint64(150000) << quint64(10) << true << quint64(2);
    QTest::newRow("one") << quint64(100000) << quint64(10) << false << quint64(20);
    QTest::newRow("nothing") << quint64(0) << quint64(10) << false << quint64(20);
    QTest::newRow("no rate") << quint64(3000000) << quint64(0) << false << quint64(20);
}

void tst_AudioSamplesStats_resize::resize_inMicroseconds_roundsTheCapacity()
{
    QFETCH(quint64, duration);
    QFETCH(quint64, sampleRate);
    AudioSamplesStats stats(2.0, 10.0);
    QTEST(stats.Resize(static_cast<unsigned long long>(duration),
                       static_cast<unsigned long long>(sampleRate)),
          "isResized");
    QTEST(stats.m_capacity, "capacity");
}

void tst_AudioSamplesStats_resize::resize_leavesEverything_whenRefused()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {5, -7, 9};
    stats.Update(samples.data(), samples.size());
    const qint16* pRing = stats.m_pSamples;
    QVERIFY(!stats._Resize(0));
    QVERIFY(!stats._Resize(1));
    QVERIFY(!stats._Resize(4));
    QCOMPARE(stats.m_pSamples, pRing);
    QCOMPARE(stats.m_capacity, quint64(4));
    QCOMPARE(stats.m_writePosition, quint64(3));
    QCOMPARE(stats.m_isFull, quint64(0));
    QCOMPARE(Samples(pRing, pRing + 3), Samples({5, -7, 9}));
    QCOMPARE(stats.getAverageVolume(), qint16(7));
}

void tst_AudioSamplesStats_resize::resize_ofAnEmptyWindow_onlyChangesItsSize()
{
    for (const unsigned long capacity : {2UL, 3UL, 100UL}) {
        AudioSamplesStats stats(1.0, 4.0);
        QVERIFY(stats._Resize(capacity));
        QCOMPARE(stats.m_capacity, quint64(capacity));
        QCOMPARE(stats.m_writePosition, quint64(0));
        QCOMPARE(stats.m_isFull, quint64(0));
        QCOMPARE(stats.getAverageVolume(), qint16(-1));
        QCOMPARE(stats.getMaximalVolume(), qint16(-1));
        QCOMPARE(stats.getMinimalVolume(), qint16(-1));
    }
}

void tst_AudioSamplesStats_resize::resize_keepsTheExtremes_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<int>("capacity");
    QTest::addColumn<qint16>("maximum");
    QTest::addColumn<qint16>("minimum");
    // A window of 4 samples before.
    QTest::newRow("partly filled") << Samples({3, -9, 5}) << 8 << qint16(9) << qint16(3);
    QTest::newRow("one sample") << Samples({-6}) << 8 << qint16(6) << qint16(6);
    QTest::newRow("full") << Samples({1, 2, 3, 4}) << 3 << qint16(4) << qint16(1);
    QTest::newRow("wrapped") << Samples({99, 2, 3, 4, 5}) << 3 << qint16(5) << qint16(2);
    QTest::newRow("silence") << Samples({0, 0}) << 8 << qint16(0) << qint16(0);
}

void tst_AudioSamplesStats_resize::resize_keepsTheExtremes()
{
    QFETCH(Samples, samples);
    QFETCH(int, capacity);
    AudioSamplesStats stats(1.0, 4.0);
    for (qint16& sample : samples)
        stats.Update(&sample, 1);
    QVERIFY(stats._Resize(quint64(capacity)));
    QCOMPARE(stats.m_capacity, quint64(capacity));
    QCOMPARE(stats.m_writePosition, quint64(2));
    QCOMPARE(stats.m_isFull, quint64(0));
    QTEST(stats.m_pSamples[0], "maximum");
    QTEST(stats.m_pSamples[1], "minimum");
}

void tst_AudioSamplesStats_resize::resize_keepsTheOldFigures_untilTheNextUpdate()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {10, 2, 2, 2};
    stats.Update(samples.data(), samples.size());
    QCOMPARE(stats.getAverageVolume(), qint16(4));
    QVERIFY(stats._Resize(8));
    QCOMPARE(stats.getAverageVolume(), qint16(4));
    QCOMPARE(stats.getMaximalVolume(), qint16(10));
    QCOMPARE(stats.getMinimalVolume(), qint16(2));
    Samples more = {3};
    stats.Update(more.data(), more.size());
    QCOMPARE(stats.getAverageVolume(), qint16(5));  // of 10, 2 and 3
}

void tst_AudioSamplesStats_resize::resize_keepsAllThreeFigures_whenNoneWasAskedBefore()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {10, 2, 2, 2};
    stats.Update(samples.data(), samples.size());
    QVERIFY(stats._Resize(8));
    QCOMPARE(stats.getAverageVolume(), qint16(4));
    QCOMPARE(stats.getMaximalVolume(), qint16(10));
    QCOMPARE(stats.getMinimalVolume(), qint16(2));
}

void tst_AudioSamplesStats_resize::resize_toTwoSamples_leavesAFullWindow()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {10, 2, 3};
    stats.Update(samples.data(), samples.size());
    QVERIFY(stats._Resize(2));
    QCOMPARE(stats.m_isFull, quint64(1));
    QCOMPARE(stats.m_writePosition, quint64(0));
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 2), Samples({10, 2}));
    Samples more = {4};
    stats.Update(more.data(), more.size());
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 2), Samples({4, 2}));
    QCOMPARE(stats.getAverageVolume(), qint16(3));
}

void tst_AudioSamplesStats_resize::resize_twiceInARow_keepsTheSameExtremes()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {10, 2, 3};
    stats.Update(samples.data(), samples.size());
    QVERIFY(stats._Resize(2));
    QVERIFY(stats._Resize(6));
    QCOMPARE(stats.m_isFull, quint64(0));
    QCOMPARE(stats.m_writePosition, quint64(2));
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 2), Samples({10, 2}));
    QCOMPARE(stats.getAverageVolume(), qint16(5));  // of the first window
    QVERIFY(!stats._Resize(6));
}

void tst_AudioSamplesStats_resize::resize_keepsMinus32768()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {-32768, 5};
    stats.Update(samples.data(), samples.size());
    QVERIFY(stats._Resize(8));
    QCOMPARE(stats.m_pSamples[0], qint16(5));
    QCOMPARE(stats.m_pSamples[1], qint16(-32768));
    QCOMPARE(stats.getMaximalVolume(), qint16(5));
    QCOMPARE(stats.getMinimalVolume(), qint16(-32768));
}

void tst_AudioSamplesStats_resize::resize_ofAFullWindow_goesOnBehindTheSeed()
{
    AudioSamplesStats stats(1.0, 4.0);
    Samples samples = {1, 2, 3, 4};
    stats.Update(samples.data(), samples.size());
    QVERIFY(stats._Resize(5));
    Samples more = {7, 8, 9};
    stats.Update(more.data(), more.size());
    QCOMPARE(Samples(stats.m_pSamples, stats.m_pSamples + 5), Samples({4, 1, 7, 8, 9}));
    QCOMPARE(stats.m_isFull, quint64(1));
    QCOMPARE(stats.m_writePosition, quint64(0));
    QCOMPARE(stats.getMaximalVolume(), qint16(9));
    QCOMPARE(stats.getMinimalVolume(), qint16(1));
}

AA_TEST(tst_AudioSamplesStats_resize, NoApplication)
#include "tst_AudioSamplesStats_resize.moc"
