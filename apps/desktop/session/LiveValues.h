// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

/// What the live panels show: copied from the analyzer as it comes, read when it is painted.
struct LiveValues
{
    static constexpr qint64 kNever = -1000000;  ///< ms

    bool isAnalyzing = false;  ///< samples arrive and are analysed
    bool isPlaying = false;    ///< they are music
    double bpm = 0.0;          ///< in force, 0 = unknown
    double shownBPM = 0.0;     ///< the same as a steady figure
    double measuredBPM = 0.0;  ///< whatever the profile's range; 0 = unknown
    int charge = 0;            ///< a BeatClockCharge
    bool isHeld = false;       ///< not measured now, but the last that was
    bool isAutomatic = false;  ///< without a profile
    double confidence = -1.0;  ///< of the next beat, 0 to 1; negative = nothing is known
    int beatInBar = 0;         ///< 1 = the one; 0 = the clock stands
    int beatsPerBar = 4;

    qint64 beatTime = kNever;   ///< ms on the feed's clock
    qint64 pulseTime = kNever;  ///< likewise
    bool isBeatVirtual = false;
    bool isPulseVirtual = false;

    quint64 inputCount = 0;    ///< goes up with every new input
    int input = 0;             ///< greatest sample magnitude since it was read last
    qint64 clipTime = kNever;  ///< ms; when a sample was last at full scale
    int current = 0;           ///< volumes of the band: sample magnitudes; negative = none
    int average = 0;
    int maximal = 0;
    int threshold = 0;

    std::vector<double> amplitudes;  ///< normalised power; empty = none
    quint64 spectrumCount = 0;       ///< spectra so far
    int sampleRate = 0;              ///< Hz
};
