// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatMatching.h>

/// The measures of the literature on beat tracking, 0 to 1, each with its usual parameters. They
/// give what mir_eval 0.7 gives, oddities included, since figures are compared across papers.
/// Nothing is trimmed here. Without beats on either side a measure is 0. All [allocate].

/// Harmonic mean of the shares of beats that pair up within 70 ms.
double getFMeasure(const BeatTimes& pReference, const BeatTimes& pEstimate);

/// Cemgil's measure: a Gaussian of 40 ms over the distance to the nearest estimated beat.
double getCemgil(const BeatTimes& pReference, const BeatTimes& pEstimate);

/// McKinney's P-score: pairs of beats on a grid of 10 ms that lie within a fifth of the median
/// interval. 0 with fewer than two beats.
double getPScore(const BeatTimes& pReference, const BeatTimes& pEstimate);

/// Shares of beats whose place and interval are right to 17.5 % of the interval.
struct BeatContinuity
{
    double correctLongest = 0.0;  ///< CMLc: longest run at the annotated level
    double correctTotal = 0.0;    ///< CMLt: all runs at the annotated level
    double anyLongest = 0.0;      ///< AMLc: longest run, off-beat, double and half tempo allowed
    double anyTotal = 0.0;        ///< AMLt: all runs, the same allowed
};

/// All 0 with fewer than two beats on either side.
BeatContinuity getContinuity(const BeatTimes& pReference, const BeatTimes& pEstimate);

/// How far the histogram of beat errors is from an even one; 1 = all in one of 41 bins. 0 with
/// fewer than two beats, and when all beats of a side fall together.
double getInformationGain(const BeatTimes& pReference, const BeatTimes& pEstimate);
