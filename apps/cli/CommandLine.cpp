// SPDX-License-Identifier: MIT
#include <cli/CommandLine.h>
#include <cli/analyze/AnalyzeArguments.h>
#include <cli/evaluate/EvaluateArguments.h>
#include <cli/live/LiveArguments.h>
#include <cli/outputs/OutputsArguments.h>
#include <cli/settings/SettingsArguments.h>
#include <shared/options/OptionParser.h>
#include <shared/text/Text.h>

namespace {

/// The arguments of every command; one of them is filled.
struct Arguments
{
    AnalyzeArguments analyze;
    ListenArguments listen;
    DevicesOptions devices;
    ProfilesArguments profiles;
    ConfigArguments config;
    EvaluateArguments evaluate;
    OutputsArguments outputs;
};

void AddCommands(shared::OptionParser& pParser, Arguments& pArguments)
{
    addAnalyzeCommand(pParser, pArguments.analyze);
    addListenCommand(pParser, pArguments.listen);
    addDevicesCommand(pParser, pArguments.devices);
    addOutputsCommand(pParser, pArguments.outputs);
    addProfilesCommand(pParser, pArguments.profiles);
    addConfigCommand(pParser, pArguments.config);
    addEvaluateCommand(pParser, pArguments.evaluate);
    pParser.getOptions().setFooter(
        tr("Examples:\n  audio-analyzer analyze song.flac\n"
           "  audio-analyzer listen\n\n"
           "audio-analyzer COMMAND --help tells more about a command.\n"));
}

CommandLine Refuse(const QString& pText)
{
    CommandLine result;
    result.text = pText;
    return result;
}

CommandLine Read(const std::string& pCommand, const Arguments& pArguments)
{
    CommandLine result;
    CommandLine::eAction action = CommandLine::eDevices;
    result.devices = pArguments.devices;
    if (pCommand == "analyze") {
        action = CommandLine::eAnalyze;
        result.text = readAnalyzeArguments(pArguments.analyze, result.analyze);
    } else if (pCommand == "listen") {
        action = CommandLine::eListen;
        result.text = readListenArguments(pArguments.listen, result.listen);
    } else if (pCommand == "outputs") {
        action = CommandLine::eOutputs;
        result.text = readOutputsArguments(pArguments.outputs, result.outputs);
    } else if (pCommand == "profiles") {
        action = CommandLine::eProfiles;
        result.text = readProfilesArguments(pArguments.profiles, result.profiles);
    } else if (pCommand == "config") {
        action = CommandLine::eConfig;
        result.text = readConfigArguments(pArguments.config, result.config);
    } else if (pCommand == "evaluate") {
        action = CommandLine::eEvaluate;
        result.text = readEvaluateArguments(pArguments.evaluate, result.evaluate);
    }
    result.action = result.text.isEmpty() ? action : CommandLine::eRefuse;
    return result;
}

}  // namespace

CommandLine parseCommandLine(int pCount, const char* const* pArguments)
{
    shared::OptionParser parser(tr("Finds the beats and the tempo of music."),
                                QStringLiteral("audio-analyzer"));
    Arguments arguments;
    AddCommands(parser, arguments);
    const QString noCommand = tr("name a command: %1; see audio-analyzer --help")
                                  .arg(parser.getCommands().join(QLatin1String(", ")));
    if (pCount < 2)
        return Refuse(noCommand);
    const QString first = QString::fromLocal8Bit(pArguments[1]);
    if (!first.startsWith(QLatin1Char('-')) && !parser.getCommands().contains(first))
        return Refuse(tr("there is no command \"%1\"; to analyse a file: audio-analyzer analyze %1")
                          .arg(first));
    const shared::ParsedOptions parsed = parser.Parse(pCount, pArguments);
    if (parsed.outcome == shared::ParsedOptions::eRead)
        return parsed.command.empty() ? Refuse(noCommand) : Read(parsed.command, arguments);
    CommandLine result = Refuse(parsed.text);
    if (parsed.outcome == shared::ParsedOptions::eShowText)
        result.action = CommandLine::eShowText;
    return result;
}
