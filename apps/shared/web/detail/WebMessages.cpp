// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebMessages.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace shared::detail {

namespace {

double Rounded(double pValue, double pSteps)
{
    return std::round(pValue * pSteps) / pSteps;
}

QByteArray Line(const QJsonObject& pObject)
{
    return QJsonDocument(pObject).toJson(QJsonDocument::Compact);
}

}  // namespace

std::optional<HandAction> ReadWebMessage(const QString& pText)
{
    const std::optional<HandAction> action = HandAction::Parse(pText);
    if (!action)
        return std::nullopt;
    switch (action->kind) {
    case HandAction::eTap:
    case HandAction::eOne:
    case HandAction::eHalf:
    case HandAction::eDouble:
    case HandAction::eHold:
    case HandAction::eReset:
    case HandAction::eNudge:
        return action;
    case HandAction::eBend:
    case HandAction::eOffset:
    case HandAction::eProfile:
        return std::nullopt;
    }
    return std::nullopt;
}

QByteArray describeWebBeat(const BeatClockState& pState, double pConfidence, std::int64_t pNow)
{
    constexpr double kMilliSecond = 1000.0;  // µs
    const std::int64_t beat = pState.getNextTick(pNow);
    QJsonObject object;
    object[QStringLiteral("type")] = QStringLiteral("beat");
    object[QStringLiteral("beat")] = double(beat);
    object[QStringLiteral("beatInBar")] = pState.getBeatInBar(beat) + 1;
    object[QStringLiteral("bpm")] = Rounded(pState.bpm, 100.0);
    object[QStringLiteral("confidence")] = Rounded(pConfidence, 100.0);
    object[QStringLiteral("ms")] =
        Rounded(double(pState.getTickTime(beat) - pNow) / kMilliSecond, 10.0);
    return Line(object);
}

QByteArray describeWebState(const BeatClockState& pState,
                            bool pIsPlaying,
                            double pLevel,
                            const QVector<WebOutput>& pOutputs)
{
    const char* charge = pState.charge == BeatClockCharge_Music  ? "music"
                         : pState.charge == BeatClockCharge_Hand ? "hand"
                                                                 : "held";
    QJsonArray outputs;
    for (const WebOutput& output : pOutputs) {
        QJsonObject object;
        object[QStringLiteral("name")] = output.name;
        object[QStringLiteral("state")] = output.state;
        object[QStringLiteral("isOpen")] = output.isOpen;
        outputs.append(object);
    }
    QJsonObject object;
    object[QStringLiteral("type")] = QStringLiteral("state");
    object[QStringLiteral("isRunning")] = pState.isRunning();
    object[QStringLiteral("isPlaying")] = pIsPlaying;
    object[QStringLiteral("charge")] = QLatin1String(charge);
    object[QStringLiteral("beatsPerBar")] = pState.beatsPerBar;
    object[QStringLiteral("level")] = Rounded(pLevel, 100.0);
    object[QStringLiteral("outputs")] = outputs;
    return Line(object);
}

}  // namespace shared::detail
