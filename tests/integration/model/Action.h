// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include "ModelAnalyzer.h"

#include <QString>

namespace model {

/// Something that a host may do between two batches or from inside a signal.
struct Action
{
    enum class Kind
    {
        Start,
        Stop,
        Pause,
        Reset,
        SetFixedBPM,           ///< BPM
        AllowConsistency,      ///< 0 or 1
        SetAverageDuration,    ///< seconds
        SetStopDuration,       ///< seconds
        SetStopThreshold,      ///< sample units
        SetThreshold,          ///< sample units, negative = automatic
        SetBPMDuration,        ///< seconds
        DisplayVirtualBeats,   ///< 0 or 1
        SelectProfile,         ///< a new one
        EditSensibility,       ///< factor
        EditMaximalThreshold,  ///< sample units
        BeatIsDue,
    };

    Kind kind = Kind::Start;
    double value = 0.0;
    Profile profile;

    QString toString() const;
    /// The result of the call; true where there is none.
    bool apply(AudioAnalyzer& analyzer, Configuration& configuration) const;
    bool apply(Analyzer& analyzer) const;
};

/// Every kind, with its name, for data tables.
struct NamedAction
{
    const char* pName;
    Action::Kind kind;
    double value;
};

inline constexpr NamedAction allActions[] = {
    {"Start", Action::Kind::Start, 0},
    {"Stop", Action::Kind::Stop, 0},
    {"PauseAnalysis", Action::Kind::Pause, 0},
    {"Reset", Action::Kind::Reset, 0},
    {"setFixedBPM", Action::Kind::SetFixedBPM, 150},
    {"lift setFixedBPM", Action::Kind::SetFixedBPM, 0},
    {"setConsistencyAllowed", Action::Kind::AllowConsistency, 0},
    {"setAverageVolumeCalculationDuration", Action::Kind::SetAverageDuration, 0.7},
    {"setStopDetectionDuration", Action::Kind::SetStopDuration, 0.3},
    {"disable stop detection", Action::Kind::SetStopDuration, 0},
    {"setStopDetectionThreshold", Action::Kind::SetStopThreshold, 30000},
    {"setThreshold", Action::Kind::SetThreshold, 500},
    {"setBPMCalculationDuration", Action::Kind::SetBPMDuration, 3},
    {"setDisplayVirtualBeatsWhenStopped", Action::Kind::DisplayVirtualBeats, 1},
    {"setSelectedProfile", Action::Kind::SelectProfile, 0},
    {"Profile::setSensibility", Action::Kind::EditSensibility, 0.5},
    {"Profile::setMaximalThreshold", Action::Kind::EditMaximalThreshold, 1500},
    {"_OnBeat", Action::Kind::BeatIsDue, 0},
};

/// The library's profile of the same values, with an ID of its own.
::Profile makeLibraryProfile(const Profile& profile);

}  // namespace model
