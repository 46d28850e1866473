// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterPhase.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

using detail::eMeterFeel;
using detail::meterStep;

/// The steps that stand for the places of a beat.
class tst_MeterPhase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void step_isAsReckonedByHand_data();
    void step_isAsReckonedByHand();
    void steps_goOnFromBeatToBeat_data();
    void steps_goOnFromBeatToBeat();
};

void tst_MeterPhase::step_isAsReckonedByHand_data()
{
    QTest::addColumn<double>("phase");
    QTest::addColumn<double>("period");
    QTest::addColumn<bool>("isSwung");
    QTest::addColumn<double>("step");
    QTest::newRow("120 BPM is even") << 0.08 << 50.0 << false << 1.92;
    QTest::newRow("180 BPM is even") << 0.7 << 33.333 << false << 16.8;
    QTest::newRow("60 BPM, the beat") << 0.0 << 100.0 << false << 0.0;
    QTest::newRow("60 BPM, 4 frames behind it, as at 111") << 0.04 << 100.0 << false << 24.0 / 13.5;
    QTest::newRow("60 BPM, a frame ahead of a quarter")
        << 0.24 << 100.0 << false << 6.0 - 6.0 / 13.5;
    QTest::newRow("60 BPM, a quarter") << 0.25 << 100.0 << false << 6.0;
    // 10 of the 20 frames that stretch: half of 8.5, and 4, of 13.5 frames to 6 steps.
    QTest::newRow("60 BPM, between quarters") << 0.14 << 100.0 << false << 6.0 * 8.25 / 13.5;
    QTest::newRow("swung, the half") << 0.65 << 33.0 << true << 12.0;
    QTest::newRow("swung, half of the first half") << 0.325 << 33.0 << true << 6.0;
    QTest::newRow("swung, half of the second half") << 0.825 << 33.0 << true << 18.0;
    // 75 BPM: the second half lasts 28 frames, as much as at 107 BPM.
    QTest::newRow("swung at 75 BPM, 4 frames behind the half")
        << 0.7 << 80.0 << true << 12.0 + 24.0 / 13.5;
}

void tst_MeterPhase::step_isAsReckonedByHand()
{
    QFETCH(double, phase);
    QFETCH(double, period);
    QFETCH(bool, isSwung);
    QFETCH(double, step);
    const double found =
        meterStep(phase, period, isSwung ? detail::eMeterSwung : detail::eMeterStraight);
    QVERIFY2(std::fabs(found - step) < 1e-9, qPrintable(QString::number(found)));
}

void tst_MeterPhase::steps_goOnFromBeatToBeat_data()
{
    QTest::addColumn<double>("period");
    QTest::newRow("190 BPM") << 31.579;
    QTest::newRow("120 BPM") << 50.0;
    QTest::newRow("87 BPM") << 69.0;
    QTest::newRow("60 BPM") << 100.0;
}

void tst_MeterPhase::steps_goOnFromBeatToBeat()
{
    QFETCH(double, period);
    for (const eMeterFeel feel : {detail::eMeterStraight, detail::eMeterSwung}) {
        double last = -1e-9;
        for (int i = 0; i <= 1000; ++i) {
            const double step = meterStep(i / 1000.0, period, feel);
            QVERIFY(step > last);
            QVERIFY(step - last < 0.1);
            last = step;
        }
        QVERIFY(std::fabs(last - 24.0) < 1e-9);
    }
}

AA_TEST(tst_MeterPhase, NoApplication)
#include "tst_MeterPhase.moc"
