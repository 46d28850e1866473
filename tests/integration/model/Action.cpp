// SPDX-License-Identifier: MIT
#include "Action.h"

#include <memory>

namespace model {

QString Action::toString() const
{
    for (const NamedAction& action : allActions)
        if (action.kind == kind)
            return QStringLiteral("%1(%2)").arg(QLatin1String(action.pName)).arg(value);
    return QString();
}

::Profile makeLibraryProfile(const Profile& profile)
{
    static unsigned int nextID = 1000;
    ::Profile copy(QStringLiteral("Test"),
                   profile.sensibility,
                   profile.filterLow,
                   profile.filterHigh,
                   false,
                   true,
                   nextID++,
                   profile.minimalBPM,
                   profile.maximalBPM);
    copy.setMinimalThreshold(0);
    copy.setMaximalThreshold(static_cast<short>(profile.maximalThreshold));
    return copy;
}

bool Action::apply(AudioAnalyzer& analyzer, Configuration& configuration) const
{
    switch (kind) {
    case Kind::Start:
        return analyzer.Start();
    case Kind::Stop:
        return analyzer.Stop();
    case Kind::Pause:
        return analyzer.PauseAnalysis();
    case Kind::Reset:
        analyzer.Reset();
        return true;
    case Kind::SetFixedBPM:
        return analyzer.setFixedBPM(value);
    case Kind::AllowConsistency:
        analyzer.setConsistencyAllowed(value != 0);
        return true;
    case Kind::SetAverageDuration:
        return analyzer.setAverageVolumeCalculationDuration(value);
    case Kind::SetStopDuration:
        configuration.setStopDetectionDuration(value);
        return analyzer.setStopDetectionDuration(value);
    case Kind::SetStopThreshold:
        configuration.setStopDetectionThreshold(static_cast<short>(value));
        return true;
    case Kind::SetThreshold:
        configuration.setThreshold(static_cast<short>(value));
        return true;
    case Kind::SetBPMDuration:
        configuration.setBPMCalculationDuration(value);
        return true;
    case Kind::DisplayVirtualBeats:
        configuration.setDisplayVirtualBeatsWhenStopped(value != 0);
        return true;
    case Kind::SelectProfile:
        return configuration.setSelectedProfile(makeLibraryProfile(profile));
    case Kind::EditSensibility:
        return configuration.getSelectedProfile().setSensibility(value);
    case Kind::EditMaximalThreshold:
        return configuration.getSelectedProfile().setMaximalThreshold(static_cast<short>(value));
    case Kind::BeatIsDue:
        analyzer._OnBeat();
        return true;
    }
    return false;
}

bool Action::apply(Analyzer& analyzer) const
{
    Settings& settings = analyzer.settings;
    switch (kind) {
    case Kind::Start:
        return analyzer.start();
    case Kind::Stop:
        return analyzer.stop();
    case Kind::Pause:
        return analyzer.pause();
    case Kind::Reset:
        analyzer.reset();
        return true;
    case Kind::SetFixedBPM:
        analyzer.setFixedBPM(value);
        return true;
    case Kind::AllowConsistency:
        analyzer.state.isConsistencyAllowed = value != 0;
        return true;
    case Kind::SetAverageDuration:
        return analyzer.resizeVolumeWindow(value);
    case Kind::SetStopDuration:
        settings.stopDuration = value;
        analyzer.forgetStopBlock();
        return true;
    case Kind::SetStopThreshold:
        settings.stopThreshold = static_cast<int>(value);
        return true;
    case Kind::SetThreshold:
        settings.threshold = value < 0 ? -1 : static_cast<int>(value);
        return true;
    case Kind::SetBPMDuration:
        settings.bpmDuration = value;
        return true;
    case Kind::DisplayVirtualBeats:
        settings.displayVirtualBeatsWhenStopped = value != 0;
        return true;
    case Kind::SelectProfile:
        settings.pProfile = std::make_shared<Profile>(profile);
        return true;
    case Kind::EditSensibility:
        settings.pProfile->sensibility = value;
        return true;
    case Kind::EditMaximalThreshold:
        settings.pProfile->maximalThreshold = static_cast<int>(value);
        return true;
    case Kind::BeatIsDue:
        analyzer.beatIsDue();
        return true;
    }
    return false;
}

}  // namespace model
