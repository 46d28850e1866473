// SPDX-License-Identifier: MIT
#include <cli/evaluate/TempoMeasures.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_TempoMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getTempo_isThatOfTheMedianInterval();
    void isTempoRight_takesTheEdges_data();
    void isTempoRight_takesTheEdges();
    void isTempoRightUpToLevel_takesFactors_data();
    void isTempoRightUpToLevel_takesFactors();
};

void tst_TempoMeasures::getTempo_isThatOfTheMedianInterval()
{
    QCOMPARE(getTempo({}), 0.0);
    QCOMPARE(getTempo({1.0, 1.0, 1.0}), 0.0);
    QCOMPARE(getTempo({0.0, 0.5, 1.0, 1.5, 4.0}), 120.0);
}

void tst_TempoMeasures::isTempoRight_takesTheEdges_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("tempo");
    QTest::addColumn<bool>("isRight");
    QTest::newRow("unknown") << 100.0 << 100.0 << 0.0 << false;
    QTest::newRow("equal") << 100.0 << 100.0 << 100.0 << true;
    QTest::newRow("slow by 3.9 %") << 100.0 << 100.0 << 96.1 << true;
    QTest::newRow("slow by 4.1 %") << 100.0 << 100.0 << 95.9 << false;
    QTest::newRow("fast by 3.9 %") << 100.0 << 100.0 << 103.9 << true;
    QTest::newRow("fast by 4.1 %") << 100.0 << 100.0 << 104.1 << false;
    QTest::newRow("in the range") << 100.0 << 140.0 << 120.0 << true;
    QTest::newRow("below the range") << 100.0 << 140.0 << 95.0 << false;
    QTest::newRow("above the range") << 100.0 << 140.0 << 146.0 << false;
}

void tst_TempoMeasures::isTempoRight_takesTheEdges()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, tempo);
    QFETCH(bool, isRight);
    QCOMPARE(isTempoRight({minimum, maximum}, tempo, 0.04), isRight);
}

void tst_TempoMeasures::isTempoRightUpToLevel_takesFactors_data()
{
    QTest::addColumn<double>("tempo");
    QTest::addColumn<bool>("isRight");
    QTest::newRow("unknown") << 0.0 << false;
    QTest::newRow("once") << 118.0 << true;
    QTest::newRow("twice") << 245.0 << true;
    QTest::newRow("three times") << 350.0 << true;
    QTest::newRow("half") << 59.0 << true;
    QTest::newRow("a third") << 41.0 << true;
    QTest::newRow("three to two") << 180.0 << false;
    QTest::newRow("a quarter") << 30.0 << false;
}

void tst_TempoMeasures::isTempoRightUpToLevel_takesFactors()
{
    QFETCH(double, tempo);
    QFETCH(bool, isRight);
    QCOMPARE(isTempoRightUpToLevel({120.0, 120.0}, tempo, 0.04), isRight);
}

AA_TEST(tst_TempoMeasures, QCoreApplication)
#include "tst_TempoMeasures.moc"
