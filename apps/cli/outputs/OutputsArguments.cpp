// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/outputs/OutputsArguments.h>
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/text/Text.h>

#include <QStringList>

namespace {

const QStringList kOutputActions = {QStringLiteral("list"),
                                    QStringLiteral("add"),
                                    QStringLiteral("edit"),
                                    QStringLiteral("remove"),
                                    QStringLiteral("enable"),
                                    QStringLiteral("disable"),
                                    QStringLiteral("test")};

QString KindLines()
{
    QString lines;
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        lines += QStringLiteral("  %1 %2  %3\n")
                     .arg(QLatin1String(kind.name), -10)
                     .arg(QLatin1String(kind.place), -18)
                     .arg(kind.describe());
        const QString margin(13, QLatin1Char(' '));
        const QStringList presets =
            kind.describePresets ? kind.describePresets().split(QLatin1Char('\n')) : QStringList();
        for (const QString& line : presets)
            lines += margin + line + QLatin1Char('\n');
    }
    return lines;
}

/// How many words may follow the action.
QString CheckCount(OutputsOptions::eAction pAction, int pCount)
{
    switch (pAction) {
    case OutputsOptions::eList:
        return pCount == 0 ? QString() : tr("outputs list: takes no name");
    case OutputsOptions::eAdd:
        return pCount == 2 || pCount == 3
                   ? QString()
                   : tr("outputs add: give a name, a kind and its address; see --help");
    case OutputsOptions::eTest:
        return pCount == 1 || pCount == 2
                   ? QString()
                   : tr("outputs test: give the name of an output, or a kind and its address");
    case OutputsOptions::eEdit:
    case OutputsOptions::eRemove:
    case OutputsOptions::eEnable:
    case OutputsOptions::eDisable:
        break;
    }
    return pCount == 1 ? QString()
                       : tr("outputs %1: give the name of one output; put a name with blanks in "
                            "quotes")
                             .arg(kOutputActions[pAction]);
}

QString ReadOutputOffset(const std::string& pText, OutputsOptions& pOptions)
{
    if (pText.empty())
        return {};
    constexpr double kLimit = OutputSettings::kFarthestOffset;
    pOptions.offset = cli::ParseNumber(QString::fromStdString(pText), -kLimit, kLimit);
    return pOptions.offset
               ? QString()
               : tr("--offset %1: give a number of milliseconds from %2 to %3; positive is later")
                     .arg(QString::fromStdString(pText),
                          QString::number(-kLimit),
                          QString::number(kLimit));
}

}  // namespace

void addOutputsCommand(shared::OptionParser& pParser, OutputsArguments& pArguments)
{
    shared::OptionSet options =
        pParser.AddCommand("outputs", tr("list and edit what follows the beat"));
    options.AddWords(
        "ACTION", pArguments.words, tr("list, add, edit, remove, enable, disable or test"));
    options.AddValue("--name", pArguments.newName, tr("NAME"), tr("new name, for edit"));
    options.AddValue("--address", pArguments.place, tr("ADDRESS"), tr("new address, for edit"));
    options.AddValue("--offset",
                     pArguments.offset,
                     tr("MS"),
                     tr("send so many milliseconds later, -500 to 500, for add and edit"));
    options.AddFlag("--ports", pArguments.showsPorts, tr("tell what can be reached now, for list"));
    options.setFooter(tr("Actions:\n"
                         "  list\n"
                         "  add NAME KIND [ADDRESS]\n"
                         "  edit NAME, remove NAME, enable NAME, disable NAME\n"
                         "  test NAME, or test KIND [ADDRESS]\n\n"
                         "Kinds, and their addresses:\n%1\n"
                         "\"listen\" sends to all outputs that are enabled, which * marks in the "
                         "list. test sends two\nbars at 120 BPM and tells what to see.\n\n"
                         "Examples:\n"
                         "  audio-analyzer outputs add visuals osc 10.0.0.5:7000/resolume\n"
                         "  audio-analyzer outputs test visuals\n"
                         "  audio-analyzer outputs test osc 127.0.0.1:9000\n")
                          .arg(KindLines()));
}

QString readOutputsArguments(const OutputsArguments& pArguments, OutputsOptions& pOptions)
{
    QStringList words;
    for (const std::string& word : pArguments.words)
        words.append(QString::fromStdString(word).trimmed());
    const int action = words.isEmpty() ? 0 : kOutputActions.indexOf(words[0].toLower());
    if (action < 0)
        return tr("outputs %1: give one of %2")
            .arg(words[0], kOutputActions.join(QLatin1String(", ")));
    pOptions.action = OutputsOptions::eAction(action);
    const QString miscount = CheckCount(pOptions.action, std::max(0, int(words.size()) - 1));
    if (!miscount.isEmpty())
        return miscount;
    const bool isAdd = pOptions.action == OutputsOptions::eAdd;
    const bool isEdit = pOptions.action == OutputsOptions::eEdit;
    pOptions.name = words.value(1);
    pOptions.newName = QString::fromStdString(pArguments.newName).trimmed();
    if (isAdd)
        pOptions.kind = words.value(2);
    if (words.size() > (isAdd ? 3 : 2))
        pOptions.place = words.last();
    if (!pArguments.place.empty())
        pOptions.place = QString::fromStdString(pArguments.place).trimmed();
    pOptions.showsPorts = pArguments.showsPorts;
    if (pOptions.showsPorts && pOptions.action != OutputsOptions::eList)
        return tr("--ports belongs to outputs list");
    if (!isEdit && !(pArguments.newName.empty() && pArguments.place.empty()))
        return tr("--name and --address belong to outputs edit");
    if (!isEdit && !isAdd && !pArguments.offset.empty())
        return tr("--offset belongs to outputs add and edit");
    return ReadOutputOffset(pArguments.offset, pOptions);
}
