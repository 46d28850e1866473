// SPDX-License-Identifier: MIT
#include <shared/outputs/SoundPicture.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>
#include <vector>

using shared::SoundPicture;

namespace {

// 512 bins of 20 Hz each: band k begins at bin 2 * 2^(k/2), rounded: 2, 3, 4, 6, 8, 11, 16, 23, 32,
// 45, 64, 91, 128, 181, 256, 362, and 512 is the end of the last one.
constexpr int kRate = 20480;
constexpr std::size_t kBins = 512;

/// What is made of a spectrum with these amplitudes, at 1000 Hz where one bin is given.
shared::OutputSound pictureOf(const std::vector<double>& pAmplitudes, int pRate = kRate)
{
    SoundPicture picture;
    picture.TakeSpectrum(pAmplitudes.data(), pAmplitudes.size(), pRate);
    const std::int16_t silence = 0;
    return *picture.TakeSamples(&silence, 1, 1000000);
}

std::vector<double> line(std::size_t pBin, double pAmplitude = 1.0)
{
    std::vector<double> amplitudes(kBins, 0.0);
    amplitudes[pBin] = pAmplitude;
    return amplitudes;
}

}  // namespace

class tst_SoundPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bins_lieInTheirBands_data();
    void bins_lieInTheirBands();
    void bands_areDecibels();
    void strongestFrequency_isFound();
    void bandsBeyondTheSpectrum_areSilent();
    void level_isThatOfTheSamples();
    void pictures_comeFiftyTimesASecond_data();
    void pictures_comeFiftyTimesASecond();
};

void tst_SoundPicture::bins_lieInTheirBands_data()
{
    QTest::addColumn<int>("bin");
    QTest::addColumn<int>("band");
    QTest::newRow("below all") << 1 << -1;
    QTest::newRow("40 Hz") << 2 << 0;
    QTest::newRow("60 Hz") << 3 << 1;
    QTest::newRow("80 Hz") << 4 << 2;
    QTest::newRow("100 Hz") << 5 << 2;
    QTest::newRow("120 Hz") << 6 << 3;
    QTest::newRow("1 kHz") << 50 << 9;
    QTest::newRow("1260 Hz") << 63 << 9;
    QTest::newRow("1280 Hz") << 64 << 10;
    QTest::newRow("7240 Hz") << 362 << 15;
    QTest::newRow("last") << 511 << 15;
}

void tst_SoundPicture::bins_lieInTheirBands()
{
    QFETCH(const int, bin);
    QFETCH(const int, band);
    const auto sound = pictureOf(line(std::size_t(bin)));
    for (int i = 0; i < 16; ++i)
        QCOMPARE(sound.bands[std::size_t(i)], i == band ? 1.0 : 0.0);
}

void tst_SoundPicture::bands_areDecibels()
{
    // A hundredth is -40 dB. Band 0 adds nothing, band 9 adds 13.5 dB; of 48.
    QCOMPARE(pictureOf(line(2, 0.01)).bands[0], 8.0 / 48.0);
    QCOMPARE(pictureOf(line(50, 0.01)).bands[9], 21.5 / 48.0);
    QCOMPARE(pictureOf(line(2, 0.001)).bands[0], 0.0);
    QCOMPARE(pictureOf(line(511, 0.5)).bands[15], 1.0);
}

void tst_SoundPicture::strongestFrequency_isFound()
{
    auto amplitudes = line(50, 0.75);
    amplitudes[400] = 0.5;
    const auto sound = pictureOf(amplitudes);
    QCOMPARE(sound.frequency, 1000.0);
    QCOMPARE(sound.magnitude, 0.75);
}

void tst_SoundPicture::bandsBeyondTheSpectrum_areSilent()
{
    // 8 kHz: 64 bins of 62.5 Hz up to 4 kHz. Band 13 begins at 3620 Hz, bin 58; 14 at 5120.
    const auto sound = pictureOf(std::vector<double>(64, 1.0), 8000);
    for (std::size_t i = 0; i < 16; ++i)
        QCOMPARE(sound.bands[i], i <= 13 ? 1.0 : 0.0);
    SoundPicture picture;
    picture.TakeSpectrum(nullptr, 0, 8000);
}

void tst_SoundPicture::level_isThatOfTheSamples()
{
    // A square wave of half of full scale has the power of a sine of sqrt(2) times that.
    const std::vector<std::int16_t> half = {16384, -16384, 16384, -16384};
    SoundPicture picture;
    QCOMPARE(picture.TakeSamples(half.data(), 4, 20000)->level, std::sqrt(0.5));
    const std::vector<std::int16_t> full = {-32768, -32768};
    QCOMPARE(picture.TakeSamples(full.data(), 2, 40000)->level, 1.0);
    const std::vector<std::int16_t> silence = {0, 0};
    const auto last = picture.TakeSamples(silence.data(), 2, 60000);
    QCOMPARE(last->level, 0.0);
    QCOMPARE(last->time, std::int64_t(60000));
}

void tst_SoundPicture::pictures_comeFiftyTimesASecond_data()
{
    QTest::addColumn<int>("block");  // µs
    QTest::addColumn<int>("count");  // in a second
    QTest::newRow("5 ms") << 5000 << 50;
    QTest::newRow("10 ms") << 10000 << 50;
    QTest::newRow("13 ms") << 13000 << 50;
    // Never more than one of a block: 1000 / 25 and 1000 / 50.
    QTest::newRow("25 ms") << 25000 << 40;
    QTest::newRow("50 ms") << 50000 << 20;
}

void tst_SoundPicture::pictures_comeFiftyTimesASecond()
{
    QFETCH(const int, block);
    QFETCH(const int, count);
    SoundPicture picture;
    const std::int16_t sample = 1000;
    int pictures = 0;
    for (std::int64_t time = 0; time < 1000000; time += block)
        pictures += picture.TakeSamples(&sample, 1, 7000000000 + time) ? 1 : 0;
    QCOMPARE(pictures, count);
}

AA_TEST(tst_SoundPicture, NoApplication)

#include "tst_SoundPicture.moc"
