// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BitReversal.h>

#include <QtTest>

#include <support/TestClass.h>
#include <vector>

class tst_BitReversal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bits_areReversed_data();
    void bits_areReversed();
    void reversal_undoesItself_andIgnoresHighBits();
    void values_areScatteredToReversedPositions();
    void missingValues_becomeZero();
    void nullValues_becomeZero();
};

void tst_BitReversal::bits_areReversed_data()
{
    QTest::addColumn<quint64>("index");
    QTest::addColumn<int>("bits");
    QTest::addColumn<quint64>("reversed");
    QTest::newRow("no bits of 0") << quint64(0) << 0 << quint64(0);
    QTest::newRow("no bits") << quint64(12345) << 0 << quint64(0);
    QTest::newRow("1 of 1") << quint64(1) << 1 << quint64(1);
    QTest::newRow("1 of 10") << quint64(1) << 10 << quint64(512);
    QTest::newRow("0b0110 of 4") << quint64(6) << 4 << quint64(6);
    QTest::newRow("0b10011 of 5") << quint64(0x13) << 5 << quint64(0x19);
    QTest::newRow("high bits ignored") << quint64(0xfff1) << 4 << quint64(8);
    QTest::newRow("1 of 64") << quint64(1) << 64 << (quint64(1) << 63);
    QTest::newRow("highest of 64") << (quint64(1) << 63) << 64 << quint64(1);
}

void tst_BitReversal::bits_areReversed()
{
    QFETCH(quint64, index);
    QFETCH(int, bits);
    QFETCH(quint64, reversed);
    QCOMPARE(quint64(detail::reverseBits(index, size_t(bits))), reversed);
}

void tst_BitReversal::reversal_undoesItself_andIgnoresHighBits()
{
    for (size_t bits = 0; bits <= 12; ++bits) {
        const size_t length = size_t(1) << bits;
        for (size_t i = 0; i < length; ++i) {
            const size_t reversed = detail::reverseBits(i, bits);
            QVERIFY(reversed < length);
            QCOMPARE(detail::reverseBits(reversed, bits), i);
            QCOMPARE(detail::reverseBits(i + 5 * length, bits), reversed);
        }
    }
}

void tst_BitReversal::values_areScatteredToReversedPositions()
{
    const short values[] = {0, -1, 2, 3, 4, 5, 6, -32768};
    std::vector<double> out(8, 99.0);
    detail::scatterBitReversed(values, 8, 3, out.data());
    QCOMPARE(out, std::vector<double>({0, 4, 2, 6, -1, 5, 3, -32768}));
    const double one = 0.1;
    detail::scatterBitReversed(&one, 1, 0, out.data());
    QVERIFY(out[0] == 0.1);
    QVERIFY(out[1] == 4.0);
}

void tst_BitReversal::missingValues_becomeZero()
{
    const double values[] = {1.5, 2.5, 3.5, 4.5, 5.5};
    std::vector<double> out(8, 99.0);
    detail::scatterBitReversed(values, 5, 3, out.data());
    QCOMPARE(out, std::vector<double>({1.5, 5.5, 3.5, 0, 2.5, 0, 4.5, 0}));
    detail::scatterBitReversed(values, 0, 3, out.data());
    QCOMPARE(out, std::vector<double>(8));
}

void tst_BitReversal::nullValues_becomeZero()
{
    const short* pNone = nullptr;
    std::vector<double> out(4, 99.0);
    detail::scatterBitReversed(pNone, 3, 2, out.data());
    QCOMPARE(out, std::vector<double>(4));
}

AA_TEST(tst_BitReversal, NoApplication)

#include "tst_BitReversal.moc"
