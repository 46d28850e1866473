// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationFiles.h>
#include <shared/text/Text.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

/// The numbers of a list; nothing when it is none, or holds anything else.
std::optional<std::vector<double>> ToNumbers(const QJsonValue& pValue)
{
    if (!pValue.isArray())
        return std::nullopt;
    std::vector<double> numbers;
    for (const QJsonValue& value : pValue.toArray()) {
        if (!value.isDouble())
            return std::nullopt;
        numbers.push_back(value.toDouble());
    }
    if (!std::is_sorted(numbers.begin(), numbers.end()))
        return std::nullopt;
    return numbers;
}

/// False when it stands there and is no number above 0.
bool ReadPositive(const QJsonValue& pValue, double& pNumber)
{
    pNumber = pValue.toDouble();
    return pValue.isUndefined() || pNumber > 0.0;
}

bool ReadRange(const QJsonValue& pValue, BeatReference& pReference)
{
    if (pValue.isUndefined())
        return true;
    const auto range = ToNumbers(pValue);
    if (!range || range->size() != 2 || range->front() <= 0.0)
        return false;
    pReference.minimalTempo = range->front();
    pReference.maximalTempo = range->back();
    return true;
}

bool ReadIgnored(const QJsonValue& pValue, BeatReference& pReference)
{
    if (pValue.isUndefined())
        return true;
    for (const QJsonValue& value : pValue.toArray()) {
        const auto span = ToNumbers(value);
        if (!span || span->size() != 2)
            return false;
        pReference.ignored.push_back({span->front(), span->back()});
    }
    return pValue.isArray();
}

bool ReadChanges(const QJsonValue& pValue, BeatReference& pReference)
{
    const auto changes = ToNumbers(pValue);
    pReference.changes = changes.value_or(std::vector<double>());
    return pValue.isUndefined() || changes;
}

/// Returns what is wrong, without the file's name.
QString ReadObject(const QJsonObject& pObject, BeatReference& pReference)
{
    const auto get = [&](const char* pKey) { return pObject.value(QLatin1String(pKey)); };
    if (!ReadPositive(get("bpm"), pReference.minimalTempo))
        return tr("\"bpm\" is no number above 0");
    pReference.maximalTempo = pReference.minimalTempo;
    if (!ReadPositive(get("duration"), pReference.duration))
        return tr("\"duration\" is no number above 0");
    if (!ReadRange(get("tempo_range"), pReference))
        return tr("\"tempo_range\" is no [lowest, highest] in BPM");
    if (!ReadIgnored(get("ignore"), pReference))
        return tr("\"ignore\" is no list of [start, end] in seconds");
    if (!ReadChanges(get("changes"), pReference))
        return tr("\"changes\" is no ascending list of seconds");
    return {};
}

}  // namespace

QString readReference(const QString& pPath, BeatReference& pReference, QString& pGenre)
{
    const QString refusal = readBeatFile(pPath, pReference.beats);
    const QString path =
        QFileInfo(pPath).dir().filePath(getRecordingName(pPath) + QStringLiteral(".json"));
    if (!refusal.isEmpty() || pPath == QLatin1String("-") || !QFileInfo::exists(path))
        return refusal;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tr("%1: %2").arg(path, file.errorString());
    QJsonParseError error = {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject())
        return tr("%1: is no JSON object: %2").arg(path, error.errorString());
    pGenre = document.object().value(QLatin1String("genre")).toString();
    const QString fault = ReadObject(document.object(), pReference);
    return fault.isEmpty() ? QString() : tr("%1: %2").arg(path, fault);
}
