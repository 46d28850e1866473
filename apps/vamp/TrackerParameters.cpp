// SPDX-License-Identifier: MIT
#include <vamp/TrackerParameters.h>

#include <cmath>
#include <limits>

namespace {

using Descriptor = Vamp::Plugin::ParameterDescriptor;

struct SettingParameter
{
    const char* pName;
    const char* pTitle;
    const char* pDescription;
    const char* pUnit;
    AudioAnalysisSetting setting;
    bool isWhole;
};

const SettingParameter kSettingParameters[] = {
    {"threshold",
     "Threshold",
     "Level that makes a pulse; -1 follows the volume",
     "",
     AudioAnalysisSetting_Threshold,
     true},
    {"stop-threshold",
     "Stop threshold",
     "Level up to which it is quiet; music that is mastered low needs less",
     "",
     AudioAnalysisSetting_StopThreshold,
     true},
    {"stop-duration",
     "Stop duration",
     "Time of quiet that counts as a stop",
     "s",
     AudioAnalysisSetting_StopDuration,
     false},
    {"average-duration",
     "Average duration",
     "Time over which the volume is averaged",
     "s",
     AudioAnalysisSetting_AverageDuration,
     false},
    {"bpm-duration",
     "Tempo duration",
     "Time whose beats make the tempo",
     "s",
     AudioAnalysisSetting_BPMDuration,
     false},
    {"fixed-bpm",
     "Fixed tempo",
     "Tempo to impose instead of measuring it, held within the profile's range; 0 measures",
     "bpm",
     AudioAnalysisSetting_FixedBPM,
     false},
    {"consistency",
     "Keep the last tempo across gaps",
     "1 keeps it, 0 forgets it",
     "",
     AudioAnalysisSetting_Consistency,
     true},
    {"virtual-when-stopped",
     "Virtual beats while the music is stopped",
     "1 goes on with them, 0 does not",
     "",
     AudioAnalysisSetting_VirtualWhenStopped,
     true},
};

Descriptor Describe(const SettingParameter& pParameter)
{
    double minimum = 0.0;
    double maximum = 0.0;
    double initial = 0.0;
    AudioAnalysis_GetLimits(pParameter.setting, &minimum, &maximum, &initial);
    Descriptor result;
    result.identifier = pParameter.pName;
    result.name = pParameter.pTitle;
    result.description = pParameter.pDescription;
    result.unit = pParameter.pUnit;
    result.minValue = static_cast<float>(minimum);
    result.maxValue = static_cast<float>(maximum);
    result.defaultValue = static_cast<float>(initial);
    result.isQuantized = pParameter.isWhole;
    result.quantizeStep = 1.0F;
    return result;
}

Descriptor DescribeProfile()
{
    Descriptor result;
    result.identifier = "profile";
    result.name = "Tempo profile";
    result.description = "Range of tempos, band of frequencies and sensibility to begin with";
    result.isQuantized = true;
    result.quantizeStep = 1.0F;
    for (size_t i = 0; const char* pName = AudioAnalysis_GetProfileName(i); ++i)
        result.valueNames.emplace_back(pName);
    result.maxValue = static_cast<float>(result.valueNames.size()) - 1.0F;
    return result;
}

/// A value of the profile; pMinimum leaves it as the profile has it.
Descriptor DescribeEdit(const char* pName,
                        const char* pTitle,
                        const char* pDescription,
                        const char* pUnit,
                        float pMinimum,
                        float pMaximum)
{
    Descriptor result;
    result.identifier = pName;
    result.name = pTitle;
    result.description = pDescription;
    result.unit = pUnit;
    result.minValue = pMinimum;
    result.maxValue = pMaximum;
    result.defaultValue = pMinimum;
    return result;
}

Vamp::Plugin::ParameterList DescribeEdits()
{
    constexpr float kMaximalBPM = 999.0F;
    constexpr float kMaximalFrequency = 96000.0F;
    return {
        DescribeEdit("minimal-bpm", "Slowest tempo", "0: the profile's", "bpm", 0.0F, kMaximalBPM),
        DescribeEdit("maximal-bpm", "Fastest tempo", "0: the profile's", "bpm", 0.0F, kMaximalBPM),
        DescribeEdit("low-frequency",
                     "Lower edge of the band",
                     "-1: the profile's; 0: none",
                     "Hz",
                     -1.0F,
                     kMaximalFrequency),
        DescribeEdit("high-frequency",
                     "Upper edge of the band",
                     "-1: the profile's; 0: none",
                     "Hz",
                     -1.0F,
                     kMaximalFrequency),
        DescribeEdit("sensibility",
                     "Sensibility",
                     "Automatic threshold as a multiple of the average volume; -1: the profile's",
                     "",
                     -1.0F,
                     1000.0F),
    };
}

/// A whole number of Hz; what is none becomes one that no profile takes.
int32_t Edge(float pValue)
{
    constexpr float kMost = 1e9F;
    return std::abs(pValue) < kMost ? static_cast<int32_t>(std::lround(pValue))
                                    : std::numeric_limits<int32_t>::max();
}

}  // namespace

TrackerParameters::TrackerParameters()
{
    for (const Descriptor& descriptor : getDescriptors())
        m_values[descriptor.identifier] = descriptor.defaultValue;
}

Vamp::Plugin::ParameterList TrackerParameters::getDescriptors()
{
    Vamp::Plugin::ParameterList list = {DescribeProfile()};
    for (const Descriptor& edit : DescribeEdits())
        list.push_back(edit);
    for (const SettingParameter& parameter : kSettingParameters)
        list.push_back(Describe(parameter));
    return list;
}

float TrackerParameters::get(const std::string& pName) const
{
    const auto found = m_values.find(pName);
    return found == m_values.end() ? 0.0F : found->second;
}

void TrackerParameters::set(const std::string& pName, float pValue)
{
    const auto found = m_values.find(pName);
    if (found != m_values.end())
        found->second = pValue;
}

bool TrackerParameters::ApplyTo(AudioAnalysis* pAnalysis) const
{
    for (const SettingParameter& parameter : kSettingParameters) {
        const double value = static_cast<double>(get(parameter.pName));
        if (AudioAnalysis_Set(pAnalysis, parameter.setting, value) != AudioAnalysisError_None)
            return false;
    }
    return _ApplyProfileTo(pAnalysis);
}

bool TrackerParameters::_ApplyProfileTo(AudioAnalysis* pAnalysis) const
{
    const float number = get("profile");
    constexpr float kMostProfiles = 100.0F;
    // NaN names no profile either.
    const char* pName = number >= 0.0F && number < kMostProfiles
                            ? AudioAnalysis_GetProfileName(static_cast<size_t>(number))
                            : nullptr;
    const std::string unknown = "number " + std::to_string(number);
    if (AudioAnalysis_SelectProfile(pAnalysis, pName ? pName : unknown.c_str()) !=
        AudioAnalysisError_None)
        return false;
    AudioAnalysisProfile profile;
    AudioAnalysis_GetProfile(pAnalysis, &profile);
    // Written so that NaN is taken over, and refused.
    if (get("minimal-bpm") != 0.0F)
        profile.minimalBPM = static_cast<double>(get("minimal-bpm"));
    if (get("maximal-bpm") != 0.0F)
        profile.maximalBPM = static_cast<double>(get("maximal-bpm"));
    if (get("low-frequency") != -1.0F)
        profile.lowFrequency = Edge(get("low-frequency"));
    if (get("high-frequency") != -1.0F)
        profile.highFrequency = Edge(get("high-frequency"));
    if (get("sensibility") != -1.0F)
        profile.sensibility = static_cast<double>(get("sensibility"));
    return AudioAnalysis_SetProfile(pAnalysis, &profile) == AudioAnalysisError_None;
}
