// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/Elementary.h>
#include <AudioAnalyzer/dsp/detail/Turns.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

class tst_Elementary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void naturalLog_isWithin4e7_ofTheTruth();
    void naturalLog_isExactlyZero_atOne();
    void exponential_isWithin4e7_ofTheTruth();
    void exponential_isExactlyOne_atZero();
    void cosineAndSine_areWithin1e15_ofTheTruth();
    void cosineAndSine_areExact_atQuarterTurns();
};

void tst_Elementary::naturalLog_isWithin4e7_ofTheTruth()
{
    for (float value = 1e-30F; value < 1e30F; value *= 1.0173F) {
        const double truth = std::log(double(value));
        const double error = std::fabs(double(elementary::naturalLog(value)) - truth);
        QVERIFY2(error <= 4e-7 * std::max(1.0, std::fabs(truth)),
                 qPrintable(QString::number(value)));
    }
}

void tst_Elementary::naturalLog_isExactlyZero_atOne()
{
    QCOMPARE(elementary::naturalLog(1.0F), 0.0F);
}

void tst_Elementary::exponential_isWithin4e7_ofTheTruth()
{
    for (float value = -80.0F; value <= 80.0F; value += 0.0137F) {
        const double truth = std::exp(double(value));
        const double error = std::fabs(double(elementary::exponential(value)) / truth - 1.0);
        QVERIFY2(error <= 4e-7, qPrintable(QString::number(value)));
    }
}

void tst_Elementary::exponential_isExactlyOne_atZero()
{
    QCOMPARE(elementary::exponential(0.0F), 1.0F);
}

void tst_Elementary::cosineAndSine_areWithin1e15_ofTheTruth()
{
    for (int i = 0; i < 4096; ++i) {
        const double turns = i / 4096.0;
        const double angle = 2.0 * 3.14159265358979323846 * turns;
        QVERIFY(std::fabs(detail::cosineOfTurns(turns) - std::cos(angle)) < 1e-15);
        QVERIFY(std::fabs(detail::sineOfTurns(turns) - std::sin(angle)) < 1e-15);
    }
}

void tst_Elementary::cosineAndSine_areExact_atQuarterTurns()
{
    QCOMPARE(detail::cosineOfTurns(0.0), 1.0);
    QCOMPARE(detail::cosineOfTurns(0.5), -1.0);
    QCOMPARE(detail::sineOfTurns(0.25), 1.0);
    QCOMPARE(detail::sineOfTurns(0.75), -1.0);
}

AA_TEST(tst_Elementary, NoApplication)
#include "tst_Elementary.moc"
