// SPDX-License-Identifier: MIT
#include <cli/evaluate/TempoMeasures.h>

#include <initializer_list>

double getTempo(const BeatTimes& pBeats)
{
    const double interval = getMedianInterval(pBeats);
    return interval > 0.0 ? 60.0 / interval : 0.0;
}

bool isTempoRight(const TempoRange& pRange, double pTempo, double pTolerance)
{
    return pTempo >= pRange.minimum * (1.0 - pTolerance) &&
           pTempo <= pRange.maximum * (1.0 + pTolerance);
}

bool isTempoRightUpToLevel(const TempoRange& pRange, double pTempo, double pTolerance)
{
    for (const double factor : {1.0, 2.0, 3.0, 1.0 / 2.0, 1.0 / 3.0})
        if (isTempoRight({pRange.minimum * factor, pRange.maximum * factor}, pTempo, pTolerance))
            return true;
    return false;
}
