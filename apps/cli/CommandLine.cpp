// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <cli/CommandLine.h>
#include <cli/analyze/AnalyzeArguments.h>
#include <cli/evaluate/EvaluateArguments.h>
#include <cli/live/LiveArguments.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/SettingsArguments.h>

// The only file that includes this large header.
#include <CLI/CLI.hpp>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

QString tr(const char* pText)
{
    return QCoreApplication::translate("CommandLine", pText);
}

std::string Utf8(const QString& pText)
{
    return pText.toStdString();
}

QString AnalyzeFooter()
{
    return tr(
        "Formats:\n"
        "  beats   beat times in seconds, one a line\n"
        "  labels  label track for Audacity\n"
        "  csv     time,label for spreadsheets and Sonic Visualiser's import\n"
        "  svl     layer for Sonic Visualiser\n"
        "  tempo   one MIREX line: two tempos, the lower one first, and its share\n"
        "  json    one document with settings, tempo, silences and beats\n"
        "  ndjson  every pulse, beat, tempo change and stop, one a line, as it happens\n"
        "\n"
        "Without further options the automatic tracker follows any music from 60 to 190 BPM. An\n"
        "option that it does not know (--profile, --band, --sensibility, --threshold and others)\n"
        "means the engine with a tempo profile, as --tracker profile does. Its beats are real,\n"
        "heard in the music, or virtual, put where one was expected.\n"
        "\n"
        "The tempo of a file is the median of those that its beats make, from ten seconds after\n"
        "the first one on; in shorter music, of all of them.\n"
        "\n"
        "With several files, -o names a folder, and song.flac gives song.beats.txt,\n"
        "song.labels.txt, song.csv, song.svl, song.tempo.txt, song.json or song.ndjson in it.\n"
        "\n"
        "Examples:\n"
        "  audio-analyzer analyze song.flac\n"
        "  audio-analyzer analyze --profile Slow --format labels -o song.labels.txt song.mp3\n"
        "  audio-analyzer analyze --bpm 160:185 --click clicks.wav --plot beats.svg dnb.wav\n"
        "  audio-analyzer analyze --jobs 4 --format json -o results/ *.flac\n"
        "  parec --format=s16le --rate=44100 --channels=1 |\n"
        "      audio-analyzer analyze --raw 44100 --format ndjson -\n"
        "\n"
        "Exit status: 0 all done, 1 some file failed and the others are done, 2 wrong usage.\n");
}

/// An unset variable in a script must not count as an option that was left out.
std::string RefuseEmpty(const std::string& pValue)
{
    return pValue.empty() ? Utf8(tr("give a value that is not empty")) : std::string();
}

void AddOutputOptions(CLI::App& pCommand, AnalyzeArguments& pArguments)
{
    const std::string group = Utf8(tr("Output"));
    const auto add =
        [&](const char* pName, std::string& pValue, const QString& pType, const QString& pHelp) {
            pCommand.add_option(pName, pValue, Utf8(pHelp))
                ->check(RefuseEmpty)
                ->type_name(Utf8(pType))
                ->group(group);
        };
    add("-f,--format", pArguments.format, tr("NAME"), getFormatNames() + tr(" (default: beats)"));
    add("-o,--output",
        pArguments.output,
        tr("FILE|DIR"),
        tr("where to write (default: standard output)"));
    pCommand.add_flag("--real-only", pArguments.isRealOnly, Utf8(tr("leave out virtual beats")))
        ->group(group);
    add("--click",
        pArguments.click,
        tr("OUT.wav"),
        tr("write the music with a click on every beat"));
    add("--plot",
        pArguments.plot,
        tr("OUT.svg|.png"),
        tr("draw level, pulses, beats, bars, tempo and confidence"));
    pCommand.add_flag("-q,--quiet", pArguments.isQuiet, Utf8(tr("no progress, no summary")))
        ->group(group);
}

void AddInputOptions(CLI::App& pCommand, AnalyzeArguments& pArguments)
{
    const std::string group = Utf8(tr("Input"));
    pCommand.add_option("FILE", pArguments.inputs, Utf8(tr("audio files; - reads standard input")))
        ->type_name("")
        ->required();
    pCommand
        .add_option("--raw",
                    pArguments.raw,
                    Utf8(tr("input is raw PCM, 16-bit little-endian (default: 1 channel)")))
        ->check(RefuseEmpty)
        ->type_name(Utf8(tr("RATE[:CHANNELS]")))
        ->group(group);
    pCommand
        .add_flag("--partial",
                  pArguments.isPartial,
                  Utf8(tr("read a damaged or unfinished file as far as it goes")))
        ->group(group);
    pCommand.add_option("-j,--jobs", pArguments.jobs, Utf8(tr("analyse N files side by side")))
        ->check(RefuseEmpty)
        ->type_name("N")
        ->group(group);
    // An empty group hides it from the help.
    pCommand.add_flag("--worker", pArguments.isWorker)->group("");
}

/// "seconds of beats that make the tempo, 0.05 to 600 (default: 10)".
QString HelpOf(const AnalysisOptionInfo& pInfo, bool pIsStored)
{
    if (pIsStored || pInfo.initial.isEmpty())
        return pInfo.help;
    return tr("%1 (default: %2)").arg(pInfo.help, pInfo.initial);
}

/// All analysis options, or those that pNames holds. pIsStored: what is not given is as it is
/// stored.
void AddAnalysisOptions(CLI::App& pCommand,
                        std::map<std::string, std::string>& pValues,
                        bool pIsStored,
                        const std::set<std::string>& pNames = {})
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        const std::string name = Utf8(info.name);
        if (!pNames.empty() && pNames.count(name) == 0)
            continue;
        const std::string help = Utf8(HelpOf(info, pIsStored));
        CLI::Option* pOption = nullptr;
        if (info.valueName.isEmpty()) {
            pOption = pCommand.add_flag_callback(
                name, [&pValues, name] { pValues[name] = std::string(); }, help);
        } else {
            pOption =
                pCommand
                    .add_option_function<std::string>(
                        name,
                        [&pValues, name](const std::string& pValue) { pValues[name] = pValue; },
                        help)
                    ->type_name(Utf8(info.valueName));
        }
        pOption->group(Utf8(tr("Analysis")));
    }
}

QString ListenFooter()
{
    return tr(
        "On a terminal one line shows the music live. Else, or with --format, one event is\n"
        "printed a line, the moment it happens:\n"
        "  text    for people (default)\n"
        "  beats   seconds of each beat, when it falls due\n"
        "  ndjson  announce when a beat falls due, the events of \"analyze\", and device and\n"
        "          notice events\n"
        "\n"
        "What is not given is as \"audio-analyzer config show\" has it. A device that vanishes is\n"
        "waited for, and recorded again when it is back.\n"
        "\n"
        "Examples:\n"
        "  audio-analyzer listen\n"
        "  audio-analyzer listen --device deck.monitor --save --profile House\n"
        "  audio-analyzer listen --format ndjson | my-lights\n"
        "\n"
        "Exit status: 0 ended by --duration, Ctrl+C or SIGTERM, 1 the device cannot be used or\n"
        "nothing was heard, 2 wrong usage.\n");
}

void AddListen(CLI::App& pApp, ListenArguments& pArguments)
{
    CLI::App& command = *pApp.add_subcommand("listen", Utf8(tr("analyse a live input")));
    command.footer(Utf8(ListenFooter()));
    const std::string group = Utf8(tr("Listening"));
    const auto add =
        [&](const char* pName, std::string& pValue, const QString& pType, const QString& pHelp) {
            command.add_option(pName, pValue, Utf8(pHelp))
                ->check(RefuseEmpty)
                ->type_name(Utf8(pType))
                ->group(group);
        };
    const auto addFlag = [&](const char* pName, bool& pValue, const QString& pHelp) {
        command.add_flag(pName, pValue, Utf8(pHelp))->group(group);
    };
    add("-d,--device",
        pArguments.device,
        tr("NAME"),
        tr("input device, else the stored one; \"default\" follows the system's"));
    addFlag("--save", pArguments.isSaved, tr("remember the device"));
    add("-f,--format", pArguments.format, tr("NAME"), tr("print events: text, beats, ndjson"));
    add("--duration", pArguments.duration, tr("S"), tr("end after so many seconds"));
    addFlag("--format-info",
            pArguments.showsFormat,
            tr("tell the format, and the drift against the clock"));
    addFlag("--measure",
            pArguments.measures,
            tr("tell at the end how far the announced beats were off"));
    addFlag("-q,--quiet", pArguments.isQuiet, tr("no notices, no summary"));
    AddAnalysisOptions(command, pArguments.analysis, true);
}

void AddDevices(CLI::App& pApp, DevicesOptions& pOptions)
{
    CLI::App& command = *pApp.add_subcommand("devices", Utf8(tr("list the input devices")));
    command.add_flag("-w,--watch",
                     pOptions.isWatching,
                     Utf8(tr("go on, and tell what appears (+) and vanishes (-)")));
    command.footer(Utf8(
        tr("* marks the system's default. A monitor records what the machine plays itself.\n")));
}

void AddProfiles(CLI::App& pApp, ProfilesArguments& pArguments)
{
    CLI::App& command =
        *pApp.add_subcommand("profiles", Utf8(tr("list and edit the tempo profiles")));
    command
        .add_option("ACTION",
                    pArguments.words,
                    Utf8(tr("list, add NAME, edit NAME, remove NAME, select NAME")))
        ->type_name("");
    command.add_option("--name", pArguments.newName, Utf8(tr("new name, for edit")))
        ->check(RefuseEmpty)
        ->type_name(Utf8(tr("NAME")));
    AddAnalysisOptions(command, pArguments.changes, false, {"--bpm", "--band", "--sensibility"});
    command.footer(Utf8(tr("Example:\n"
                           "  audio-analyzer profiles add House --bpm 110:140 --band 0:80\n")));
}

void AddConfig(CLI::App& pApp, ConfigArguments& pArguments)
{
    CLI::App& command = *pApp.add_subcommand("config", Utf8(tr("show and change the settings")));
    command
        .add_option("ACTION", pArguments.words, Utf8(tr("show, set SETTING VALUE, path, reset")))
        ->type_name("");
    command.add_flag("--all", pArguments.isAll, Utf8(tr("reset the user's profiles as well")));
    command.footer(Utf8(tr("The settings stand next to the program, or in the user's own folder "
                           "where it is installed for\nall; every host there shares "
                           "them.\n\nExample:\n"
                           "  audio-analyzer config set stop-threshold 500\n")));
}

QString EvaluateFooter()
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

void AddEvaluate(CLI::App& pApp, EvaluateArguments& pArguments)
{
    CLI::App& command =
        *pApp.add_subcommand("evaluate", Utf8(tr("hold found beats against annotated ones")));
    const auto addFile = [&](const char* pName, std::string& pValue, const QString& pHelp) {
        command.add_option(pName, pValue, Utf8(pHelp))->type_name("");
    };
    addFile("REFERENCE", pArguments.reference, tr("the annotated beats: a file or a folder"));
    addFile("ESTIMATE", pArguments.estimate, tr("the found ones; - reads standard input"));
    const auto add = [&](const char* pName,
                         std::string& pValue,
                         const QString& pType,
                         const QString& pHelp) {
        command.add_option(pName, pValue, Utf8(pHelp))->check(RefuseEmpty)->type_name(Utf8(pType));
    };
    add("-f,--format", pArguments.format, tr("NAME"), tr("text, json, csv (default: text)"));
    add("--from",
        pArguments.from,
        tr("S"),
        tr("leave out what lies before S seconds (default: 5)"));
    command.footer(Utf8(EvaluateFooter()));
}

/// The command that was named, null when there is none.
CLI::App* FindParsed(const CLI::App& pApp)
{
    const std::vector<CLI::App*> parsed = pApp.get_subcommands();
    return parsed.empty() ? nullptr : parsed.front();
}

CommandLine ShowText(const std::string& pText)
{
    CommandLine result;
    result.action = CommandLine::eShowText;
    result.text = QString::fromStdString(pText);
    // The formatter puts two blank lines between groups of options.
    result.text.replace(QLatin1String("\n\n\n"), QLatin1String("\n\n"));
    return result;
}

CommandLine Refuse(const QString& pText)
{
    CommandLine result;
    result.text = pText;
    return result;
}

bool HasCommand(const CLI::App& pApp, const QString& pName)
{
    const auto commands = pApp.get_subcommands(
        [&](const CLI::App* pCommand) { return pCommand->get_name() == Utf8(pName); });
    return !commands.empty();
}

void Dress(CLI::App& pApp)
{
    pApp.get_formatter()->column_width(34);
    pApp.get_formatter()->label("REQUIRED", "");
    pApp.set_help_flag("-h,--help", Utf8(tr("show this help")));
}

/// The arguments of every command; one of them is filled.
struct Arguments
{
    AnalyzeArguments analyze;
    ListenArguments listen;
    DevicesOptions devices;
    ProfilesArguments profiles;
    ConfigArguments config;
    EvaluateArguments evaluate;
};

void AddAnalyze(CLI::App& pApp, AnalyzeArguments& pArguments)
{
    CLI::App& command = *pApp.add_subcommand("analyze", Utf8(tr("analyse audio files")));
    AddInputOptions(command, pArguments);
    AddOutputOptions(command, pArguments);
    AddAnalysisOptions(command, pArguments.analysis, false);
    command
        .add_flag("--look-ahead",
                  pArguments.isLookingAhead,
                  Utf8(tr("decide at the end, with the whole file in mind; automatic only")))
        ->group(Utf8(tr("Analysis")));
    command.footer(Utf8(AnalyzeFooter()));
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
    CLI::App app(Utf8(tr("Finds the beats and the tempo of music.")), "audio-analyzer");
    app.set_version_flag(
        "--version", "audio-analyzer " AUDIOANALYZER_VERSION, Utf8(tr("show the version")));
    app.footer(Utf8(tr("Examples:\n  audio-analyzer analyze song.flac\n"
                       "  audio-analyzer listen\n\n"
                       "audio-analyzer COMMAND --help tells more about a command.\n")));

    Arguments arguments;
    AddAnalyze(app, arguments.analyze);
    AddListen(app, arguments.listen);
    AddDevices(app, arguments.devices);
    AddProfiles(app, arguments.profiles);
    AddConfig(app, arguments.config);
    AddEvaluate(app, arguments.evaluate);
    Dress(app);
    for (CLI::App* pCommand : app.get_subcommands({}))
        Dress(*pCommand);

    const QString noCommand = tr("name a command: analyze, listen, devices, profiles, config, "
                                 "evaluate; see audio-analyzer --help");
    if (pCount < 2)
        return Refuse(noCommand);
    const QString first = QString::fromLocal8Bit(pArguments[1]);
    if (!first.startsWith(QLatin1Char('-')) && !HasCommand(app, first))
        return Refuse(tr("there is no command \"%1\"; to analyse a file: audio-analyzer analyze %1")
                          .arg(first));
    try {
        app.parse(pCount, pArguments);
    } catch (const CLI::CallForHelp&) {
        const CLI::App* pCommand = FindParsed(app);
        return ShowText(pCommand ? pCommand->help(app.get_name()) : app.help());
    } catch (const CLI::CallForVersion& version) {
        return ShowText(std::string(version.what()) + "\n");
    } catch (const CLI::RequiredError&) {
        return Refuse(tr("analyze: name the audio files; see audio-analyzer analyze --help"));
    } catch (const CLI::ParseError& error) {
        const CLI::App* pCommand = FindParsed(app);
        const QString name =
            pCommand ? QString::fromStdString(pCommand->get_name()) + QLatin1Char(' ') : QString();
        return Refuse(
            tr("%1; see audio-analyzer %2--help").arg(QString::fromLocal8Bit(error.what()), name));
    }
    const CLI::App* pCommand = FindParsed(app);
    return pCommand ? Read(pCommand->get_name(), arguments) : Refuse(noCommand);
}
