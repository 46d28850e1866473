// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/SemitoneBands.h>

#include <QtTest>

#include <support/TestClass.h>

using detail::makeSemitoneBands;
using detail::SemitoneBand;

class tst_SemitoneBands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bands_followEachOther_atEveryRate_data();
    void bands_followEachOther_atEveryRate();
    void lowestBands_areOneBinEach_onTheRaster();
    void ranges_beginAtTheirEdges();
    void bands_reachOnlyAsFarAsTheRate();
};

void tst_SemitoneBands::bands_followEachOther_atEveryRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("length");
    QTest::newRow("44100") << 44100.0 << 2048;
    QTest::newRow("48000") << 48000.0 << 2048;
    QTest::newRow("8000") << 8000.0 << 512;
    QTest::newRow("192000") << 192000.0 << 8192;
}

void tst_SemitoneBands::bands_followEachOther_atEveryRate()
{
    QFETCH(double, rate);
    QFETCH(int, length);
    const std::vector<SemitoneBand> bands = makeSemitoneBands(rate / length, rate / 2.0);
    QVERIFY(bands.size() > 50);
    for (std::size_t i = 0; i < bands.size(); ++i) {
        QVERIFY(bands[i].firstBin < bands[i].endBin);
        QVERIFY(int(bands[i].endBin) <= length / 2);
        QVERIFY(bands[i].range < 5);
        QVERIFY(i == 0 || bands[i].firstBin == bands[i - 1].endBin);
        QVERIFY(i == 0 || bands[i].range >= bands[i - 1].range);
    }
}

// 27.5 Hz is 1.28 lines of 21.53 Hz up, so the first edge lies at half a line, the next at 1.5.
void tst_SemitoneBands::lowestBands_areOneBinEach_onTheRaster()
{
    const std::vector<SemitoneBand> bands = makeSemitoneBands(44100.0 / 2048.0, 22050.0);
    for (std::size_t i = 0; i < 15; ++i) {
        QCOMPARE(bands[i].firstBin, i + 1);
        QCOMPARE(bands[i].endBin, i + 2);
    }
}

// Lines 6 and 7 lie at 129.2 and 150.7 Hz.
void tst_SemitoneBands::ranges_beginAtTheirEdges()
{
    const std::vector<SemitoneBand> bands = makeSemitoneBands(44100.0 / 2048.0, 22050.0);
    QCOMPARE(bands[5].firstBin, std::size_t(6));
    QCOMPARE(bands[5].range, std::size_t(0));
    QCOMPARE(bands[6].range, std::size_t(1));
    QCOMPARE(bands.back().range, std::size_t(4));
}

void tst_SemitoneBands::bands_reachOnlyAsFarAsTheRate()
{
    const std::vector<SemitoneBand> bands = makeSemitoneBands(8000.0 / 512.0, 4000.0);
    QCOMPARE(bands.back().range, std::size_t(3));
    QVERIFY(double(bands.back().endBin) * 8000.0 / 512.0 <= 4000.0 + 8000.0 / 512.0);
}

AA_TEST(tst_SemitoneBands, NoApplication)
#include "tst_SemitoneBands.moc"
