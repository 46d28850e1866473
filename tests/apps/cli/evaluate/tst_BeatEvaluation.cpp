// SPDX-License-Identifier: MIT
#include "BeatGrid.h"
#include <cli/evaluate/BeatEvaluation.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

/// What of a recording counts, and which measures apply to it.
class tst_BeatEvaluation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginning_isLeftOut();
    void beginning_counts_forTheFirstLock();
    void ignoredStretch_isNeitherWantedNorWrong();
    void tempo_isThatOfTheBeats_withoutARange();
    void tempo_mayBeAnywhereInTheRange();
    void tempoAlone_hasNoOtherMeasure();
    void errors_areEstimatedMinusAnnotated();
    void errors_areNone_withoutAPair();
    void silence_hasFalseBeatsOnly();
    void changes_haveARelock();
    void overrun_isWhatGoesOnBehindTheEnd();
    void octaveFlips_areTakenToAnHour();
};

namespace {

BeatReference Reference(const BeatTimes& pBeats)
{
    BeatReference reference;
    reference.beats = pBeats;
    return reference;
}

BeatEvaluation
Evaluate(const BeatReference& pReference, const BeatTimes& pEstimate, double pFrom = 0.0)
{
    return evaluateBeats(pReference, {pEstimate, 0.0}, pFrom);
}

}  // namespace

void tst_BeatEvaluation::beginning_isLeftOut()
{
    const BeatTimes late = Grid(1.0, 10, 10.0);
    QCOMPARE(Evaluate(Reference(Grid(1.0, 20)), late, 10.0).fMeasure, std::optional(1.0));
    // 10 of 20 are missing: recall 0.5, precision 1.
    QCOMPARE(Evaluate(Reference(Grid(1.0, 20)), late).fMeasure, std::optional(2.0 / 3.0));
}

void tst_BeatEvaluation::beginning_counts_forTheFirstLock()
{
    QCOMPARE(Evaluate(Reference(Grid(0.5, 40)), Grid(0.5, 40), 5.0).firstLock, std::optional(1.5));
}

void tst_BeatEvaluation::ignoredStretch_isNeitherWantedNorWrong()
{
    BeatReference reference = Reference(Grid(1.0, 20));
    BeatTimes estimate = Grid(1.0, 8);
    const BeatTimes rest = Grid(1.0, 7, 13.0);
    estimate.insert(estimate.end(), {8.4, 9.4, 10.4});
    estimate.insert(estimate.end(), rest.begin(), rest.end());
    QVERIFY(*Evaluate(reference, estimate).fMeasure < 0.9);
    reference.ignored = {{8.0, 12.0}};
    const BeatEvaluation result = Evaluate(reference, estimate);
    QCOMPARE(result.fMeasure, std::optional(1.0));
    QCOMPARE(result.correctTotal, std::optional(1.0));
}

void tst_BeatEvaluation::tempo_isThatOfTheBeats_withoutARange()
{
    const BeatReference reference = Reference(Grid(0.5, 60));
    const BeatEvaluation close = Evaluate(reference, Grid(0.51, 60));
    QCOMPARE(close.isTempoRight, std::optional(1.0));
    QCOMPARE(close.isTempoPrecise, std::optional(0.0));
    const BeatEvaluation twice = Evaluate(reference, Grid(0.25, 60));
    QCOMPARE(twice.isTempoRight, std::optional(0.0));
    QCOMPARE(twice.isTempoOctave, std::optional(1.0));
    QCOMPARE(Evaluate(reference, {}).isTempoOctave, std::optional(0.0));
}

void tst_BeatEvaluation::tempo_mayBeAnywhereInTheRange()
{
    BeatReference reference = Reference(Grid(0.5, 60));
    reference.minimalTempo = 100.0;
    reference.maximalTempo = 140.0;
    QCOMPARE(Evaluate(reference, Grid(0.58, 60)).isTempoPrecise, std::optional(1.0));
    QCOMPARE(Evaluate(reference, Grid(0.64, 60)).isTempoRight, std::optional(0.0));
}

void tst_BeatEvaluation::tempoAlone_hasNoOtherMeasure()
{
    const BeatEvaluation result =
        evaluateBeats(Reference(Grid(0.5, 60)), {std::nullopt, 121.0}, 5.0);
    QCOMPARE(result.isTempoRight, std::optional(1.0));
    QVERIFY(!result.fMeasure && !result.firstLock && !result.meanError && !result.overrun);
}

void tst_BeatEvaluation::errors_areEstimatedMinusAnnotated()
{
    // Late by 10, 20 and 60 ms, and one that is no pair.
    const BeatEvaluation result =
        Evaluate(Reference({1.0, 2.0, 3.0, 4.0}), {1.01, 2.02, 3.06, 4.5});
    QVERIFY(std::abs(*result.meanError - 0.03) < 1e-12);
    QVERIFY(std::abs(*result.medianError - 0.02) < 1e-12);
}

void tst_BeatEvaluation::errors_areNone_withoutAPair()
{
    const BeatEvaluation result = Evaluate(Reference(Grid(1.0, 10)), Grid(1.0, 10, 0.5));
    QVERIFY(!result.meanError && !result.medianError);
    QCOMPARE(result.fMeasure, std::optional(0.0));
}

void tst_BeatEvaluation::silence_hasFalseBeatsOnly()
{
    BeatReference silence;
    QVERIFY(!Evaluate(silence, Grid(1.0, 10)).falseBeats);  // nobody knows how long it is
    silence.duration = 120.0;
    const BeatEvaluation result = Evaluate(silence, Grid(1.0, 10), 5.0);
    QCOMPARE(result.falseBeats, std::optional(5.0));
    QVERIFY(!result.fMeasure && !result.isTempoRight && !result.firstLock);
    QCOMPARE(Evaluate(silence, {}).falseBeats, std::optional(0.0));
    QVERIFY(!Evaluate(Reference(Grid(1.0, 10)), {}).falseBeats);
}

void tst_BeatEvaluation::changes_haveARelock()
{
    BeatReference reference = Reference(Grid(1.0, 40));
    QVERIFY(!Evaluate(reference, Grid(1.0, 40)).relock);
    reference.changes = {20.0};
    QCOMPARE(Evaluate(reference, Grid(1.0, 40)).relock, std::optional(3.0));
    QVERIFY(std::isinf(*Evaluate(reference, Grid(1.0, 20)).relock));
}

void tst_BeatEvaluation::overrun_isWhatGoesOnBehindTheEnd()
{
    const BeatReference reference = Reference(Grid(1.0, 21));
    QCOMPARE(Evaluate(reference, Grid(1.0, 24)).overrun, std::optional(3.0));
    QCOMPARE(Evaluate(reference, Grid(1.0, 10)).overrun, std::optional(0.0));
    QCOMPARE(Evaluate(reference, {}).overrun, std::optional(0.0));
}

void tst_BeatEvaluation::octaveFlips_areTakenToAnHour()
{
    BeatReference reference = Reference(Grid(1.0, 60));
    BeatTimes estimate = Grid(1.0, 20);
    const BeatTimes fast = Grid(0.5, 40, 19.5);
    estimate.insert(estimate.end(), fast.begin(), fast.end());
    QVERIFY(!Evaluate(reference, estimate).octaveFlips);
    reference.duration = 60.0;
    QCOMPARE(Evaluate(reference, estimate).octaveFlips, std::optional(60.0));
}

AA_TEST(tst_BeatEvaluation, QCoreApplication)
#include "tst_BeatEvaluation.moc"
