// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A beat that audio-analyzer announced.
struct HeardBeat
{
    double time = 0.0;        ///< seconds of the system's monotonic clock at which it fell due
    double bpm = 0.0;         ///< 0: unknown
    int beatInBar = 1;        ///< from 1; 1 is the one
    double confidence = 0.0;  ///< 0 to 1
};

/// A line of what `audio-analyzer listen --format ndjson` writes.
struct HeardLine
{
    enum eKind
    {
        eBeat,       ///< beat holds it
        eOther,      ///< another event
        eUnreadable  ///< not of this format
    };

    eKind kind = eUnreadable;
    HeardBeat beat;
};

/// pLine: with or without its line feed. Any bytes may stand in it. [allocates]
HeardLine parseHeardLine(const QByteArray& pLine);
