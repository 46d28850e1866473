// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatMatching.h>

#include <optional>

/// A stretch of a recording, seconds; both ends belong to it.
struct EvaluatedSpan
{
    double start;
    double end;
};

/// What is known of a recording: the truth that an estimate is held against.
struct BeatReference
{
    BeatTimes beats;                     ///< empty = there is no music, and no beat to be found
    double minimalTempo = 0.0;           ///< BPM; 0 = that of the beats
    double maximalTempo = 0.0;           ///< BPM
    double duration = 0.0;               ///< seconds; 0 = unknown
    std::vector<EvaluatedSpan> ignored;  ///< stretches in which beats are neither wanted nor wrong
    std::vector<double> changes;         ///< where the music becomes another, seconds, ascending
};

/// What a tracker found.
struct BeatEstimate
{
    std::optional<BeatTimes> beats;  ///< nothing = only the tempo was estimated
    double tempo = 0.0;              ///< BPM; 0 = that of the beats
};

/// How good an estimate is. A measure without a value does not apply to this recording or estimate.
/// Shares and verdicts are 0 to 1, so that their means are shares.
struct BeatEvaluation
{
    using Value = std::optional<double>;

    Value fMeasure;
    Value cemgil;
    Value correctLongest;  ///< CMLc
    Value correctTotal;    ///< CMLt
    Value anyLongest;      ///< AMLc
    Value anyTotal;        ///< AMLt
    Value pScore;
    Value informationGain;
    Value isTempoRight;    ///< within 4 %
    Value isTempoOctave;   ///< within 4 % of the tempo, or of two or three times or parts of it
    Value isTempoPrecise;  ///< within 1 %
    Value meanError;       ///< of the pairs, estimated minus annotated, seconds
    Value medianError;     ///< the same
    Value firstLock;       ///< seconds; infinity = never
    Value relock;          ///< median over the changes, seconds; infinity = never
    Value octaveFlips;     ///< changes of the metrical level, an hour
    Value overrun;         ///< how long beats go on after the last annotated one, seconds
    Value falseBeats;      ///< beats a minute where there is no music
};

/// Holds pEstimate against pReference. Beats before pFrom seconds are left out of all measures but
/// the locks, the overrun and the false beats. [allocates]
BeatEvaluation
evaluateBeats(const BeatReference& pReference, const BeatEstimate& pEstimate, double pFrom);
