// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatEvaluation.h>

#include <QString>

/// A measure as it is written: the one place where its names stand.
struct EvaluationMeasure
{
    QString key;    ///< in JSON and CSV, where values are in seconds, 0 to 1, or counts
    QString label;  ///< for people, with the unit
    double scale;   ///< of the value for people
    int decimals;   ///< of that
    bool isMedian;  ///< taken together by the median, since a value may be infinite
    BeatEvaluation::Value BeatEvaluation::*value;
};

/// All of them, in the order of the output.
const std::vector<EvaluationMeasure>& getEvaluationMeasures();

/// A recording that was evaluated.
struct EvaluatedRecording
{
    QString name;
    QString genre;  ///< empty = unknown
    BeatEvaluation evaluation;
};

/// What recordings have in common in one measure.
struct MeasureSummary
{
    int count = 0;       ///< recordings to which the measure applies; all else holds if not 0
    double value = 0.0;  ///< mean, or median; infinity = never
    double error = 0.0;  ///< standard error of a mean; 0 when count is 1
};

MeasureSummary summarize(const std::vector<const EvaluatedRecording*>& pRecordings,
                         const EvaluationMeasure& pMeasure);

/// Recordings that are taken together.
struct EvaluationGroup
{
    QString name;                                       ///< the genre; empty = all recordings
    std::vector<const EvaluatedRecording*> recordings;  ///< not owned
};

/// A group for each genre by name, when there are several, and all recordings as the last one.
/// [valid while pRecordings is]
std::vector<EvaluationGroup> makeGroups(const std::vector<EvaluatedRecording>& pRecordings);
