// SPDX-License-Identifier: MIT
#include <QtTest>

#include <common/detail/ContainerSize.h>
#include <common/detail/Downmix.h>
#include <common/detail/ParseNumber.h>
#include <limits>
#include <vector>

/// The arithmetic of readers and options.
class tst_Downmix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toSample16_roundsHalvesAwayFromZeroAndSaturates_data();
    void toSample16_roundsHalvesAwayFromZeroAndSaturates();
    void downmix_averagesEachFrame();
    void promisedFileSize_readsTheHead_data();
    void promisedFileSize_readsTheHead();
    void parseNumber_takesFiniteNumbersWithAPoint_data();
    void parseNumber_takesFiniteNumbersWithAPoint();
    void parseInteger_takesWholeNumbersWithinLimits_data();
    void parseInteger_takesWholeNumbersWithinLimits();
};

void tst_Downmix::toSample16_roundsHalvesAwayFromZeroAndSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint16>("sample");
    const double step = 1.0 / 32768.0;
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("zero") << 0.0 << qint16(0);
    QTest::newRow("below a half") << 0.49 * step << qint16(0);
    QTest::newRow("a half") << 0.5 * step << qint16(1);
    QTest::newRow("minus a half") << -0.5 * step << qint16(-1);
    QTest::newRow("minus below a half") << -0.49 * step << qint16(0);
    QTest::newRow("half scale") << 0.5 << qint16(16384);
    QTest::newRow("greatest") << 32767 * step << qint16(32767);
    QTest::newRow("rounds over the greatest") << 32767.5 * step << qint16(32767);
    QTest::newRow("full scale") << 1.0 << qint16(32767);
    QTest::newRow("negative full scale") << -1.0 << qint16(-32768);
    QTest::newRow("just inside negative") << -32767.5 * step << qint16(-32768);
    QTest::newRow("next to negative full scale") << -32767.4 * step << qint16(-32767);
    QTest::newRow("above") << 7.5 << qint16(32767);
    QTest::newRow("below") << -7.5 << qint16(-32768);
    QTest::newRow("infinity") << infinity << qint16(32767);
    QTest::newRow("minus infinity") << -infinity << qint16(-32768);
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << qint16(0);
}

void tst_Downmix::toSample16_roundsHalvesAwayFromZeroAndSaturates()
{
    QFETCH(double, value);
    QFETCH(qint16, sample);
    QCOMPARE(detail::ToSample16(value), sample);
}

void tst_Downmix::downmix_averagesEachFrame()
{
    // Opposite, equal, and one loud channel among three.
    const std::vector<float> frames = {0.5f, -0.5f, 0.0f, 0.25f, 0.25f, 0.25f, 0.75f, 0.0f, 0.0f};
    std::vector<qint16> samples(3);
    detail::Downmix(frames.data(), 3, 3, samples.data());
    QCOMPARE(samples, (std::vector<qint16>{0, 8192, 8192}));
}

void tst_Downmix::promisedFileSize_readsTheHead_data()
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

void tst_Downmix::promisedFileSize_readsTheHead()
{
    QFETCH(QByteArray, head);
    QFETCH(qint64, size);
    QCOMPARE(detail::PromisedFileSize(head), size);
}

void tst_Downmix::parseNumber_takesFiniteNumbersWithAPoint_data()
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

void tst_Downmix::parseNumber_takesFiniteNumbersWithAPoint()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(double, number);
    const std::optional<double> value = detail::ParseNumber(text);
    QCOMPARE(value.has_value(), isNumber);
    QCOMPARE(value.value_or(0.0), number);
}

void tst_Downmix::parseInteger_takesWholeNumbersWithinLimits_data()
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

void tst_Downmix::parseInteger_takesWholeNumbersWithinLimits()
{
    QFETCH(QString, text);
    QFETCH(int, result);
    QCOMPARE(detail::ParseInteger(text, 2, 9).value_or(-1), result);
}

QTEST_APPLESS_MAIN(tst_Downmix)
#include "tst_Downmix.moc"
