// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

/// Reads bytes written down by hand: hex digits, blanks, and comments from # to the end of the
/// line. A line may begin with its offset, "0010:", which is checked. A fault gives an empty array.
inline QByteArray bytesOfHexDump(const QByteArray& dump)
{
    QByteArray bytes;
    for (QByteArray line : dump.split('\n')) {
        const int comment = line.indexOf('#');
        if (comment >= 0)
            line.truncate(comment);
        const int colon = line.indexOf(':');
        if (colon >= 0 && line.left(colon).trimmed().toInt(nullptr, 16) != bytes.size())
            return QByteArray();
        const QByteArray digits = line.mid(colon + 1).simplified().replace(' ', "");
        const QByteArray part = QByteArray::fromHex(digits);
        if (part.toHex() != digits)
            return QByteArray();
        bytes += part;
    }
    return bytes;
}

/// The bytes of a hex dump in a file; empty when it cannot be read.
inline QByteArray bytesOfHexFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? bytesOfHexDump(file.readAll()) : QByteArray();
}
