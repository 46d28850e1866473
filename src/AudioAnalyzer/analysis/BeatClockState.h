/* SPDX-License-Identifier: MIT */
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/BeatLine.h>

#include <stdint.h>

/** No instant at all: later than any other. */
#define BEATCLOCK_NEVER INT64_MAX

/* NOLINTBEGIN(modernize-use-using): C has no other way. */

/** Who is in charge of a beat clock. The numbers stay. */
typedef enum BeatClockCharge
{
    BeatClockCharge_Music = 0, /**< the beats that are heard */
    BeatClockCharge_Hand = 1,  /**< the taps, until some beats after the last one */
    BeatClockCharge_Held = 2   /**< the tempo is held, whatever the music does */
} BeatClockCharge;

/** What a BeatClock knew when it was asked, and all that follows from it: a plain copy, from which
 * any thread computes beats and ticks to come without asking again. Also valid C.
 *
 * Beats are counted. Up to then.time they follow the line now, which may run a little fast or slow
 * to catch up, and from there on the line then. A tick is a division-th of a beat: tick number i of
 * division d lies at position i / d, so tick 24 n of division 24 is beat n.
 *
 * Instants that go in or come out are those at which something is to happen at an output: offset,
 * and the offset of the output itself, are added to those of the music. Positive is later. */
typedef struct BeatClockState
{
    BeatLine now;        /**< up to then.time */
    BeatLine then;       /**< from then.time on */
    int64_t endTime;     /**< µs; no beat behind it: BEATCLOCK_NEVER while the clock runs */
    int64_t offset;      /**< µs, added to every instant */
    int64_t firstBeat;   /**< number of the first beat of this run */
    int64_t oneBeat;     /**< number of a beat that begins a bar */
    int64_t heardTime;   /**< µs; the last beat of the music that was followed */
    double bpm;          /**< the tempo, without what catches up; 0 = none yet */
    double sureness;     /**< how well beats were foretold up to heardTime, 0 to 1 */
    uint32_t run;        /**< how often the clock has begun to run; 0 = never */
    uint32_t epoch;      /**< how often the beats have jumped */
    int32_t beatsPerBar; /**< 2 to 12 */
    int32_t charge;      /**< a BeatClockCharge */
    int32_t isPlaying;   /**< 1: the music plays; 0: it has stopped */
    int32_t numerator;   /**< with denominator: the clock's beats over those of the music */
    int32_t denominator;

#ifdef __cplusplus
    /// Whether beats go on. [any thread] [no allocation]
    bool isRunning() const
    {
        return period() > 0.0 && endTime == BEATCLOCK_NEVER;
    }
    /// Beats at an instant at an output, µs; it stays where the clock stopped. 0 before the first
    /// run. [any thread] [no allocation]
    AUDIOANALYZER_EXPORT double getPosition(int64_t pTime, int64_t pOffset = 0) const;
    /// Number of the last beat that is not behind the instant. [any thread] [no allocation]
    AUDIOANALYZER_EXPORT int64_t getBeat(int64_t pTime, int64_t pOffset = 0) const;
    /// How much of that beat has passed, [0, 1). [any thread] [no allocation]
    AUDIOANALYZER_EXPORT double getPhase(int64_t pTime, int64_t pOffset = 0) const;
    /// Place of a beat in its bar, 0 = the one, to beatsPerBar - 1. [any thread] [no allocation]
    AUDIOANALYZER_EXPORT int32_t getBeatInBar(int64_t pBeat) const;
    /// When a tick of a division, 1 at least, is due at an output, µs; BEATCLOCK_NEVER when the
    /// clock stopped before it, or has no tempo. [any thread] [no allocation]
    AUDIOANALYZER_EXPORT int64_t getTickTime(int64_t pTick,
                                             int32_t pDivision = 1,
                                             int64_t pOffset = 0) const;
    /// Number of the first tick that is due behind the instant, if the clock goes on. [any thread]
    /// [no allocation]
    AUDIOANALYZER_EXPORT int64_t getNextTick(int64_t pTime,
                                             int32_t pDivision = 1,
                                             int64_t pOffset = 0) const;
    /// How sure the beats are at an instant of the music, 0 to 1: it fades with every beat that is
    /// not heard, and is 1 when not the music is in charge. [any thread] [no allocation]
    AUDIOANALYZER_EXPORT double getSureness(int64_t pTime) const;

    /// µs a beat, without what catches up; 0 = no tempo. [any thread] [no allocation]
    double period() const
    {
        return then.period;
    }
#endif
} BeatClockState;

/* NOLINTEND(modernize-use-using) */
