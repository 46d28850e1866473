// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationMeasures.h>
#include <shared/text/Text.h>

#include <QMap>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

EvaluationMeasure
Share(const char* pKey, const QString& pLabel, BeatEvaluation::Value BeatEvaluation::*pValue)
{
    return {QLatin1String(pKey), pLabel, 100.0, 1, false, pValue};
}

}  // namespace

const std::vector<EvaluationMeasure>& getEvaluationMeasures()
{
    using E = BeatEvaluation;
    static const std::vector<EvaluationMeasure> measures = {
        Share("fMeasure", tr("F-measure, %"), &E::fMeasure),
        Share("cemgil", tr("Cemgil, %"), &E::cemgil),
        Share("cmlc", tr("CMLc, %"), &E::correctLongest),
        Share("cmlt", tr("CMLt, %"), &E::correctTotal),
        Share("amlc", tr("AMLc, %"), &E::anyLongest),
        Share("amlt", tr("AMLt, %"), &E::anyTotal),
        Share("pScore", tr("P-score, %"), &E::pScore),
        Share("informationGain", tr("information gain, %"), &E::informationGain),
        Share("tempo1", tr("tempo within 4 %, %"), &E::isTempoRight),
        Share("tempo2", tr("the same, octave forgiven, %"), &E::isTempoOctave),
        Share("tempoPrecise", tr("tempo within 1 %, %"), &E::isTempoPrecise),
        {QStringLiteral("meanError"), tr("mean error, ms"), 1e3, 1, false, &E::meanError},
        {QStringLiteral("medianError"), tr("median error, ms"), 1e3, 1, false, &E::medianError},
        {QStringLiteral("firstLock"), tr("first lock, median, s"), 1.0, 1, true, &E::firstLock},
        {QStringLiteral("relock"), tr("lock after a change, median, s"), 1.0, 1, true, &E::relock},
        {QStringLiteral("octaveFlips"), tr("octave flips an hour"), 1.0, 1, false, &E::octaveFlips},
        {QStringLiteral("overrun"), tr("beats after the end, s"), 1.0, 1, false, &E::overrun},
        {QStringLiteral("falseBeats"),
         tr("beats a minute without music"),
         1.0,
         1,
         false,
         &E::falseBeats}};
    return measures;
}

MeasureSummary summarize(const std::vector<const EvaluatedRecording*>& pRecordings,
                         const EvaluationMeasure& pMeasure)
{
    std::vector<double> values;
    for (const EvaluatedRecording* pRecording : pRecordings)
        if (const auto value = pRecording->evaluation.*pMeasure.value)
            values.push_back(*value);
    const auto count = double(values.size());
    if (values.empty() || pMeasure.isMedian)
        return {int(values.size()), getMedian(std::move(values)), 0.0};
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    double squares = 0.0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    const double error = count > 1.0 ? std::sqrt(squares / (count - 1.0) / count) : 0.0;
    return {int(values.size()), mean, error};
}

std::vector<EvaluationGroup> makeGroups(const std::vector<EvaluatedRecording>& pRecordings)
{
    QMap<QString, EvaluationGroup> genres;
    EvaluationGroup all;
    for (const EvaluatedRecording& recording : pRecordings) {
        EvaluationGroup& genre = genres[recording.genre];
        genre.name = recording.genre.isEmpty() ? tr("(no genre)") : recording.genre;
        genre.recordings.push_back(&recording);
        all.recordings.push_back(&recording);
    }
    std::vector<EvaluationGroup> groups;
    if (genres.size() > 1)
        groups.assign(genres.begin(), genres.end());
    groups.push_back(all);
    return groups;
}
