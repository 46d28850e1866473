// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/output/OutputFile.h>
#include <cli/settings/ProfilesCommand.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLongestProfile = 100;
constexpr double kDefaultSensibility = 2.0;
constexpr int kDefaultHigh = 75;  ///< Hz
constexpr double kDefaultMinimum = 90.0;
constexpr double kDefaultMaximum = 175.0;

/// The file keeps whole tempos.
bool IsWhole(double pBPM)
{
    return std::floor(pBPM) == pBPM;
}

QString EdgeText(int pFrequency)
{
    return pFrequency < 0 ? QString() : QString::number(pFrequency);
}

}  // namespace

ProfilesCommand::ProfilesCommand(const ProfilesOptions& pOptions) : m_options(pOptions) {}

int ProfilesCommand::Run()
{
    // No sound is needed, so the sound system is not asked for its devices.
    QCoreApplication::setLibraryPaths({});
    const bool isListed = m_options.action == ProfilesOptions::eList;
    if (!(isListed ? m_store.Load() : m_store.LoadToChange())) {
        console::PrintError(m_store.getError());
        return eExitFailed;
    }
    if (!m_store.getNotice().isEmpty())
        console::PrintError(m_store.getNotice());
    return isListed ? _List() : _Save(_Change());
}

int ProfilesCommand::_List()
{
    OutputFile output;
    output.Open(QStringLiteral("-"));
    const Configuration& configuration = m_store.getConfiguration();
    for (const Profile& profile : configuration.getProfiles()) {
        const QString line = QStringLiteral("%1 %2  %3:%4 BPM  %5:%6 Hz  %7 %8%9\n")
                                 .arg(QLatin1String(configuration.isSelected(profile) ? "*" : " "),
                                      profile.getName().leftJustified(12),
                                      QString::number(profile.getMinimalBPM()),
                                      QString::number(profile.getMaximalBPM()),
                                      EdgeText(profile.getFilterLowFrequency()),
                                      EdgeText(profile.getFilterHighFrequency()),
                                      tr("sensibility"),
                                      QString::number(profile.getSensibility()),
                                      profile.isSerializable() ? QString() : tr("  built-in"));
        output.Write(line.toUtf8());
    }
    return output.Conclude();
}

int ProfilesCommand::_Save(const QString& pRefusal)
{
    if (!pRefusal.isEmpty()) {
        console::PrintError(pRefusal);
        return eExitUsage;
    }
    if (m_store.Save())
        return eExitDone;
    console::PrintError(m_store.getError());
    return eExitFailed;
}

/// Returns a refusal, or an empty text.
QString ProfilesCommand::_Change()
{
    if (m_options.action == ProfilesOptions::eAdd)
        return _Add();
    const std::optional<Profile> profile = _Find(m_options.name);
    if (!profile) {
        QStringList names;
        for (const Profile& known : m_store.getConfiguration().getProfiles())
            names.append(known.getName());
        return tr("there is no profile \"%1\"; there are: %2")
            .arg(m_options.name, names.join(QLatin1String(", ")));
    }
    if (m_options.action == ProfilesOptions::eSelect)
        return _Select(*profile);
    if (!profile->isSerializable()) {
        return tr("\"%1\" is built in and stays as it is; add a profile of your own: "
                  "audio-analyzer profiles add NAME --bpm MIN:MAX")
            .arg(profile->getName());
    }
    return m_options.action == ProfilesOptions::eRemove ? _Remove(*profile) : _Edit(*profile);
}

QString ProfilesCommand::_Add()
{
    const QString refusal = _CheckName(m_options.name, nullptr);
    if (!refusal.isEmpty())
        return refusal;
    if (!m_options.newName.isEmpty())
        return tr("--name belongs to profiles edit");
    Profile profile = m_store.getConfiguration().Add(
        m_options.name, kDefaultMinimum, kDefaultMaximum, kDefaultSensibility, 0, kDefaultHigh);
    return _Apply(profile);
}

QString ProfilesCommand::_Edit(Profile pProfile)
{
    const AnalysisOptions& changes = m_options.changes;
    if (m_options.newName.isEmpty() && !changes.bpm && !changes.band && !changes.sensibility)
        return tr("profiles edit: give what to change: --name, --bpm, --band or --sensibility");
    if (!m_options.newName.isEmpty()) {
        const QString refusal = _CheckName(m_options.newName, &pProfile);
        if (!refusal.isEmpty())
            return refusal;
        pProfile.setName(m_options.newName);
    }
    return _Apply(pProfile);
}

QString ProfilesCommand::_Remove(const Profile& pProfile)
{
    // A handle of the kind that the configuration takes; only its ID is looked at.
    const UserProfile handle(pProfile.getName(),
                             pProfile.getSensibility(),
                             pProfile.getFilterLowFrequency(),
                             pProfile.getFilterHighFrequency(),
                             pProfile.getID(),
                             pProfile.getMinimalBPM(),
                             pProfile.getMaximalBPM());
    m_store.getConfiguration().Remove(handle);
    return {};
}

QString ProfilesCommand::_Select(const Profile& pProfile)
{
    m_store.getConfiguration().setSelectedProfile(pProfile);
    return {};
}

QString ProfilesCommand::_CheckName(const QString& pName, const Profile* pOwner) const
{
    if (pName.isEmpty() || pName.size() > kLongestProfile)
        return tr("give a name of 1 to %1 letters").arg(kLongestProfile);
    const std::optional<Profile> present = _Find(pName);
    if (present && !(pOwner && *present == *pOwner))
        return tr("there is a profile \"%1\" already; choose another name").arg(present->getName());
    return {};
}

QString ProfilesCommand::_Apply(Profile& pProfile) const
{
    const AnalysisOptions& changes = m_options.changes;
    if (changes.bpm && !(IsWhole(changes.bpm->minimal) && IsWhole(changes.bpm->maximal)))
        return tr("--bpm: give whole numbers, since only those are saved");
    if (changes.bpm && !pProfile.setBPM(changes.bpm->minimal, changes.bpm->maximal))
        return tr("--bpm: give MIN:MAX with 1 <= MIN <= MAX < 1000 BPM");
    if (changes.band && !pProfile.setFilterFrequencies(changes.band->low, changes.band->high))
        return tr("--band: give LOW:HIGH with LOW <= HIGH in Hz");
    if (changes.sensibility && !pProfile.setSensibility(*changes.sensibility))
        return tr("--sensibility: give a number from 0");
    return {};
}

std::optional<Profile> ProfilesCommand::_Find(const QString& pName) const
{
    const QList<Profile>& profiles = m_store.getConfiguration().getProfiles();
    const auto found = std::find_if(profiles.begin(), profiles.end(), [&](const Profile& pProfile) {
        return pProfile.getName().compare(pName, Qt::CaseInsensitive) == 0;
    });
    return found == profiles.end() ? std::nullopt : std::optional<Profile>(*found);
}
