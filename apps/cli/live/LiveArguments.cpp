// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/live/LiveArguments.h>
#include <cli/settings/AnalysisOptionTable.h>

#include <QCoreApplication>
#include <QStringList>

#include <utility>

namespace {

constexpr double kMinimalDuration = 0.1;  ///< seconds
constexpr double kMaximalDuration = 1e7;

QString tr(const char* pText)
{
    return QCoreApplication::translate("LiveArguments", pText);
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

}  // namespace

QString readListenArguments(const ListenArguments& pArguments, ListenOptions& pOptions)
{
    pOptions.device = QString::fromStdString(pArguments.device);
    pOptions.isSaved = pArguments.isSaved;
    pOptions.showsFormat = pArguments.showsFormat;
    pOptions.measures = pArguments.measures;
    pOptions.isQuiet = pArguments.isQuiet;
    for (const QString& refusal :
         {ReadFormat(QString::fromStdString(pArguments.format), pOptions),
          ReadDuration(QString::fromStdString(pArguments.duration), pOptions)})
        if (!refusal.isEmpty())
            return refusal;
    return readAnalysisOptions(pArguments.analysis, pOptions.analysis);
}
