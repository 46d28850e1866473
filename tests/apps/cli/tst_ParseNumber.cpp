// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <shared/files/detail/ContainerSize.h>

#include <QtTest>

#include <optional>
#include <support/TestClass.h>

/// The arithmetic of readers and options.
class tst_ParseNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void promisedFileSize_readsTheHead_data();
    void promisedFileSize_readsTheHead();
    void parseNumber_takesFiniteNumbersWithAPoint_data();
    void parseNumber_takesFiniteNumbersWithAPoint();
    void parseInteger_takesWholeNumbersWithinLimits_data();
    void parseInteger_takesWholeNumbersWithinLimits();
};

void tst_ParseNumber::promisedFileSize_readsTheHead_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<qint64>("size");
    QTest::newRow("little-endian RIFF") << QByteArray("RIFF\x24\x01\x00\x00", 8) << qint64(300);
    QTest::newRow("big-endian FORM") << QByteArray("FORM\x00\x00\x01\x24", 8) << qint64(300);
    QTest::newRow("zero placeholder") << QByteArray("RIFF\0\0\0\0", 8) << qint64(0);
    QTest::newRow("32-bit placeholder") << QByteArray("RIFF\xff\xff\xff\xff", 8) << qint64(0);
    QTest::newRow("31-bit placeholder") << QByteArray("RIFF\x24\xf0\xff\x7f", 8) << qint64(0);
    QTest::newRow("3 GB file") << QByteArray("RIFF\0\0\0\xc0", 8) << qint64(3221225480);
    QTest::newRow("other kind") << QByteArray("fLaC\x24\x01\0\0", 8) << qint64(0);
    QTest::newRow("too short") << QByteArray("RIFF\x24\x01\0") << qint64(0);
    QTest::newRow("empty") << QByteArray() << qint64(0);
}

void tst_ParseNumber::promisedFileSize_readsTheHead()
{
    QFETCH(QByteArray, head);
    QFETCH(qint64, size);
    QCOMPARE(shared::PromisedFileSize(head), size);
}

void tst_ParseNumber::parseNumber_takesFiniteNumbersWithAPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<double>("number");
    QTest::newRow("whole") << "12" << true << 12.0;
    QTest::newRow("point") << "1.5" << true << 1.5;
    QTest::newRow("negative") << "-0.25" << true << -0.25;
    QTest::newRow("exponent") << "1e2" << true << 100.0;
    QTest::newRow("comma") << "1,5" << false << 0.0;
    QTest::newRow("unit") << "12s" << false << 0.0;
    QTest::newRow("nan") << "nan" << false << 0.0;
    QTest::newRow("inf") << "inf" << false << 0.0;
    QTest::newRow("too great") << "1e999" << false << 0.0;
    QTest::newRow("empty") << "" << false << 0.0;
}

void tst_ParseNumber::parseNumber_takesFiniteNumbersWithAPoint()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(double, number);
    const std::optional<double> value = cli::ParseNumber(text);
    QCOMPARE(value.has_value(), isNumber);
    QCOMPARE(value.value_or(0.0), number);
}

void tst_ParseNumber::parseInteger_takesWholeNumbersWithinLimits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("result");  // -1 = refused
    QTest::newRow("lowest") << "2" << 2;
    QTest::newRow("highest") << "9" << 9;
    QTest::newRow("below") << "1" << -1;
    QTest::newRow("above") << "10" << -1;
    QTest::newRow("fraction") << "3.5" << -1;
    QTest::newRow("text") << "three" << -1;
    QTest::newRow("hexadecimal") << "0x3" << -1;
    QTest::newRow("too great") << "99999999999" << -1;
    QTest::newRow("empty") << "" << -1;
}

void tst_ParseNumber::parseInteger_takesWholeNumbersWithinLimits()
{
    QFETCH(QString, text);
    QFETCH(int, result);
    QCOMPARE(cli::ParseInteger(text, 2, 9).value_or(-1), result);
}

AA_TEST(tst_ParseNumber, NoApplication)
#include "tst_ParseNumber.moc"
