// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <QString>

#include <utility>
#include <vector>

/// One annotated piece of music: what a listener counts, and what the tracker hears.
struct Track
{
    QString name;
    QString genre;
    QString provenance;
    double bpm = 0.0;
    double lowestBPM = 0.0;  ///< tempi that count as right, as written
    double highestBPM = 0.0;
    double duration = 0.0;                           ///< seconds
    std::vector<double> beats;                       ///< seconds, ascending
    std::vector<std::pair<double, double>> ignored;  ///< seconds without beats of any meaning

    int sampleRate = 0;
    std::vector<OnsetLevels::Levels> levels;  ///< of each frame
    std::vector<float> meanSquares;           ///< of each frame, 1 = full scale

    bool isIgnored(double pSeconds) const
    {
        for (const auto& span : ignored)
            if (pSeconds >= span.first && pSeconds <= span.second)
                return true;
        return false;
    }
};
