// SPDX-License-Identifier: MIT
#include <desktop/MonitorOptions.h>
#include <shared/options/OptionParser.h>

#include <QFile>

#include <string>

namespace {

struct Values
{
    std::string device;
    std::string ini;
    std::string file;
    bool isLooped = false;
};

// In English: they are said before the language is known.
void AddOptions(shared::OptionSet pOptions, Values& pValues)
{
    pOptions.AddValue("--device",
                      pValues.device,
                      QStringLiteral("NAME"),
                      QStringLiteral("input device to listen to, by its name"));
    pOptions.AddExistingFile(
        "--ini",
        pValues.ini,
        QStringLiteral("settings of the panels (default: AudioAnalyzer.ini beside the program)"));
    pOptions.AddValue("--play",
                      pValues.file,
                      QStringLiteral("FILE"),
                      QStringLiteral("audio file to play as if it were live"));
    pOptions.AddFlag(
        "--loop", pValues.isLooped, QStringLiteral("play that file over and over"), "--play");
    pOptions.setFooter(QStringLiteral("Example: beat-monitor --play song.flac"));
}

}  // namespace

MonitorOptions parseMonitorOptions(int pCount, const char* const* pValues)
{
    shared::OptionParser parser(QStringLiteral("Shows the beat and the tempo of live music."),
                                QStringLiteral("beat-monitor"));
    Values values;
    AddOptions(parser.getOptions(), values);
    const shared::ParsedOptions parsed = parser.Parse(pCount, pValues);
    MonitorOptions options;
    if (parsed.outcome != shared::ParsedOptions::eRead) {
        const bool isRefused = parsed.outcome == shared::ParsedOptions::eRefuse;
        options.action = isRefused ? MonitorOptions::eRefuse : MonitorOptions::eShowText;
        options.text =
            isRefused ? QStringLiteral("beat-monitor: %1\n").arg(parsed.text) : parsed.text;
        return options;
    }
    options.device = QString::fromStdString(values.device);
    options.iniPath = QFile::decodeName(values.ini.c_str());
    options.file = QFile::decodeName(values.file.c_str());
    options.isLooped = values.isLooped;
    return options;
}
