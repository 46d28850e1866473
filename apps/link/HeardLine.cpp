// SPDX-License-Identifier: MIT
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <link/HeardLine.h>

namespace {

constexpr double kMostBeatsInBar = 64.0;
constexpr double kTooFast = 1000.0;  // BPM

/// Leaves pBeat alone and says false when a field is missing or makes no sense.
bool ReadBeat(const QJsonObject& pEvent, HeardBeat& pBeat)
{
    const QJsonValue bpm = pEvent.value(QLatin1String("bpm"));
    const double time = pEvent.value(QLatin1String("monotonic")).toDouble(-1.0);
    const double beatInBar = pEvent.value(QLatin1String("beatInBar")).toDouble();
    const double confidence = pEvent.value(QLatin1String("confidence")).toDouble(-1.0);
    const bool isTempo = bpm.isNull() || (bpm.toDouble() > 0.0 && bpm.toDouble() < kTooFast);
    const bool isBar = beatInBar >= 1.0 && beatInBar <= kMostBeatsInBar;
    const bool isConfidence = confidence >= 0.0 && confidence <= 1.0;
    if (!isTempo || !isBar || !isConfidence || !(time >= 0.0) || std::isinf(time))
        return false;
    pBeat = {time, bpm.toDouble(), int(beatInBar), confidence};
    return true;
}

}  // namespace

HeardLine parseHeardLine(const QByteArray& pLine)
{
    HeardLine line;
    const QJsonObject event = QJsonDocument::fromJson(pLine).object();
    const QJsonValue type = event.value(QLatin1String("type"));
    if (!type.isString())
        return line;
    if (type.toString() != QLatin1String("announce"))
        line.kind = HeardLine::eOther;
    else if (ReadBeat(event, line.beat))
        line.kind = HeardLine::eBeat;
    return line;
}
