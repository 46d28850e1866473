// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/ProfileLimits.h>

#include <QString>

#include <limits>

namespace {

constexpr int kNoFrequency = -1;  ///< instead of a frequency

struct BuiltIn
{
    std::string name;  ///< UTF-8
    AudioAnalysisProfile profile;
};

int32_t Edge(int32_t pFrequency)
{
    return pFrequency < 1 ? kNoFrequency : pFrequency;
}

AudioAnalysisProfile Describe(const Profile& pProfile)
{
    return {pProfile.getMinimalBPM(),
            pProfile.getMaximalBPM(),
            pProfile.getSensibility(),
            Edge(pProfile.getFilterLowFrequency()),
            Edge(pProfile.getFilterHighFrequency()),
            pProfile.getMaximalThreshold()};
}

std::vector<BuiltIn> ReadBuiltIns()
{
    const std::lock_guard<std::mutex> profiles(detail::ProfilesMutex());
    std::vector<BuiltIn> builtIns;
    for (const Profile& profile : PredefinedProfile::getList())
        builtIns.push_back({profile.getName().toUtf8().toStdString(), Describe(profile)});
    return builtIns;
}

/// Read once: the list itself must not be touched by several threads.
const std::vector<BuiltIn>& getBuiltIns()
{
    static const std::vector<BuiltIn> builtIns = ReadBuiltIns();
    return builtIns;
}

const BuiltIn* FindBuiltIn(const char* pName)
{
    const QString name = QString::fromUtf8(pName);
    for (const BuiltIn& builtIn : getBuiltIns())
        if (name.compare(QString::fromStdString(builtIn.name), Qt::CaseInsensitive) == 0)
            return &builtIn;
    return nullptr;
}

AudioAnalysisError RefuseName(const AudioAnalysis* pAnalysis, const char* pName)
{
    if (!pName)
        return detail::Refuse(pAnalysis, AudioAnalysisError_Null, "the profile's name is NULL");
    std::string text = "there is no profile \"" + std::string(pName) + "\"; there are";
    for (const BuiltIn& builtIn : getBuiltIns())
        text += " " + builtIn.name;
    return detail::Refuse(pAnalysis, AudioAnalysisError_Unknown, text);
}

/// What is wrong with a profile, or null.
const char* FaultOf(const AudioAnalysisProfile& pProfile)
{
    if (!ProfileLimits::isTempoRange(pProfile.minimalBPM, pProfile.maximalBPM))
        return "a tempo range has 1 <= minimal <= maximal < 1000 BPM";
    if (!ProfileLimits::isSensibility(pProfile.sensibility))
        return "a sensibility is 0 to 1000";
    if (!ProfileLimits::isBand(pProfile.lowFrequency, pProfile.highFrequency))
        return "a band's lower edge is not above its upper edge";
    if (pProfile.maximalThreshold < 0 ||
        pProfile.maximalThreshold > std::numeric_limits<qint16>::max())
        return "a maximal threshold is 0 to 32767";
    return nullptr;
}

/// All setters accept what has no fault. The record is the analysis' own.
void Store(Profile& pTarget, const AudioAnalysisProfile& pProfile)
{
    pTarget.setBPM(pProfile.minimalBPM, pProfile.maximalBPM);
    pTarget.setSensibility(pProfile.sensibility);
    pTarget.setFilterFrequencies(Edge(pProfile.lowFrequency), Edge(pProfile.highFrequency));
    pTarget.setMaximalThreshold(static_cast<short>(pProfile.maximalThreshold));
}

}  // namespace

const char* AudioAnalysis_GetProfileName(size_t pNumber)
{
    const char* pName = nullptr;
    detail::Answer(nullptr, [&] {
        if (pNumber < getBuiltIns().size())
            pName = getBuiltIns()[pNumber].name.c_str();
        return AudioAnalysisError_None;
    });
    return pName;
}

AudioAnalysisError AudioAnalysis_FindProfile(const char* pName, AudioAnalysisProfile* pProfile)
{
    return detail::Answer(
        nullptr,
        [=] {
            const BuiltIn* pFound = pName ? FindBuiltIn(pName) : nullptr;
            if (!pFound)
                return RefuseName(nullptr, pName);
            if (!pProfile)
                return detail::Refuse(nullptr, AudioAnalysisError_Null, "the profile is NULL");
            *pProfile = pFound->profile;
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_SelectProfile(AudioAnalysis* pAnalysis, const char* pName)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            const BuiltIn* pFound = pName ? FindBuiltIn(pName) : nullptr;
            if (!pFound)
                return RefuseName(&pThis, pName);
            Store(pThis.profile, pFound->profile);
            pThis.tracker = AudioAnalysisTracker_Profile;
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_SetProfile(AudioAnalysis* pAnalysis,
                                            const AudioAnalysisProfile* pProfile)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            if (!pProfile)
                return detail::Refuse(&pThis, AudioAnalysisError_Null, "the profile is NULL");
            if (const char* pFault = FaultOf(*pProfile))
                return detail::Refuse(&pThis, AudioAnalysisError_Range, pFault);
            Store(pThis.profile, *pProfile);
            pThis.tracker = AudioAnalysisTracker_Profile;
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_GetProfile(const AudioAnalysis* pAnalysis,
                                            AudioAnalysisProfile* pProfile)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](const AudioAnalysis& pThis) {
            if (!pProfile)
                return detail::Refuse(&pThis, AudioAnalysisError_Null, "the profile is NULL");
            *pProfile = Describe(pThis.profile);
            return AudioAnalysisError_None;
        });
}
