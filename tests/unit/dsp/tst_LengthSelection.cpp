// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/LengthSelection.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

class tst_LengthSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bitCount_isLogarithmRoundedUp_data();
    void bitCount_isLogarithmRoundedUp();
    void length_isTheLeastPowerOfTwoThatHoldsTheCount();
};

void tst_LengthSelection::bitCount_isLogarithmRoundedUp_data()
{
    QTest::addColumn<quint64>("count");
    QTest::addColumn<int>("bits");
    QTest::newRow("0") << quint64(0) << 0;
    QTest::newRow("1") << quint64(1) << 0;
    QTest::newRow("2") << quint64(2) << 1;
    QTest::newRow("3") << quint64(3) << 2;
    QTest::newRow("4") << quint64(4) << 2;
    QTest::newRow("5") << quint64(5) << 3;
    QTest::newRow("1000") << quint64(1000) << 10;
    QTest::newRow("1024") << quint64(1024) << 10;
    QTest::newRow("1025") << quint64(1025) << 11;
    QTest::newRow("2^63") << (quint64(1) << 63) << 63;
    QTest::newRow("2^63 + 1") << (quint64(1) << 63) + 1 << 64;
    QTest::newRow("greatest") << std::numeric_limits<quint64>::max() << 64;
}

void tst_LengthSelection::bitCount_isLogarithmRoundedUp()
{
    QFETCH(quint64, count);
    QFETCH(int, bits);
    QCOMPARE(detail::selectBitCount(count), size_t(bits));
}

void tst_LengthSelection::length_isTheLeastPowerOfTwoThatHoldsTheCount()
{
    for (size_t count = 1; count <= 5000; ++count) {
        const size_t length = detail::lengthOfBits(detail::selectBitCount(count));
        QCOMPARE(length & (length - 1), size_t(0));
        QVERIFY(length >= count && length / 2 < count);
    }
    QCOMPARE(detail::lengthOfBits(0), size_t(1));
    QCOMPARE(detail::lengthOfBits(63), size_t(1) << 63);
}

AA_TEST(tst_LengthSelection, NoApplication)

#include "tst_LengthSelection.moc"
