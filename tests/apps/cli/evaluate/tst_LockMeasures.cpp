// SPDX-License-Identifier: MIT
#include "BeatGrid.h"
#include <cli/evaluate/LockMeasures.h>

#include <QtTest>

#include <cmath>
#include <support/Numbers.h>
#include <support/TestClass.h>

class tst_LockMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findLock_isTheFourthBeatInARow_data();
    void findLock_isTheFourthBeatInARow();
    void findLock_countsFromTheGivenTime();
    void getRelock_isTheMedianOfTheChanges();
    void getRelock_isInfinite_whenMostAreNeverFollowed();
    void countOctaveFlips_countsHeldLevels_data();
    void countOctaveFlips_countsHeldLevels();
};

namespace {

BeatTimes Join(BeatTimes pFirst, const BeatTimes& pSecond)
{
    pFirst.insert(pFirst.end(), pSecond.begin(), pSecond.end());
    return pFirst;
}

}  // namespace

void tst_LockMeasures::findLock_isTheFourthBeatInARow_data()
{
    QTest::addColumn<BeatTimes>("estimate");
    QTest::addColumn<double>("lock");
    QTest::newRow("nothing") << BeatTimes{} << kInfinity;
    QTest::newRow("from the first beat") << Grid(1.0, 10) << 3.0;
    QTest::newRow("three are too few") << Grid(1.0, 3) << kInfinity;
    QTest::newRow("late by 60 ms") << Grid(1.0, 10, 0.06) << 3.06;
    QTest::newRow("late by 80 ms") << Grid(1.0, 10, 0.08) << kInfinity;
    QTest::newRow("twice as fast") << Grid(0.5, 20) << kInfinity;
    QTest::newRow("half as fast") << Grid(2.0, 10) << kInfinity;
    QTest::newRow("one is missing") << Join(Grid(1.0, 3), Grid(1.0, 6, 4.0)) << 7.0;
    QTest::newRow("one too many") << Join(Join(Grid(1.0, 3), {2.5}), Grid(1.0, 6, 3.0)) << 6.0;
}

void tst_LockMeasures::findLock_isTheFourthBeatInARow()
{
    QFETCH(BeatTimes, estimate);
    QFETCH(double, lock);
    QCOMPARE(findLock(Grid(1.0, 20), estimate, 0.0), lock);
}

void tst_LockMeasures::findLock_countsFromTheGivenTime()
{
    QCOMPARE(findLock(Grid(1.0, 20), Grid(1.0, 20), 4.5), 3.5);
}

// Followed after 3 s, never, and after 5 s.
void tst_LockMeasures::getRelock_isTheMedianOfTheChanges()
{
    const BeatTimes reference = Grid(1.0, 60);
    const BeatTimes estimate = Join(Grid(1.0, 20), Grid(1.0, 10, 42.0));
    QCOMPARE(getRelock(reference, estimate, {10.0, 20.0, 40.0}), 5.0);
}

void tst_LockMeasures::getRelock_isInfinite_whenMostAreNeverFollowed()
{
    QCOMPARE(getRelock(Grid(1.0, 60), Grid(1.0, 20), {10.0, 20.0, 40.0}), kInfinity);
    QCOMPARE(getRelock(Grid(1.0, 60), Grid(1.0, 60), {}), kInfinity);
}

void tst_LockMeasures::countOctaveFlips_countsHeldLevels_data()
{
    QTest::addColumn<BeatTimes>("estimate");
    QTest::addColumn<int>("flips");
    const BeatTimes right = Grid(1.0, 20);
    QTest::newRow("nothing") << BeatTimes{} << 0;
    QTest::newRow("right") << right << 0;
    QTest::newRow("twice as fast all along") << Grid(0.5, 40) << 0;
    QTest::newRow("a little too fast") << Grid(0.8, 40) << 0;
    QTest::newRow("twice as fast from 20 s on") << Join(right, Grid(0.5, 40, 19.5)) << 1;
    QTest::newRow("and back") << Join(Join(right, Grid(0.5, 40, 19.5)), Grid(1.0, 20, 40.0)) << 2;
    QTest::newRow("three fast beats are a slip")
        << Join(Join(right, Grid(0.5, 3, 19.5)), Grid(1.0, 20, 21.5)) << 0;
    QTest::newRow("half as fast from 20 s on") << Join(right, Grid(2.0, 10, 21.0)) << 1;
}

void tst_LockMeasures::countOctaveFlips_countsHeldLevels()
{
    QFETCH(BeatTimes, estimate);
    QFETCH(int, flips);
    QCOMPARE(countOctaveFlips(Grid(1.0, 60), estimate), flips);
}

AA_TEST(tst_LockMeasures, QCoreApplication)
#include "tst_LockMeasures.moc"
