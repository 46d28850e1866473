// SPDX-License-Identifier: MIT
#include "BeatGrid.h"
#include <cli/evaluate/BeatMeasures.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

/// Cases whose scores can be worked out by hand. tst_MirEval holds all of them against the
/// published implementation.
class tst_BeatMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matchBeats_usesEachBeatOnce();
    void matchBeats_takesTheEdgeOfTheWindow();
    void getMedianInterval_isTheMiddle();
    void allMeasures_areOne_whenBeatsAreEqual();
    void allMeasures_areZero_withoutBeats();
    void fMeasure_weighsMissesAndExtras();
    void cemgil_fallsWithTheDistance();
    void pScore_countsPairsWithinAFifth();
    void continuity_forgivesTheLevel_onlyInAny_data();
    void continuity_forgivesTheLevel_onlyInAny();
    void continuity_tellsOneRunFromSeveral();
    void informationGain_isZero_whenErrorsAreEven();
    void informationGain_isHigh_whenAllAreLateAlike();
};

void tst_BeatMeasures::matchBeats_usesEachBeatOnce()
{
    const std::vector<BeatPair> pairs = matchBeats({1.0, 2.0, 3.0}, {1.95, 2.0, 2.05, 3.2});
    QCOMPARE(pairs.size(), std::size_t(1));
    QCOMPARE(pairs[0].reference, std::size_t(1));
    QCOMPARE(pairs[0].estimate, std::size_t(0));
}

void tst_BeatMeasures::matchBeats_takesTheEdgeOfTheWindow()
{
    QCOMPARE(matchBeats({1.0}, {1.5}, 0.5).size(), std::size_t(1));
    QCOMPARE(matchBeats({1.5}, {1.0}, 0.5).size(), std::size_t(1));
    QCOMPARE(matchBeats({1.0}, {1.5}, 0.499).size(), std::size_t(0));
}

void tst_BeatMeasures::getMedianInterval_isTheMiddle()
{
    QCOMPARE(getMedianInterval({}), 0.0);
    QCOMPARE(getMedianInterval({7.0}), 0.0);
    QCOMPARE(getMedianInterval({0.0, 0.5, 1.0, 9.0}), 0.5);
    QCOMPARE(getMedianInterval({0.0, 1.0, 3.0}), 1.5);
}

void tst_BeatMeasures::allMeasures_areOne_whenBeatsAreEqual()
{
    const BeatTimes beats = Grid(0.5, 20, 0.25);
    const BeatContinuity continuity = getContinuity(beats, beats);
    for (const double score : {getFMeasure(beats, beats),
                               getCemgil(beats, beats),
                               getPScore(beats, beats),
                               continuity.correctLongest,
                               continuity.correctTotal,
                               continuity.anyLongest,
                               continuity.anyTotal,
                               getInformationGain(beats, beats)})
        QCOMPARE(score, 1.0);
}

void tst_BeatMeasures::allMeasures_areZero_withoutBeats()
{
    const BeatTimes beats = Grid(0.5, 20);
    const std::pair<BeatTimes, BeatTimes> cases[] = {
        {beats, {}}, {{}, beats}, {{}, {}}, {beats, {100.0}}, {{100.0}, beats}};
    for (const auto& [reference, estimate] : cases) {
        const BeatContinuity continuity = getContinuity(reference, estimate);
        for (const double score : {getFMeasure(reference, estimate),
                                   getCemgil(reference, estimate),
                                   getPScore(reference, estimate),
                                   continuity.correctLongest,
                                   continuity.correctTotal,
                                   continuity.anyLongest,
                                   continuity.anyTotal,
                                   getInformationGain(reference, estimate)})
            QVERIFY(score < 1e-9);
    }
}

// 8 of 10 are found, and 2 are found where nothing is: precision and recall are 0.8.
void tst_BeatMeasures::fMeasure_weighsMissesAndExtras()
{
    BeatTimes estimate = Grid(1.0, 8);
    estimate.push_back(7.5);
    estimate.push_back(7.6);
    QCOMPARE(getFMeasure(Grid(1.0, 10), estimate), 0.8);
    // All 10 are found among 30: precision 1/3, recall 1.
    QCOMPARE(getFMeasure(Grid(0.6, 10), Grid(0.2, 30)), 0.5);
}

void tst_BeatMeasures::cemgil_fallsWithTheDistance()
{
    QCOMPARE(getCemgil(Grid(1.0, 10), Grid(1.0, 10, 0.04)), std::exp(-0.5));
    // Twice as many estimates: 10 of (10 + 20) / 2.
    QCOMPARE(getCemgil(Grid(1.0, 10), Grid(0.5, 20)), 10.0 / 15.0);
}

// A fifth of a second is the window at intervals of a second.
void tst_BeatMeasures::pScore_countsPairsWithinAFifth()
{
    QCOMPARE(getPScore(Grid(1.0, 10), Grid(1.0, 10, 0.19)), 1.0);
    QCOMPARE(getPScore(Grid(1.0, 10), Grid(1.0, 10, 0.22)), 0.0);
    QCOMPARE(getPScore(Grid(1.0, 10), Grid(2.0, 5)), 0.5);
    // Beats in one cell of 10 ms are one there, and counted twice as beats.
    QCOMPARE(getPScore({0.0, 1.0}, {0.0, 0.0, 1.0, 1.0}), 0.5);
}

void tst_BeatMeasures::continuity_forgivesTheLevel_onlyInAny_data()
{
    QTest::addColumn<double>("interval");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("correct");
    QTest::addColumn<double>("any");
    QTest::newRow("late by 17 % of the interval") << 1.0 << 0.17 << 1.0 << 1.0;
    QTest::newRow("off the beat") << 1.0 << 0.5 << 0.0 << 39.0 / 40.0;
    QTest::newRow("half as fast") << 2.0 << 0.0 << 0.0 << 1.0;
    QTest::newRow("half as fast, even beats") << 2.0 << 1.0 << 0.0 << 1.0;
}

void tst_BeatMeasures::continuity_forgivesTheLevel_onlyInAny()
{
    QFETCH(double, interval);
    QFETCH(double, start);
    QFETCH(double, correct);
    QFETCH(double, any);
    const BeatContinuity result =
        getContinuity(Grid(1.0, 40), Grid(interval, int(40.0 / interval), start));
    QCOMPARE(result.correctTotal, correct);
    QCOMPARE(result.correctLongest, correct);
    QCOMPARE(result.anyTotal, any);
    QCOMPARE(result.anyLongest, any);
}

// Of 20 beats the one in the middle is missing: that after it has a wrong interval as well.
void tst_BeatMeasures::continuity_tellsOneRunFromSeveral()
{
    const BeatTimes reference = Grid(1.0, 20);
    BeatTimes estimate = reference;
    estimate.erase(estimate.begin() + 8);
    const BeatContinuity result = getContinuity(reference, estimate);
    QCOMPARE(result.correctTotal, 18.0 / 20.0);
    QCOMPARE(result.correctLongest, 10.0 / 20.0);
}

// 41 beats, each off by another 41st of the interval, and the annotated ones likewise.
void tst_BeatMeasures::informationGain_isZero_whenErrorsAreEven()
{
    const BeatTimes reference = Grid(1.0, 43);
    BeatTimes estimate;
    for (int i = 0; i < 41; ++i)
        estimate.push_back(1.0 + i + (i - 20) / 41.0);
    QVERIFY(getInformationGain(reference, estimate) < 1e-9);
}

// The annotated beat ahead of the first estimated one falls into a bin of its own, since the whole
// length counts as its interval: 29 of 30 agree.
void tst_BeatMeasures::informationGain_isHigh_whenAllAreLateAlike()
{
    const double entropy = -(29.0 * std::log2(29.0 / 30.0) + std::log2(1.0 / 30.0)) / 30.0;
    QCOMPARE(getInformationGain(Grid(0.5, 30), Grid(0.5, 30, 0.1)),
             1.0 - entropy / std::log2(41.0));
}

AA_TEST(tst_BeatMeasures, QCoreApplication)
#include "tst_BeatMeasures.moc"
