// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>

#include <cmath>
#include <iterator>

namespace {

constexpr double kFullScale = 32767.0;
constexpr double kShortest = 0.05;  ///< seconds

struct Setting
{
    const char* pName;
    double minimum;
    double maximum;
    double initial;
    bool isWhole;
    double (*get)(const AudioAnalysis& pThis);
    void (*set)(AudioAnalysis& pThis, double pValue);
};

void SetThreshold(AudioAnalysis& pThis, double pValue)
{
    pThis.configuration.setThreshold(static_cast<short>(pValue));
}

void SetStopThreshold(AudioAnalysis& pThis, double pValue)
{
    pThis.configuration.setStopDetectionThreshold(static_cast<short>(pValue));
}

void SetStopDuration(AudioAnalysis& pThis, double pValue)
{
    if (pThis.configuration.setStopDetectionDuration(pValue))
        pThis.pAnalyzer->setStopDetectionDuration(pValue);
}

// The analyzer first: it may find that memory has run out.
void SetAverageDuration(AudioAnalysis& pThis, double pValue)
{
    pThis.pAnalyzer->setAverageVolumeCalculationDuration(pValue);
    pThis.configuration.setAverageVolumeCalculationDuration(pValue);
}

void SetBPMDuration(AudioAnalysis& pThis, double pValue)
{
    pThis.configuration.setBPMCalculationDuration(pValue);
}

void SetFixedBPM(AudioAnalysis& pThis, double pValue)
{
    pThis.fixedBPM = pValue;
    pThis.pAnalyzer->setFixedBPM(pValue);
}

void SetConsistency(AudioAnalysis& pThis, double pValue)
{
    pThis.isConsistencyAllowed = pValue != 0.0;
    pThis.pAnalyzer->setConsistencyAllowed(pThis.isConsistencyAllowed);
}

void SetVirtualWhenStopped(AudioAnalysis& pThis, double pValue)
{
    pThis.configuration.setDisplayVirtualBeatsWhenStopped(pValue != 0.0);
}

/// In the order of AudioAnalysisSetting.
const Setting kSettings[] = {
    {"a threshold",
     -1.0,
     kFullScale,
     -1.0,
     true,
     [](const AudioAnalysis& p) -> double { return p.configuration.getThreshold(); },
     &SetThreshold},
    {"a stop threshold",
     0.0,
     kFullScale,
     3276.0,
     true,
     [](const AudioAnalysis& p) -> double { return p.configuration.getStopDetectionThreshold(); },
     &SetStopThreshold},
    {"a stop duration in seconds",
     kShortest,
     10.0,
     1.5,
     false,
     [](const AudioAnalysis& p) { return p.configuration.getStopDetectionDuration(); },
     &SetStopDuration},
    {"an average duration in seconds",
     kShortest,
     60.0,
     2.0,
     false,
     [](const AudioAnalysis& p) { return p.configuration.getAverageVolumeCalculationDuration(); },
     &SetAverageDuration},
    {"a BPM duration in seconds",
     kShortest,
     600.0,
     10.0,
     false,
     [](const AudioAnalysis& p) { return p.configuration.getBPMCalculationDuration(); },
     &SetBPMDuration},
    {"a fixed tempo in BPM",
     0.0,
     999.0,
     0.0,
     false,
     [](const AudioAnalysis& p) { return p.fixedBPM; },
     &SetFixedBPM},
    {"consistency",
     0.0,
     1.0,
     1.0,
     true,
     [](const AudioAnalysis& p) { return p.isConsistencyAllowed ? 1.0 : 0.0; },
     &SetConsistency},
    {"virtual beats when stopped",
     0.0,
     1.0,
     0.0,
     true,
     [](const AudioAnalysis& p) {
         return p.configuration.getDisplayVirtualBeatsWhenStopped() ? 1.0 : 0.0;
     },
     &SetVirtualWhenStopped},
};

const Setting* FindSetting(int32_t pSetting)
{
    const bool isKnown = pSetting >= 0 && pSetting < int32_t(std::size(kSettings));
    return isKnown ? &kSettings[pSetting] : nullptr;
}

AudioAnalysisError RefuseSetting(const AudioAnalysis* pAnalysis, int32_t pSetting)
{
    return detail::Refuse(
        pAnalysis, AudioAnalysisError_Unknown, "there is no setting " + detail::Text(pSetting));
}

/// Written so that NaN is not.
bool IsAllowed(const Setting& pSetting, double pValue)
{
    const bool isWithin = pValue >= pSetting.minimum && pValue <= pSetting.maximum;
    return isWithin && (!pSetting.isWhole || std::floor(pValue) == pValue);
}

AudioAnalysisError
RefuseValue(const AudioAnalysis& pAnalysis, const Setting& pSetting, double pValue)
{
    return detail::Refuse(&pAnalysis,
                          AudioAnalysisError_Range,
                          std::string(pSetting.pName) + " is " +
                              (pSetting.isWhole ? "a whole number from " : "") +
                              detail::Text(pSetting.minimum) + " to " +
                              detail::Text(pSetting.maximum) + ", not " + detail::Text(pValue));
}

void Store(double* pTarget, double pValue)
{
    if (pTarget)
        *pTarget = pValue;
}

}  // namespace

AudioAnalysisError AudioAnalysis_Set(AudioAnalysis* pAnalysis, int32_t pSetting, double pValue)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            const Setting* pFound = FindSetting(pSetting);
            if (!pFound)
                return RefuseSetting(&pThis, pSetting);
            if (!IsAllowed(*pFound, pValue))
                return RefuseValue(pThis, *pFound, pValue);
            pFound->set(pThis, pValue);
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
            *pValue = pFound->get(pThis);
            return AudioAnalysisError_None;
        });
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
            Store(pMinimum, pFound->minimum);
            Store(pMaximum, pFound->maximum);
            Store(pDefault, pFound->initial);
            return AudioAnalysisError_None;
        });
}
