// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/api/Analysis.h>

#include <map>
#include <string>
#include <vamp-sdk/Plugin.h>

/// The tracker, the tempo profile and the settings of an analysis as a host shows them.
///
/// The range of tempos limits either tracker; a profile chooses the one that has it.
/// The profile is one of the built-in ones; its values can be replaced one by one, and -1, or 0 for
/// a tempo, leaves a value as the profile has it.
class TrackerParameters
{
public:
    /// All at their defaults.
    TrackerParameters();

    /// With limits, defaults and units. Limits of settings are those of the library.
    static Vamp::Plugin::ParameterList getDescriptors();

    /// 0 for a name that does not exist.
    float get(const std::string& pName) const;
    /// Stores any value; nothing for a name that does not exist. ApplyTo() tells what is refused.
    /// To change what a profile holds chooses the tracker that has one.
    void set(const std::string& pName, float pValue);

    /// Puts everything into an analysis. False when it refuses a value, which
    /// AudioAnalysis_GetErrorText(pAnalysis) tells.
    bool ApplyTo(AudioAnalysis* pAnalysis) const;

private:
    bool _ApplyProfileTo(AudioAnalysis* pAnalysis) const;
    bool _ApplyTrackerTo(AudioAnalysis* pAnalysis) const;

    std::map<std::string, float> m_values;  ///< by name
};
