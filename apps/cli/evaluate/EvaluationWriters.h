// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/EvaluationMeasures.h>

#include <QByteArray>

/// What an evaluation is written as.
enum eEvaluationFormat
{
    eEvaluationText,  ///< a table for people: measures down, genres across
    eEvaluationJson,  ///< one document: recordings and genres
    eEvaluationCsv    ///< a line for each recording
};

/// pFrom is where the evaluation began, seconds. UTF-8. [allocates]
QByteArray makeEvaluationText(const std::vector<EvaluatedRecording>& pRecordings, double pFrom);
QByteArray makeEvaluationJson(const std::vector<EvaluatedRecording>& pRecordings, double pFrom);
QByteArray makeEvaluationCsv(const std::vector<EvaluatedRecording>& pRecordings);
