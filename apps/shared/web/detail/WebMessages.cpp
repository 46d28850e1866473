// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebMessages.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <utility>

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

bool HasButton(HandAction::eKind pKind)
{
    switch (pKind) {
    case HandAction::eTap:
    case HandAction::eOne:
    case HandAction::eHalf:
    case HandAction::eDouble:
    case HandAction::eHold:
    case HandAction::eReset:
    case HandAction::eNudge:
        return true;
    case HandAction::eBend:
    case HandAction::eOffset:
    case HandAction::eProfile:
        break;
    }
    return false;
}

}  // namespace

std::optional<WebWish> ReadWebMessage(const QString& pText)
{
    // A name is taken as it stands.
    for (const auto& [word, kind] :
         {std::pair("profile ", WebWish::eProfile), std::pair("input ", WebWish::eInput)})
        if (pText.startsWith(QLatin1String(word)))
            return WebWish{kind, {}, pText.mid(int(qstrlen(word)))};
    const std::optional<HandAction> action = HandAction::Parse(pText);
    if (!action || !HasButton(action->kind))
        return std::nullopt;
    return WebWish{WebWish::eAction, *action};
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

QByteArray describeWebChoices(const WebChoices& pChoices)
{
    QJsonArray inputs;
    for (const WebInput& input : pChoices.inputs) {
        QJsonObject object;
        object[QStringLiteral("name")] = input.name;
        object[QStringLiteral("description")] = input.description;
        object[QStringLiteral("isMonitor")] = input.isMonitor;
        inputs.append(object);
    }
    QJsonObject object;
    object[QStringLiteral("type")] = QStringLiteral("choices");
    object[QStringLiteral("profile")] = pChoices.profile;
    object[QStringLiteral("profiles")] = QJsonArray::fromStringList(pChoices.profiles);
    object[QStringLiteral("input")] = pChoices.input;
    object[QStringLiteral("inputs")] = inputs;
    return Line(object);
}

}  // namespace shared::detail
