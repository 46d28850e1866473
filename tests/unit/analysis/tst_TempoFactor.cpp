// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/TempoFactor.h>

#include <QtTest>

#include <support/TestClass.h>

using detail::TempoFactor;

class tst_TempoFactor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void product_isInLowestTerms_data();
    void product_isInLowestTerms();
    void terms_areOneTo64();
    void factor_isThatBetweenTwoTempos_data();
    void factor_isThatBetweenTwoTempos();
};

void tst_TempoFactor::product_isInLowestTerms_data()
{
    QTest::addColumn<QList<int>>("terms");
    QTest::newRow("double") << QList<int>{1, 1, 2, 1, 2, 1};
    QTest::newRow("and half") << QList<int>{2, 1, 1, 2, 1, 1};
    QTest::newRow("half of 3/2") << QList<int>{3, 2, 1, 2, 3, 4};
    QTest::newRow("3/2 and 2/3") << QList<int>{3, 2, 2, 3, 1, 1};
    QTest::newRow("given unreduced") << QList<int>{1, 1, 6, 4, 3, 2};
    QTest::newRow("greatest") << QList<int>{64, 1, 64, 1, 4096, 1};
}

void tst_TempoFactor::product_isInLowestTerms()
{
    QFETCH(const QList<int>, terms);
    const TempoFactor product = detail::Multiply({terms[0], terms[1]}, {terms[2], terms[3]});
    QCOMPARE(int(product.numerator), terms[4]);
    QCOMPARE(int(product.denominator), terms[5]);
    QCOMPARE(product.getValue(), double(terms[4]) / terms[5]);
}

void tst_TempoFactor::terms_areOneTo64()
{
    QVERIFY(detail::IsFactor(1, 1));
    QVERIFY(detail::IsFactor(64, 64));
    QVERIFY(!detail::IsFactor(0, 1));
    QVERIFY(!detail::IsFactor(1, 0));
    QVERIFY(!detail::IsFactor(65, 1));
    QVERIFY(!detail::IsFactor(1, 65));
    QVERIFY(!detail::IsFactor(-2, -1));
}

void tst_TempoFactor::factor_isThatBetweenTwoTempos_data()
{
    QTest::addColumn<double>("music");
    QTest::addColumn<double>("clock");
    QTest::addColumn<double>("factor");
    QTest::newRow("same") << 120.0 << 120.0 << 1.0;
    QTest::newRow("nearly") << 120.0 << 124.0 << 1.0;
    QTest::newRow("double") << 87.0 << 174.0 << 2.0;
    QTest::newRow("half") << 174.0 << 88.0 << 0.5;
    QTest::newRow("three halves") << 80.0 << 120.0 << 1.5;
    QTest::newRow("two thirds") << 120.0 << 80.0 << 2.0 / 3;
    QTest::newRow("quarter") << 200.0 << 50.0 << 0.25;
    QTest::newRow("another song") << 120.0 << 140.0 << 1.0;
}

void tst_TempoFactor::factor_isThatBetweenTwoTempos()
{
    QFETCH(const double, music);
    QFETCH(const double, clock);
    QTEST(detail::FactorBetween(music, clock).getValue(), "factor");
}

AA_TEST(tst_TempoFactor, NoApplication)
#include "tst_TempoFactor.moc"
