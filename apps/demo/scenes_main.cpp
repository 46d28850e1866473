// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <CLI/CLI.hpp>
#include <demo/SceneFiles.h>
#include <demo/Studies.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

enum eExitCode
{
    eDone = 0,
    eFailed = 1,
    eUsage = 2
};

struct Arguments
{
    std::string folder;
    double noiseSeconds = 600.0;
    int studies = 96;
    std::string joined;
    std::vector<std::string> inputs;
};

int Finish(const QString& pError)
{
    if (pError.isEmpty())
        return eDone;
    std::fprintf(stderr, "audio-analyzer-scenes: %s\n", pError.toLocal8Bit().constData());
    return eFailed;
}

QString WriteScenes(const QString& pFolder, const std::vector<Scene>& pScenes)
{
    if (!QDir().mkpath(pFolder))
        return QStringLiteral("Cannot make the folder \"%1\".").arg(pFolder);
    for (const Scene& scene : pScenes) {
        const QString error = writeScene(pFolder, scene);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

int MakeScenes(const Arguments& pArguments)
{
    const QString folder = QFile::decodeName(pArguments.folder.c_str());
    const QString error = WriteScenes(folder, makeScenes());
    return Finish(error.isEmpty() ? writeSceneNoises(folder, pArguments.noiseSeconds) : error);
}

int MakeStudies(const Arguments& pArguments)
{
    return Finish(
        WriteScenes(QFile::decodeName(pArguments.folder.c_str()), makeStudies(pArguments.studies)));
}

int Join(const Arguments& pArguments)
{
    QStringList inputs;
    for (const std::string& input : pArguments.inputs)
        inputs.append(QFile::decodeName(input.c_str()));
    std::vector<double> starts;
    const QString error =
        joinRecordings(QFile::decodeName(pArguments.joined.c_str()), inputs, starts);
    for (const double start : starts)
        std::printf("%.6f\n", start);
    return Finish(error);
}

int ParseAndRun(int pCount, char** pValues)
{
    Arguments arguments;
    CLI::App app("Makes recordings whose beats are known, to try beat trackers with.",
                 "audio-analyzer-scenes");
    app.require_subcommand(1);
    app.set_version_flag("--version",
                         std::string("audio-analyzer-scenes ") + AUDIOANALYZER_VERSION);
    CLI::App* pMake =
        app.add_subcommand("make", "Write all scenes: NAME.flac, NAME.beats and NAME.json of each");
    pMake->add_option("FOLDER", arguments.folder, "Where to write")->required();
    pMake
        ->add_option(
            "--noise-seconds", arguments.noiseSeconds, "Length of the sounds without music")
        ->check(CLI::Range(1.0, 86400.0))
        ->capture_default_str();
    CLI::App* pStudy = app.add_subcommand(
        "study", "Write pieces to learn from, in the same form; script/train takes them");
    pStudy->add_option("FOLDER", arguments.folder, "Where to write")->required();
    pStudy->add_option("--count", arguments.studies, "How many")
        ->check(CLI::Range(1, 1000))
        ->capture_default_str();
    CLI::App* pJoin = app.add_subcommand(
        "join", "Write recordings one behind the other, and print where each begins, and the end");
    pJoin->add_option("OUT", arguments.joined, "FLAC file to write")->required();
    pJoin->add_option("FILE", arguments.inputs, "Recordings of one sample rate")->required();
    try {
        app.parse(pCount, pValues);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? eDone : eUsage;
    }
    if (pStudy->parsed())
        return MakeStudies(arguments);
    return pMake->parsed() ? MakeScenes(arguments) : Join(arguments);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "audio-analyzer-scenes: %s\n", error.what());
        return eFailed;
    }
}
