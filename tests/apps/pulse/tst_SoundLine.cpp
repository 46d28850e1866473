// SPDX-License-Identifier: MIT
#include <shared/pulse/detail/SoundLine.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

constexpr quint64 kStart = 1700000000000000;  // µs
constexpr int kLineRate = 48000;

}  // namespace

class tst_SoundLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_isKnown_beforeTheFirstAnswer();
    void oneAnswer_givesEveryInstant();
    void answers_areAveraged();
    void drift_isFollowed();
    void jump_beginsANewLine_data();
    void jump_beginsANewLine();
    void longTime_costsNoAccuracy();
};

void tst_SoundLine::nothing_isKnown_beforeTheFirstAnswer()
{
    QVERIFY(!pulse::SoundLine(kLineRate).isKnown());
}

void tst_SoundLine::oneAnswer_givesEveryInstant()
{
    pulse::SoundLine line(kLineRate);
    line.Add(4800, kStart);
    QVERIFY(line.isKnown());
    QCOMPARE(line.getInstant(4800), kStart);
    QCOMPARE(line.getInstant(9600), kStart + 100000);
    // Also of samples before, though the index is unsigned.
    QCOMPARE(line.getInstant(0), kStart - 100000);
    // And the other way round.
    QCOMPARE(line.getIndex(kStart), quint64(4800));
    QCOMPARE(line.getIndex(kStart + 50000), quint64(7200));
    QCOMPARE(line.getIndex(kStart - 100000), quint64(0));
    QCOMPARE(line.getIndex(kStart - 900000), quint64(0));
}

void tst_SoundLine::answers_areAveraged()
{
    pulse::SoundLine line(kLineRate);
    for (quint64 i = 0; i < 40; ++i)
        line.Add(i * 4800, kStart + i * 100000 + (i % 2 == 0 ? 1000 : quint64(-1000)));
    const qint64 error = qint64(line.getInstant(0) - kStart);
    QVERIFY2(std::abs(error) < 200, QByteArray::number(error).constData());
}

void tst_SoundLine::drift_isFollowed()
{
    pulse::SoundLine line(kLineRate);
    // 100 ppm: what is foreseen stays within a millisecond, for any time.
    quint64 instant = kStart;
    for (quint64 i = 0; i < 10000; ++i, instant += 100010)
        line.Add(i * 4800, instant);
    const qint64 error = qint64(line.getInstant(quint64(10000) * 4800) - instant);
    QVERIFY2(std::abs(error) < 1000, QByteArray::number(error).constData());
}

void tst_SoundLine::jump_beginsANewLine_data()
{
    QTest::addColumn<qint64>("jump");
    QTest::newRow("later") << qint64(300000);
    QTest::newRow("earlier") << qint64(-300000);
    QTest::newRow("clock set back") << qint64(-3600000000);
}

void tst_SoundLine::jump_beginsANewLine()
{
    QFETCH(qint64, jump);
    pulse::SoundLine line(kLineRate);
    for (quint64 i = 0; i < 20; ++i)
        line.Add(i * 4800, kStart + i * 100000);
    const quint64 instant = kStart + 2000000 + quint64(jump);
    line.Add(96000, instant);
    QCOMPARE(line.getInstant(96000), instant);
    QCOMPARE(line.getInstant(144000), instant + 1000000);
}

void tst_SoundLine::longTime_costsNoAccuracy()
{
    pulse::SoundLine line(kLineRate);
    // A month, an answer a minute.
    const quint64 minutes = 30 * 24 * 60;
    for (quint64 i = 0; i <= minutes; ++i)
        line.Add(i * 60 * kLineRate, kStart + i * 60000000);
    QCOMPARE(line.getInstant(minutes * 60 * kLineRate), kStart + minutes * 60000000);
}

AA_TEST(tst_SoundLine, NoApplication)
#include "tst_SoundLine.moc"
