// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QList>

#include <support/Text.h>

/// One for each line.
inline QList<QJsonObject> Events(const QByteArray& pText)
{
    QList<QJsonObject> events;
    for (const QString& line : Lines(pText))
        events.append(QJsonDocument::fromJson(line.toUtf8()).object());
    return events;
}

/// The events of a type, in order.
inline QList<QJsonObject> Select(const QList<QJsonObject>& pEvents, const char* pType)
{
    QList<QJsonObject> selected;
    for (const QJsonObject& event : pEvents)
        if (event[QStringLiteral("type")].toString() == QLatin1String(pType))
            selected.append(event);
    return selected;
}
