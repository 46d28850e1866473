/* SPDX-License-Identifier: MIT */
#pragma once

#include <stddef.h>
#include <stdint.h>

/** @file
 * What api/Analysis.h speaks of: its numbers, its records and its callbacks. Units, ownership and
 * threads are said there. Valid C11 and C++17.
 */

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C has no other way. */

/** An analysis: one stream of audio with its settings. */
typedef struct AudioAnalysis AudioAnalysis;

/** How a function answered. The values stay. */
typedef enum AudioAnalysisError
{
    AudioAnalysisError_None = 0,     /**< done */
    AudioAnalysisError_Null = 1,     /**< a pointer that must not be NULL is */
    AudioAnalysisError_Range = 2,    /**< a number outside its limits, or NaN */
    AudioAnalysisError_Unknown = 3,  /**< no such setting, or no built-in profile of that name */
    AudioAnalysisError_Busy = 4,     /**< called from a callback that must not */
    AudioAnalysisError_Finished = 5, /**< no samples after AudioAnalysis_Finish */
    AudioAnalysisError_Memory = 6,   /**< memory has run out */
    AudioAnalysisError_Internal = 7  /**< a callback threw; destroy or restart the analysis */
} AudioAnalysisError;

/** Who tells beats, tempos and stops. The values stay. */
typedef enum AudioAnalysisTracker
{
    /** Follows any music from 60 to 190 BPM and needs no profile; the default. */
    AudioAnalysisTracker_Automatic = 0,
    /** The engine, which searches the tempos and the band of a profile. */
    AudioAnalysisTracker_Profile = 1
} AudioAnalysisTracker;

/** What AudioAnalysis_Set sets. The values stay; later versions append. */
typedef enum AudioAnalysisSetting
{
    /** Magnitude that makes a pulse, 0 to 32767; -1, the default, follows the volume. */
    AudioAnalysisSetting_Threshold = 0,
    /** Magnitude up to which it is quiet, 0 to 32767; 3276. */
    AudioAnalysisSetting_StopThreshold = 1,
    /** Seconds of quiet that count as a stop, 0.05 to 10; 1.5. Music counts as stopped until
     * that much of it was heard. */
    AudioAnalysisSetting_StopDuration = 2,
    /** Seconds over which the volume is averaged, 0.05 to 60; 2. */
    AudioAnalysisSetting_AverageDuration = 3,
    /** Seconds of beats that make the tempo, 0.05 to 600; 10. */
    AudioAnalysisSetting_BPMDuration = 4,
    /** A tempo to impose, BPM, up to 999, held within the profile's range; 0, the default,
     * measures. */
    AudioAnalysisSetting_FixedBPM = 5,
    /** 1, the default, keeps the last tempo across gaps; 0 forgets it. */
    AudioAnalysisSetting_Consistency = 6,
    /** 1 goes on with virtual beats while the music is stopped; 0, the default, does not. */
    AudioAnalysisSetting_VirtualWhenStopped = 7
} AudioAnalysisSetting;

/** A tempo profile. The record stays as it is in all versions of one SONAME. */
typedef struct AudioAnalysisProfile
{
    double minimalBPM;        /**< 1 <= minimalBPM <= maximalBPM < 1000 */
    double maximalBPM;        /**< BPM */
    double sensibility;       /**< automatic threshold over average volume, 0 to 1000 */
    int32_t lowFrequency;     /**< lower edge of the band, Hz; less than 1 = none */
    int32_t highFrequency;    /**< upper edge of the band, Hz; less than 1 = none */
    int32_t maximalThreshold; /**< bound of the automatic threshold, 0 to 32767 */
} AudioAnalysisProfile;

/** A pulse: a block, about a fortieth of a second, that rose above the threshold. */
typedef struct AudioAnalysisPulse
{
    uint64_t index;        /**< of its first sample */
    double time;           /**< of its first sample, seconds */
    uint64_t length;       /**< samples */
    int32_t loudness;      /**< magnitude by which the pulses of a beat window are ranked */
    int32_t averageVolume; /**< magnitude, when it was heard */
    int32_t threshold;     /**< magnitude in force, when it was heard */
} AudioAnalysisPulse;

/** A beat, real or virtual. Beats come in order of time, each once. */
typedef struct AudioAnalysisBeat
{
    uint64_t index;    /**< of its first sample; smaller than the samples pushed so far */
    double time;       /**< of its first sample, seconds */
    double bpm;        /**< tempo in force, 0 = unknown; the next beat is due at time + 60 / bpm */
    double accuracy;   /**< of the tracker, 0 to 1; the confidence if it is the automatic one */
    int32_t isVirtual; /**< 1: stands in for a beat window that held no pulse; else 0 */
    int32_t loudness;  /**< magnitude of the chosen pulse; of a virtual beat, the threshold */
    /* What follows is 0 with a profile; loudness and isVirtual are 0 without one. */
    double confidence;    /**< probability that it lies within 70 ms of the music's beat, 0 to 1 */
    double barConfidence; /**< share of the belief that beatInBar has, 0 to 1; 1 if set by hand */
    int32_t beatInBar;    /**< 1 to 4 */
} AudioAnalysisBeat;

/** The tempo in force when a beat window was closed, changed or not. Windows are closed while the
 * music is stopped, too, and then it is the tempo that the search begins with. */
typedef struct AudioAnalysisTempo
{
    uint64_t index; /**< first sample of the block that closed the window */
    double time;    /**< of that sample, seconds */
    double bpm;     /**< 0 = unknown */
} AudioAnalysisTempo;

/** The music has stopped or plays again; told at the first block, and at every change. */
typedef struct AudioAnalysisStop
{
    uint64_t index;    /**< first sample from which it counts, at most the samples pushed so far */
    double time;       /**< of that sample, seconds */
    int32_t isStopped; /**< 1: stopped; 0: it plays */
} AudioAnalysisStop;

/** The spectrum of a block, before it is filtered; told while music plays. */
typedef struct AudioAnalysisSpectrum
{
    uint64_t index;           /**< first sample of the block */
    double time;              /**< of that sample, seconds */
    const double* amplitudes; /**< count powers, 1 = the greatest one so far */
    size_t count;             /**< amplitudes */
    double binWidth;          /**< Hz; bin i reaches from i to i + 1 times that */
} AudioAnalysisSpectrum;

typedef void (*AudioAnalysisPulseCallback)(void* pUser, const AudioAnalysisPulse* pPulse);
typedef void (*AudioAnalysisBeatCallback)(void* pUser, const AudioAnalysisBeat* pBeat);
typedef void (*AudioAnalysisTempoCallback)(void* pUser, const AudioAnalysisTempo* pTempo);
typedef void (*AudioAnalysisStopCallback)(void* pUser, const AudioAnalysisStop* pStop);
typedef void (*AudioAnalysisSpectrumCallback)(void* pUser, const AudioAnalysisSpectrum* pSpectrum);

/* NOLINTEND(modernize-use-using) */

#ifdef __cplusplus
}
#endif
