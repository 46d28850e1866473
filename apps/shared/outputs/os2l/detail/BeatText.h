// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>

#include <QByteArray>

#include <algorithm>

namespace shared::detail {

/// A beat as OS2L has it: one JSON object, without a line break.
inline QByteArray BeatText(const OutputMoment& pMoment)
{
    constexpr int kDecimals = 2;
    const double strength = std::clamp(pMoment.confidence, 0.0, 1.0);
    return QByteArrayLiteral("{\"evt\":\"beat\",\"change\":") +
           (pMoment.isTempoNew ? "true" : "false") + QByteArrayLiteral(",\"pos\":") +
           QByteArray::number(static_cast<qlonglong>(pMoment.tick.beat)) +
           QByteArrayLiteral(",\"bpm\":") + QByteArray::number(pMoment.state.bpm, 'f', kDecimals) +
           QByteArrayLiteral(",\"strength\":") + QByteArray::number(strength, 'f', kDecimals) + '}';
}

}  // namespace shared::detail
