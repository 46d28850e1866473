// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/live/LiveArguments.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <shared/hands/HandAction.h>
#include <shared/outputs/HostPort.h>
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/settings/BeatSettings.h>
#include <shared/text/Text.h>

#include <QFile>
#include <QStringList>

#include <utility>

namespace {

constexpr double kMinimalDuration = 0.1;  ///< seconds
constexpr double kMaximalDuration = 1e7;

QString Footer()
{
    return tr("On a terminal one line shows the music live. Else, or with --format, one event is\n"
              "printed a line, the moment it happens:\n"
              "  text    for people (default)\n"
              "  beats   seconds of each beat, when it falls due\n"
              "  ndjson  announce when a beat falls due, the events of \"analyze\", and device, "
              "notice,\n"
              "          output and lost events\n"
              "\n"
              "Beats are told by a clock that follows the music, when the sound server says that "
              "they\n"
              "sound; --offset moves them, for a slow lamp or a loudspeaker far away. A reader "
              "that\n"
              "stalls loses the oldest events, and is told how many.\n"
              "\n"
              "Outputs follow the beat beside what is printed; one that is away is waited for. "
              "What\n"
              "\"audio-analyzer outputs\" keeps needs no option.\n"
              "\n"
              "Actions that --learn teaches:\n"
              "  %1\n"
              "\n"
              "What is not given is as \"audio-analyzer config show\" has it. A device that "
              "vanishes is\n"
              "waited for, and recorded again when it is back.\n"
              "\n"
              "Examples:\n"
              "  audio-analyzer listen\n"
              "  audio-analyzer listen --device deck.monitor --save --profile House\n"
              "  audio-analyzer listen --osc 10.0.0.5:7000/resolume\n"
              "  audio-analyzer listen --play song.flac --os2l\n"
              "  audio-analyzer listen --format ndjson | my-lights\n"
              "\n"
              "Exit status: 0 ended by --duration, the file's end, Ctrl+C or SIGTERM, 1 the device "
              "or file\n"
              "cannot be used or nothing was heard, 2 wrong usage.\n")
        .arg(shared::HandAction::getForms().join(QLatin1String(", ")));
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
    const auto seconds = cli::ParseNumber(pValue, kMinimalDuration, kMaximalDuration);
    if (!seconds) {
        return tr("--duration %1: give a number of seconds from %2 to %3")
            .arg(pValue,
                 QString::number(kMinimalDuration),
                 QString::number(kMaximalDuration, 'f', 0));
    }
    pOptions.duration = *seconds;
    return {};
}

QString ReadOffset(const QString& pValue, ListenOptions& pOptions)
{
    if (pValue.isEmpty())
        return {};
    constexpr double kLimit = BeatSettings::kFarthestOffset;
    pOptions.offset = cli::ParseNumber(pValue, -kLimit, kLimit);
    if (pOptions.offset)
        return {};
    return tr("--offset %1: give a number of milliseconds from %2 to %3; positive is later")
        .arg(pValue, QString::number(-kLimit), QString::number(kLimit));
}

QString ReadFile(const ListenArguments& pArguments, ListenOptions& pOptions)
{
    pOptions.file = QFile::decodeName(pArguments.file.c_str());
    if (pOptions.file.isEmpty())
        return {};
    if (!pArguments.device.empty() || pArguments.isSaved)
        return tr("--play: give it without %1, which is for devices")
            .arg(pArguments.isSaved ? QStringLiteral("--save") : QStringLiteral("--device"));
    return pOptions.file == QLatin1String("-") ? tr("--play -: give a file") : QString();
}

void AddOutputOptions(shared::OptionSet& pOptions, ListenArguments& pArguments)
{
    pOptions.setGroup(tr("Outputs"));
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        const QString place = QLatin1String(kind.place);
        const QString type = kind.needsAddress ? place : QStringLiteral("[%1]").arg(place);
        pOptions.AddValues((std::string("--") + kind.name).c_str(),
                           pArguments.outputs[kind.name],
                           type,
                           kind.describe(),
                           !kind.needsAddress);
    }
    pOptions.AddValues("--output",
                       pArguments.outputNames,
                       tr("NAME"),
                       tr("send to a stored output that is not enabled, too"));
    pOptions.AddFlag("--no-outputs",
                     pArguments.isWithoutStored,
                     tr("send to no stored output but those of --output"));
}

QString ReadOutputs(const ListenArguments& pArguments, ListenOptions& pOptions)
{
    for (const auto& [kind, places] : pArguments.outputs) {
        for (const std::string& place : places) {
            StoredOutput output;
            output.kind = QString::fromStdString(kind);
            shared::readOutputPlace(QString::fromStdString(place), output);
            QString reason;
            if (!shared::makeReceiver(output.kind, output.address, output.preset, reason))
                return QStringLiteral("--%1: %2").arg(output.kind, reason);
            pOptions.outputs.push_back(output);
        }
    }
    for (const std::string& name : pArguments.outputNames)
        pOptions.outputNames += QString::fromStdString(name).trimmed();
    pOptions.isWithoutStored = pArguments.isWithoutStored;
    return {};
}

void AddHandOptions(shared::OptionSet& pOptions, ListenArguments& pArguments)
{
    pOptions.setGroup(tr("Hands"));
    pOptions.AddValues("--hands-midi",
                       pArguments.handsMidi,
                       QStringLiteral("[PORT]"),
                       tr("let pedals and controllers take the beat in hand"),
                       true);
    pOptions.AddValues("--hands-osc",
                       pArguments.handsOsc,
                       QStringLiteral("[ADDRESS:]PORT"),
                       tr("let programs do so; of this machine alone without ADDRESS"));
    pOptions.AddValue("--learn",
                      pArguments.learned,
                      tr("ACTION"),
                      tr("what the next control that is touched does from now on"));
    pOptions.AddValue("--web",
                      pArguments.web,
                      QStringLiteral("[ADDRESS:]PORT"),
                      tr("show the beat and its buttons on a page for a phone, likewise"));
}

/// "9001", or "0.0.0.0:9001"; 0 = any port.
std::optional<ListeningPlace> ReadPlace(const QString& pText)
{
    bool isPort = false;
    const std::uint16_t port = pText.toUShort(&isPort);
    if (isPort)
        return ListeningPlace{QString(), port};
    const auto place = shared::HostPort::Parse(pText, 0);
    if (!place)
        return std::nullopt;
    return ListeningPlace{place->host, static_cast<std::uint16_t>(place->port)};
}

QString ReadWeb(const std::string& pText, ListenOptions& pOptions)
{
    if (pText.empty())
        return {};
    const QString place = QString::fromStdString(pText).trimmed();
    pOptions.web = ReadPlace(place);
    return pOptions.web ? QString() : tr("--web %1: give a port, or ADDRESS:PORT").arg(place);
}

QString ReadHands(const ListenArguments& pArguments, HandOptions& pHands)
{
    for (const std::string& port : pArguments.handsMidi)
        pHands.midi += QString::fromStdString(port).trimmed();
    for (const std::string& text : pArguments.handsOsc) {
        const QString given = QString::fromStdString(text).trimmed();
        const auto place = ReadPlace(given);
        if (!place)
            return tr("--hands-osc %1: give a port, or ADDRESS:PORT").arg(given);
        pHands.osc.push_back(*place);
    }
    if (pArguments.learned.empty())
        return {};
    const QString learned = QString::fromStdString(pArguments.learned);
    pHands.learned = shared::HandAction::Parse(learned);
    if (!pHands.learned)
        return tr("--learn %1: give one of %2")
            .arg(learned, shared::HandAction::getForms().join(QLatin1String(", ")));
    if (pHands.midi.isEmpty() && pHands.osc.empty())
        return tr("--learn: give --hands-midi or --hands-osc as well");
    return {};
}

}  // namespace

void addListenCommand(shared::OptionParser& pParser, ListenArguments& pArguments)
{
    shared::OptionSet options = pParser.AddCommand("listen", tr("analyse a live input"));
    options.setGroup(tr("Listening"));
    options.AddValue("-d,--device",
                     pArguments.device,
                     tr("NAME"),
                     tr("input device, else the stored one; \"default\" follows the system's"));
    options.AddValue("--play",
                     pArguments.file,
                     tr("FILE"),
                     tr("hear this audio file, at real speed, not a device"));
    options.AddFlag(
        "--sound", pArguments.isHeard, tr("play the file on the default output, too"), "--play");
    options.AddFlag("--save", pArguments.isSaved, tr("remember the device and the offset"));
    options.AddValue(
        "-f,--format", pArguments.format, tr("NAME"), tr("print events: text, beats, ndjson"));
    options.AddValue("--duration", pArguments.duration, tr("S"), tr("end after so many seconds"));
    options.AddValue("--offset",
                     pArguments.offset,
                     tr("MS"),
                     tr("tell beats so many milliseconds later, -500 to 500"));
    options.AddFlag("--format-info",
                    pArguments.showsFormat,
                    tr("tell the format, the priority, and the drift against the clock"));
    options.AddFlag("--measure",
                    pArguments.measures,
                    tr("tell at the end how far the announced beats were off the sound"));
    options.AddFlag("-q,--quiet", pArguments.isQuiet, tr("no notices, no summary"));
    AddOutputOptions(options, pArguments);
    AddHandOptions(options, pArguments);
    addAnalysisOptions(options, pArguments.analysis, eStoredDefaults);
    options.setFooter(Footer());
}

void addDevicesCommand(shared::OptionParser& pParser, DevicesOptions& pOptions)
{
    shared::OptionSet options = pParser.AddCommand("devices", tr("list the input devices"));
    options.AddFlag(
        "-w,--watch", pOptions.isWatching, tr("go on, and tell what appears (+) and vanishes (-)"));
    options.setFooter(
        tr("* marks the system's default. A monitor records what the machine plays itself.\n"));
}

QString readListenArguments(const ListenArguments& pArguments, ListenOptions& pOptions)
{
    pOptions.device = QString::fromStdString(pArguments.device);
    pOptions.isHeard = pArguments.isHeard;
    pOptions.isSaved = pArguments.isSaved;
    pOptions.showsFormat = pArguments.showsFormat;
    pOptions.measures = pArguments.measures;
    pOptions.isQuiet = pArguments.isQuiet;
    for (const QString& refusal :
         {ReadFormat(QString::fromStdString(pArguments.format), pOptions),
          ReadDuration(QString::fromStdString(pArguments.duration), pOptions),
          ReadOffset(QString::fromStdString(pArguments.offset), pOptions),
          ReadFile(pArguments, pOptions),
          ReadOutputs(pArguments, pOptions),
          ReadHands(pArguments, pOptions.hands),
          ReadWeb(pArguments.web, pOptions)})
        if (!refusal.isEmpty())
            return refusal;
    return readAnalysisOptions(pArguments.analysis, pOptions.analysis);
}
