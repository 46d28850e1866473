// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/ProfileLimits.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <vamp/TrackerParameters.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

namespace {

constexpr double kSlowestBPM = 60.0;   ///< that the automatic tracker follows
constexpr double kFastestBPM = 190.0;  ///< that it follows

using Descriptor = Vamp::Plugin::ParameterDescriptor;

std::string Capitalized(const char* pText)
{
    std::string text = pText;
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

/// "Level that makes a pulse; -1: auto".
std::string DescriptionOf(const SettingsTable::Setting& pSetting)
{
    const std::string text = Capitalized(pSetting.pDescription);
    if (!pSetting.pMinimumWord)
        return text;
    return text + "; " + std::to_string(std::lround(pSetting.minimum)) + ": " +
           pSetting.pMinimumWord;
}

Descriptor Describe(const SettingsTable::Setting& pSetting)
{
    Descriptor result;
    result.identifier = pSetting.pIdentifier;
    result.name = Capitalized(pSetting.pName);
    result.description = DescriptionOf(pSetting);
    result.unit = pSetting.pUnit;
    result.minValue = static_cast<float>(pSetting.minimum);
    result.maxValue = static_cast<float>(pSetting.maximum);
    result.defaultValue = static_cast<float>(pSetting.initial);
    result.isQuantized = pSetting.form != SettingsTable::eNumber;
    result.quantizeStep = 1.0F;
    return result;
}

Descriptor DescribeTracker()
{
    Descriptor result;
    result.identifier = "tracker";
    result.name = "Tracker";
    result.description = "Who finds the beats; to change the profile, its band or another "
                         "parameter of its own chooses the second one";
    result.isQuantized = true;
    result.quantizeStep = 1.0F;
    result.valueNames = {"automatic", "profile"};
    result.maxValue = static_cast<float>(AudioAnalysisTracker_Profile);
    return result;
}

/// What only the engine heeds.
bool MeansProfile(const std::string& pName)
{
    const auto* pSetting = SettingsTable::Find(QString::fromStdString(pName));
    return pName == "profile" || pName == "low-frequency" || pName == "high-frequency" ||
           pName == "sensibility" || (pSetting && SettingsTable::isOfEngine(*pSetting));
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
    constexpr auto kMaximalBPM = static_cast<float>(ProfileLimits::kMaximalBPM);
    constexpr float kMaximalFrequency = 96000.0F;
    return {
        DescribeEdit("minimal-bpm", "Slowest tempo", "0: as it is", "bpm", 0.0F, kMaximalBPM),
        DescribeEdit("maximal-bpm", "Fastest tempo", "0: as it is", "bpm", 0.0F, kMaximalBPM),
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
                     static_cast<float>(ProfileLimits::kMaximalSensibility)),
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
    Vamp::Plugin::ParameterList list = {DescribeTracker(), DescribeProfile()};
    for (const Descriptor& edit : DescribeEdits())
        list.push_back(edit);
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis)
            list.push_back(Describe(setting));
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
    if (found == m_values.end())
        return;
    // Hosts set every parameter, also those that stay as they are.
    if (MeansProfile(pName) && found->second != pValue)
        m_values["tracker"] = static_cast<float>(AudioAnalysisTracker_Profile);
    found->second = pValue;
}

bool TrackerParameters::ApplyTo(AudioAnalysis* pAnalysis) const
{
    int32_t number = 0;
    while (const char* pName = AudioAnalysis_GetSettingName(number)) {
        const double value = static_cast<double>(get(pName));
        if (AudioAnalysis_Set(pAnalysis, number++, value) != AudioAnalysisError_None)
            return false;
    }
    return _ApplyProfileTo(pAnalysis) && _ApplyTrackerTo(pAnalysis);
}

bool TrackerParameters::_ApplyTrackerTo(AudioAnalysis* pAnalysis) const
{
    const float tracker = get("tracker");
    // NaN is none either.
    const bool isKnown = tracker == 0.0F || tracker == 1.0F;
    if (AudioAnalysis_SetTracker(pAnalysis, isKnown ? static_cast<int32_t>(tracker) : -1) !=
        AudioAnalysisError_None)
        return false;
    if (tracker != 0.0F)
        return true;
    const auto slowest = static_cast<double>(get("minimal-bpm"));
    const auto fastest = static_cast<double>(get("maximal-bpm"));
    return AudioAnalysis_SetTempoRange(pAnalysis,
                                       std::max(slowest, kSlowestBPM),
                                       fastest > 0.0 ? std::min(fastest, kFastestBPM)
                                                     : kFastestBPM) == AudioAnalysisError_None;
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
