// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLatin1String>

namespace shared {

constexpr int kKindSize = 16;  ///< bytes at the front of a file that tell its kind

/// What the kind of a file that begins so is called, when it is one that is not read; else empty.
inline QLatin1String UnreadKind(const QByteArray& pHead)
{
    struct Kind
    {
        int offset;
        const char* mark;
        const char* name;
    };
    static constexpr Kind kKinds[] = {{4, "ftyp", "MPEG-4 (M4A, AAC or ALAC)"},
                                      {0, "\x30\x26\xB2\x75", "Windows Media (WMA)"},
                                      {0, "\x1A\x45\xDF\xA3", "Matroska or WebM"},
                                      {0, "ADIF", "AAC"},
                                      {0, "\xFF\xF1", "AAC"},
                                      {0, "\xFF\xF9", "AAC"},
                                      {0, "MAC ", "Monkey's Audio"},
                                      {0, "wvpk", "WavPack"},
                                      {0, "MPCK", "Musepack"},
                                      {0, "DSD ", "DSD"},
                                      {0, "MThd", "MIDI"}};
    for (const Kind& kind : kKinds)
        if (pHead.mid(kind.offset).startsWith(kind.mark))
            return QLatin1String(kind.name);
    return {};
}

/// Whether the decoder of a file that begins so seeks in it, which a pipe cannot.
inline bool NeedsSeeking(const QByteArray& pHead)
{
    return pHead.startsWith("fLaC") || pHead.startsWith("caff");
}

}  // namespace shared
