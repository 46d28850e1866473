// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"

#include <QtTest>

#include <functional>
#include <support/TestClass.h>

using waves::Samples;

/// Which filter a profile asks for, which spectrum is published, and which threshold is in force.
class tst_AudioAnalyzer_filters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_followsTheBandEdges_data();
    void filter_followsTheBandEdges();
    void filter_usesTheSampleRate();
    void filter_followsTheSelectedProfile_fromBlockToBlock();
    void spectrum_isThatOfTheUnfilteredBlock();
    void spectrum_isPublishedBeforeTheFilter();
    void filteredBlock_isRectified();
    void threshold_isTheFixedOne_unlessNegative_data();
    void threshold_isTheFixedOne_unlessNegative();
    void automaticThreshold_followsTheAverage_data();
    void automaticThreshold_followsTheAverage();

private:
    using Filter = std::function<void(FastFourierTransform&)>;

    static Samples makeNoise()
    {
        waves::Random random(3);
        return waves::noise(1024, 20000, random);
    }
    static Samples filtered(const Samples& samples, const Filter& filter)
    {
        FastFourierTransform transform;
        transform.Compute(samples.data(), samples.size());
        filter(transform);
        short* pResult = nullptr;
        std::size_t count = 0;
        transform.ComputeInverse(pResult, count);
        return Samples(pResult, pResult + count);
    }
    static Samples applyFilter(AnalyzerFixture& fixture, Samples samples)
    {
        short* pFiltered = nullptr;
        unsigned long count = 0;
        fixture.analyzer.ApplyFilter(samples.data(), samples.size(), pFiltered, count);
        return Samples(pFiltered, pFiltered + count);
    }
};

void tst_AudioAnalyzer_filters::filter_followsTheBandEdges_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QString>("kind");
    const QString none = QStringLiteral("none");
    const QString highPass = QStringLiteral("high-pass");
    const QString lowPass = QStringLiteral("low-pass");
    const QString bandPass = QStringLiteral("band-pass");
    QTest::newRow("no edge") << -1 << -1 << none;
    QTest::newRow("0 and none") << 0 << -1 << none;
    QTest::newRow("none and 0") << -1 << 0 << none;
    QTest::newRow("0 and 0") << 0 << 0 << none;
    QTest::newRow("low edge only") << 2000 << -1 << highPass;
    QTest::newRow("low edge, high 0") << 2000 << 0 << highPass;
    QTest::newRow("low edge of 1") << 1 << -1 << highPass;
    QTest::newRow("high edge only") << -1 << 3000 << lowPass;
    QTest::newRow("high edge, low 0") << 0 << 3000 << lowPass;
    QTest::newRow("high edge of 1") << 0 << 1 << lowPass;
    QTest::newRow("both") << 2000 << 3000 << bandPass;
    QTest::newRow("both 1") << 1 << 1 << bandPass;
    QTest::newRow("above the sound") << 30000 << 40000 << bandPass;
}

void tst_AudioAnalyzer_filters::filter_followsTheBandEdges()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(QString, kind);
    AnalyzerFixture fixture;
    fixture.selectProfile(90.0, 175.0, low, high);
    const Samples samples = makeNoise();
    const Samples expected = filtered(samples, [&](FastFourierTransform& transform) {
        if (kind == QLatin1String("high-pass"))
            transform.HighPassFilter(low, 44100);
        if (kind == QLatin1String("low-pass"))
            transform.LowPassFilter(high, 44100);
        if (kind == QLatin1String("band-pass"))
            transform.BandPassFilter(low, high, 44100);
    });
    QCOMPARE(applyFilter(fixture, samples), expected);
}

void tst_AudioAnalyzer_filters::filter_usesTheSampleRate()
{
    AnalyzerFixture fixture(8000);
    fixture.selectProfile(90.0, 175.0, 100, 1000);
    const Samples samples = makeNoise();
    QCOMPARE(applyFilter(fixture, samples), filtered(samples, [](FastFourierTransform& transform) {
                 transform.BandPassFilter(100, 1000, 8000);
             }));
}

void tst_AudioAnalyzer_filters::filter_followsTheSelectedProfile_fromBlockToBlock()
{
    AnalyzerFixture fixture;
    Profile profile = fixture.selectProfile(90.0, 175.0, 0, 500);
    const Samples samples = makeNoise();
    const Samples before = applyFilter(fixture, samples);
    QVERIFY(profile.setFilterHighFrequency(5000));
    const Samples after = applyFilter(fixture, samples);
    QVERIFY(before != after);
    QCOMPARE(after, filtered(samples, [](FastFourierTransform& transform) {
                 transform.LowPassFilter(5000, 44100);
             }));
}

void tst_AudioAnalyzer_filters::spectrum_isThatOfTheUnfilteredBlock()
{
    AnalyzerFixture fixture;
    fixture.selectProfile(90.0, 175.0, 0, 100);
    const Samples samples = waves::sine(1024, 44100, 5000.0, 20000.0);
    applyFilter(fixture, samples);
    FastFourierTransform transform;
    transform.Compute(samples.data(), samples.size());
    const double* pExpected = transform.getAmplitudes();

    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Amplitudes"));
    QCOMPARE(fixture.log.getRecords()[0].amplitudes,
             std::vector<double>(pExpected, pExpected + 512));
    // 5000 Hz lies in bin 116 of 512 bins to 22050 Hz, which the low-pass would have emptied.
    QCOMPARE(fixture.log.getRecords()[0].amplitudes[116], 1.0);
}

void tst_AudioAnalyzer_filters::spectrum_isPublishedBeforeTheFilter()
{
    AnalyzerFixture fixture;
    const double* pReported = nullptr;
    unsigned int reportedCount = 0;
    const double* pMember = nullptr;
    connect(&fixture.analyzer,
            &AudioAnalyzer::OnAmplitudesComputed,
            this,
            [&](const double* pAmplitudes, unsigned int count) {
                pReported = pAmplitudes;
                reportedCount = count;
                pMember = fixture.analyzer.getAmplitudes();
            });
    applyFilter(fixture, makeNoise());
    QVERIFY(pReported);
    QCOMPARE(pReported, pMember);
    QCOMPARE(reportedCount, 512U);
    QCOMPARE(fixture.analyzer.getAmplitudes(), pReported);
    QCOMPARE(fixture.analyzer.getAmplitudesCount(), quint64(512));
}

void tst_AudioAnalyzer_filters::filteredBlock_isRectified()
{
    AnalyzerFixture fixture;
    fixture.selectProfile(90.0, 175.0, 0, 3000);
    fixture.analyzer.m_isStopped = false;
    Samples samples = makeNoise();
    Samples expected = filtered(
        samples, [](FastFourierTransform& transform) { transform.LowPassFilter(3000, 44100); });
    for (qint16& sample : expected)
        sample = qint16(sample == -32768 ? 32767 : std::abs(int(sample)));
    const Samples before = samples;
    fixture.analyzer.DetectPulses(samples.data(), samples.size(), 0);
    QCOMPARE(fixture.log.select(SignalKind::AudioSamplesAnalyzed).at(0).samples, expected);
    QCOMPARE(samples, before);
}

void tst_AudioAnalyzer_filters::threshold_isTheFixedOne_unlessNegative_data()
{
    QTest::addColumn<short>("configured");
    QTest::addColumn<qint16>("threshold");
    QTest::newRow("fixed") << short(1234) << qint16(1234);
    QTest::newRow("0 is fixed") << short(0) << qint16(0);
    QTest::newRow("beyond the profile's maximum") << short(32767) << qint16(32767);
    QTest::newRow("automatic") << short(-7) << qint16(200);
}

void tst_AudioAnalyzer_filters::threshold_isTheFixedOne_unlessNegative()
{
    QFETCH(short, configured);
    AnalyzerFixture fixture;
    short sample = 100;
    fixture.analyzer.m_volumeStats.Update(&sample, 1);
    fixture.configuration.setThreshold(configured);
    QTEST(fixture.analyzer.getThreshold(), "threshold");
}

void tst_AudioAnalyzer_filters::automaticThreshold_followsTheAverage_data()
{
    QTest::addColumn<int>("average");
    QTest::addColumn<double>("sensibility");
    QTest::addColumn<int>("maximalThreshold");
    QTest::addColumn<qint16>("threshold");
    QTest::newRow("twice the average") << 500 << 2.0 << 32000 << qint16(1000);
    QTest::newRow("151.5 up") << 101 << 1.5 << 32000 << qint16(152);
    QTest::newRow("2.5 up") << 5 << 0.5 << 32000 << qint16(3);
    QTest::newRow("1.25 down") << 5 << 0.25 << 32000 << qint16(1);
    QTest::newRow("limited") << 20000 << 2.0 << 32000 << qint16(32000);
    QTest::newRow("limited by the profile") << 1000 << 2.0 << 1500 << qint16(1500);
    // The profile's minimal threshold, 1000, plays no part.
    QTest::newRow("no lower bound") << 1 << 0.1 << 32000 << qint16(0);
    QTest::newRow("silence") << 0 << 2.0 << 32000 << qint16(0);
    QTest::newRow("no samples") << -1 << 2.0 << 32000 << qint16(-2);
}

void tst_AudioAnalyzer_filters::automaticThreshold_followsTheAverage()
{
    QFETCH(int, average);
    QFETCH(double, sensibility);
    QFETCH(int, maximalThreshold);
    AnalyzerFixture fixture;
    Profile profile = fixture.selectProfile(90.0, 175.0);
    QVERIFY(profile.setSensibility(sensibility));
    QVERIFY(profile.setMaximalThreshold(short(maximalThreshold)));
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    auto sample = short(average);
    if (average >= 0)
        fixture.analyzer.m_volumeStats.Update(&sample, 1);
    QTEST(fixture.analyzer.getThreshold(), "threshold");
}

AA_TEST(tst_AudioAnalyzer_filters, QCoreApplication)
#include "tst_AudioAnalyzer_filters.moc"
