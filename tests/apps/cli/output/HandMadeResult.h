// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

/// Three beats in 2.5 s at 8000 Hz, the second one virtual.
inline AnalysisResult HandMadeResult()
{
    AnalysisResult result;
    result.source = QStringLiteral("dir/a \"song\".flac");
    result.sampleRate = 8000;
    result.sampleCount = 20000;
    result.beats = {{4000, 0.5, false, 12000, 1.0, 0.0},
                    {8001, 8001.0 / 8000, true, 900, 0.5, 119.99},
                    {12345, 12345.0 / 8000, false, 32767, 1.0 / 3.0, 120.123456}};
    result.tempos = {{0.6, 0.0}, {1.1, 119.99}, {1.7, 120.123456}};
    result.silences = {{0.0, 0.25}, {2.0, 2.5}};
    result.pulseTimes = {0.5, 1.543125};
    return result;
}
