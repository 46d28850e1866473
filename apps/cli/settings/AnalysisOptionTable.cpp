// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/ProfileLimits.h>

#include <cli/detail/ParseNumber.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/SettingText.h>
#include <shared/text/Text.h>

#include <QStringList>

#include <limits>

namespace {

QString ReadTracker(AnalysisOptions& pOptions, const QString& pValue)
{
    const QString name = pValue.toLower();
    if (name == QLatin1String("automatic"))
        pOptions.tracker = eAutomaticTracker;
    else if (name == QLatin1String("profile"))
        pOptions.tracker = eProfileTracker;
    else
        return tr("give automatic or profile");
    return {};
}

QString ReadProfile(AnalysisOptions& pOptions, const QString& pValue)
{
    pOptions.profile = pValue;
    return pValue.isEmpty() ? tr("give the name of a profile") : QString();
}

QString ReadTempoRange(AnalysisOptions& pOptions, const QString& pValue)
{
    const QStringList ends = pValue.split(QLatin1Char(':'));
    const std::optional<double> minimal = cli::ParseNumber(ends.first());
    const std::optional<double> maximal = cli::ParseNumber(ends.last());
    if (ends.size() != 2 || !minimal || !maximal ||
        !ProfileLimits::isTempoRange(*minimal, *maximal))
        return tr("give MIN:MAX with 1 <= MIN <= MAX < 1000 BPM");
    pOptions.bpm = AnalysisOptions::TempoRange{*minimal, *maximal};
    return {};
}

/// Hz; -1, no edge, for 0 and for an empty text.
std::optional<int> ReadEdge(const QString& pText)
{
    if (pText.isEmpty())
        return -1;
    const std::optional<int> edge = cli::ParseInteger(pText, 0, std::numeric_limits<int>::max());
    return edge == 0 ? -1 : edge;
}

QString ReadBand(AnalysisOptions& pOptions, const QString& pValue)
{
    const QStringList ends = pValue.split(QLatin1Char(':'));
    const std::optional<int> low = ReadEdge(ends.first());
    const std::optional<int> high = ReadEdge(ends.last());
    if (ends.size() != 2 || !low || !high || !ProfileLimits::isBand(*low, *high))
        return tr("give LOW:HIGH in whole Hz with LOW <= HIGH; 0 or nothing = no edge");
    pOptions.band = AnalysisOptions::Band{*low, *high};
    return {};
}

QString ReadSensibility(AnalysisOptions& pOptions, const QString& pValue)
{
    pOptions.sensibility = cli::ParseNumber(
        pValue, ProfileLimits::kMinimalSensibility, ProfileLimits::kMaximalSensibility);
    return pOptions.sensibility ? QString()
                                : tr("give a number from %1 to %2")
                                      .arg(ProfileLimits::kMinimalSensibility)
                                      .arg(ProfileLimits::kMaximalSensibility);
}

std::vector<AnalysisOptionInfo> getTrackerOptions()
{
    return {
        {QStringLiteral("--tracker"),
         QStringLiteral("automatic|profile"),
         tr("who finds the beats (default: automatic)"),
         &ReadTracker,
         {}},
        {QStringLiteral("--profile"),
         tr("NAME"),
         tr("tempo profile: Electro (default), Hardcore, Slow"),
         &ReadProfile,
         {}},
        {QStringLiteral("--bpm"),
         tr("MIN:MAX"),
         tr("range of tempos to search, 1 <= MIN <= MAX < 1000"),
         &ReadTempoRange,
         {}},
        {QStringLiteral("--band"),
         tr("LOW:HIGH"),
         tr("band to listen to, Hz; 0 or nothing = no edge"),
         &ReadBand,
         {}},
        {QStringLiteral("--sensibility"),
         tr("X"),
         tr("automatic threshold as a multiple of the average volume"),
         &ReadSensibility,
         {}},
    };
}

/// "N|auto", "S"; empty for a flag.
QString ValueName(const SettingsTable::Setting& pSetting)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return {};
    const QString name = pSetting.form == SettingsTable::eWholeNumber          ? tr("N")
                         : QLatin1String(pSetting.pUnit) == QLatin1String("s") ? tr("S")
                                                                               : tr("X");
    return pSetting.pMinimumWord ? name + QLatin1Char('|') + QLatin1String(pSetting.pMinimumWord)
                                 : name;
}

AnalysisOptionInfo MakeFlag(const SettingsTable::Setting& pSetting)
{
    const bool isOn = pSetting.initial != 0.0;
    const QString identifier = QLatin1String(pSetting.pIdentifier);
    const QString description = cli::SettingDescription(pSetting);
    return {(isOn ? QStringLiteral("--no-") : QStringLiteral("--")) + identifier,
            {},
            isOn ? tr("do not %1").arg(description) : description,
            [&pSetting, isOn](AnalysisOptions& pOptions, const QString&) {
                pOptions.settings[&pSetting] = isOn ? 0.0 : 1.0;
                return QString();
            },
            {}};
}

AnalysisOptionInfo MakeOption(const SettingsTable::Setting& pSetting)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return MakeFlag(pSetting);
    return {QStringLiteral("--") + QLatin1String(pSetting.pIdentifier),
            ValueName(pSetting),
            tr("%1, %2").arg(cli::SettingDescription(pSetting), cli::NumberRange(pSetting)),
            [&pSetting](AnalysisOptions& pOptions, const QString& pValue) {
                const std::optional<double> value = cli::ReadSetting(pSetting, pValue);
                if (!value)
                    return cli::SettingRefusal(pSetting);
                pOptions.settings[&pSetting] = *value;
                return QString();
            },
            cli::SettingText(pSetting, pSetting.initial)};
}

/// "seconds of beats that make the tempo, 0.05 to 600 (default: 10)".
QString HelpOf(const AnalysisOptionInfo& pInfo, eAnalysisDefault pDefault)
{
    if (pDefault == eStoredDefaults || pInfo.initial.isEmpty())
        return pInfo.help;
    return tr("%1 (default: %2)").arg(pInfo.help, pInfo.initial);
}

}  // namespace

std::vector<AnalysisOptionInfo> getAnalysisOptionTable()
{
    std::vector<AnalysisOptionInfo> table = getTrackerOptions();
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis)
            table.push_back(MakeOption(setting));
    return table;
}

void addAnalysisOptions(shared::OptionSet& pOptions,
                        std::map<std::string, std::string>& pValues,
                        eAnalysisDefault pDefault,
                        const std::set<std::string>& pNames)
{
    pOptions.setGroup(tr("Analysis"));
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        const std::string name = info.name.toStdString();
        if (!pNames.empty() && pNames.count(name) == 0)
            continue;
        const auto keep = [&pValues, name](const std::string& pValue) { pValues[name] = pValue; };
        pOptions.AddSetter(name, keep, info.valueName, HelpOf(info, pDefault));
    }
}

QString readAnalysisOptions(const std::map<std::string, std::string>& pValues,
                            AnalysisOptions& pOptions)
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        const auto given = pValues.find(info.name.toStdString());
        if (given == pValues.end())
            continue;
        const QString value = QString::fromStdString(given->second);
        const QString refusal = info.read(pOptions, value);
        if (!refusal.isEmpty())
            return tr("%1 %2: %3").arg(info.name, value, refusal);
    }
    return {};
}
