// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/detail/BoundedReader.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// A reader on bytes of its own, in little-endian order.
struct Fixture
{
    explicit Fixture(const char* pHex) : Fixture(pHex, QByteArray::fromHex(pHex).size()) {}
    Fixture(const char* pHex, int pAvailable)
        : stream(QByteArray::fromHex(pHex)), reader(stream, quint64(pAvailable))
    {
        stream.setByteOrder(QDataStream::LittleEndian);
    }

    QDataStream stream;
    detail::BoundedReader reader;
};

}  // namespace

class tst_BoundedReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_givesNumbersAndCountsDown();
    void read_fails_whenTooFewBytesRemain_data();
    void read_fails_whenTooFewBytesRemain();
    void read_fails_whenStreamEndsEarly();
    void read_staysFailed_whenALaterFieldWouldFit();
    void readText_givesText();
    void readText_fails_whenTooFewBytesRemain();
    void readText_fails_whenStreamEndsEarly();
    void take_countsDown();
    void fail_sticks();
};

void tst_BoundedReader::read_givesNumbersAndCountsDown()
{
    Fixture fixture("0201 ffff 80 01 04030201 000000000000f03f");
    QCOMPARE(fixture.reader.remaining(), quint64(18));
    QCOMPARE(fixture.reader.read<quint16>(), quint16(0x0102));
    QCOMPARE(fixture.reader.read<qint16>(), qint16(-1));
    QCOMPARE(fixture.reader.read<qint8>(), qint8(-128));
    QCOMPARE(fixture.reader.read<bool>(), true);
    QCOMPARE(fixture.reader.remaining(), quint64(12));
    QCOMPARE(fixture.reader.read<quint32>(), 0x01020304U);
    QCOMPARE(fixture.reader.read<double>(), 1.0);
    QCOMPARE(fixture.reader.remaining(), quint64(0));
    QVERIFY(fixture.reader.isValid());
    QCOMPARE(fixture.reader.read<quint8>(), quint8(0));
    QVERIFY(!fixture.reader.isValid());
}

void tst_BoundedReader::read_fails_whenTooFewBytesRemain_data()
{
    QTest::addColumn<int>("available");
    QTest::addColumn<bool>("isValid");
    for (const int available : {0, 1, 3, 4, 5})
        QTest::addRow("%d", available) << available << (available >= 4);
}

void tst_BoundedReader::read_fails_whenTooFewBytesRemain()
{
    QFETCH(int, available);
    QFETCH(bool, isValid);
    Fixture fixture("0403020105060708", available);
    QCOMPARE(fixture.reader.read<quint32>(), isValid ? 0x01020304U : 0U);
    QCOMPARE(fixture.reader.isValid(), isValid);
    QCOMPARE(fixture.reader.remaining(), quint64(isValid ? available - 4 : available));
}

void tst_BoundedReader::read_fails_whenStreamEndsEarly()
{
    Fixture fixture("0403", 100);
    QCOMPARE(fixture.reader.read<quint32>(), 0U);
    QVERIFY(!fixture.reader.isValid());
}

void tst_BoundedReader::read_staysFailed_whenALaterFieldWouldFit()
{
    Fixture fixture("0102030405");
    QCOMPARE(fixture.reader.read<double>(), 0.0);
    QCOMPARE(fixture.reader.read<quint8>(), quint8(0));
    QCOMPARE(fixture.reader.readText(1), QString());
    QVERIFY(!fixture.reader.take(1));
    QVERIFY(!fixture.reader.take(0));
    QVERIFY(!fixture.reader.isValid());
}

void tst_BoundedReader::readText_givesText()
{
    Fixture fixture("0300 61c3a9 0000 7a");
    QCOMPARE(fixture.reader.readText(), QString::fromUtf8("aé"));
    QCOMPARE(fixture.reader.readText(), QString());
    QVERIFY(fixture.reader.isValid());
    QCOMPARE(fixture.reader.readText(1), QStringLiteral("z"));
    QCOMPARE(fixture.reader.remaining(), quint64(0));
    QVERIFY(fixture.reader.isValid());
}

void tst_BoundedReader::readText_fails_whenTooFewBytesRemain()
{
    Fixture fixture("0300 6162");
    QCOMPARE(fixture.reader.readText(), QString());
    QVERIFY(!fixture.reader.isValid());
    Fixture longest("ffff 6162");
    QCOMPARE(longest.reader.readText(), QString());
    QVERIFY(!longest.reader.isValid());
    Fixture cut("03");
    QCOMPARE(cut.reader.readText(), QString());
    QVERIFY(!cut.reader.isValid());
}

void tst_BoundedReader::readText_fails_whenStreamEndsEarly()
{
    Fixture fixture("0300 6162", 100);
    QCOMPARE(fixture.reader.readText(), QString());
    QVERIFY(!fixture.reader.isValid());
}

void tst_BoundedReader::take_countsDown()
{
    Fixture fixture("", 10);
    QVERIFY(fixture.reader.take(0));
    QVERIFY(fixture.reader.take(4));
    QVERIFY(fixture.reader.take(6));
    QCOMPARE(fixture.reader.remaining(), quint64(0));
    QVERIFY(!fixture.reader.take(~quint64(0)));
    QVERIFY(!fixture.reader.isValid());
}

void tst_BoundedReader::fail_sticks()
{
    Fixture fixture("01");
    fixture.reader.fail();
    QVERIFY(!fixture.reader.isValid());
    QCOMPARE(fixture.reader.read<quint8>(), quint8(0));
}

AA_TEST(tst_BoundedReader, NoApplication)
#include "tst_BoundedReader.moc"
