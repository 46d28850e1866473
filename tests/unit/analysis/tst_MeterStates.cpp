// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

using detail::MeterStates;

class tst_MeterStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempi_reachFromTheFastestToTheSlowest();
    void fastestTempo_hasTheCellsOfItsPeriod();
    void cells_lieInTheirSteps();
    void blocks_areAtMostABlockOfSteps();
    void findTempo_isTheNearest_data();
    void findTempo_isTheNearest();
};

void tst_MeterStates::tempi_reachFromTheFastestToTheSlowest()
{
    const MeterStates states;
    const auto& tempi = states.getTempi();
    QVERIFY(std::fabs(6000.0F / tempi.front().period - 190.0F) < 0.01F);
    QVERIFY(6000.0F / tempi.back().period < 60.5F);
    QVERIFY(6000.0F / tempi.back().period > 59.5F);
    for (std::size_t i = 1; i < tempi.size(); ++i)
        QVERIFY(std::fabs(tempi[i].period / tempi[i - 1].period - 1.015F) < 1e-5F);
}

// 6000 / 190 = 31.579 frames: 32 cells, of which 0.579 reach the last.
void tst_MeterStates::fastestTempo_hasTheCellsOfItsPeriod()
{
    const MeterStates states;
    const MeterStates::Tempo& tempo = states.getTempi().front();
    QCOMPARE(tempo.cells, std::size_t(32));
    QVERIFY(std::fabs(tempo.stay - 0.5789F) < 1e-4F);
    QCOMPARE(tempo.offset, MeterStates::kBlock);
    // Eight beats of 32 cells in blocks of 16.
    QCOMPARE(tempo.blocks, std::size_t(16));
    // 24 * 1 / 31.579 + 0.5 = 1.26; 24 * 31 / 31.579 + 0.5 = 24.06: the next beat's first step.
    const auto& steps = states.getSteps();
    QCOMPARE(int(steps[tempo.offset]), 0);
    QCOMPARE(int(steps[tempo.offset + 1]), 1);
    QCOMPARE(int(steps[tempo.offset + 31]), 24);
    QCOMPARE(int(steps[tempo.offset + 32]), 24);
    QCOMPARE(int(steps[tempo.offset + 127]), 96);
    // The swung bar: 31.579 * 0.65 = 20.53 frames until the half, so 12 * 10 / 20.53 + 0.5 = 6.35.
    QCOMPARE(int(steps[tempo.offset + 128]), 96);
    QCOMPARE(int(steps[tempo.offset + 128 + 10]), 96 + 6);
    // 12 + 12 * 0.47 / 11.05 + 0.5 = 13.01.
    QCOMPARE(int(steps[tempo.offset + 128 + 21]), 96 + 13);
}

void tst_MeterStates::cells_lieInTheirSteps()
{
    const MeterStates states;
    const auto& steps = states.getSteps();
    std::size_t offset = 0;
    for (const MeterStates::Tempo& tempo : states.getTempi()) {
        for (; offset < tempo.offset; ++offset)
            QCOMPARE(steps[offset], MeterStates::kNoStep);
        for (std::size_t i = 1; i < 8 * tempo.cells; ++i) {
            QVERIFY(steps[offset + i] >= steps[offset + i - 1]);
            QVERIFY(steps[offset + i] <= 2 * detail::kStepsPerBar);
        }
        offset += 8 * tempo.cells;
        QVERIFY(tempo.offset + tempo.blocks * MeterStates::kBlock >= offset);
    }
    QCOMPARE(states.getSize() % MeterStates::kBlock, std::size_t(0));
}

// What the vectorised kernels rely on.
void tst_MeterStates::blocks_areAtMostABlockOfSteps()
{
    const MeterStates states;
    const auto& steps = states.getSteps();
    for (const std::size_t width : {MeterStates::kBlock, MeterStates::kBlock / 2})
        for (std::size_t first = 0; first < steps.size(); first += width)
            for (std::size_t i = first; i < first + width; ++i) {
                QVERIFY(steps[i] >= steps[first]);
                QVERIFY(steps[i] - steps[first] < int(width));
            }
}

void tst_MeterStates::findTempo_isTheNearest_data()
{
    QTest::addColumn<float>("bpm");
    QTest::addColumn<int>("index");
    QTest::newRow("beyond the fastest") << 195.0F << -1;
    QTest::newRow("fastest") << 190.0F << 0;
    QTest::newRow("fastest, nearly") << 189.0F << 0;
    QTest::newRow("one step on: 187.19") << 187.2F << 1;
    QTest::newRow("ten steps on: 163.72") << 163.7F << 10;
}

void tst_MeterStates::findTempo_isTheNearest()
{
    QFETCH(float, bpm);
    QFETCH(int, index);
    const MeterStates states;
    QCOMPARE(states.findTempo(6000.0F / bpm), index);
    const int count = int(states.getTempi().size());
    QCOMPARE(states.findTempo(6000.0F / 50.0F), count);
}

AA_TEST(tst_MeterStates, NoApplication)
#include "tst_MeterStates.moc"
