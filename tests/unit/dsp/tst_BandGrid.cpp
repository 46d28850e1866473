// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BandGrid.h>

#include "StopSignals.h"

#include <support/TestClass.h>

using namespace stops;

class tst_BandGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gridPoints_areWithinBound_everywhere();
    void coarseGrid_takesTheWidestStep_data();
    void coarseGrid_takesTheWidestStep();
    void points_holdTheirShareOfThePeak();
    void fineGrid_decidesWhatThePointsLeaveOpen();
};

void tst_BandGrid::gridPoints_areWithinBound_everywhere()
{
    Random random(seed());
    for (int rate : {16000, 22050, 44100, 96000}) {
        for (std::size_t count : {std::size_t(rate), std::size_t(rate) + 1}) {
            const Samples samples = anySignal(random, rate, count);
            const std::vector<double> values = filteredValues(samples, rate);
            BandPassThreshold decision;
            prepare(decision, samples, rate, 32767);
            for (detail::BandGrid* pGrid :
                 {decision.m_pCoarseGrid.get(), decision.m_pFineGrid.get()}) {
                decision.m_pSpectrum->Compute(samples.data(), count);
                decision._DecideOnGrid(*pGrid);
                double greatest = 0.0;
                for (std::size_t i = 0; i * pGrid->step() < count; ++i)
                    greatest =
                        std::max(greatest, std::fabs(pGrid->at(i) - values[i * pGrid->step()]));
                QVERIFY(greatest <= errorBound(decision));
            }
        }
    }
}

// Expected: the band of 2000 Hz ends at bin 4097, 5946, 5946 and 5462 of 32768, 65536, 131072 and
// 262144 points; the widest step that keeps more than four points a period is 1, 2, 4 and 8.
void tst_BandGrid::coarseGrid_takesTheWidestStep_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("step");
    QTest::addRow("16000 Hz") << 16000 << 1;
    QTest::addRow("22050 Hz") << 22050 << 2;
    QTest::addRow("44100 Hz") << 44100 << 4;
    QTest::addRow("96000 Hz") << 96000 << 8;
}

void tst_BandGrid::coarseGrid_takesTheWidestStep()
{
    QFETCH(int, rate);
    QFETCH(int, step);
    BandPassThreshold decision;
    prepare(decision, Samples(static_cast<std::size_t>(rate) * 3 / 2, 100), rate, 100);
    QCOMPARE(decision.m_pCoarseGrid->step(), static_cast<std::size_t>(step));
    QCOMPARE(decision.m_pFineGrid->step(), std::size_t(1));
}

// A sine of the band's upper edge whose peaks lie in the middle between the grid's points: nowhere
// can the signal rise farther above them.
void tst_BandGrid::points_holdTheirShareOfThePeak()
{
    constexpr int kRate = 44100;
    constexpr std::size_t kCount = 66150;
    BandPassThreshold decision;
    prepare(decision, Samples(kCount, 100), kRate, 100);
    detail::BandGrid& grid = *decision.m_pCoarseGrid;
    const double step = static_cast<double>(grid.step());
    const double edge = static_cast<double>(decision.m_highBin - 1);
    const double angle = 2.0 * kPi * edge / static_cast<double>(decision.m_length);
    Samples samples(kCount);
    for (std::size_t i = 0; i < kCount; ++i)
        samples[i] = toSample(8000.0 * std::cos(angle * (static_cast<double>(i) - step / 2.0)));
    decision.m_pSpectrum->Compute(samples.data(), kCount);
    grid.Compute(*decision.m_pSpectrum);
    decision.m_pFineGrid->Compute(*decision.m_pSpectrum);
    double points = 0.0;
    for (std::size_t i = 0; i < grid.size(); ++i)
        points = std::max(points, std::fabs(grid.at(i)));
    double all = 0.0;
    for (std::size_t i = 0; i < decision.m_pFineGrid->size(); ++i)
        all = std::max(all, std::fabs(decision.m_pFineGrid->at(i)));
    QVERIFY(points >= grid.leastShare() * all);
    QVERIFY(grid.leastShare() >= std::sqrt(0.5));
    QVERIFY(grid.leastShare() < 1.0);
    QCOMPARE(decision.m_pFineGrid->leastShare(), 1.0);
}

// A peak of 3000 is below the threshold, but above the share of 0.84 that the points prove.
void tst_BandGrid::fineGrid_decidesWhatThePointsLeaveOpen()
{
    const Samples samples = waves::sine(66150, 44100, 440.0, 3000.0);
    BandPassThreshold decision;
    prepare(decision, samples, 44100, 3276);
    using Verdict = BandPassThreshold::Verdict;
    decision.m_pSpectrum->Compute(samples.data(), samples.size());
    QCOMPARE(decision._DecideOnGrid(*decision.m_pCoarseGrid), Verdict::eOpen);
    QCOMPARE(decision._DecideBySpectrum(samples.data()), Verdict::eNotAbove);
}

AA_TEST(tst_BandGrid, NoApplication)
#include "tst_BandGrid.moc"
