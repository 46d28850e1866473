// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationWriters.h>
#include <cli/output/TextNumbers.h>
#include <shared/text/Text.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kDecimals = 6;  ///< of numbers for programs

QString ShowSummary(const EvaluationMeasure& pMeasure, const MeasureSummary& pSummary)
{
    if (pSummary.count == 0)
        return QStringLiteral("-");
    if (std::isinf(pSummary.value))
        return tr("never");
    const auto show = [&](double pValue) {
        return QString::number(pValue * pMeasure.scale, 'f', pMeasure.decimals);
    };
    const QString value = show(pSummary.value);
    const bool hasError = !pMeasure.isMedian && pSummary.count > 1;
    return hasError ? value + QStringLiteral(" ±") + show(pSummary.error) : value;
}

/// Columns as wide as their widest cell; the first one to the left, the others to the right.
QString Align(const std::vector<QStringList>& pRows)
{
    std::vector<int> widths(std::size_t(pRows.front().size()));
    for (const QStringList& row : pRows)
        for (int i = 0; i < row.size(); ++i)
            widths[std::size_t(i)] = std::max(widths[std::size_t(i)], row[i].size());
    QString text;
    for (const QStringList& row : pRows) {
        QString line = row.first().leftJustified(widths.front());
        for (int i = 1; i < row.size(); ++i)
            line += QStringLiteral("  ") + row[i].rightJustified(widths[std::size_t(i)]);
        text += line + QLatin1Char('\n');
    }
    return text;
}

/// A number that JSON can hold: null = never.
QJsonValue ToJson(double pValue)
{
    return std::isinf(pValue) ? QJsonValue() : QJsonValue(cli::Rounded(pValue, kDecimals));
}

QJsonObject MakeRecording(const EvaluatedRecording& pRecording)
{
    QJsonObject object;
    object[QStringLiteral("name")] = pRecording.name;
    object[QStringLiteral("genre")] = pRecording.genre;
    for (const EvaluationMeasure& measure : getEvaluationMeasures())
        if (const auto value = pRecording.evaluation.*measure.value)
            object[measure.key] = ToJson(*value);
    return object;
}

QJsonObject MakeGroup(const EvaluationGroup& pGroup)
{
    QJsonObject object;
    object[QStringLiteral("genre")] = pGroup.name;
    object[QStringLiteral("recordings")] = int(pGroup.recordings.size());
    for (const EvaluationMeasure& measure : getEvaluationMeasures()) {
        const MeasureSummary summary = summarize(pGroup.recordings, measure);
        if (summary.count == 0)
            continue;
        QJsonObject entry;
        entry[QStringLiteral("count")] = summary.count;
        if (measure.isMedian) {
            entry[QStringLiteral("median")] = ToJson(summary.value);
        } else {
            entry[QStringLiteral("mean")] = ToJson(summary.value);
            entry[QStringLiteral("standardError")] = ToJson(summary.error);
        }
        object[measure.key] = entry;
    }
    return object;
}

/// A text as a cell of CSV.
QString Quote(QString pText)
{
    const bool isPlain = !pText.contains(QLatin1Char(',')) && !pText.contains(QLatin1Char('"')) &&
                         !pText.contains(QLatin1Char('\n'));
    return isPlain ? pText
                   : QLatin1Char('"') + pText.replace(QLatin1Char('"'), QLatin1String("\"\"")) +
                         QLatin1Char('"');
}

}  // namespace

QByteArray makeEvaluationText(const std::vector<EvaluatedRecording>& pRecordings, double pFrom)
{
    const std::vector<EvaluationGroup> groups = makeGroups(pRecordings);
    std::vector<QStringList> rows = {{tr("from %1 s on").arg(pFrom)}};
    for (const EvaluationGroup& group : groups) {
        const bool isAlone = pRecordings.size() == 1;
        const QString name = group.name.isEmpty() ? tr("all") : group.name;
        rows.front().append(isAlone
                                ? pRecordings.front().name
                                : QStringLiteral("%1 (%2)").arg(name).arg(group.recordings.size()));
    }
    for (const EvaluationMeasure& measure : getEvaluationMeasures()) {
        if (summarize(groups.back().recordings, measure).count == 0)
            continue;
        QStringList row = {measure.label};
        for (const EvaluationGroup& group : groups)
            row.append(ShowSummary(measure, summarize(group.recordings, measure)));
        rows.push_back(row);
    }
    return Align(rows).toUtf8();
}

QByteArray makeEvaluationJson(const std::vector<EvaluatedRecording>& pRecordings, double pFrom)
{
    QJsonArray recordings;
    for (const EvaluatedRecording& recording : pRecordings)
        recordings.append(MakeRecording(recording));
    QJsonArray groups;
    for (const EvaluationGroup& group : makeGroups(pRecordings))
        groups.append(MakeGroup(group));
    QJsonObject root;
    root[QStringLiteral("from")] = pFrom;
    root[QStringLiteral("recordings")] = recordings;
    root[QStringLiteral("groups")] = groups;
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

QByteArray makeEvaluationCsv(const std::vector<EvaluatedRecording>& pRecordings)
{
    QStringList header = {QStringLiteral("name"), QStringLiteral("genre")};
    for (const EvaluationMeasure& measure : getEvaluationMeasures())
        header.append(measure.key);
    QString text = header.join(QLatin1Char(',')) + QLatin1Char('\n');
    for (const EvaluatedRecording& recording : pRecordings) {
        QStringList cells = {Quote(recording.name), Quote(recording.genre)};
        for (const EvaluationMeasure& measure : getEvaluationMeasures()) {
            const auto value = recording.evaluation.*measure.value;
            cells.append(value ? QString::number(*value, 'f', kDecimals) : QString());
        }
        text += cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toUtf8();
}
