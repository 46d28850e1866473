// SPDX-License-Identifier: MIT
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <shared/options/OptionParser.h>
#include <shared/text/Text.h>

#include <cstdio>
#include <exception>
#include <link/LinkProgram.h>
#include <unistd.h>

namespace {

int Fail(const QString& pError, int pCode)
{
    std::fprintf(stderr, "audio-analyzer-link: %s\n", pError.toLocal8Bit().constData());
    return pCode;
}

void AddOptions(shared::OptionSet pOptions, LinkSteering::Options& pValues)
{
    pOptions.AddNumber(
        "--quantum", pValues.quantum, 1, 64, tr("beats whose first one peers agree on"));
    pOptions.AddNumber(
        "--confidence", pValues.confidence, 0.0, 1.0, tr("from which a beat is sure"));
    pOptions.AddNumber(
        "--beats", pValues.beats, 1, 64, tr("sure beats in a row before the session is changed"));
    pOptions.AddFlag("--force",
                     pValues.isForced,
                     tr("move a beat that is off at once, for all peers, rather than nudge"));
    pOptions.setFooter(tr("Example: audio-analyzer listen --format ndjson | audio-analyzer-link"));
}

int ParseAndRun(int pCount, char** pValues)
{
    LinkSteering::Options options;
    shared::OptionParser parser(
        tr("Brings the beats of \"audio-analyzer listen --format ndjson\", read from standard "
           "input, into the Ableton Link session of the local network."),
        QStringLiteral("audio-analyzer-link"));
    parser.setVersionNote(
        tr("Contains Ableton Link 3: free software under the GNU General Public License, version 2 "
           "or any later one.\nThe sources of AudioAnalyzer itself are under the MIT licence."));
    AddOptions(parser.getOptions(), options);
    const shared::ParsedOptions parsed = parser.Parse(pCount, pValues);
    if (parsed.outcome == shared::ParsedOptions::eShowText) {
        std::fputs(parsed.text.toLocal8Bit().constData(), stdout);
        return std::fflush(stdout) == 0 ? eExitDone : eExitFailed;
    }
    if (parsed.outcome == shared::ParsedOptions::eRefuse)
        return Fail(parsed.text, eExitUsage);
    if (::isatty(STDIN_FILENO) != 0)
        return Fail(tr("nothing sends beats: audio-analyzer listen --format ndjson | "
                       "audio-analyzer-link"),
                    eExitUsage);
    return LinkProgram(options).Run(STDIN_FILENO);
}

}  // namespace

int main(int argc, char** argv)
{
    interrupt::Install();
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        return Fail(QString::fromLocal8Bit(error.what()), eExitFailed);
    }
}
