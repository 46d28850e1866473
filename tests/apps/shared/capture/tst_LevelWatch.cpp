// SPDX-License-Identifier: MIT
#include <shared/capture/LevelWatch.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>
#include <vector>

using shared::LevelWatch;
using Notices = std::vector<eCaptureNotice>;
using Samples = std::vector<qint16>;

namespace {

constexpr quint64 kWindow = 6000;  // samples

Samples Constant(int pValue)
{
    return Samples(kWindow, qint16(pValue));
}

/// A window of a square wave of that magnitude.
Samples Square(int pMagnitude, std::size_t pHalf = 2)
{
    Samples samples;
    for (std::size_t i = 0; i < kWindow; ++i)
        samples.push_back(qint16((i / pHalf) % 2 == 0 ? pMagnitude : -pMagnitude));
    return samples;
}

/// Quiet music with pRows rows of pLength samples at full scale.
Samples Clipped(int pRows, int pLength, qint16 pValue)
{
    Samples samples = Square(1000);
    for (int row = 0; row < pRows; ++row)
        for (int i = 0; i < pLength; ++i)
            samples[std::size_t(row * 100 + i)] = pValue;
    return samples;
}

Notices Add(LevelWatch& pWatch, const Samples& pSamples, bool pIsMusic)
{
    return pWatch.Add(pSamples.data(), pSamples.size(), pIsMusic);
}

const Notices kNothing;
const Notices kSilence = {eDigitalSilenceNotice};
const Notices kQuiet = {eTooQuietNotice};
const Notices kClipped = {eClippedNotice};

}  // namespace

class tst_LevelWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void music_isNotWorthANotice();
    void digitalSilence_isToldOncePerOccurrence();
    void digitalSilence_isAGap_whenMusicPlayedBefore();
    void digitalSilence_isAnyConstantLevel();
    void tooQuiet_isTold_whenASecondWindowHoldsNoMusic();
    void tooQuiet_isNotTold_ofNoise();
    void tooQuiet_isNotTold_whenMusicBegins();
    void tooQuiet_isToldAgain_afterMusic();
    void clipped_needsRowsAtFullScale_data();
    void clipped_needsRowsAtFullScale();
    void clipped_ends_withAWindowWithoutAny();
    void notices_doNotDependOnTheBatches();
    void severalWindows_inOneBatch();
    void noWindow_noticesNothing();
    void peak_isTheGreatestMagnitudeSinceAsked();
};

void tst_LevelWatch::music_isNotWorthANotice()
{
    LevelWatch watch(kWindow);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(Add(watch, Square(20000), true), kNothing);
}

void tst_LevelWatch::digitalSilence_isToldOncePerOccurrence()
{
    LevelWatch watch(kWindow);
    QCOMPARE(Add(watch, Constant(0), false), kSilence);
    QCOMPARE(Add(watch, Constant(0), false), kNothing);
    QCOMPARE(Add(watch, Square(20), false), kNothing);
    QCOMPARE(Add(watch, Constant(0), false), kSilence);
}

void tst_LevelWatch::digitalSilence_isAGap_whenMusicPlayedBefore()
{
    LevelWatch watch(kWindow);
    for (int track = 0; track < 2; ++track) {
        QCOMPARE(Add(watch, Square(20000), true), kNothing);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(Add(watch, Constant(0), false), kNothing);
        QCOMPARE(Add(watch, Square(20000), true), kNothing);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(Add(watch, Constant(0), false), kNothing);
        QCOMPARE(Add(watch, Constant(0), false), kSilence);
        QCOMPARE(Add(watch, Constant(0), false), kNothing);
    }
}

void tst_LevelWatch::digitalSilence_isAnyConstantLevel()
{
    for (const int level : {-1, 5, -32768}) {
        LevelWatch watch(kWindow);
        const Notices notices = Add(watch, Constant(level), false);
        QVERIFY(!notices.empty());
        QCOMPARE(notices.front(), eDigitalSilenceNotice);
    }
}

void tst_LevelWatch::tooQuiet_isTold_whenASecondWindowHoldsNoMusic()
{
    for (const int magnitude : {33, 1000, 32000}) {
        LevelWatch watch(kWindow);
        QCOMPARE(Add(watch, Square(magnitude), false), kNothing);
        QCOMPARE(Add(watch, Square(magnitude), false), kQuiet);
        QCOMPARE(Add(watch, Square(magnitude), false), kNothing);
    }
}

void tst_LevelWatch::tooQuiet_isNotTold_ofNoise()
{
    LevelWatch watch(kWindow);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(Add(watch, Square(32), false), kNothing);
}

void tst_LevelWatch::tooQuiet_isNotTold_whenMusicBegins()
{
    LevelWatch watch(kWindow);
    QCOMPARE(Add(watch, Square(20000), false), kNothing);
    QCOMPARE(Add(watch, Square(20000), true), kNothing);
    QCOMPARE(Add(watch, Square(20000), false), kNothing);
}

void tst_LevelWatch::tooQuiet_isToldAgain_afterMusic()
{
    LevelWatch watch(kWindow);
    Add(watch, Square(500), false);
    QCOMPARE(Add(watch, Square(500), false), kQuiet);
    QCOMPARE(Add(watch, Square(20000), true), kNothing);
    QCOMPARE(Add(watch, Square(500), false), kNothing);
    QCOMPARE(Add(watch, Square(500), false), kQuiet);
}

void tst_LevelWatch::clipped_needsRowsAtFullScale_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isClipped");
    // One in a thousand of 6000 samples are 6.
    QTest::newRow("two rows of three") << 2 << 3 << 32767 << true;
    QTest::newRow("one row of six") << 1 << 6 << -32768 << true;
    QTest::newRow("lower full scale") << 2 << 3 << -32767 << true;
    QTest::newRow("one row of five") << 1 << 5 << 32767 << false;
    QTest::newRow("pairs are peaks") << 50 << 2 << 32767 << false;
    QTest::newRow("just below") << 50 << 9 << 32766 << false;
}

void tst_LevelWatch::clipped_needsRowsAtFullScale()
{
    QFETCH(int, rows);
    QFETCH(int, length);
    QFETCH(int, value);
    QFETCH(bool, isClipped);
    LevelWatch watch(kWindow);
    QCOMPARE(Add(watch, Clipped(rows, length, qint16(value)), true),
             isClipped ? kClipped : kNothing);
}

void tst_LevelWatch::clipped_ends_withAWindowWithoutAny()
{
    LevelWatch watch(kWindow);
    QCOMPARE(Add(watch, Clipped(9, 3, 32767), true), kClipped);
    QCOMPARE(Add(watch, Clipped(1, 3, 32767), true), kNothing);
    QCOMPARE(Add(watch, Clipped(9, 3, 32767), true), kNothing);
    QCOMPARE(Add(watch, Square(1000), true), kNothing);
    QCOMPARE(Add(watch, Clipped(9, 3, 32767), true), kClipped);
}

void tst_LevelWatch::notices_doNotDependOnTheBatches()
{
    const Samples samples = Clipped(2, 3, 32767);
    for (const std::size_t size : {1, 7, 64, 5999}) {
        LevelWatch watch(kWindow);
        Notices notices;
        for (std::size_t at = 0; at < samples.size(); at += size) {
            const auto found =
                watch.Add(samples.data() + at, std::min(size, samples.size() - at), true);
            notices.insert(notices.end(), found.begin(), found.end());
        }
        QCOMPARE(notices, kClipped);
    }
}

void tst_LevelWatch::severalWindows_inOneBatch()
{
    LevelWatch watch(kWindow);
    Samples samples = Constant(0);
    const Samples quiet = Square(500);
    samples.insert(samples.end(), quiet.begin(), quiet.end());
    samples.insert(samples.end(), quiet.begin(), quiet.end());
    QCOMPARE(Add(watch, samples, false), (Notices{eDigitalSilenceNotice, eTooQuietNotice}));
}

void tst_LevelWatch::noWindow_noticesNothing()
{
    LevelWatch watch(0);
    QCOMPARE(Add(watch, Constant(0), false), kNothing);
}

void tst_LevelWatch::peak_isTheGreatestMagnitudeSinceAsked()
{
    LevelWatch watch(kWindow);
    QCOMPARE(watch.TakePeak(), 0);
    Add(watch, {3, -700, 20}, true);
    QCOMPARE(watch.TakePeak(), 700);
    QCOMPARE(watch.TakePeak(), 0);
    Add(watch, {std::numeric_limits<qint16>::min()}, true);
    QCOMPARE(watch.TakePeak(), 32767);
}

AA_TEST(tst_LevelWatch, NoApplication)
#include "tst_LevelWatch.moc"
