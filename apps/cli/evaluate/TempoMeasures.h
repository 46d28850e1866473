// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatMatching.h>

/// The tempos that are right, BPM, both ends included.
struct TempoRange
{
    double minimum;
    double maximum;
};

/// The tempo of the median interval, BPM; 0 when there is none.
double getTempo(const BeatTimes& pBeats);

/// Whether pTempo lies in pRange widened by the share pTolerance. False for a tempo of 0.
bool isTempoRight(const TempoRange& pRange, double pTempo, double pTolerance);

/// The same with two and three times and a half and a third of pRange as well.
bool isTempoRightUpToLevel(const TempoRange& pRange, double pTempo, double pTolerance);
