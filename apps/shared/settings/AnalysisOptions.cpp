// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <shared/settings/AnalysisOptions.h>
#include <shared/settings/ConfigurationStore.h>

#include <QStringList>

#include <algorithm>

namespace {

bool Select(const QString& pName, const QList<Profile>& pProfiles, Configuration& pConfiguration)
{
    const auto found =
        std::find_if(pProfiles.begin(), pProfiles.end(), [&pName](const Profile& pProfile) {
            return pProfile.getName().compare(pName, Qt::CaseInsensitive) == 0;
        });
    if (found == pProfiles.end())
        return false;
    pConfiguration.setSelectedProfile(*found);
    return true;
}

}  // namespace

double AnalysisOptions::getValue(const SettingsTable::Setting& pSetting,
                                 const Configuration& pConfiguration) const
{
    const auto found = settings.find(&pSetting);
    if (found != settings.end())
        return found->second;
    return pSetting.get ? pSetting.get(pConfiguration) : pSetting.initial;
}

double AnalysisOptions::getFixedBPM() const
{
    const auto found = settings.find(SettingsTable::Find(QStringLiteral("fixed-bpm")));
    return found == settings.end() ? 0.0 : found->second;
}

QString AnalysisOptions::Apply(Configuration& pConfiguration) const
{
    for (const auto step : {&AnalysisOptions::SelectProfile, &AnalysisOptions::_EditProfile}) {
        QString refusal = (this->*step)(pConfiguration);
        if (!refusal.isEmpty())
            return refusal;
    }
    for (const auto& [pSetting, value] : settings)
        if (pSetting->set)
            pSetting->set(pConfiguration, value);
    const QString refusal = _CheckTracker();
    return refusal.isEmpty() ? _CheckFixedBPM(pConfiguration) : refusal;
}

void AnalysisOptions::Apply(AudioAnalyzer& pAnalyzer) const
{
    for (const auto& [pSetting, value] : settings)
        if (pSetting->reader == SettingsTable::eHeld)
            AnalyzerSettings::Tell(*pSetting, value, pAnalyzer);
}

void AnalysisOptions::Apply(MeterTracker& pTracker) const
{
    const TempoRange range = getAutomaticRange();
    pTracker.setTempoRange(range.minimal, range.maximal);
}

AnalysisOptions::TempoRange AnalysisOptions::getAutomaticRange() const
{
    const TempoRange all = {MeterTracker::kSlowestBPM, MeterTracker::kFastestBPM};
    const TempoRange asked = bpm.value_or(all);
    return {std::max(asked.minimal, all.minimal), std::min(asked.maximal, all.maximal)};
}

eTracker AnalysisOptions::getTracker() const
{
    return tracker.value_or(_NameEngineOption().isEmpty() ? eAutomaticTracker : eProfileTracker);
}

/// What is set that the engine alone heeds, as people type it; empty when nothing is.
QString AnalysisOptions::_NameEngineOption() const
{
    if (!profile.isEmpty())
        return QStringLiteral("--profile");
    if (band)
        return QStringLiteral("--band");
    if (sensibility)
        return QStringLiteral("--sensibility");
    for (const auto& [pSetting, value] : settings) {
        if (!SettingsTable::isOfEngine(*pSetting))
            continue;
        const bool isNegated = pSetting->form == SettingsTable::eSwitch && pSetting->initial != 0.0;
        return (isNegated ? QStringLiteral("--no-") : QStringLiteral("--")) +
               QLatin1String(pSetting->pIdentifier);
    }
    return {};
}

QString AnalysisOptions::_CheckTracker() const
{
    if (getTracker() == eProfileTracker)
        return {};
    const QString option = _NameEngineOption();
    if (!option.isEmpty())
        return tr("%1 means nothing to --tracker automatic; leave one of them out").arg(option);
    const bool isOutside = bpm && (bpm->maximal < MeterTracker::kSlowestBPM ||
                                   bpm->minimal > MeterTracker::kFastestBPM);
    return isOutside ? tr("the automatic tracker follows %1 to %2 BPM, and --bpm %3:%4 lies "
                          "outside; give another range, or --tracker profile")
                           .arg(MeterTracker::kSlowestBPM)
                           .arg(MeterTracker::kFastestBPM)
                           .arg(bpm->minimal)
                           .arg(bpm->maximal)
                     : QString();
}

QString AnalysisOptions::SelectProfile(Configuration& pConfiguration) const
{
    if (profile.isEmpty() || Select(profile, pConfiguration.getProfiles(), pConfiguration))
        return {};
    // A configuration of its own does not know the profiles that the user has saved.
    ConfigurationStore store;
    if (!store.Load())
        return store.getError();
    const QList<Profile>& saved = store.getConfiguration().getProfiles();
    if (Select(profile, saved, pConfiguration))
        return {};
    QStringList names;
    for (const QList<Profile>& profiles : {pConfiguration.getProfiles(), saved})
        for (const Profile& known : profiles)
            if (!names.contains(known.getName()))
                names.append(known.getName());
    return tr("there is no profile \"%1\"; there are: %2")
        .arg(profile, names.join(QLatin1String(", ")));
}

QString AnalysisOptions::_EditProfile(Configuration& pConfiguration) const
{
    if (!bpm && !band && !sensibility)
        return {};
    const Profile original = pConfiguration.getSelectedProfile();
    UserProfile edited(original.getName(),
                       original.getSensibility(),
                       original.getFilterLowFrequency(),
                       original.getFilterHighFrequency(),
                       original.getMinimalBPM(),
                       original.getMaximalBPM());
    edited.setMaximalThreshold(original.getMaximalThreshold());
    edited.setMinimalThreshold(original.getMinimalThreshold());
    if (bpm && !edited.setBPM(bpm->minimal, bpm->maximal))
        return tr("a tempo range is MIN:MAX with 1 <= MIN <= MAX < 1000 BPM");
    if (band && !edited.setFilterFrequencies(band->low, band->high))
        return tr("a band is LOW:HIGH with LOW <= HIGH in Hz");
    if (sensibility && !edited.setSensibility(*sensibility))
        return tr("a sensibility is 0 or more");
    pConfiguration.setSelectedProfile(edited);
    return {};
}

QString AnalysisOptions::_CheckFixedBPM(const Configuration& pConfiguration) const
{
    const double fixedBPM = getFixedBPM();
    const Profile selected = pConfiguration.getSelectedProfile();
    if (fixedBPM <= 0.0 ||
        (fixedBPM >= selected.getMinimalBPM() && fixedBPM <= selected.getMaximalBPM()))
        return {};
    return tr("a fixed tempo of %1 BPM is outside the profile's range, %2 to %3 BPM; "
              "choose another profile or widen the range with --bpm MIN:MAX")
        .arg(fixedBPM)
        .arg(selected.getMinimalBPM())
        .arg(selected.getMaximalBPM());
}
