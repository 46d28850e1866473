// SPDX-License-Identifier: MIT
// Learns the table of the automatic tracker from annotated music, and says what it is worth.
#include "Calibration.h"
#include "Corpus.h"
#include "NoiseCurve.h"
#include "TableWriter.h"
#include "Validation.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <exception>

namespace {

constexpr std::size_t kParts = 5;
constexpr double kStudyWeight = 0.1;

constexpr char kUsage[] =
    "usage: train [--tracks] [--with FOLDER] [--noise FOLDER] [--write FILE] FOLDER...\n"
    "  FOLDER...       pieces of music: NAME.flac or .wav, NAME.beats, NAME.json\n"
    "  --tracks        also a row for each piece\n"
    "  --with FOLDER   pieces that teach a tenth of what others do, and judge nothing\n"
    "  --noise FOLDER  sound without a beat: what is told there, as a curve\n"
    "  --write FILE    write the table as a source file\n";

struct Arguments
{
    QStringList folders;
    QString studies;
    QString noise;
    QString output;
    bool showsTracks = false;
};

bool parse(QStringList pWords, Arguments& pArguments)
{
    while (!pWords.isEmpty()) {
        const QString word = pWords.takeFirst();
        if (word == QLatin1String("--tracks"))
            pArguments.showsTracks = true;
        else if (word == QLatin1String("--with") && !pWords.isEmpty())
            pArguments.studies = pWords.takeFirst();
        else if (word == QLatin1String("--noise") && !pWords.isEmpty())
            pArguments.noise = pWords.takeFirst();
        else if (word == QLatin1String("--write") && !pWords.isEmpty())
            pArguments.output = pWords.takeFirst();
        else if (word.startsWith(QLatin1Char('-')))
            return false;
        else
            pArguments.folders << word;
    }
    return !pArguments.folders.isEmpty();
}

// Each part is judged by what the others teach; then all teach.
void calibrate(const std::vector<std::vector<JudgedBeat>>& pParts, detail::MeterTable& pTable)
{
    Reliability reliability;
    std::vector<JudgedBeat> all;
    for (std::size_t part = 0; part < pParts.size(); ++part) {
        std::vector<JudgedBeat> others;
        for (std::size_t other = 0; other < pParts.size(); ++other)
            if (other != part)
                others.insert(others.end(), pParts[other].begin(), pParts[other].end());
        const auto weights = fitConfidence(others);
        for (const JudgedBeat& beat : pParts[part])
            reliability.Add(beat, weights);
        all.insert(all.end(), pParts[part].begin(), pParts[part].end());
    }
    const auto weights = fitConfidence(all);
    for (std::size_t i = 0; i < weights.size(); ++i)
        pTable.confidence[i] = float(weights[i]);
    std::printf("\n");
    reliability.Print();
}

// Of the tracks, and of the studies behind them.
std::vector<FeltCounts> countAll(const std::vector<Track>& pTracks,
                                 const std::vector<Track>& pStudies)
{
    std::vector<FeltCounts> counts;
    counts.reserve(pTracks.size() + pStudies.size());
    for (const Track& track : pTracks)
        counts.push_back(countLevels(track));
    for (const Track& study : pStudies) {
        counts.push_back(countLevels(study));
        counts.back().weight = kStudyWeight;
    }
    return counts;
}

void run(const Arguments& pArguments)
{
    const std::vector<Track> tracks = readCorpus(pArguments.folders);
    std::vector<Track> studies;
    if (!pArguments.studies.isEmpty())
        studies = readCorpus({pArguments.studies});
    const std::vector<FeltCounts> counts = countAll(tracks, studies);
    printHeads();
    const auto genreOf = [&](std::size_t i) { return tracks[i].genre; };
    const auto provenanceOf = [&](std::size_t i) { return tracks[i].provenance; };
    validate("across genres", tracks, counts, genreOf, pArguments.showsTracks);
    validate("across provenance", tracks, counts, provenanceOf, pArguments.showsTracks);
    const auto partOf = [](std::size_t i) { return QString::number(i % kParts); };
    const auto judged = validate("in 5 parts", tracks, counts, partOf, pArguments.showsTracks);
    detail::MeterTable table = trainTable(counts);
    calibrate(judged, table);
    if (!pArguments.noise.isEmpty())
        printNoiseCurve(readNoise(pArguments.noise), tracks, table);
    if (!pArguments.output.isEmpty())
        writeTable(pArguments.output, table, tracks, studies.size());
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Arguments arguments;
    if (!parse(QCoreApplication::arguments().mid(1), arguments)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    try {
        run(arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "train: %s\n", error.what());
        return 1;
    }
    return 0;
}
