// SPDX-License-Identifier: MIT
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/SettingsArguments.h>
#include <shared/text/Text.h>

#include <QStringList>

namespace {

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

void addProfilesCommand(shared::OptionParser& pParser, ProfilesArguments& pArguments)
{
    shared::OptionSet options =
        pParser.AddCommand("profiles", tr("list and edit the tempo profiles"));
    options.AddWords(
        "ACTION", pArguments.words, tr("list, add NAME, edit NAME, remove NAME, select NAME"));
    options.AddValue("--name", pArguments.newName, tr("NAME"), tr("new name, for edit"));
    addAnalysisOptions(
        options, pArguments.changes, eInitialDefaults, {"--bpm", "--band", "--sensibility"});
    options.setFooter(tr("Example:\n"
                         "  audio-analyzer profiles add House --bpm 110:140 --band 0:80\n"));
}

void addConfigCommand(shared::OptionParser& pParser, ConfigArguments& pArguments)
{
    shared::OptionSet options = pParser.AddCommand("config", tr("show and change the settings"));
    options.AddWords("ACTION", pArguments.words, tr("show, set SETTING VALUE, path, reset"));
    options.AddFlag("--all", pArguments.isAll, tr("reset the user's profiles as well"));
    options.setFooter(
        tr("The settings stand next to the program, or in the user's own folder where it is "
           "installed for\nall; every host there shares them.\n\nExample:\n"
           "  audio-analyzer config set stop-threshold 500\n"));
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
    return readAnalysisOptions(pArguments.changes, pOptions.changes);
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
