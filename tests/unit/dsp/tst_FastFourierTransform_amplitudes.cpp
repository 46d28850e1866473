// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>

class tst_FastFourierTransform_amplitudes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getAmplitudes_isNull_beforeTheFirstTransform();
    void getAmplitudes_isNull_forALengthOfOne_butRecordsAPeak();
    void getAmplitudes_isNormalisedPower_withFirstBinAndWithoutNyquist();
    void getAmplitudes_countsOneBin_forALengthOfTwo();
    void getAmplitudes_isZero_forSilence();
    void getAmplitudes_isNaN_whenReferenceIsNaN();
    void getAmplitudes_isAtMostOne_forNoise();
    void getAmplitudes_worksOnce_perStaleSpectrum();
    void getAmplitudes_recordsASecondPeak_afterAFilter_isIntended();
    void getAmplitudes_resizes_whenLengthChanged();
    void getAmplitudes_shrinksToNothing_whenLengthBecomesOne();
    void getAmplitudesCount_refreshes();
    void getAmplitude_givesBinAndEdges_data();
    void getAmplitude_givesBinAndEdges();
    void getAmplitude_takesNullPointers();
    void getAmplitude_isMinusOne_andStoresNothing_data();
    void getAmplitude_isMinusOne_andStoresNothing();
    void getAmplitude_isMinusOne_withoutAmplitudes();
    void getAmplitude_keepsUpperEdgeAtLower_whenBinsAreNarrow();
    void getIndex_givesBin_data();
    void getIndex_givesBin();
    void getIndex_isZero_withoutAmplitudes();
    void getIndex_refreshes();
    void getMaximalIndex_isHalfLessOne_data();
    void getMaximalIndex_isHalfLessOne();
};

static Values amplitudes(FastFourierTransform& fft)
{
    const double* pAmplitudes = fft.getAmplitudes();
    return Values(pAmplitudes, pAmplitudes + fft.m_amplitudesCount);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_isNull_beforeTheFirstTransform()
{
    FastFourierTransform fft;
    QVERIFY(!fft.getAmplitudes());
    QCOMPARE(fft.getAmplitudesCount(), size_t(0));
    QVERIFY(fft.m_isSpectrumStale);
    QVERIFY(!fft.m_pMaximums);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_isNull_forALengthOfOne_butRecordsAPeak()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(3);
    loadSpectrum(fft, {1000.0});
    QVERIFY(!fft.getAmplitudes());
    QCOMPARE(fft.getAmplitudesCount(), size_t(0));
    QVERIFY(!fft.m_isSpectrumStale);
    QCOMPARE(fft.m_historyPosition, size_t(1));
    QVERIFY(fft.m_pMaximums[0] == 0.0);
}

void tst_FastFourierTransform_amplitudes::
    getAmplitudes_isNormalisedPower_withFirstBinAndWithoutNyquist()
{
    FastFourierTransform fft;
    loadSpectrum(fft, {3, 0, 1, 2, 100, 100, 100, 100}, {4, 2, 0, -1, 100, 100, 100, 100});
    QCOMPARE(amplitudes(fft), Values({1.0, 4.0 / 25.0, 1.0 / 25.0, 5.0 / 25.0}));
    QVERIFY(fft._getMaximalAmplitude() == 25.0);
    QVERIFY(!fft.m_isSpectrumStale);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_countsOneBin_forALengthOfTwo()
{
    FastFourierTransform fft;
    loadSpectrum(fft, {-2.0, 100.0});
    QCOMPARE(amplitudes(fft), Values({1.0}));
    QVERIFY(fft._getMaximalAmplitude() == 4.0);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_isZero_forSilence()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8));
    QCOMPARE(amplitudes(fft), Values(4, 0.0));
    QVERIFY(fft._getMaximalAmplitude() == 0.0);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_isNaN_whenReferenceIsNaN()
{
    FastFourierTransform fft;
    fft._setMaximalAmplitude(std::numeric_limits<double>::quiet_NaN());
    loadSpectrum(fft, Values(8, 2.0));
    for (double amplitude : amplitudes(fft))
        QVERIFY(std::isnan(amplitude));
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_isAtMostOne_forNoise()
{
    waves::Random random = makeRandom();
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(2);
    for (int i = 0; i < 20; ++i) {
        const waves::Samples block = waves::noise(256, random.between(1, 32767), random);
        fft.Compute(block.data(), block.size());
        const Values all = amplitudes(fft);
        QCOMPARE(all.size(), size_t(128));
        for (double amplitude : all)
            QVERIFY(amplitude >= 0.0 && amplitude <= 1.0);
    }
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_worksOnce_perStaleSpectrum()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(5);
    loadSpectrum(fft, Values(8, 2.0));
    const double* pAmplitudes = fft.getAmplitudes();
    fft.m_pAmplitudes[2] = 0.125;
    QVERIFY(fft.getAmplitudes() == pAmplitudes);
    QCOMPARE(fft.getAmplitudesCount(), size_t(4));
    QVERIFY(fft.getAmplitude(2, 8000.0, nullptr, nullptr) == 0.125);
    QCOMPARE(fft.getIndex(0.0, 8000.0), 0);
    FrequencyBandAmplitude* pBands = nullptr;
    QCOMPARE(fft.FindMaximalAmplitudes(1, 8000, pBands, 0.0), size_t(1));
    QCOMPARE(fft.m_historyPosition, size_t(1));

    loadSpectrum(fft, Values(8, 1.0));
    QVERIFY(fft.getAmplitudes() == pAmplitudes);
    QCOMPARE(fft.m_historyPosition, size_t(2));
    QCOMPARE(amplitudes(fft), Values(4, 0.25));
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_recordsASecondPeak_afterAFilter_isIntended()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(5);
    loadSpectrum(fft, {4, 1, 3, 2, 0, 0, 0, 0});
    QCOMPARE(amplitudes(fft), Values({1.0, 1.0 / 16.0, 9.0 / 16.0, 4.0 / 16.0}));
    fft.HighPassFilter(1000, 8000);
    QCOMPARE(amplitudes(fft), Values({0.0, 1.0 / 16.0, 9.0 / 16.0, 4.0 / 16.0}));
    QCOMPARE(fft.m_historyPosition, size_t(2));
    QVERIFY(fft.m_pMaximums[0] == 16.0);
    QVERIFY(fft.m_pMaximums[1] == 9.0);
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_resizes_whenLengthChanged()
{
    FastFourierTransform fft;
    for (size_t length : {8U, 64U, 4U, 2U, 1024U}) {
        loadSpectrum(fft, Values(length, 1.0));
        QCOMPARE(amplitudes(fft), Values(length / 2, 1.0));
    }
}

void tst_FastFourierTransform_amplitudes::getAmplitudes_shrinksToNothing_whenLengthBecomesOne()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 1.0));
    QCOMPARE(fft.getAmplitudesCount(), size_t(4));
    loadSpectrum(fft, {1.0});
    QCOMPARE(fft.getAmplitudesCount(), size_t(0));
    QVERIFY(fft.getAmplitude(0, 8000.0, nullptr, nullptr) == -1.0);
}

void tst_FastFourierTransform_amplitudes::getAmplitudesCount_refreshes()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 1.0));
    QCOMPARE(fft.getAmplitudesCount(), size_t(4));
    QVERIFY(!fft.m_isSpectrumStale);
    QVERIFY(fft.m_pAmplitudes);
    loadSpectrum(fft, Values(16, 1.0));
    QCOMPARE(fft.getAmplitudesCount(), size_t(8));
}

void tst_FastFourierTransform_amplitudes::getAmplitude_givesBinAndEdges_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("first") << 1024 << 0 << 44100.0 << 0.0 << 22050.0 / 512 - 0.001;
    QTest::newRow("last") << 1024 << 511 << 44100.0 << 511 * 22050.0 / 512 << 22050.0 - 0.001;
    QTest::newRow("whole Hz") << 16 << 3 << 16000.0 << 3000.0 << 4000.0 - 0.001;
    QTest::newRow("length 2") << 2 << 0 << 8000.0 << 0.0 << 4000.0 - 0.001;
}

void tst_FastFourierTransform_amplitudes::getAmplitude_givesBinAndEdges()
{
    QFETCH(int, length);
    QFETCH(int, index);
    QFETCH(double, rate);
    QFETCH(double, low);
    QFETCH(double, high);
    Values real(static_cast<size_t>(length), 2.0);
    real[size_t(index)] = 1.0;
    FastFourierTransform fft;
    fft._setMaximalAmplitude(16.0);
    loadSpectrum(fft, real);
    double lowEdge = -7.0;
    double highEdge = -7.0;
    QVERIFY(fft.getAmplitude(index, rate, &lowEdge, &highEdge) == 1.0 / 16.0);
    QVERIFY(lowEdge == low);
    QVERIFY(highEdge == high);
}

void tst_FastFourierTransform_amplitudes::getAmplitude_takesNullPointers()
{
    FastFourierTransform fft;
    loadSpectrum(fft, {2, 1, 0, 0});
    double edge = -7.0;
    QVERIFY(fft.getAmplitude(1, 4000.0, nullptr, nullptr) == 0.25);
    QVERIFY(fft.getAmplitude(1, 4000.0, &edge, nullptr) == 0.25);
    QVERIFY(edge == 1000.0);
    QVERIFY(fft.getAmplitude(1, 4000.0, nullptr, &edge) == 0.25);
    QVERIFY(edge == 2000.0 - 0.001);
}

void tst_FastFourierTransform_amplitudes::getAmplitude_isMinusOne_andStoresNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("rate");
    QTest::newRow("index at the count") << 4 << 8000.0;
    QTest::newRow("negative index") << -1 << 8000.0;
    QTest::newRow("least index") << std::numeric_limits<int>::min() << 8000.0;
    QTest::newRow("greatest index") << std::numeric_limits<int>::max() << 8000.0;
    QTest::newRow("rate 0") << 0 << 0.0;
    QTest::newRow("negative rate") << 0 << -8000.0;
    QTest::newRow("least rate, half of it is 0") << 0 << std::numeric_limits<double>::denorm_min();
    QTest::newRow("no number as rate") << 0 << std::numeric_limits<double>::quiet_NaN();
}

void tst_FastFourierTransform_amplitudes::getAmplitude_isMinusOne_andStoresNothing()
{
    QFETCH(int, index);
    QFETCH(double, rate);
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 1.0));
    double low = -7.0;
    double high = -7.0;
    QVERIFY(fft.getAmplitude(index, rate, &low, &high) == -1.0);
    QVERIFY(low == -7.0);
    QVERIFY(high == -7.0);
    QVERIFY(!fft.m_isSpectrumStale);
}

void tst_FastFourierTransform_amplitudes::getAmplitude_isMinusOne_withoutAmplitudes()
{
    FastFourierTransform fft;
    QVERIFY(fft.getAmplitude(0, 8000.0, nullptr, nullptr) == -1.0);
    loadSpectrum(fft, {1.0});
    QVERIFY(fft.getAmplitude(0, 8000.0, nullptr, nullptr) == -1.0);
}

void tst_FastFourierTransform_amplitudes::getAmplitude_keepsUpperEdgeAtLower_whenBinsAreNarrow()
{
    // Bins of 0.0005 Hz, narrower than what the upper edge loses.
    FastFourierTransform fft;
    loadSpectrum(fft, Values(2048, 1.0));
    double low = -7.0;
    double high = -7.0;
    QVERIFY(fft.getAmplitude(7, 1.024, &low, &high) == 1.0);
    QVERIFY(low == 7 * 0.512 / 1024);
    QVERIFY(high == low);
}

void tst_FastFourierTransform_amplitudes::getIndex_givesBin_data()
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double greatest = std::numeric_limits<double>::max();
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("index");
    QTest::newRow("1000 Hz") << 1000.0 << 44100.0 << 23;
    QTest::newRow("0 Hz") << 0.0 << 44100.0 << 0;
    QTest::newRow("minus 0 Hz") << -0.0 << 44100.0 << 0;
    QTest::newRow("below bin 1") << 43.06 << 44100.0 << 0;
    QTest::newRow("in bin 1") << 43.07 << 44100.0 << 1;
    QTest::newRow("below Nyquist") << 22049.999 << 44100.0 << 511;
    QTest::newRow("nearest to Nyquist") << std::nextafter(22050.0, 0.0) << 44100.0 << 511;
    QTest::newRow("Nyquist") << 22050.0 << 44100.0 << -1;
    QTest::newRow("above Nyquist") << 30000.0 << 44100.0 << -1;
    QTest::newRow("negative") << -0.001 << 44100.0 << -1;
    QTest::newRow("rate 0") << 0.0 << 0.0 << -1;
    QTest::newRow("negative rate") << 0.0 << -44100.0 << -1;
    QTest::newRow("NaN frequency") << nan << 44100.0 << -1;
    QTest::newRow("NaN rate") << 0.0 << nan << -1;
    QTest::newRow("infinite frequency") << infinity << infinity << -1;
    QTest::newRow("infinite rate") << 1000.0 << infinity << 0;
    QTest::newRow("product overflows") << greatest / 4 << greatest << -1;
    QTest::newRow("product overflows, infinite rate") << greatest / 4 << infinity << -1;
}

void tst_FastFourierTransform_amplitudes::getIndex_givesBin()
{
    QFETCH(double, frequency);
    QFETCH(double, rate);
    QFETCH(int, index);
    FastFourierTransform fft;
    loadSpectrum(fft, Values(1024, 1.0));
    QCOMPARE(fft.getIndex(frequency, rate), index);
}

void tst_FastFourierTransform_amplitudes::getIndex_isZero_withoutAmplitudes()
{
    FastFourierTransform fft;
    QCOMPARE(fft.getIndex(1000.0, 44100.0), 0);
    QCOMPARE(fft.getIndex(22050.0, 44100.0), -1);
}

void tst_FastFourierTransform_amplitudes::getIndex_refreshes()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 1.0));
    QCOMPARE(fft.getIndex(22050.0, 44100.0), -1);
    QVERIFY(!fft.m_isSpectrumStale);
    loadSpectrum(fft, Values(16, 1.0));
    QCOMPARE(fft.getIndex(7000.0, 16000.0), 7);
}

void tst_FastFourierTransform_amplitudes::getMaximalIndex_isHalfLessOne_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("index");
    QTest::newRow("empty") << 0 << std::numeric_limits<quint64>::max();
    QTest::newRow("1") << 1 << std::numeric_limits<quint64>::max();
    QTest::newRow("2") << 2 << quint64(0);
    QTest::newRow("1000") << 1000 << quint64(511);
    QTest::newRow("1024") << 1024 << quint64(511);
}

void tst_FastFourierTransform_amplitudes::getMaximalIndex_isHalfLessOne()
{
    QFETCH(int, length);
    QFETCH(quint64, index);
    const waves::Samples block(static_cast<size_t>(length));
    FastFourierTransform fft;
    fft.Compute(block.data(), block.size());
    const FastFourierTransform& constant = fft;
    QCOMPARE(quint64(constant.getMaximalIndex()), index);
    QVERIFY(fft.m_isSpectrumStale);
}

AA_TEST(tst_FastFourierTransform_amplitudes, NoApplication)

#include "tst_FastFourierTransform_amplitudes.moc"
