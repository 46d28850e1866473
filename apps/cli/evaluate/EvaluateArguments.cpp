// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/evaluate/EvaluateArguments.h>

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

constexpr double kMaximalFrom = 1e6;  ///< seconds

QString tr(const char* pText)
{
    return QCoreApplication::translate("EvaluateArguments", pText);
}

}  // namespace

QString readEvaluateArguments(const EvaluateArguments& pArguments, EvaluateOptions& pOptions)
{
    pOptions.reference = QString::fromStdString(pArguments.reference);
    pOptions.estimate = QString::fromStdString(pArguments.estimate);
    if (pOptions.reference.isEmpty() || pOptions.estimate.isEmpty())
        return tr("evaluate: name the annotated beats and the estimated ones; see audio-analyzer "
                  "evaluate --help");
    const QStringList formats = {
        QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("csv")};
    const QString format = QString::fromStdString(pArguments.format);
    const int index = formats.indexOf(format.toLower());
    if (!format.isEmpty() && index < 0)
        return tr("--format %1: give one of %2").arg(format, formats.join(QLatin1String(", ")));
    pOptions.format = eEvaluationFormat(std::max(0, index));
    const QString from = QString::fromStdString(pArguments.from);
    const auto seconds = cli::ParseNumber(from, 0.0, kMaximalFrom);
    if (!from.isEmpty() && !seconds)
        return tr("--from %1: give a number of seconds from 0 on").arg(from);
    pOptions.from = seconds.value_or(pOptions.from);
    return {};
}
