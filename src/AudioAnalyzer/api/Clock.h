/* SPDX-License-Identifier: MIT */
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/BeatClockState.h>
#include <AudioAnalyzer/api/Analysis.h>

#include <stdint.h>

/** @file
 * A clock of beats for hosts in any language: told the beats of an analysis, or set by hand, it
 * answers at any time which beat it is and when the next ones are due. Valid C11 and C++17.
 *
 *     static void OnBeat(void* pUser, const AudioAnalysisBeat* pBeat)
 *     {
 *         AudioClockBeat beat = {start + (int64_t)(pBeat->time * 1e6), pBeat->bpm,
 *                                pBeat->accuracy, pBeat->isVirtual, -1};
 *         AudioClock_Hear(pUser, &beat, Now());
 *     }
 *     ...
 *     BeatClockState state;
 *     AudioClock_GetState(pClock, &state);
 *     int64_t due = AudioClock_GetTickTime(&state, AudioClock_GetNextTick(&state, Now(), 24, 0),
 * 24, 0);
 *
 * Instants are microseconds (µs) on a clock of the host that is never set back, from -2^52 to 2^52;
 * the present, pNow, is one of them, and one before an earlier one counts as that. Offsets are µs,
 * from -500000 to 500000, positive is later. Tempos are beats per minute (BPM), 0 meaning unknown.
 *
 * A function that can refuse returns an AudioAnalysisError and changes nothing when that is not
 * AudioAnalysisError_None; AudioAnalysis_DescribeError has words for it. No argument of a wrong
 * value harms, NULL and NaN included.
 *
 * Threads. A clock is set by one thread at a time. AudioClock_GetState may be called at the same
 * time by any thread, and never waits; what is computed from a state needs no clock. The real-time
 * thread of an output therefore takes a state whenever it wakes and sleeps until the next tick.
 */

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C has no other way. */

/** A beat clock; BeatClock in C++. */
typedef struct AudioClock AudioClock;

/** A beat as a tracker tells it. The record stays as it is in all versions of one SONAME. */
typedef struct AudioClockBeat
{
    int64_t time;      /**< µs; when it sounds or sounded, at most 5 s from the present */
    double bpm;        /**< the tracker's tempo; 0 = unknown */
    double trust;      /**< how sure the tracker is, 0 to 1 */
    int32_t isVirtual; /**< 1: it was not heard, and the clock goes on without it; else 0 */
    int32_t beatInBar; /**< 0 = the one; -1 = unknown */
} AudioClockBeat;

/** What AudioClock_Set sets. The values stay; later versions append. */
typedef enum AudioClockSetting
{
    /** Beats of a bar, 2 to 12; 4. */
    AudioClockSetting_BeatsPerBar = 0,
    /** Share of the tempo by which the clock may run fast or slow to catch up, 0.001 to 0.5; 0.05
     * makes good 50 ms a second. */
    AudioClockSetting_Slew = 1,
    /** µs added to all instants, -500000 to 500000, for outputs that are late; 0. */
    AudioClockSetting_Offset = 2,
    /** 1 goes on while the music has stopped; 0, the default, does not. */
    AudioClockSetting_GoesOn = 3
} AudioClockSetting;

/* NOLINTEND(modernize-use-using) */

/* ---- Life ------------------------------------------------------------------------------------ */

/**
 * Makes a clock that stands still. The caller owns it and gives it to AudioClock_Destroy. NULL when
 * memory has run out. [allocates]
 */
AUDIOANALYZER_EXPORT AudioClock* AudioClock_Create(void);

/**
 * Frees the clock, which no thread may be using. None, Null.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Destroy(AudioClock* pClock);

/**
 * Forgets music and hand, and stands still; settings stay. None, Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Restart(AudioClock* pClock, int64_t pNow);

/**
 * Sets an AudioClockSetting, at any time. None, Null, Range, Unknown. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Set(AudioClock* pClock,
                                                       int32_t pSetting,
                                                       double pValue,
                                                       int64_t pNow);

/**
 * Stores what was set in *pValue. None, Null, Unknown. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Get(const AudioClock* pClock,
                                                       int32_t pSetting,
                                                       double* pValue);

/* ---- The music ------------------------------------------------------------------------------- */

/**
 * A beat of the music, in order of time. One farther than 5 s from the present, and one that is not
 * behind the last, is passed over. None, Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Hear(AudioClock* pClock,
                                                        const AudioClockBeat* pBeat,
                                                        int64_t pNow);

/**
 * The music plays (1), as a clock believes from the beginning, or has stopped (0). None, Null,
 * Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_SetPlaying(AudioClock* pClock,
                                                              int32_t pIsPlaying,
                                                              int64_t pNow);

/* ---- The hand -------------------------------------------------------------------------------- */

/**
 * A tap. From the second one on, taps set tempo and phase, and put the hand in charge until eight
 * beats after the last one. None, Null, Range. [allocates]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Tap(AudioClock* pClock, int64_t pNow);

/**
 * Moves the beats by some µs, positive is later, until the next new song. None, Null, Range (more
 * than 500000 either way). [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Nudge(AudioClock* pClock,
                                                         int64_t pMicroSeconds,
                                                         int64_t pNow);

/**
 * A nudge that is held: the clock runs faster by a share of its tempo, -0.5 to 0.5, until it is
 * told 0. None, Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Bend(AudioClock* pClock,
                                                        double pShare,
                                                        int64_t pNow);

/**
 * The beat nearest to the present is the first one of a bar. None, Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_MarkOne(AudioClock* pClock, int64_t pNow);

/**
 * Multiplies the tempo by pNumerator / pDenominator, both 1 to 64: 1/2, 2/1, 3/2, 2/3. While the
 * music is in charge the clock goes on following it at that factor. None, Null, Range (also when
 * the tempo would leave 10 to 999 BPM, or there is none). [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Scale(AudioClock* pClock,
                                                         int32_t pNumerator,
                                                         int32_t pDenominator,
                                                         int64_t pNow);

/**
 * Rounds the tempo to whole BPM. None, Null, Range (also when there is none). [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Round(AudioClock* pClock, int64_t pNow);

/**
 * Keeps tempo and phase, whatever the music does. pBPM: the tempo, 10 to 999, with which the clock
 * begins if it does not run; 0 is the one it has. None, Null, Range (also when it has none). [no
 * allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Hold(AudioClock* pClock,
                                                        double pBPM,
                                                        int64_t pNow);

/**
 * Gives the clock back to the music. None, Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_Release(AudioClock* pClock, int64_t pNow);

/* ---- What it says ---------------------------------------------------------------------------- */

/**
 * Stores what is known now in *pState. None, Null. [any thread] [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioClock_GetState(const AudioClock* pClock,
                                                            BeatClockState* pState);

/*
 * The following compute from a state alone; a state that is NULL, or an instant, division or offset
 * outside its limits, gives the value named last.
 */

/** 1 while beats go on; else 0. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT int32_t AudioClock_IsRunning(const BeatClockState* pState);

/** Number of the last beat that is not behind the instant at an output; -1. [any thread] [no
 * allocation] */
AUDIOANALYZER_EXPORT int64_t AudioClock_GetBeat(const BeatClockState* pState,
                                                int64_t pTime,
                                                int64_t pOffset);

/** How much of that beat has passed, [0, 1); -1. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT double
AudioClock_GetPhase(const BeatClockState* pState, int64_t pTime, int64_t pOffset);

/** Place of a beat in its bar, 0 = the one; -1. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT int32_t AudioClock_GetBeatInBar(const BeatClockState* pState, int64_t pBeat);

/** Number of the first tick behind the instant at an output; pDivision ticks a beat, 1 to 10000,
 * tick pDivision * n is beat n; -1. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT int64_t AudioClock_GetNextTick(const BeatClockState* pState,
                                                    int64_t pTime,
                                                    int32_t pDivision,
                                                    int64_t pOffset);

/** When a tick is due at an output, µs; BEATCLOCK_NEVER when the clock stops before, or has no
 * tempo; BEATCLOCK_NEVER. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT int64_t AudioClock_GetTickTime(const BeatClockState* pState,
                                                    int64_t pTick,
                                                    int32_t pDivision,
                                                    int64_t pOffset);

/** How sure the beats are at an instant, 0 to 1; -1. [any thread] [no allocation] */
AUDIOANALYZER_EXPORT double AudioClock_GetSureness(const BeatClockState* pState, int64_t pTime);

#ifdef __cplusplus
}
#endif
