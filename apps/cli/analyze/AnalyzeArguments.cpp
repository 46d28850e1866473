// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/analyze/AnalyzeArguments.h>
#include <cli/analyze/RawPcmReader.h>
#include <cli/detail/ParseNumber.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <shared/files/AudioSource.h>

#include <QFile>

namespace {

constexpr int kMaximalJobs = 256;

QString tr(const char* pText)
{
    return QCoreApplication::translate("AnalyzeArguments", pText);
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
