// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatEvaluation.h>
#include <cli/evaluate/BeatMeasures.h>
#include <cli/evaluate/LockMeasures.h>
#include <cli/evaluate/TempoMeasures.h>

#include <algorithm>
#include <numeric>

namespace {

/// The beats from pFrom on that do not lie in an ignored stretch.
BeatTimes Select(const BeatTimes& pBeats, const std::vector<EvaluatedSpan>& pIgnored, double pFrom)
{
    BeatTimes result;
    std::copy_if(pBeats.begin(), pBeats.end(), std::back_inserter(result), [&](double pBeat) {
        return pBeat >= pFrom &&
               std::none_of(pIgnored.begin(), pIgnored.end(), [&](const EvaluatedSpan& pSpan) {
                   return pBeat >= pSpan.start && pBeat <= pSpan.end;
               });
    });
    return result;
}

void AddScores(BeatEvaluation& pResult, const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    const BeatContinuity continuity = getContinuity(pReference, pEstimate);
    pResult.fMeasure = getFMeasure(pReference, pEstimate);
    pResult.cemgil = getCemgil(pReference, pEstimate);
    pResult.correctLongest = continuity.correctLongest;
    pResult.correctTotal = continuity.correctTotal;
    pResult.anyLongest = continuity.anyLongest;
    pResult.anyTotal = continuity.anyTotal;
    pResult.pScore = getPScore(pReference, pEstimate);
    pResult.informationGain = getInformationGain(pReference, pEstimate);
}

void AddErrors(BeatEvaluation& pResult, const BeatTimes& pReference, const BeatTimes& pEstimate)
{
    std::vector<double> errors;
    for (const BeatPair& pair : matchBeats(pReference, pEstimate))
        errors.push_back(pEstimate[pair.estimate] - pReference[pair.reference]);
    if (errors.empty())
        return;
    pResult.meanError = std::accumulate(errors.begin(), errors.end(), 0.0) / double(errors.size());
    pResult.medianError = getMedian(std::move(errors));
}

void AddTempo(BeatEvaluation& pResult,
              const BeatReference& pReference,
              const BeatTimes& pBeats,
              double pEstimate)
{
    TempoRange range = {pReference.minimalTempo, pReference.maximalTempo};
    if (range.minimum <= 0.0)
        range.minimum = range.maximum = getTempo(pBeats);
    if (range.minimum <= 0.0)
        return;
    constexpr double kUsual = 0.04;
    constexpr double kPrecise = 0.01;
    pResult.isTempoRight = isTempoRight(range, pEstimate, kUsual) ? 1.0 : 0.0;
    pResult.isTempoOctave = isTempoRightUpToLevel(range, pEstimate, kUsual) ? 1.0 : 0.0;
    pResult.isTempoPrecise = isTempoRight(range, pEstimate, kPrecise) ? 1.0 : 0.0;
}

/// What is measured on the whole recording, its beginning included.
void AddLocks(BeatEvaluation& pResult, const BeatReference& pReference, const BeatTimes& pBeats)
{
    const BeatTimes reference = Select(pReference.beats, pReference.ignored, 0.0);
    const BeatTimes estimate = Select(pBeats, pReference.ignored, 0.0);
    pResult.firstLock = findLock(reference, estimate, 0.0);
    if (!pReference.changes.empty())
        pResult.relock = getRelock(reference, estimate, pReference.changes);
    if (pReference.duration > 0.0)
        pResult.octaveFlips =
            double(countOctaveFlips(reference, estimate)) * 3600.0 / pReference.duration;
    if (!reference.empty())
        pResult.overrun =
            estimate.empty() ? 0.0 : std::max(0.0, estimate.back() - reference.back());
}

}  // namespace

BeatEvaluation
evaluateBeats(const BeatReference& pReference, const BeatEstimate& pEstimate, double pFrom)
{
    BeatEvaluation result;
    const BeatTimes reference = Select(pReference.beats, pReference.ignored, pFrom);
    const BeatTimes all = pEstimate.beats.value_or(BeatTimes());
    const BeatTimes estimate = Select(all, pReference.ignored, pFrom);
    if (!pReference.beats.empty())
        AddTempo(result,
                 pReference,
                 reference,
                 pEstimate.tempo > 0.0 ? pEstimate.tempo : getTempo(estimate));
    if (!pEstimate.beats)
        return result;
    if (pReference.beats.empty()) {
        if (pReference.duration > 0.0)
            result.falseBeats = double(all.size()) * 60.0 / pReference.duration;
        return result;
    }
    AddScores(result, reference, estimate);
    AddErrors(result, reference, estimate);
    AddLocks(result, pReference, all);
    return result;
}
