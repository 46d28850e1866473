// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/Butterflies.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>
#include <vector>

class tst_Butterflies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twiddles_turnByTheAngle_data();
    void twiddles_turnByTheAngle();
    void twiddles_repeatExactly_whenRestarted();
    void butterfly_addsAndSubtracts();
    void stages_takeNothing_forALengthBelowTwo();
    void directions_areConjugates();
};

void tst_Butterflies::twiddles_turnByTheAngle_data()
{
    QTest::addColumn<int>("span");
    QTest::addColumn<int>("sign");
    for (int span : {2, 4, 8, 1024, 4096})
        for (int sign : {-1, 1})
            QTest::addRow("%d to %d", span, sign) << span << sign;
}

// An error of one step grows by at most 1 / sin(angle) until the end, so half the span squared
// bounds the whole in units of the roundoff.
void tst_Butterflies::twiddles_turnByTheAngle()
{
    QFETCH(int, span);
    QFETCH(int, sign);
    const double angle = sign * 6.283185307179586 / span;
    const double bound = (span * span + 8.0) * 0x1.0p-53;
    detail::TwiddleRecurrence twiddles(angle);
    for (int j = 0; j < span / 2; ++j) {
        twiddles.advance();
        QVERIFY(std::fabs(twiddles.real() - std::cos(j * angle)) <= bound);
        QVERIFY(std::fabs(twiddles.imaginary() + std::sin(j * angle)) <= bound);
    }
}

void tst_Butterflies::twiddles_repeatExactly_whenRestarted()
{
    detail::TwiddleRecurrence twiddles(-0.01);
    std::vector<double> first;
    std::vector<double> second;
    for (std::vector<double>* pValues : {&first, &second}) {
        twiddles.restart();
        for (int j = 0; j < 100; ++j) {
            twiddles.advance();
            pValues->push_back(twiddles.real());
            pValues->push_back(twiddles.imaginary());
        }
    }
    QCOMPARE(first, second);
}

void tst_Butterflies::butterfly_addsAndSubtracts()
{
    // Forward, span 4: the factors are 1 and i.
    double real[] = {1, 10, 2, 20};
    double imaginary[] = {3, 30, 4, 40};
    detail::TwiddleRecurrence twiddles(-6.283185307179586 / 4);
    detail::runBlock(real, imaginary, 4, twiddles);
    const double expectedReal[] = {3, -30, -1, 50};
    const double expectedImaginary[] = {7, 50, -1, 10};
    for (int i = 0; i < 4; ++i) {
        QVERIFY(std::fabs(real[i] - expectedReal[i]) < 1e-13);
        QVERIFY(std::fabs(imaginary[i] - expectedImaginary[i]) < 1e-13);
    }
}

void tst_Butterflies::stages_takeNothing_forALengthBelowTwo()
{
    detail::runButterflies(nullptr, nullptr, 0, false);
    double real = 0.1;
    double imaginary = -0.2;
    detail::runButterflies(&real, &imaginary, 1, true);
    QVERIFY(real == 0.1);
    QVERIFY(imaginary == -0.2);
}

void tst_Butterflies::directions_areConjugates()
{
    std::vector<double> forwardReal = {1, 2, 3, 4, 5, 6, 7, 8};
    std::vector<double> forwardImaginary = {-8, 7, -6, 5, -4, 3, -2, 1};
    std::vector<double> backReal = forwardReal;
    std::vector<double> backImaginary = forwardImaginary;
    for (double& value : backImaginary)
        value = -value;
    detail::runButterflies(forwardReal.data(), forwardImaginary.data(), 8, false);
    detail::runButterflies(backReal.data(), backImaginary.data(), 8, true);
    for (double& value : backImaginary)
        value = -value;
    QCOMPARE(forwardReal, backReal);
    QCOMPARE(forwardImaginary, backImaginary);
}

AA_TEST(tst_Butterflies, NoApplication)

#include "tst_Butterflies.moc"
