// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatEvaluation.h>

/// pCount beats from pStart on, in seconds.
inline BeatTimes Grid(double pInterval, int pCount, double pStart = 0.0)
{
    BeatTimes beats;
    for (int i = 0; i < pCount; ++i)
        beats.push_back(pStart + i * pInterval);
    return beats;
}
