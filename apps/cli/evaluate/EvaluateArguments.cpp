// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/evaluate/EvaluateArguments.h>
#include <shared/text/Text.h>

#include <QStringList>

#include <algorithm>

namespace {

constexpr double kMaximalFrom = 1e6;  ///< seconds

QString FilesFooter()
{
    return tr(
        "REFERENCE and ESTIMATE are two files, or two folders in which NAME.beats has its "
        "estimate\n"
        "in NAME.beats.txt, NAME.labels.txt, NAME.csv or NAME.beats, or a tempo alone in\n"
        "NAME.tempo.txt. In a file of beats each line begins with seconds, as \"analyze\" writes "
        "it;\n"
        "# begins a comment. NAME.json beside the reference may hold \"genre\", \"bpm\",\n"
        "\"tempo_range\": [BPM, BPM], \"duration\", \"ignore\": [[START, END], ...] without beats "
        "and\n"
        "\"changes\": [SECONDS, ...] of the music.\n"
        "\n"
        "The scores are those of the literature, as mir_eval 0.7 computes them. With ± stands the\n"
        "standard error of the mean over the recordings of a genre.\n"
        "\n"
        "Examples:\n"
        "  audio-analyzer analyze song.flac | audio-analyzer evaluate song.beats -\n"
        "  audio-analyzer analyze -o found/ music/*.flac\n"
        "  audio-analyzer evaluate music/ found/\n"
        "\n"
        "Exit status: 0 all done, 1 some file failed and the others are done, 2 wrong usage.\n");
}

}  // namespace

void addEvaluateCommand(shared::OptionParser& pParser, EvaluateArguments& pArguments)
{
    shared::OptionSet options =
        pParser.AddCommand("evaluate", tr("hold found beats against annotated ones"));
    options.AddWord(
        "REFERENCE", pArguments.reference, tr("the annotated beats: a file or a folder"));
    options.AddWord("ESTIMATE", pArguments.estimate, tr("the found ones; - reads standard input"));
    options.AddValue(
        "-f,--format", pArguments.format, tr("NAME"), tr("text, json, csv (default: text)"));
    options.AddValue("--from",
                     pArguments.from,
                     tr("S"),
                     tr("leave out what lies before S seconds (default: 5)"));
    options.setFooter(FilesFooter());
}

QString readEvaluateArguments(const EvaluateArguments& pArguments, EvaluateOptions& pOptions)
{
    pOptions.reference = QString::fromStdString(pArguments.reference);
    pOptions.estimate = QString::fromStdString(pArguments.estimate);
    if (pOptions.reference.isEmpty() || pOptions.estimate.isEmpty())
        return tr("evaluate: name the annotated beats and the estimated ones; see audio-analyzer "
                  "evaluate --help");
    const QStringList formats = {
        QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("csv")};
    const QString format = QString::fromStdString(pArguments.format);
    const int index = formats.indexOf(format.toLower());
    if (!format.isEmpty() && index < 0)
        return tr("--format %1: give one of %2").arg(format, formats.join(QLatin1String(", ")));
    pOptions.format = eEvaluationFormat(std::max(0, index));
    const QString from = QString::fromStdString(pArguments.from);
    const auto seconds = cli::ParseNumber(from, 0.0, kMaximalFrom);
    if (!from.isEmpty() && !seconds)
        return tr("--from %1: give a number of seconds from 0 on").arg(from);
    pOptions.from = seconds.value_or(pOptions.from);
    return {};
}
