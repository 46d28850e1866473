// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QFile>

/// Writes a file that QSettings is going to read. QSettings keeps in memory a file of the same size
/// and time, so each one gets a time of its own.
inline bool WriteIniFile(const QString& pPath, const QByteArray& pText)
{
    static int s_count = 0;
    QFile file(pPath);
    return file.open(QIODevice::WriteOnly) && file.write(pText) == pText.size() && file.flush() &&
           file.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000 + 10 * ++s_count),
                            QFileDevice::FileModificationTime);
}
