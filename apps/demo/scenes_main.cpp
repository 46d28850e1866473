// SPDX-License-Identifier: MIT
#include <demo/SceneFiles.h>
#include <demo/Studies.h>
#include <shared/options/OptionParser.h>
#include <shared/text/Text.h>

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

int Fail(const QString& pError, int pCode)
{
    std::fprintf(stderr, "audio-analyzer-scenes: %s\n", pError.toLocal8Bit().constData());
    return pCode;
}

int Finish(const QString& pError)
{
    return pError.isEmpty() ? eDone : Fail(pError, eFailed);
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

void AddCommands(shared::OptionParser& pParser, Arguments& pArguments)
{
    shared::OptionSet make = pParser.AddCommand(
        "make", tr("write all scenes: NAME.flac, NAME.beats and NAME.json of each"));
    make.setMissing(tr("name the folder to write into"));
    make.AddWord("FOLDER", pArguments.folder, tr("where to write"));
    make.AddNumber("--noise-seconds",
                   pArguments.noiseSeconds,
                   1.0,
                   86400.0,
                   tr("length of the sounds without music"));
    shared::OptionSet study = pParser.AddCommand(
        "study", tr("write pieces to learn from, in the same form; script/train takes them"));
    study.setMissing(tr("name the folder to write into"));
    study.AddWord("FOLDER", pArguments.folder, tr("where to write"));
    study.AddNumber("--count", pArguments.studies, 1, 1000, tr("how many"));
    shared::OptionSet join = pParser.AddCommand(
        "join", tr("write recordings one behind the other; print where each begins, and the end"));
    join.setMissing(tr("name the file to write and the recordings"));
    join.AddWord("OUT", pArguments.joined, tr("FLAC file to write"));
    join.AddWords("FILE", pArguments.inputs, tr("recordings of one sample rate"));
}

int ParseAndRun(int pCount, char** pValues)
{
    Arguments arguments;
    shared::OptionParser parser(
        tr("Makes recordings whose beats are known, to try beat trackers with."),
        QStringLiteral("audio-analyzer-scenes"));
    AddCommands(parser, arguments);
    const shared::ParsedOptions parsed = parser.Parse(pCount, pValues);
    if (parsed.outcome == shared::ParsedOptions::eShowText) {
        std::fputs(parsed.text.toLocal8Bit().constData(), stdout);
        return eDone;
    }
    if (parsed.outcome == shared::ParsedOptions::eRefuse)
        return Fail(parsed.text, eUsage);
    if (parsed.command == "make")
        return MakeScenes(arguments);
    if (parsed.command == "study")
        return MakeStudies(arguments);
    return parsed.command == "join" ? Join(arguments)
                                    : Fail(tr("name a command: make, study, join"), eUsage);
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
