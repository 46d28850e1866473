// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <functional>
#include <limits>
#include <support/TestClass.h>

using Filter = std::function<void(FastFourierTransform&)>;
/// First and one past the last of a run of bins.
using Run = QPair<int, int>;
using Runs = QVector<Run>;

Q_DECLARE_METATYPE(Filter)

namespace {

constexpr int leastInt = std::numeric_limits<int>::min();
constexpr int greatestInt = std::numeric_limits<int>::max();

Filter bandPass(int low, int high, int rate)
{
    return [=](FastFourierTransform& fft) { fft.BandPassFilter(low, high, rate); };
}

Filter highPass(int low, int rate)
{
    return [=](FastFourierTransform& fft) { fft.HighPassFilter(low, rate); };
}

Filter lowPass(int high, int rate)
{
    return [=](FastFourierTransform& fft) { fft.LowPassFilter(high, rate); };
}

/// One sign for every bin, '.' for zeroed and '#' for left as it was, in both parts.
QByteArray filteredPicture(FastFourierTransform& fft, size_t length, const Filter& filter)
{
    Values real(length);
    Values imaginary(length);
    for (size_t i = 0; i < length; ++i) {
        real[i] = 1000.0 + static_cast<double>(i);
        imaginary[i] = -0.5 - static_cast<double>(i);
    }
    loadSpectrum(fft, real, imaginary);
    fft.m_isSpectrumStale = false;
    filter(fft);
    QByteArray picture(static_cast<int>(length), '?');
    for (size_t i = 0; i < length; ++i)
        if (fft.m_pReal[i] == real[i] && fft.m_pImaginary[i] == imaginary[i])
            picture[static_cast<int>(i)] = '#';
        else if (fft.m_pReal[i] == 0.0 && fft.m_pImaginary[i] == 0.0)
            picture[static_cast<int>(i)] = '.';
    return picture;
}

QByteArray picture(int length, const Runs& zeroed)
{
    QByteArray result(length, '#');
    for (const Run& run : zeroed)
        for (int i = run.first; i < run.second; ++i)
            result[i] = '.';
    return result;
}

}  // namespace

class tst_FastFourierTransform_filters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_zeroesBins_data();
    void filter_zeroesBins();
    void mirrorBin_isNMinus1MinusJ_isIntended();
    void edgeTone_losesHalf_becauseOfTheMirror_isIntended();
    void highPassAndBandPass_cutDifferently_isIntended();
    void filter_marksSpectrumStale_data();
    void filter_marksSpectrumStale();
    void filter_isHarmless_withoutSpectrum_data();
    void filter_isHarmless_withoutSpectrum();
    void bandPass_keepsToneInside_andRemovesTonesOutside();
    void filter_staysInsideItsArrays_forAnyArguments();
};

static const Runs none;
static const Runs all = {{0, 1024}};

static void row(const char* pName, const Filter& filter, int length, const Runs& zeroed)
{
    QTest::newRow(pName) << filter << length << zeroed;
}

static void addBandPassRows()
{
    row("band 1024", bandPass(50, 2000, 44100), 1024, {{0, 1}, {47, 977}, {1023, 1024}});
    row("band 2048", bandPass(50, 2000, 48000), 2048, {{0, 2}, {86, 1962}, {2046, 2048}});
    row("band whole", bandPass(0, 22050, 44100), 1024, none);
    row("band above Nyquist", bandPass(0, 30000, 44100), 1024, none);
    row("band greatest high", bandPass(50, greatestInt, 44100), 1024, {{0, 1}, {1023, 1024}});
    row("band low at Nyquist", bandPass(22050, 30000, 44100), 1024, all);
    row("band low below Nyquist", bandPass(22049, 30000, 44100), 1024, {{0, 511}, {513, 1024}});
    row("band greatest low", bandPass(greatestInt, greatestInt, 44100), 1024, all);
    row("band no high", bandPass(0, 0, 44100), 1024, all);
    row("band negative high", bandPass(-10, -5, 44100), 1024, all);
    row("band least high", bandPass(0, leastInt, 44100), 1024, all);
    row("band negative low", bandPass(-50, 2000, 44100), 1024, {{47, 977}});
    row("band least low", bandPass(leastInt, 2000, 44100), 1024, {{47, 977}});
    row("band high below low", bandPass(2000, 50, 44100), 1024, {{0, 1024}});
    row("band in one bin", bandPass(1000, 1000, 44100), 1024, {{0, 23}, {24, 1000}, {1001, 1024}});
    row("band low below a bin", bandPass(43, 2000, 44100), 1024, {{47, 977}});
    row("band low in bin 1", bandPass(44, 2000, 44100), 1024, {{0, 1}, {47, 977}, {1023, 1024}});
    row("band odd rate", bandPass(50, 2000, 44101), 1024, {{0, 1}, {47, 977}, {1023, 1024}});
    row("band length 1", bandPass(50, 2000, 44100), 1, none);
    row("band length 1 empty", bandPass(50, 0, 44100), 1, {{0, 1}});
    row("band length 2", bandPass(50, 2000, 44100), 2, none);
    row("band length 4", bandPass(50, 2000, 44100), 4, {{1, 3}});
}

static void addHighPassRows()
{
    row("high 100", highPass(100, 44100), 1024, {{0, 2}, {1022, 1024}});
    row("high below a bin", highPass(43, 44100), 1024, none);
    row("high at bin 1", highPass(44, 44100), 1024, {{0, 1}, {1023, 1024}});
    row("high 0", highPass(0, 44100), 1024, none);
    row("high negative", highPass(-1, 44100), 1024, none);
    row("high least", highPass(leastInt, 44100), 1024, none);
    row("high above Nyquist", highPass(30000, 44100), 1024, all);
    row("high at Nyquist", highPass(22050, 44100), 1024, all);
    row("high below Nyquist", highPass(22049, 44100), 1024, {{0, 511}, {513, 1024}});
    row("high greatest", highPass(greatestInt, 44100), 1024, all);
    row("high greatest rate",
        highPass(greatestInt / 4, greatestInt),
        1024,
        {{0, 255}, {769, 1024}});
    row("high length 1", highPass(1000, 44100), 1, none);
    row("high length 2", highPass(22049, 44100), 2, none);
}

static void addLowPassRows()
{
    row("low 0", lowPass(0, 44100), 1024, all);
    row("low negative", lowPass(-1, 44100), 1024, all);
    row("low least", lowPass(leastInt, 44100), 1024, all);
    row("low 1", lowPass(1, 44100), 1024, {{1, 1023}});
    row("low 2000", lowPass(2000, 44100), 1024, {{47, 977}});
    row("low below Nyquist", lowPass(22049, 44100), 1024, none);
    row("low in last bin but one", lowPass(21963, 44100), 1024, {{510, 514}});
    row("low at Nyquist", lowPass(22050, 44100), 1024, none);
    row("low greatest", lowPass(greatestInt, 44100), 1024, none);
    row("low greatest rate", lowPass(greatestInt, greatestInt), 1024, none);
    row("low length 1", lowPass(10, 44100), 1, none);
    row("low length 2", lowPass(10, 44100), 2, none);
}

static void addRowsOfLowRates()
{
    // Nyquist is 0 or negative: only what the bounds alone decide.
    row("band rate 1", bandPass(0, 10, 1), 1024, all);
    row("band rate 1 negative low", bandPass(-1, 10, 1), 1024, none);
    row("band rate 0 no high", bandPass(-1, 0, 0), 1024, all);
    row("band rate -1", bandPass(-2, 10, -1), 1024, none);
    row("band rate -1 low at Nyquist", bandPass(-1, 10, -1), 1024, all);
    row("band least rate", bandPass(leastInt, greatestInt, leastInt), 1024, none);
    row("high rate 1", highPass(0, 1), 1024, all);
    row("high rate 1 negative low", highPass(-1, 1), 1024, none);
    row("high least rate", highPass(leastInt, leastInt), 1024, none);
    row("high least rate low at Nyquist", highPass(leastInt / 2, leastInt), 1024, all);
    row("low rate 1", lowPass(10, 1), 1024, none);
    row("low rate 1 no high", lowPass(0, 1), 1024, all);
    row("low negative rate", lowPass(greatestInt, leastInt), 1024, none);
    row("low rate 2", lowPass(1, 2), 1024, none);
}

void tst_FastFourierTransform_filters::filter_zeroesBins_data()
{
    QTest::addColumn<Filter>("filter");
    QTest::addColumn<int>("length");
    QTest::addColumn<Runs>("zeroed");
    addBandPassRows();
    addHighPassRows();
    addLowPassRows();
    addRowsOfLowRates();
}

void tst_FastFourierTransform_filters::filter_zeroesBins()
{
    QFETCH(Filter, filter);
    QFETCH(int, length);
    QFETCH(Runs, zeroed);
    FastFourierTransform fft;
    QCOMPARE(filteredPicture(fft, size_t(length), filter), picture(length, zeroed));
    QVERIFY(fft.m_isSpectrumStale);
}

void tst_FastFourierTransform_filters::mirrorBin_isNMinus1MinusJ_isIntended()
{
    // 8 bins of 1000 Hz. The conjugate partners of bins 0 to 2 are 0, 15 and 14.
    FastFourierTransform fft;
    QCOMPARE(filteredPicture(fft, 16, highPass(3000, 16000)), QByteArray("...##########..."));
    QCOMPARE(filteredPicture(fft, 16, lowPass(5000, 16000)), QByteArray("######....######"));
    QCOMPARE(filteredPicture(fft, 16, bandPass(3000, 5000, 16000)), QByteArray("...###....###..."));
}

void tst_FastFourierTransform_filters::edgeTone_losesHalf_becauseOfTheMirror_isIntended()
{
    // A tone in bin 3 of 64 stands in 3 and 61. The cut of 3 bins zeroes 61 with bin 2.
    waves::Samples tone = waves::sine(64, 64, 3.0, 20000.0);
    FastFourierTransform fft;
    fft.Compute(tone.data(), tone.size());
    fft.HighPassFilter(3, 64);
    const waves::Samples halved = inverse(fft);
    for (size_t i = 0; i < tone.size(); ++i)
        QVERIFY(qAbs(halved[i] - tone[i] / 2) <= 2);
}

void tst_FastFourierTransform_filters::highPassAndBandPass_cutDifferently_isIntended()
{
    // 49 Hz is half of Nyquist, so exactly bin 32 of 64. 49 times the double nearest to 64/98 falls
    // short of 32.
    FastFourierTransform fft;
    QCOMPARE(filteredPicture(fft, 128, highPass(49, 196)), picture(128, {{0, 32}, {96, 128}}));
    QCOMPARE(filteredPicture(fft, 128, bandPass(49, 98, 196)), picture(128, {{0, 31}, {97, 128}}));
    QCOMPARE(filteredPicture(fft, 128, lowPass(49, 196)), picture(128, {{33, 95}}));
    QCOMPARE(filteredPicture(fft, 128, bandPass(0, 49, 196)), picture(128, {{32, 96}}));
}

void tst_FastFourierTransform_filters::filter_marksSpectrumStale_data()
{
    QTest::addColumn<Filter>("filter");
    QTest::newRow("band, nothing zeroed") << bandPass(0, 22050, 44100);
    QTest::newRow("high, nothing zeroed") << highPass(0, 44100);
    QTest::newRow("low, nothing zeroed") << lowPass(22050, 44100);
    QTest::newRow("band, all zeroed") << bandPass(0, 0, 44100);
    QTest::newRow("high, all zeroed") << highPass(22050, 44100);
    QTest::newRow("low, all zeroed") << lowPass(0, 44100);
}

void tst_FastFourierTransform_filters::filter_marksSpectrumStale()
{
    QFETCH(Filter, filter);
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 1.0));
    fft.getAmplitudes();
    QVERIFY(!fft.m_isSpectrumStale);
    filter(fft);
    QVERIFY(fft.m_isSpectrumStale);
}

void tst_FastFourierTransform_filters::filter_isHarmless_withoutSpectrum_data()
{
    filter_marksSpectrumStale_data();
    QTest::newRow("band") << bandPass(50, 2000, 44100);
    QTest::newRow("high") << highPass(50, 44100);
    QTest::newRow("low") << lowPass(2000, 44100);
}

void tst_FastFourierTransform_filters::filter_isHarmless_withoutSpectrum()
{
    QFETCH(Filter, filter);
    FastFourierTransform fft;
    fft.m_isSpectrumStale = false;
    filter(fft);
    QVERIFY(fft.m_isSpectrumStale);
    QVERIFY(!fft.m_pReal);
}

void tst_FastFourierTransform_filters::bandPass_keepsToneInside_andRemovesTonesOutside()
{
    // 1024 Hz and 1024 samples: a bin is 1 Hz wide.
    const waves::Samples inside = waves::sine(1024, 1024, 100.0, 10000.0);
    waves::Samples mixed = inside;
    waves::mix(mixed, 0, waves::sine(1024, 1024, 20.0, 10000.0));
    waves::mix(mixed, 0, waves::sine(1024, 1024, 300.0, 10000.0));
    FastFourierTransform fft;
    fft.Compute(mixed.data(), mixed.size());
    fft.BandPassFilter(50, 200, 1024);
    const waves::Samples filtered = inverse(fft);
    for (size_t i = 0; i < inside.size(); ++i)
        QVERIFY(qAbs(filtered[i] - inside[i]) <= 4);
}

void tst_FastFourierTransform_filters::filter_staysInsideItsArrays_forAnyArguments()
{
    const int values[] = {leastInt,
                          leastInt + 1,
                          -44100,
                          -2,
                          -1,
                          0,
                          1,
                          2,
                          3,
                          50,
                          22050,
                          44100,
                          1 << 30,
                          greatestInt - 1,
                          greatestInt};
    FastFourierTransform fft;
    for (size_t length : {1U, 2U, 8U}) {
        for (int a : values) {
            for (int b : values) {
                QVERIFY(!filteredPicture(fft, length, highPass(a, b)).contains('?'));
                QVERIFY(!filteredPicture(fft, length, lowPass(a, b)).contains('?'));
                for (int c : values)
                    QVERIFY(!filteredPicture(fft, length, bandPass(a, b, c)).contains('?'));
            }
        }
    }
}

AA_TEST(tst_FastFourierTransform_filters, NoApplication)

#include "tst_FastFourierTransform_filters.moc"
