// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtEndian>

namespace shared {

/// File size in bytes that the head of a WAV ("RIFF") or AIFF ("FORM") file promises.
///
/// 0 when it promises none: another kind of file, or a placeholder left by a program that wrote to
/// a pipe, which is 0 or close to the greatest 31- or 32-bit number.
inline qint64 PromisedFileSize(const QByteArray& pHead)
{
    constexpr quint32 kFirstPlaceholder = 0x7fff0000;
    if (pHead.size() < 8)
        return 0;
    quint32 size = 0;
    if (pHead.startsWith("RIFF"))
        size = qFromLittleEndian<quint32>(pHead.constData() + 4);
    else if (pHead.startsWith("FORM"))
        size = qFromBigEndian<quint32>(pHead.constData() + 4);
    const bool isPlaceholder =
        size == 0 || (size >= kFirstPlaceholder && size <= 0x7fffffff) || size >= 0xffff0000;
    return isPlaceholder ? 0 : qint64(size) + 8;
}

}  // namespace shared
