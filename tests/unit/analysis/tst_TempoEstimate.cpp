// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/TempoEstimate.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

class tst_TempoEstimate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beatLength_isTheRoundedSamplesOfOneBeat_data();
    void beatLength_isTheRoundedSamplesOfOneBeat();
    void tempo_isSamplesPerMinuteByTheWholeMeanInterval_data();
    void tempo_isSamplesPerMinuteByTheWholeMeanInterval();
};

void tst_TempoEstimate::beatLength_isTheRoundedSamplesOfOneBeat_data()
{
    QTest::addColumn<double>("samplesPerMinute");
    QTest::addColumn<double>("bpm");
    QTest::addColumn<quint64>("length");

    QTest::newRow("120 BPM") << 2646000.0 << 120.0 << quint64(22050);
    QTest::newRow("132.5 BPM: 19969.81") << 2646000.0 << 132.5 << quint64(19970);
    QTest::newRow("160 BPM: 16537.5 up") << 2646000.0 << 160.0 << quint64(16538);
    QTest::newRow("175 BPM") << 2646000.0 << 175.0 << quint64(15120);
    QTest::newRow("2 samples a beat: 2.5 up") << 60.0 << 24.0 << quint64(3);
    QTest::newRow("shorter than half a sample") << 60.0 << 121.0 << quint64(0);
    QTest::newRow("no tempo") << 2646000.0 << 0.0 << quint64(0);
    QTest::newRow("longer than 32 bits") << 2646000.0 << 0.0001 << quint64(0);
    QTest::newRow("endless tempo")
        << 2646000.0 << std::numeric_limits<double>::infinity() << quint64(0);
    QTest::newRow("no number") << 2646000.0 << std::numeric_limits<double>::quiet_NaN()
                               << quint64(0);
    QTest::newRow("no rate, no tempo") << 0.0 << 0.0 << quint64(0);
    // A profile may hold a negative minimum; the window end is then unsigned arithmetic.
    QTest::newRow("negative") << 2646000.0 << -120.0 << quint64(0) - 22050;
}

void tst_TempoEstimate::beatLength_isTheRoundedSamplesOfOneBeat()
{
    QFETCH(double, samplesPerMinute);
    QFETCH(double, bpm);
    QTEST(detail::BeatLength(samplesPerMinute, bpm), "length");
}

void tst_TempoEstimate::tempo_isSamplesPerMinuteByTheWholeMeanInterval_data()
{
    QTest::addColumn<quint64>("first");
    QTest::addColumn<quint64>("last");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("bpm");

    QTest::newRow("no beat") << quint64(0) << quint64(0) << 0 << 0.0;
    QTest::newRow("one beat") << quint64(5) << quint64(5) << 1 << 0.0;
    QTest::newRow("four beats") << quint64(0) << quint64(66150) << 4 << 0.0;
    QTest::newRow("five beats") << quint64(22050) << quint64(110250) << 5 << 120.0;
    // 80003 / 4 is 20000 whole samples.
    QTest::newRow("mean cut to whole samples") << quint64(1000) << quint64(81003) << 5 << 132.3;
    QTest::newRow("twenty-one beats") << quint64(0) << quint64(441000) << 21 << 120.0;
    QTest::newRow("all at one index") << quint64(7) << quint64(7) << 5 << 0.0;
    QTest::newRow("less than a sample apart") << quint64(7) << quint64(10) << 5 << 0.0;
    QTest::newRow("one sample apart") << quint64(7) << quint64(11) << 5 << 2646000.0;
}

void tst_TempoEstimate::tempo_isSamplesPerMinuteByTheWholeMeanInterval()
{
    QFETCH(quint64, first);
    QFETCH(quint64, last);
    QFETCH(int, count);
    QTEST(detail::TempoOfBeats(first, last, std::size_t(count), 2646000.0), "bpm");
}

AA_TEST(tst_TempoEstimate, NoApplication)
#include "tst_TempoEstimate.moc"
