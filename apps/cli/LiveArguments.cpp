// SPDX-License-Identifier: MIT
#include "LiveArguments.h"

#include <QCoreApplication>
#include <QStringList>

#include <common/AnalysisOptionTable.h>
#include <common/detail/ParseNumber.h>
#include <utility>

namespace {

constexpr double kMinimalDuration = 0.1;  ///< seconds
constexpr double kMaximalDuration = 1e7;

using Values = std::map<std::string, std::string>;

QString tr(const char* pText)
{
    return QCoreApplication::translate("LiveArguments", pText);
}

QString ReadOptions(const Values& pValues, AnalysisOptions& pOptions)
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

QString ReadFormat(const QString& pName, ListenOptions& pOptions)
{
    const std::vector<std::pair<QString, eEventFormat>> formats = {
        {QStringLiteral("text"), eTextEvents},
        {QStringLiteral("beats"), eBeatEvents},
        {QStringLiteral("ndjson"), eNdjsonEvents}};
    for (const auto& [name, format] : formats)
        if (name.compare(pName, Qt::CaseInsensitive) == 0)
            pOptions.format = format;
    if (pName.isEmpty() || pOptions.format)
        return {};
    return tr("--format %1: give one of text, beats, ndjson").arg(pName);
}

QString ReadDuration(const QString& pValue, ListenOptions& pOptions)
{
    if (pValue.isEmpty())
        return {};
    const auto seconds = detail::ParseNumber(pValue, kMinimalDuration, kMaximalDuration);
    if (!seconds) {
        return tr("--duration %1: give a number of seconds from %2 to %3")
            .arg(pValue)
            .arg(kMinimalDuration)
            .arg(kMaximalDuration, 0, 'f', 0);
    }
    pOptions.duration = *seconds;
    return {};
}

QStringList Words(const std::vector<std::string>& pWords)
{
    QStringList words;
    for (const std::string& word : pWords)
        words.append(QString::fromStdString(word));
    return words;
}

/// The place of a word in a list, -1 = it is not in it.
int Find(const QStringList& pNames, const QString& pWord)
{
    return pNames.indexOf(pWord.toLower());
}

}  // namespace

QString readListenArguments(const ListenArguments& pArguments, ListenOptions& pOptions)
{
    pOptions.device = QString::fromStdString(pArguments.device);
    pOptions.isSaved = pArguments.isSaved;
    pOptions.showsFormat = pArguments.showsFormat;
    pOptions.measures = pArguments.measures;
    pOptions.isQuiet = pArguments.isQuiet;
    for (const QString& refusal :
         {ReadFormat(QString::fromStdString(pArguments.format), pOptions),
          ReadDuration(QString::fromStdString(pArguments.duration), pOptions)})
        if (!refusal.isEmpty())
            return refusal;
    return ReadOptions(pArguments.analysis, pOptions.analysis);
}

QString readProfilesArguments(const ProfilesArguments& pArguments, ProfilesOptions& pOptions)
{
    const QStringList actions = {QStringLiteral("list"),
                                 QStringLiteral("add"),
                                 QStringLiteral("edit"),
                                 QStringLiteral("remove"),
                                 QStringLiteral("select")};
    const QStringList words = Words(pArguments.words);
    const int action = words.isEmpty() ? int(ProfilesOptions::eList) : Find(actions, words[0]);
    if (action < 0)
        return tr("profiles %1: give one of %2").arg(words[0], actions.join(QLatin1String(", ")));
    pOptions.action = ProfilesOptions::eAction(action);
    const bool needsName = pOptions.action != ProfilesOptions::eList;
    if (needsName && words.size() != 2)
        return tr("profiles %1: give the name of one profile; put a name with blanks in quotes")
            .arg(words[0]);
    if (!needsName && words.size() > 1)
        return tr("profiles list: takes no name");
    pOptions.name = words.value(1).trimmed();
    pOptions.newName = QString::fromStdString(pArguments.newName).trimmed();
    const bool isChange =
        pOptions.action == ProfilesOptions::eAdd || pOptions.action == ProfilesOptions::eEdit;
    if (!isChange && !(pArguments.changes.empty() && pArguments.newName.empty()))
        return tr("--name, --bpm, --band and --sensibility belong to profiles add and edit");
    return ReadOptions(pArguments.changes, pOptions.changes);
}

QString readConfigArguments(const ConfigArguments& pArguments, ConfigOptions& pOptions)
{
    const QStringList actions = {QStringLiteral("show"),
                                 QStringLiteral("set"),
                                 QStringLiteral("path"),
                                 QStringLiteral("reset")};
    const QStringList words = Words(pArguments.words);
    const int action = words.isEmpty() ? int(ConfigOptions::eShow) : Find(actions, words[0]);
    if (action < 0)
        return tr("config %1: give one of %2").arg(words[0], actions.join(QLatin1String(", ")));
    pOptions.action = ConfigOptions::eAction(action);
    const bool isSet = pOptions.action == ConfigOptions::eSet;
    if (isSet && words.size() != 3)
        return tr("config set: give a setting and its value; \"config show\" lists them");
    if (!isSet && words.size() > 1)
        return tr("config %1: takes nothing more").arg(words[0]);
    pOptions.key = words.value(1);
    pOptions.value = words.value(2);
    pOptions.isAll = pArguments.isAll;
    if (pOptions.isAll && pOptions.action != ConfigOptions::eReset)
        return tr("--all belongs to config reset");
    return {};
}
