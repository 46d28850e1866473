// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/settings/AnalysisOptionTable.h>

#include <QStringList>

#include <limits>

namespace {

constexpr double kMaximalSensibility = 1000.0;
constexpr double kMinimalDuration = 0.05;      ///< seconds
constexpr double kMaximalStopDuration = 10.0;  ///< seconds; bounds the memory of its transform
constexpr double kMaximalAverageDuration = 60.0;
constexpr double kMaximalBPMDuration = 600.0;
constexpr int kMaximalMagnitude = std::numeric_limits<qint16>::max();

QString tr(const char* pText)
{
    return QCoreApplication::translate("AnalysisOptionTable", pText);
}

/// Stores a number within limits, both included.
template <typename T>
QString ReadNumber(T& pTarget, const QString& pValue, double pMinimum, double pMaximum)
{
    const std::optional<double> value = cli::ParseNumber(pValue, pMinimum, pMaximum);
    if (!value)
        return tr("give a number from %1 to %2").arg(pMinimum).arg(pMaximum);
    pTarget = *value;
    return {};
}

QString ReadMagnitude(std::optional<qint16>& pTarget, const QString& pValue)
{
    const std::optional<int> value = cli::ParseInteger(pValue, 0, kMaximalMagnitude);
    if (!value)
        return tr("give a whole number from 0 to %1").arg(kMaximalMagnitude);
    pTarget = static_cast<qint16>(*value);
    return {};
}

QString ReadProfile(AnalysisOptions& pOptions, const QString& pValue)
{
    pOptions.profile = pValue;
    return pValue.isEmpty() ? tr("give the name of a profile") : QString();
}

QString ReadTempoRange(AnalysisOptions& pOptions, const QString& pValue)
{
    const QStringList ends = pValue.split(QLatin1Char(':'));
    const std::optional<double> minimal = cli::ParseNumber(ends.first());
    const std::optional<double> maximal = cli::ParseNumber(ends.last());
    if (ends.size() != 2 || !minimal || !maximal || !(*minimal >= 1.0) || !(*minimal <= *maximal) ||
        !(*maximal < 1000.0))
        return tr("give MIN:MAX with 1 <= MIN <= MAX < 1000 BPM");
    pOptions.bpm = AnalysisOptions::TempoRange{*minimal, *maximal};
    return {};
}

/// Hz; -1, no edge, for 0 and for an empty text.
std::optional<int> ReadEdge(const QString& pText)
{
    if (pText.isEmpty())
        return -1;
    const std::optional<int> edge = cli::ParseInteger(pText, 0, std::numeric_limits<int>::max());
    return edge == 0 ? -1 : edge;
}

QString ReadBand(AnalysisOptions& pOptions, const QString& pValue)
{
    const QStringList ends = pValue.split(QLatin1Char(':'));
    const std::optional<int> low = ReadEdge(ends.first());
    const std::optional<int> high = ReadEdge(ends.last());
    if (ends.size() != 2 || !low || !high || (*low > 0 && *high > 0 && *low > *high))
        return tr("give LOW:HIGH in whole Hz with LOW <= HIGH; 0 or nothing = no edge");
    pOptions.band = AnalysisOptions::Band{*low, *high};
    return {};
}

QString ReadThreshold(AnalysisOptions& pOptions, const QString& pValue)
{
    if (pValue.compare(QLatin1String("auto"), Qt::CaseInsensitive) == 0) {
        pOptions.threshold = qint16(-1);
        return {};
    }
    const QString refusal = ReadMagnitude(pOptions.threshold, pValue);
    return refusal.isEmpty() ? refusal : tr("%1, or auto").arg(refusal);
}

QString ReadFixedBPM(AnalysisOptions& pOptions, const QString& pValue)
{
    const std::optional<double> value = cli::ParseNumber(pValue);
    if (!value || !(*value >= 1.0 && *value < 1000.0))
        return tr("give a tempo of at least 1 and below 1000 BPM");
    pOptions.fixedBPM = *value;
    return {};
}

std::vector<AnalysisOptionInfo> getProfileOptions()
{
    return {
        {QStringLiteral("--profile"),
         tr("NAME"),
         tr("tempo profile: Electro (default), Hardcore, Slow"),
         &ReadProfile},
        {QStringLiteral("--bpm"),
         tr("MIN:MAX"),
         tr("range of tempos to search, 1 <= MIN <= MAX < 1000"),
         &ReadTempoRange},
        {QStringLiteral("--band"),
         tr("LOW:HIGH"),
         tr("band to listen to, Hz; 0 or nothing = no edge"),
         &ReadBand},
        {QStringLiteral("--sensibility"),
         tr("X"),
         tr("automatic threshold as a multiple of the average volume"),
         [](AnalysisOptions& pOptions, const QString& pValue) {
             return ReadNumber(pOptions.sensibility, pValue, 0.0, kMaximalSensibility);
         }},
        {QStringLiteral("--threshold"),
         tr("N|auto"),
         tr("level that makes a pulse, 0 to 32767 (default: auto)"),
         &ReadThreshold},
        {QStringLiteral("--fixed-bpm"),
         tr("X"),
         tr("impose this tempo instead of measuring it"),
         &ReadFixedBPM},
    };
}

std::vector<AnalysisOptionInfo> getDurationOptions()
{
    return {
        {QStringLiteral("--stop-duration"),
         tr("S"),
         tr("seconds of quiet that count as a stop (default: 1.5)"),
         [](AnalysisOptions& pOptions, const QString& pValue) {
             return ReadNumber(
                 pOptions.stopDuration, pValue, kMinimalDuration, kMaximalStopDuration);
         }},
        {QStringLiteral("--stop-threshold"),
         tr("N"),
         tr("level up to which it is quiet, 0 to 32767 (default: 3276)"),
         [](AnalysisOptions& pOptions, const QString& pValue) {
             return ReadMagnitude(pOptions.stopThreshold, pValue);
         }},
        {QStringLiteral("--average-duration"),
         tr("S"),
         tr("seconds over which the volume is averaged (default: 2)"),
         [](AnalysisOptions& pOptions, const QString& pValue) {
             return ReadNumber(
                 pOptions.averageDuration, pValue, kMinimalDuration, kMaximalAverageDuration);
         }},
        {QStringLiteral("--bpm-duration"),
         tr("S"),
         tr("seconds of beats that make the tempo (default: 10)"),
         [](AnalysisOptions& pOptions, const QString& pValue) {
             return ReadNumber(pOptions.bpmDuration, pValue, kMinimalDuration, kMaximalBPMDuration);
         }},
    };
}

std::vector<AnalysisOptionInfo> getFlags()
{
    return {
        {QStringLiteral("--no-consistency"),
         {},
         tr("forget the last tempo across gaps"),
         [](AnalysisOptions& pOptions, const QString&) {
             pOptions.isConsistencyAllowed = false;
             return QString();
         }},
        {QStringLiteral("--virtual-when-stopped"),
         {},
         tr("go on with virtual beats while the music is stopped"),
         [](AnalysisOptions& pOptions, const QString&) {
             pOptions.isVirtualWhenStopped = true;
             return QString();
         }},
    };
}

}  // namespace

std::vector<AnalysisOptionInfo> getAnalysisOptionTable()
{
    std::vector<AnalysisOptionInfo> table = getProfileOptions();
    for (const auto& part : {getDurationOptions(), getFlags()})
        table.insert(table.end(), part.begin(), part.end());
    return table;
}

QString readAnalysisOptions(const std::map<std::string, std::string>& pValues,
                            AnalysisOptions& pOptions)
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        const auto given = pValues.find(info.name.toStdString());
        if (given == pValues.end())
            continue;
        const QString value = QString::fromStdString(given->second);
        const QString refusal = info.read(pOptions, value);
        if (!refusal.isEmpty())
            return tr("%1 %2: %3").arg(info.name, value, refusal);
    }
    return {};
}
