// SPDX-License-Identifier: MIT
#pragma once

#include <cli/output/TextNumbers.h>

#include <QJsonValue>
#include <QString>

namespace cli {

inline QString Key(const char* pName)
{
    return QString::fromLatin1(pName);
}

/// A tempo in BPM, null when unknown.
inline QJsonValue BPMValue(double pBPM)
{
    return pBPM > 0.0 ? QJsonValue(Rounded(pBPM, 3)) : QJsonValue();
}

}  // namespace cli
