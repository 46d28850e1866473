// SPDX-License-Identifier: MIT
#pragma once

#include <cli/output/TextNumbers.h>
#include <shared/beats/AnalysisResult.h>

#include <QJsonObject>

namespace cli {

/// What the JSON of a beat says beside its time and tempo: as much as its tracker knows.
inline QJsonObject BeatFields(const LoggedBeat& pBeat)
{
    QJsonObject fields{{QStringLiteral("virtual"), pBeat.isVirtual}};
    if (pBeat.beatInBar > 0) {
        fields[QStringLiteral("barConfidence")] = Rounded(pBeat.barConfidence, 6);
        fields[QStringLiteral("beatInBar")] = pBeat.beatInBar;
        fields[QStringLiteral("confidence")] = Rounded(pBeat.confidence, 6);
    } else {
        fields[QStringLiteral("accuracy")] = Rounded(pBeat.accuracy, 6);
        fields[QStringLiteral("loudness")] = pBeat.loudness;
    }
    return fields;
}

}  // namespace cli
