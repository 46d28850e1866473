// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <QByteArray>
#include <QString>

#include <cmath>

namespace cli {

/// Seconds with six decimals.
inline QByteArray SecondsText(double pSeconds)
{
    return QByteArray::number(pSeconds, 'f', 6);
}

/// Rounded to pDecimals decimals, so that a number is written with that many at most.
inline double Rounded(double pValue, int pDecimals)
{
    const double scale = std::pow(10.0, pDecimals);
    return std::round(pValue * scale) / scale;
}

/// Label of the beat with the given number, counted from 1: its place in the bar, where that is
/// known.
inline QByteArray BeatLabel(const LoggedBeat& pBeat, std::size_t pNumber)
{
    if (pBeat.beatInBar > 0)
        return QByteArray::number(pBeat.beatInBar);
    return QByteArray::number(qulonglong(pNumber)) + (pBeat.isVirtual ? " virtual" : "");
}

}  // namespace cli
