// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/analyze/AnalyzeArguments.h>
#include <cli/analyze/RawPcmReader.h>
#include <cli/detail/ParseNumber.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <shared/files/AudioSource.h>
#include <shared/text/Text.h>

#include <QFile>

namespace {

constexpr int kMaximalJobs = 256;

QString Footer()
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

void AddInputOptions(shared::OptionSet& pOptions, AnalyzeArguments& pArguments)
{
    pOptions.setMissing(tr("name the audio files"));
    pOptions.AddWords("FILE", pArguments.inputs, tr("audio files; - reads standard input"));
    pOptions.setGroup(tr("Input"));
    pOptions.AddValue("--raw",
                      pArguments.raw,
                      tr("RATE[:CHANNELS]"),
                      tr("input is raw PCM, 16-bit little-endian (default: 1 channel)"));
    pOptions.AddFlag("--partial",
                     pArguments.isPartial,
                     tr("read a damaged or unfinished file as far as it goes"));
    pOptions.AddFlag("--look-ahead",
                     pArguments.isLookingAhead,
                     tr("decide at the end, with the whole file in mind; automatic only"));
    pOptions.AddValue(
        "-j,--jobs", pArguments.jobs, QStringLiteral("N"), tr("analyse N files side by side"));
    pOptions.AddHiddenFlag("--worker", pArguments.isWorker);
}

void AddOutputOptions(shared::OptionSet& pOptions, AnalyzeArguments& pArguments)
{
    pOptions.setGroup(tr("Output"));
    pOptions.AddValue(
        "-f,--format", pArguments.format, tr("NAME"), getFormatNames() + tr(" (default: beats)"));
    pOptions.AddValue("-o,--output",
                      pArguments.output,
                      tr("FILE|DIR"),
                      tr("where to write (default: standard output)"));
    pOptions.AddFlag("--real-only", pArguments.isRealOnly, tr("leave out virtual beats"));
    pOptions.AddValue("--click",
                      pArguments.click,
                      tr("OUT.wav"),
                      tr("write the music with a click on every beat"));
    pOptions.AddValue("--plot",
                      pArguments.plot,
                      tr("OUT.svg|.png"),
                      tr("draw level, pulses, beats, bars, tempo and confidence"));
    pOptions.AddFlag("-q,--quiet", pArguments.isQuiet, tr("no progress, no summary"));
}

/// Returns a refusal, or an empty text.
QString ReadAnalysis(const std::map<std::string, std::string>& pValues, AnalyzeOptions& pOptions)
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        const auto given = pValues.find(info.name.toStdString());
        if (given == pValues.end())
            continue;
        const QString value = QString::fromStdString(given->second);
        const QString refusal = info.read(pOptions.analysis, value);
        if (!refusal.isEmpty())
            return tr("%1 %2: %3").arg(info.name, value, refusal);
        pOptions.analysisArguments.append(info.name);
        if (!info.valueName.isEmpty())
            pOptions.analysisArguments.append(value);
    }
    Configuration configuration;
    const QString refusal = pOptions.analysis.Apply(configuration);
    if (refusal.isEmpty() && pOptions.isLookingAhead &&
        pOptions.analysis.getTracker() == eProfileTracker)
        return tr(
            "--look-ahead belongs to --tracker automatic; the engine with a profile decides as "
            "it hears");
    return refusal;
}

QString ReadRaw(const QString& pValue, AnalyzeOptions& pOptions)
{
    const QStringList parts = pValue.split(QLatin1Char(':'));
    const auto rate =
        cli::ParseInteger(parts.first(), AudioSource::kMinimalRate, AudioSource::kMaximalRate);
    const auto channels =
        parts.size() > 1 ? cli::ParseInteger(parts[1], 1, RawPcmReader::kMaximalChannels) : 1;
    if (!rate || !channels || parts.size() > 2) {
        return tr("--raw %1: give RATE or RATE:CHANNELS with %2 <= RATE <= %3 Hz and 1 <= CHANNELS "
                  "<= %4")
            .arg(pValue,
                 QString::number(AudioSource::kMinimalRate),
                 QString::number(AudioSource::kMaximalRate),
                 QString::number(RawPcmReader::kMaximalChannels));
    }
    pOptions.rawRate = *rate;
    pOptions.rawChannels = *channels;
    return {};
}

QString ReadChoices(const AnalyzeArguments& pArguments, AnalyzeOptions& pOptions)
{
    const QString format = QString::fromStdString(pArguments.format);
    const auto known = findOutputFormat(format);
    if (!format.isEmpty() && !known)
        return tr("--format %1: give one of %2").arg(format, getFormatNames());
    pOptions.format = known.value_or(eBeatsFormat);

    const QString jobs = QString::fromStdString(pArguments.jobs);
    const auto jobCount = cli::ParseInteger(jobs, 1, kMaximalJobs);
    if (!jobs.isEmpty() && !jobCount)
        return tr("--jobs %1: give a whole number from 1 to %2")
            .arg(jobs, QString::number(kMaximalJobs));
    pOptions.jobs = jobCount.value_or(1);
    return pArguments.raw.empty() ? QString()
                                  : ReadRaw(QString::fromStdString(pArguments.raw), pOptions);
}

}  // namespace

void addAnalyzeCommand(shared::OptionParser& pParser, AnalyzeArguments& pArguments)
{
    shared::OptionSet options = pParser.AddCommand("analyze", tr("analyse audio files"));
    AddInputOptions(options, pArguments);
    AddOutputOptions(options, pArguments);
    addAnalysisOptions(options, pArguments.analysis, eInitialDefaults);
    options.setFooter(Footer());
}

QString readAnalyzeArguments(const AnalyzeArguments& pArguments, AnalyzeOptions& pOptions)
{
    for (const std::string& input : pArguments.inputs)
        pOptions.inputs.append(QFile::decodeName(input.c_str()));
    pOptions.output = QFile::decodeName(pArguments.output.c_str());
    pOptions.click = QFile::decodeName(pArguments.click.c_str());
    pOptions.plot = QFile::decodeName(pArguments.plot.c_str());
    pOptions.isRealOnly = pArguments.isRealOnly;
    pOptions.isPartial = pArguments.isPartial;
    pOptions.isLookingAhead = pArguments.isLookingAhead;
    pOptions.isQuiet = pArguments.isQuiet;
    pOptions.isWorker = pArguments.isWorker;
    const QString refusal = ReadChoices(pArguments, pOptions);
    return refusal.isEmpty() ? ReadAnalysis(pArguments.analysis, pOptions) : refusal;
}

QString getFormatNames()
{
    QStringList names;
    for (const OutputFormatInfo& format : getOutputFormats())
        names.append(format.name);
    return names.join(QLatin1String(", "));
}
