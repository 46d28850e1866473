// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <CLI/CLI.hpp>
#include <desktop/MonitorOptions.h>

#include <QFile>

#include <sstream>
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
void AddOptions(CLI::App& pApp, Values& pValues)
{
    pApp.add_option("--device", pValues.device, "Input device to listen to, by its name")
        ->type_name("NAME");
    pApp.add_option("--ini",
                    pValues.ini,
                    "Settings of the panels (default: AudioAnalyzer.ini "
                    "beside the program)")
        ->type_name("FILE")
        ->check(CLI::ExistingFile);
    CLI::Option* pPlay =
        pApp.add_option("--play", pValues.file, "Audio file to play as if it were live")
            ->type_name("FILE");
    pApp.add_flag("--loop", pValues.isLooped, "Play that file over and over")->needs(pPlay);
    pApp.set_version_flag("--version", std::string("beat-monitor ") + AUDIOANALYZER_VERSION);
    pApp.footer("Example: beat-monitor --play song.flac");
}

MonitorOptions Refusal(const CLI::App& pApp, const CLI::ParseError& pError)
{
    std::ostringstream output;
    std::ostringstream errors;
    MonitorOptions options;
    options.action = pApp.exit(pError, output, errors) == 0 ? MonitorOptions::eShowText
                                                            : MonitorOptions::eRefuse;
    options.text = QString::fromLocal8Bit((output.str() + errors.str()).c_str());
    return options;
}

}  // namespace

MonitorOptions parseMonitorOptions(int pCount, const char* const* pValues)
{
    CLI::App app("Shows the beat and the tempo of live music.", "beat-monitor");
    Values values;
    AddOptions(app, values);
    try {
        app.parse(pCount, const_cast<char**>(pValues));
    } catch (const CLI::ParseError& error) {
        return Refusal(app, error);
    }
    MonitorOptions options;
    options.device = QString::fromStdString(values.device);
    options.iniPath = QFile::decodeName(values.ini.c_str());
    options.file = QFile::decodeName(values.file.c_str());
    options.isLooped = values.isLooped;
    return options;
}
