// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/api/detail/AnalysisHandle.h>

#include <QByteArray>

#include <new>
#include <string>

namespace detail {

/// Writes down why pAnalysis, or this thread if that is null, refused, and returns pError.
AudioAnalysisError Refuse(const AudioAnalysis* pAnalysis,
                          AudioAnalysisError pError,
                          const std::string& pText) noexcept;

/// A number as a text, the same in every locale.
inline std::string Text(double pNumber)
{
    return QByteArray::number(pNumber, 'g', 15).toStdString();
}

/// What pStep answers; what it throws becomes an answer too.
template <typename Step>
AudioAnalysisError Answer(const AudioAnalysis* pAnalysis, Step pStep) noexcept
{
    try {
        return pStep();
    } catch (const std::bad_alloc&) {
        return Refuse(pAnalysis, AudioAnalysisError_Memory, "memory has run out");
    } catch (...) {
        return Refuse(pAnalysis, AudioAnalysisError_Internal, "a callback has thrown an exception");
    }
}

/// The same, for a step that takes the analysis, which may be null.
template <typename Analysis, typename Step>
AudioAnalysisError AnswerFor(Analysis* pAnalysis, Step pStep) noexcept
{
    if (!pAnalysis)
        return Refuse(nullptr, AudioAnalysisError_Null, "the analysis is NULL");
    return Answer(pAnalysis, [pAnalysis, &pStep] { return pStep(*pAnalysis); });
}

/// The same, for a step that a callback must not take.
template <typename Step>
AudioAnalysisError AnswerOutside(AudioAnalysis* pAnalysis, Step pStep) noexcept
{
    return AnswerFor(
        pAnalysis,
        [&pStep](AudioAnalysis& pThis) {
            return pThis.isBusy ? Refuse(&pThis,
                                         AudioAnalysisError_Busy,
                                         "a callback must not push, finish, restart or destroy")
                                : pStep(pThis);
        });
}

}  // namespace detail
