// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/detail/FormatRank.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_FormatRank : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rateTerm_fallsWithTheRatioTo48000_data();
    void rateTerm_fallsWithTheRatioTo48000();
    void rateTerm_prefers50000To44100And32000To96000_isIntended();
    void rateTerm_wraps_whenProductExceeds32Bits();
    void channelTerm_prefersFewerChannels_data();
    void channelTerm_prefersFewerChannels();
    void sizeTerm_prefers16To32To8_data();
    void sizeTerm_prefers16To32To8();
    void formatRank_joinsTheThreeTerms_data();
    void formatRank_joinsTheThreeTerms();
    void formatRank_isZero_whenFormatCannotBeUsed_data();
    void formatRank_isZero_whenFormatCannotBeUsed();
};

void tst_FormatRank::rateTerm_fallsWithTheRatioTo48000_data()
{
    QTest::addColumn<quint32>("rate");
    QTest::addColumn<quint32>("distance");
    const quint32 rows[][2] = {{48000, 0},
                               {50000, 1066},
                               {44100, 1114},
                               {32000, 1536},
                               {88200, 1881},
                               {96000, 2048},
                               {22050, 2229},
                               {16000, 3072},
                               {192000, 4096},
                               {11025, 4458},
                               {8000, 6144},
                               {47999, 1024},
                               {48001, 1024},
                               {1, 49152000}};
    for (const auto& row : rows)
        QTest::addRow("%u Hz", row[0]) << row[0] << row[1];
}

void tst_FormatRank::rateTerm_fallsWithTheRatioTo48000()
{
    QFETCH(quint32, rate);
    QFETCH(quint32, distance);
    QCOMPARE(4294967295u - detail::RateTerm(rate), distance);
}

void tst_FormatRank::rateTerm_prefers50000To44100And32000To96000_isIntended()
{
    QVERIFY(detail::RateTerm(50000) > detail::RateTerm(44100));
    QVERIFY(detail::RateTerm(32000) > detail::RateTerm(96000));
}

void tst_FormatRank::rateTerm_wraps_whenProductExceeds32Bits()
{
    // 4194303 * 1024 = 4294966272 still fits; 4194304 * 1024 is 2^32, hence 0.
    QCOMPARE(4294967295u - detail::RateTerm(4194303), 89478u);
    QCOMPARE(4294967295u - detail::RateTerm(4194304), 0u);
    // (4194304 + 48000) * 1024 wraps to 48000 * 1024.
    QCOMPARE(4294967295u - detail::RateTerm(4242304), 1024u);
}

void tst_FormatRank::channelTerm_prefersFewerChannels_data()
{
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<quint16>("term");
    QTest::newRow("mono") << 1 << quint16(65535);
    QTest::newRow("two") << 2 << quint16(32766);
    QTest::newRow("three") << 3 << quint16(32765);
    QTest::newRow("six") << 6 << quint16(32762);
    QTest::newRow("none left") << 32768 << quint16(0);
    QTest::newRow("cut to 16 bits") << 32769 << quint16(65535);
}

void tst_FormatRank::channelTerm_prefersFewerChannels()
{
    QFETCH(int, channelCount);
    QFETCH(quint16, term);
    QCOMPARE(detail::ChannelTerm(channelCount), term);
}

void tst_FormatRank::sizeTerm_prefers16To32To8_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<quint16>("term");
    QTest::newRow("16") << 16 << quint16(65535);
    QTest::newRow("32") << 32 << quint16(32);
    QTest::newRow("8") << 8 << quint16(8);
    QTest::newRow("24") << 24 << quint16(0);
    QTest::newRow("0") << 0 << quint16(0);
    QTest::newRow("-1") << -1 << quint16(0);
    QTest::newRow("64") << 64 << quint16(0);
}

void tst_FormatRank::sizeTerm_prefers16To32To8()
{
    QFETCH(int, size);
    QFETCH(quint16, term);
    QCOMPARE(detail::SizeTerm(size), term);
}

void tst_FormatRank::formatRank_joinsTheThreeTerms_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<quint64>("rank");
    QTest::newRow("best") << 48000 << 16 << 1 << Q_UINT64_C(0xFFFFFFFFFFFFFFFF);
    // 0xFFFFFFFF - 1114 = 0xFFFFFBA5, 32766 = 0x7FFE
    QTest::newRow("44100 stereo 8") << 44100 << 8 << 2 << Q_UINT64_C(0xFFFFFBA57FFE0008);
    // 0xFFFFFFFF - 2048 = 0xFFFFF7FF, 32762 = 0x7FFA
    QTest::newRow("96000 six 32") << 96000 << 32 << 6 << Q_UINT64_C(0xFFFFF7FF7FFA0020);
    QTest::newRow("no channel term left") << 48000 << 16 << 32768 << Q_UINT64_C(0xFFFFFFFF0000FFFF);
    // 0xFFFFFFFF - 49152000 = 0xFD11FFFF
    QTest::newRow("1 Hz mono 16") << 1 << 16 << 1 << Q_UINT64_C(0xFD11FFFFFFFFFFFF);
}

void tst_FormatRank::formatRank_joinsTheThreeTerms()
{
    QFETCH(int, rate);
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QFETCH(quint64, rank);
    QCOMPARE(detail::FormatRank(rate, size, channelCount), rank);
}

void tst_FormatRank::formatRank_isZero_whenFormatCannotBeUsed_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("channelCount");
    QTest::newRow("24 bits") << 48000 << 24 << 1;
    QTest::newRow("no size") << 48000 << -1 << 1;
    QTest::newRow("0 channels") << 48000 << 16 << 0;
    QTest::newRow("negative channels") << 48000 << 16 << -1;
    QTest::newRow("0 Hz") << 0 << 16 << 1;
    QTest::newRow("negative rate") << -48000 << 16 << 1;
}

void tst_FormatRank::formatRank_isZero_whenFormatCannotBeUsed()
{
    QFETCH(int, rate);
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QCOMPARE(detail::FormatRank(rate, size, channelCount), quint64(0));
}

AA_TEST(tst_FormatRank, NoApplication)
#include "tst_FormatRank.moc"
