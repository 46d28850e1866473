// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A text of a test, which is written in UTF-8.
inline QString Text(const char* pText)
{
    return QString::fromUtf8(pText);
}

/// The lines of a text, but for the empty ones.
inline QStringList Lines(const QByteArray& pText)
{
    return QString::fromUtf8(pText).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
