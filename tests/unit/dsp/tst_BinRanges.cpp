// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BinRanges.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

class tst_BinRanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cuts_areFloors_data();
    void cuts_areFloors();
    void keeps_areFloorsAndOne_data();
    void keeps_areFloorsAndOne();
    void bandPass_fallsShort_whereTheQuotientIsRounded_isIntended();
    void bandPassCut_isZero_forANegativeBound();
};

void tst_BinRanges::cuts_areFloors_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("nyquist");
    QTest::addColumn<int>("half");
    QTest::addColumn<int>("cut");
    QTest::newRow("50 of 22050") << 50 << 22050 << 512 << 1;
    QTest::newRow("50 of 24000") << 50 << 24000 << 1024 << 2;
    QTest::newRow("100 of 22050") << 100 << 22050 << 512 << 2;
    QTest::newRow("below a bin") << 43 << 22050 << 512 << 0;
    QTest::newRow("at a bin") << 1000 << 4000 << 128 << 32;
    QTest::newRow("just below a bin") << 999 << 4000 << 128 << 31;
    QTest::newRow("below the last") << 22049 << 22050 << 512 << 511;
    QTest::newRow("half of 1") << 22049 << 22050 << 1 << 0;
    QTest::newRow("no bins") << 50 << 22050 << 0 << 0;
    // The product does not fit into 32 bits.
    QTest::newRow("long") << 12000 << 24000 << (1 << 20) << (1 << 19);
    QTest::newRow("greatest") << std::numeric_limits<int>::max() - 1
                              << std::numeric_limits<int>::max() << (1 << 30) << (1 << 30) - 1;
}

void tst_BinRanges::cuts_areFloors()
{
    QFETCH(int, low);
    QFETCH(int, nyquist);
    QFETCH(int, half);
    QFETCH(int, cut);
    QCOMPARE(detail::highPassCut(low, nyquist, size_t(half)), size_t(cut));
    QCOMPARE(detail::bandPassCut(low, nyquist, size_t(half)), size_t(cut));
}

void tst_BinRanges::keeps_areFloorsAndOne_data()
{
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("nyquist");
    QTest::addColumn<int>("half");
    QTest::addColumn<int>("keep");
    QTest::newRow("2000 of 22050") << 2000 << 22050 << 512 << 47;
    QTest::newRow("2000 of 24000") << 2000 << 24000 << 1024 << 86;
    QTest::newRow("1") << 1 << 22050 << 512 << 1;
    QTest::newRow("at a bin") << 1000 << 4000 << 128 << 33;
    QTest::newRow("Nyquist") << 4000 << 4000 << 128 << 129;
    QTest::newRow("above Nyquist") << std::numeric_limits<int>::max() << 4000 << 128 << 129;
    QTest::newRow("no bins") << 50 << 22050 << 0 << 1;
    QTest::newRow("Nyquist of 1 Hz") << 1 << 1 << 512 << 513;
}

void tst_BinRanges::keeps_areFloorsAndOne()
{
    QFETCH(int, high);
    QFETCH(int, nyquist);
    QFETCH(int, half);
    QFETCH(int, keep);
    QCOMPARE(detail::lowPassKeep(high, nyquist, size_t(half)), size_t(keep));
    QCOMPARE(detail::bandPassKeep(high, nyquist, size_t(half)), size_t(keep));
}

void tst_BinRanges::bandPass_fallsShort_whereTheQuotientIsRounded_isIntended()
{
    // The double nearest to 1/49 is below it, and 49 times that is below 1.
    QCOMPARE(detail::highPassCut(49, 98, 64), size_t(32));
    QCOMPARE(detail::bandPassCut(49, 98, 64), size_t(31));
    QCOMPARE(detail::lowPassKeep(49, 98, 64), size_t(33));
    QCOMPARE(detail::bandPassKeep(49, 98, 64), size_t(32));
}

void tst_BinRanges::bandPassCut_isZero_forANegativeBound()
{
    for (int low : {0, -1, -50, std::numeric_limits<int>::min()})
        QCOMPARE(detail::bandPassCut(low, 22050, 512), size_t(0));
}

AA_TEST(tst_BinRanges, NoApplication)

#include "tst_BinRanges.moc"
