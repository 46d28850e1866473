// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <cstddef>
#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>
#include <type_traits>

/// FindMaximalAmplitudes() and its record.
class tst_FastFourierTransform_bands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void record_hasFourFieldsInOrder();
    void bands_standInOrderOfDiscovery_data();
    void bands_standInOrderOfDiscovery();
    void bands_haveTheirEdges();
    void bands_keepUpperEdgeAtLower_whenTheyAreNarrow();
    void bands_agreeWithGetAmplitude();
    void result_isNull_data();
    void result_isNull();
    void result_isNull_withoutSpectrum();
    void array_isReused_andNotCleared_whileCapacityStays();
    void array_isReplaced_whenCapacityChanges();
    void bands_comeFromTheRefreshedSpectrum();
};

namespace {

struct Query
{
    size_t maxCount = 3;
    int rate = 16000;
    double minimum = 0.0;
};

/// Gives fft those amplitudes as if they had been computed; their count is a power of two.
void loadAmplitudes(FastFourierTransform& fft, const Values& amplitudes)
{
    loadSpectrum(fft, Values(2 * amplitudes.size(), 1.0));
    fft.getAmplitudes();
    std::copy(amplitudes.begin(), amplitudes.end(), fft.m_pAmplitudes);
}

std::vector<FrequencyBandAmplitude> find(FastFourierTransform& fft, const Query& query)
{
    FrequencyBandAmplitude* pBands = nullptr;
    const size_t count =
        fft.FindMaximalAmplitudes(query.maxCount, query.rate, pBands, query.minimum);
    return std::vector<FrequencyBandAmplitude>(pBands, pBands + count);
}

}  // namespace

void tst_FastFourierTransform_bands::record_hasFourFieldsInOrder()
{
    QCOMPARE(sizeof(FrequencyBandAmplitude), size_t(32));
    QCOMPARE(offsetof(FrequencyBandAmplitude, amplitude), size_t(0));
    QCOMPARE(offsetof(FrequencyBandAmplitude, index), size_t(8));
    QCOMPARE(offsetof(FrequencyBandAmplitude, upperFrequency), size_t(16));
    QCOMPARE(offsetof(FrequencyBandAmplitude, lowerFrequency), size_t(24));
    QVERIFY(std::is_trivial<FrequencyBandAmplitude>::value);
}

void tst_FastFourierTransform_bands::bands_standInOrderOfDiscovery_data()
{
    QTest::addColumn<QVector<double>>("amplitudes");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<QVector<int>>("indexes");
    using List = QVector<double>;
    using Indexes = QVector<int>;
    const auto row =
        [](const char* pName, const List& all, int count, double minimum, const Indexes& indexes) {
            QTest::newRow(pName) << all << count << minimum << indexes;
        };
    const List example = {0.2, 0.9, 0.1, 0.5, 0.7, 0, 0, 0};
    row("three replaced in place", example, 3, 0.0, {4, 1, 3});
    row("one", example, 1, 0.0, {1});
    row("two", example, 2, 0.0, {4, 1});
    row("all", example, 8, 0.0, {0, 1, 2, 3, 4, 5, 6, 7});
    row("more than all", example, 100, 0.0, {0, 1, 2, 3, 4, 5, 6, 7});
    row("minimum leaves fewer", example, 8, 0.5, {1, 3, 4});
    row("minimum reached exactly", example, 8, 0.9, {1});
    row("negative minimum", example, 8, -1.0, {0, 1, 2, 3, 4, 5, 6, 7});
    row("minimum skips while filling", example, 2, 0.3, {1, 4});
    row("rising", {0.1, 0.2, 0.3, 0.4}, 2, 0.0, {2, 3});
    row("falling", {0.4, 0.3, 0.2, 0.1}, 2, 0.0, {0, 1});
    row("equal does not replace", {0.5, 0.5, 0.5, 0.5}, 2, 0.0, {0, 1});
    row("first of equals is replaced", {0.5, 0.5, 0.5, 0.7}, 2, 0.0, {3, 1});
    // The replaced record counts as the weakest as long as no other one is strictly weaker.
    row("replaced record among equals", {0.5, 0.3, 0.5, 0.6}, 2, 0.0, {0, 3});
    row("replaced record stronger", {0.3, 0.4, 0.6, 0.5}, 2, 0.0, {2, 3});
    row("first of equals after a replacement",
        {0.1, 0.3, 0.3, 0.4, 0.5, 0.6, 0, 0},
        3,
        0.0,
        {3, 4, 5});
    row("NaN is never taken", {kNaN, 0.2, kNaN, 0.1}, 3, 0.0, {1, 3});
    row("one bin", {1.0}, 5, 0.0, {0});
}

void tst_FastFourierTransform_bands::bands_standInOrderOfDiscovery()
{
    QFETCH(QVector<double>, amplitudes);
    QFETCH(int, maxCount);
    QFETCH(double, minimum);
    QFETCH(QVector<int>, indexes);
    FastFourierTransform fft;
    loadAmplitudes(fft, Values(amplitudes.begin(), amplitudes.end()));
    QVector<int> found;
    for (const FrequencyBandAmplitude& band : find(fft, {size_t(maxCount), 16000, minimum})) {
        found << int(band.index);
        QVERIFY(band.amplitude == amplitudes[int(band.index)]);
    }
    QCOMPARE(found, indexes);
}

void tst_FastFourierTransform_bands::bands_haveTheirEdges()
{
    FastFourierTransform fft;
    loadAmplitudes(fft, Values{0.2, 0.9, 0.1, 0.5, 0.7, 0, 0, 0});
    // Records 0 and 2 were replaced, 1 stayed as it was written first.
    const std::vector<FrequencyBandAmplitude> bands = find(fft, {3, 16000, 0.0});
    QCOMPARE(bands.size(), size_t(3));
    const double lowerEdges[] = {4000.0, 1000.0, 3000.0};
    for (size_t i = 0; i < 3; ++i) {
        QVERIFY(bands[i].lowerFrequency == lowerEdges[i]);
        QVERIFY(bands[i].upperFrequency == lowerEdges[i] + 1000.0 - 0.001);
    }
}

void tst_FastFourierTransform_bands::bands_keepUpperEdgeAtLower_whenTheyAreNarrow()
{
    // Bins of 1/2048 Hz, narrower than what the upper edge loses.
    FastFourierTransform fft;
    loadAmplitudes(fft, Values(1024, 1.0));
    for (const FrequencyBandAmplitude& band : find(fft, {1024, 1, 0.0})) {
        QVERIFY(band.lowerFrequency == static_cast<double>(band.index) / 2048.0);
        QVERIFY(band.upperFrequency == band.lowerFrequency);
    }
}

void tst_FastFourierTransform_bands::bands_agreeWithGetAmplitude()
{
    waves::Random random = makeRandom();
    const waves::Samples block = fullScaleNoise(1000, random);
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    const std::vector<FrequencyBandAmplitude> bands = find(fft, {512, 44100, 0.0});
    QCOMPARE(bands.size(), size_t(512));
    for (const FrequencyBandAmplitude& band : bands) {
        double low = 0.0;
        double high = 0.0;
        QVERIFY(band.amplitude == fft.getAmplitude(int(band.index), 44100.0, &low, &high));
        QVERIFY(band.lowerFrequency == low);
        QVERIFY(band.upperFrequency == high);
    }
}

void tst_FastFourierTransform_bands::result_isNull_data()
{
    QTest::addColumn<quint64>("maxCount");
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("minimum");
    QTest::newRow("no room") << quint64(0) << 16000 << 0.0;
    QTest::newRow("rate 0") << quint64(3) << 0 << 0.0;
    QTest::newRow("negative rate") << quint64(3) << -16000 << 0.0;
    QTest::newRow("least rate") << quint64(3) << std::numeric_limits<int>::min() << 0.0;
    QTest::newRow("minimum above all") << quint64(3) << 16000 << 1.1;
    QTest::newRow("no number as minimum") << quint64(3) << 16000 << kNaN;
}

void tst_FastFourierTransform_bands::result_isNull()
{
    QFETCH(quint64, maxCount);
    QFETCH(int, rate);
    QFETCH(double, minimum);
    FastFourierTransform fft;
    loadAmplitudes(fft, Values{0.2, 0.9, 0.1, 0.5});
    FrequencyBandAmplitude band = {};
    FrequencyBandAmplitude* pBands = &band;
    QCOMPARE(fft.FindMaximalAmplitudes(maxCount, rate, pBands, minimum), size_t(0));
    QVERIFY(!pBands);
}

void tst_FastFourierTransform_bands::result_isNull_withoutSpectrum()
{
    FastFourierTransform fft;
    FrequencyBandAmplitude band = {};
    FrequencyBandAmplitude* pBands = &band;
    QCOMPARE(fft.FindMaximalAmplitudes(3, 16000, pBands, 0.0), size_t(0));
    QVERIFY(!pBands);
    loadSpectrum(fft, {1.0});
    pBands = &band;
    QCOMPARE(fft.FindMaximalAmplitudes(3, 16000, pBands, 0.0), size_t(0));
    QVERIFY(!pBands);
}

void tst_FastFourierTransform_bands::array_isReused_andNotCleared_whileCapacityStays()
{
    FastFourierTransform fft;
    loadAmplitudes(fft, Values{0.2, 0.9, 0.1, 0.5});
    FrequencyBandAmplitude* pFirst = nullptr;
    QCOMPARE(fft.FindMaximalAmplitudes(4, 16000, pFirst, 0.0), size_t(4));
    FrequencyBandAmplitude* pBands = nullptr;
    QCOMPARE(fft.FindMaximalAmplitudes(100, 16000, pBands, 0.9), size_t(1));
    QVERIFY(pBands == pFirst);
    QCOMPARE(pBands[0].index, size_t(1));
    QCOMPARE(pBands[1].index, size_t(1));
    QCOMPARE(pBands[3].index, size_t(3));
    // Neither a query without room nor one without a result gives the array up.
    QCOMPARE(fft.FindMaximalAmplitudes(0, 16000, pBands, 0.0), size_t(0));
    QCOMPARE(fft.FindMaximalAmplitudes(4, 16000, pBands, 2.0), size_t(0));
    QVERIFY(fft.m_pBands == pFirst);
    QCOMPARE(fft.m_bandsCapacity, size_t(4));
}

void tst_FastFourierTransform_bands::array_isReplaced_whenCapacityChanges()
{
    FastFourierTransform fft;
    loadAmplitudes(fft, Values{0.2, 0.9, 0.1, 0.5});
    for (size_t count : {1U, 3U, 2U, 4U}) {
        QCOMPARE(find(fft, {count, 16000, 0.0}).size(), count);
        QCOMPARE(fft.m_bandsCapacity, count);
        QVERIFY(fft.m_pBands);
    }
    loadAmplitudes(fft, Values(8, 0.5));
    QCOMPARE(find(fft, {100, 16000, 0.0}).size(), size_t(8));
    QCOMPARE(fft.m_bandsCapacity, size_t(8));
}

void tst_FastFourierTransform_bands::bands_comeFromTheRefreshedSpectrum()
{
    FastFourierTransform fft;
    loadSpectrum(fft, {1, 2, 4, 0, 0, 0, 0, 0});
    const std::vector<FrequencyBandAmplitude> bands = find(fft, {1, 8000, 0.0});
    QCOMPARE(bands.size(), size_t(1));
    QCOMPARE(bands[0].index, size_t(2));
    QVERIFY(bands[0].amplitude == 1.0);
    QVERIFY(!fft.m_isSpectrumStale);
}

AA_TEST(tst_FastFourierTransform_bands, NoApplication)

#include "tst_FastFourierTransform_bands.moc"
