// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace cli {

/// What the live line shows.
struct LiveValues
{
    bool isBeat = false;      ///< a beat fell due a moment ago
    double bpm = 0.0;         ///< 0 = unknown
    int beatInBar = 0;        ///< 1 = the one; 0 = unknown
    double confidence = 0.0;  ///< of the next beat, 0 to 1
    int peak = 0;             ///< sample magnitude
    int threshold = 0;        ///< sample magnitude that makes a pulse; below 0 = none yet
    QString status;           ///< a word
    double seconds = 0.0;     ///< since the first sample
    QString device;
};

/// One line of at most pColumns characters.
QString LiveLine(const LiveValues& pValues, int pColumns);

/// A bar over 60 dB up to full scale, with the place of the threshold in it.
QString LevelBar(int pPeak, int pThreshold);

}  // namespace cli
