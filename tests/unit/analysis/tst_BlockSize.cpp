// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BlockSize.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

class tst_BlockSize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blockSize_isThePowerOfTwoUnderAFortiethOfASecond_data();
    void blockSize_isThePowerOfTwoUnderAFortiethOfASecond();
    void blockSize_isAPowerOfTwoAndNoOtherOneFits_forEveryRate();
};

void tst_BlockSize::blockSize_isThePowerOfTwoUnderAFortiethOfASecond_data()
{
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<quint64>("blockSize");

    const struct
    {
        int sampleRate;
        quint64 blockSize;
    } rows[] = {
        {44100, 1024},   // 1102.5, rounded up to 1103
        {48000, 1024},   // 1200
        {22050, 512},    // 551.25
        {96000, 2048},   // 2400
        {8000, 128},     // 200
        {11025, 256},    // 275.6
        {16000, 256},    // 400
        {32000, 512},    // 800
        {192000, 4096},  // 4800
        {40960, 1024},   // exactly 1024
        {40980, 1024},   // 1024.5
        {40940, 1024},   // 1023.5 rounds up to 1024
        {40939, 512},    // 1023.475
        {160, 4},        // exactly 4
        {139, 2},        // 3.475
        {140, 4},        // 3.5 rounds up to 4
        {60, 2},         // 1.5 rounds up to 2
        {59, 1},         // 1.475
        {40, 1},         // exactly 1
        {20, 1},         // 0.5 rounds up to 1
        {19, 0},         // 0.475
        {1, 0},
        {0, 0},
        {-1, 0},
        {-44100, 0},
        {std::numeric_limits<int>::max(), 33554432},  // 53687091.2; 2^25
        {std::numeric_limits<int>::min(), 0},
    };
    for (const auto& row : rows)
        QTest::addRow("%d Hz", row.sampleRate) << row.sampleRate << row.blockSize;
}

void tst_BlockSize::blockSize_isThePowerOfTwoUnderAFortiethOfASecond()
{
    QFETCH(int, sampleRate);
    QFETCH(quint64, blockSize);
    QCOMPARE(detail::PulseBlockSize(sampleRate), blockSize);
}

void tst_BlockSize::blockSize_isAPowerOfTwoAndNoOtherOneFits_forEveryRate()
{
    for (int rate = 20; rate <= 200000; ++rate) {
        const quint64 size = detail::PulseBlockSize(rate);
        const quint64 longest = (quint64(rate) + 20) / 40;  // rounded, halves up
        QVERIFY2(size >= 1 && (size & (size - 1)) == 0, qPrintable(QString::number(rate)));
        QVERIFY2(size <= longest && size * 2 > longest, qPrintable(QString::number(rate)));
    }
}

AA_TEST(tst_BlockSize, NoApplication)
#include "tst_BlockSize.moc"
