// SPDX-License-Identifier: MIT
#include <desktop/session/StripData.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

constexpr std::int64_t kFirst = 100000;  // number of a column

/// Complete up to kFirst.
StripData Started()
{
    StripData data;
    data.Complete(kFirst, 0.0F, false);
    return data;
}

}  // namespace

/// What is kept, and for how long.
class tst_StripData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_isThere_atFirst();
    void columns_areCompletedInOrder();
    void lateAndFarColumns_areNotFilled();
    void twoMinutes_areKept();
    void longSleep_beginsAnew();
    void beats_goWithTheirTime();
    void sayings_areSaidOnce_andLimited();
};

void tst_StripData::nothing_isThere_atFirst()
{
    StripData data;
    QCOMPARE(data.getColumn(0), nullptr);
    QCOMPARE(data.Fill(5), nullptr);
    QCOMPARE(Started().getColumn(kFirst - 1), nullptr);
    QCOMPARE(Started().getEnd(), kFirst);
}

void tst_StripData::columns_areCompletedInOrder()
{
    StripData data = Started();
    data.Fill(kFirst + 2)->level = 77;
    QCOMPARE(data.getColumn(kFirst + 2), nullptr);
    data.Complete(kFirst + 3, 120.0F, true);
    QCOMPARE(data.getColumn(kFirst)->level, -1);
    QCOMPARE(data.getColumn(kFirst)->bpm, 120.0F);
    QCOMPARE(data.getColumn(kFirst + 2)->level, 77);
    QVERIFY(data.getColumn(kFirst + 2)->isPlaying);
    data.Complete(kFirst + 4, 0.0F, false);
    QVERIFY(!data.getColumn(kFirst + 3)->isPlaying);
    QCOMPARE(data.getColumn(kFirst + 2)->bpm, 120.0F);
    // Time that goes back changes nothing.
    data.Complete(kFirst + 1, 60.0F, true);
    QCOMPARE(data.getEnd(), kFirst + 4);
}

void tst_StripData::lateAndFarColumns_areNotFilled()
{
    StripData data = Started();
    QCOMPARE(data.Fill(kFirst - 1), nullptr);
    QVERIFY(data.Fill(kFirst));
    QVERIFY(data.Fill(kFirst + 30));
    QCOMPARE(data.Fill(kFirst + 4000), nullptr);
}

void tst_StripData::twoMinutes_areKept()
{
    StripData data = Started();
    for (std::int64_t end = kFirst + 1; end <= kFirst + 5000; ++end)
        data.Complete(end, 1.0F, true);
    QCOMPARE(data.getFirst(), kFirst + 5000 - 2400);
    QCOMPARE(data.getColumn(kFirst + 2599), nullptr);
    QVERIFY(data.getColumn(kFirst + 2600));
}

void tst_StripData::longSleep_beginsAnew()
{
    StripData data = Started();
    data.Complete(kFirst + 10, 1.0F, true);
    data.Complete(kFirst + 90000, 1.0F, true);
    QCOMPARE(data.getFirst(), kFirst + 90000);
    QCOMPARE(data.getColumn(kFirst + 5), nullptr);
    data.Complete(kFirst + 90001, 1.0F, true);
    QVERIFY(data.getColumn(kFirst + 90000));
}

void tst_StripData::beats_goWithTheirTime()
{
    StripData data = Started();
    data.AddBeat({kFirst * StripData::kColumn, eHeardBeat, true});
    data.AddBeat({(kFirst + 2000) * StripData::kColumn, eForeseenBeat, false});
    for (std::int64_t end = kFirst + 1000; end <= kFirst + 3000; end += 1000)
        data.Complete(end, 1.0F, true);
    QCOMPARE(data.getBeats().size(), std::size_t(1));
    QCOMPARE(data.getBeats().front().kind, eForeseenBeat);
}

void tst_StripData::sayings_areSaidOnce_andLimited()
{
    StripData data = Started();
    const std::int64_t now = kFirst * StripData::kColumn;
    data.AddSaying({now, QStringLiteral("a")});
    data.AddSaying({now, QStringLiteral("a")});
    data.AddSaying({now, QStringLiteral("b")});
    QCOMPARE(data.getSaid(), quint64(2));
    for (int i = 0; i < 500; ++i)
        data.AddSaying({now, QString::number(i)});
    data.Complete(kFirst + 1, 0.0F, false);
    QCOMPARE(data.getSayings().size(), StripData::kSayings);
    QCOMPARE(data.getSayings().back().text, QStringLiteral("499"));
    data.Complete(kFirst + 1500, 0.0F, false);
    data.Complete(kFirst + 2500, 0.0F, false);
    QVERIFY(data.getSayings().empty());
    QCOMPARE(data.getSaid(), quint64(502));
}

AA_TEST(tst_StripData, NoApplication)
#include "tst_StripData.moc"
