// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>
#include <AudioAnalyzer/config/SettingsTable.h>

namespace {

using Setting = SettingsTable::Setting;

/// Those of the analysis come first in the table, in the order of their numbers.
const Setting* FindSetting(int32_t pSetting)
{
    const auto& settings = SettingsTable::getSettings();
    const auto place = static_cast<std::size_t>(pSetting);
    const bool isKnown =
        pSetting >= 0 && place < settings.size() && settings[place].use == SettingsTable::eAnalysis;
    return isKnown ? &settings[place] : nullptr;
}

AudioAnalysisError RefuseSetting(const AudioAnalysis* pAnalysis, int32_t pSetting)
{
    return detail::Refuse(
        pAnalysis, AudioAnalysisError_Unknown, "there is no setting " + detail::Text(pSetting));
}

AudioAnalysisError
RefuseValue(const AudioAnalysis& pAnalysis, const Setting& pSetting, double pValue)
{
    const bool isWhole = pSetting.form != SettingsTable::eNumber;
    const std::string unit = *pSetting.pUnit ? " " + std::string(pSetting.pUnit) : "";
    return detail::Refuse(
        &pAnalysis,
        AudioAnalysisError_Range,
        std::string(pSetting.pIdentifier) + " is a " + (isWhole ? "whole number" : "number") +
            " from " + detail::Text(pSetting.minimum) + " to " + detail::Text(pSetting.maximum) +
            unit + ", not " + detail::Text(pValue));
}

void Put(double* pTarget, double pValue)
{
    if (pTarget)
        *pTarget = pValue;
}

}  // namespace

void AudioAnalysis::Set(const Setting& pSetting, double pValue)
{
    const bool isChanged = Get(pSetting) != pValue;
    AnalyzerSettings::Store(pSetting, pValue, configuration, pAnalyzer);
    if (isChanged && SettingsTable::isOfEngine(pSetting))
        tracker = AudioAnalysisTracker_Profile;
    for (Held& one : held)
        if (one.pSetting == &pSetting)
            one.value = pValue;
}

double AudioAnalysis::Get(const Setting& pSetting) const
{
    for (const Held& one : held)
        if (one.pSetting == &pSetting)
            return one.value;
    return pSetting.get(configuration);
}

AudioAnalysisError AudioAnalysis_Set(AudioAnalysis* pAnalysis, int32_t pSetting, double pValue)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            const Setting* pFound = FindSetting(pSetting);
            if (!pFound)
                return RefuseSetting(&pThis, pSetting);
            if (!pFound->isAllowed(pValue))
                return RefuseValue(pThis, *pFound, pValue);
            pThis.Set(*pFound, pValue);
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError
AudioAnalysis_Get(const AudioAnalysis* pAnalysis, int32_t pSetting, double* pValue)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](const AudioAnalysis& pThis) {
            const Setting* pFound = FindSetting(pSetting);
            if (!pFound)
                return RefuseSetting(&pThis, pSetting);
            if (!pValue)
                return detail::Refuse(&pThis, AudioAnalysisError_Null, "the value's place is NULL");
            *pValue = pThis.Get(*pFound);
            return AudioAnalysisError_None;
        });
}

const char* AudioAnalysis_GetSettingName(int32_t pSetting)
{
    const char* pName = nullptr;
    detail::Answer(nullptr, [&] {
        const Setting* pFound = FindSetting(pSetting);
        pName = pFound ? pFound->pIdentifier : nullptr;
        return AudioAnalysisError_None;
    });
    return pName;
}

AudioAnalysisError
AudioAnalysis_GetLimits(int32_t pSetting, double* pMinimum, double* pMaximum, double* pDefault)
{
    return detail::Answer(
        nullptr,
        [=] {
            const Setting* pFound = FindSetting(pSetting);
            if (!pFound)
                return RefuseSetting(nullptr, pSetting);
            Put(pMinimum, pFound->minimum);
            Put(pMaximum, pFound->maximum);
            Put(pDefault, pFound->initial);
            return AudioAnalysisError_None;
        });
}
