/* SPDX-License-Identifier: MIT */
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/api/AnalysisRecords.h>

#include <stddef.h>
#include <stdint.h>

/** @file
 * The library for hosts in any language: create an analysis for a sample rate, push samples into
 * it, and be called back at every beat. Valid C11 and C++17.
 *
 *     static void OnBeat(void* pUser, const AudioAnalysisBeat* pBeat)
 *     {
 *         printf("%.3f s, %.1f BPM\n", pBeat->time, pBeat->bpm);
 *     }
 *
 *     AudioAnalysis* pAnalysis = AudioAnalysis_Create(44100);
 *     AudioAnalysis_SetBeatCallback(pAnalysis, &OnBeat, NULL);
 *     while ((count = ReadStereo(samples, 1024)) > 0)
 *         AudioAnalysis_PushInt16(pAnalysis, samples, count, 2);
 *     AudioAnalysis_Finish(pAnalysis);
 *     AudioAnalysis_Destroy(pAnalysis);
 *
 * Time comes from the samples alone: the same samples give the same events on every run and
 * machine, in whatever portions they are pushed, and as fast as they are pushed. No event loop, no
 * QCoreApplication and no device is needed. Nothing is printed, no file is read or written.
 *
 * Units. An index counts mono samples (frames) from 0 at the first one pushed; a time is its index
 * over the sample rate, in seconds. Tempos are in beats per minute (BPM), 0 meaning unknown.
 * Volumes and thresholds are 16-bit sample magnitudes, 0 to 32767. Texts are UTF-8, in English.
 *
 * Errors. A function that can refuse returns an AudioAnalysisError and changes nothing when that is
 * not AudioAnalysisError_None; AudioAnalysis_GetErrorText says what was wrong. No argument of a
 * wrong value harms, NULL and NaN included; a pointer to memory that is not there does, as
 * everywhere in C. No exception leaves a function, and none may leave a callback.
 *
 * Threads. An analysis is used by one thread at a time, and may wander. Different analyses may be
 * used by different threads at once. What a host must not do at the same time as
 * AudioAnalysis_Create, AudioAnalysis_Destroy or a profile function is to use the library's C++
 * classes in another thread.
 *
 * Callbacks are called from inside AudioAnalysis_Push... and AudioAnalysis_Finish, on their thread.
 * A callback may call every function of its own analysis but Push, Finish, Restart, Destroy,
 * SetTracker and those of the hand, which answer AudioAnalysisError_Busy. It must not throw and
 * must not jump out.
 *
 * Ownership. The records and arrays that a callback is given are valid until it returns: copy what
 * must be kept. Later versions may append members to records that only callbacks receive.
 */

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Life: Analysis.cpp ---------------------------------------------------------------------- */

/**
 * The library's version, "major.minor.patch". Static. [any thread]
 */
AUDIOANALYZER_EXPORT const char* AudioAnalysis_GetVersion(void);

/**
 * Makes an analysis of samples at pSampleRate Hz, 8000 to 192000, with the default settings and the
 * profile "Electro". The caller owns it and gives it to AudioAnalysis_Destroy. NULL when the rate
 * is outside its limits or memory has run out, which AudioAnalysis_GetErrorText(NULL) tells.
 * [allocates]
 */
AUDIOANALYZER_EXPORT AudioAnalysis* AudioAnalysis_Create(int32_t pSampleRate);

/**
 * Frees the analysis. None, Null, or Busy, and then it lives on.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Destroy(AudioAnalysis* pAnalysis);

/**
 * What the last refusal of this analysis was about, with the limits; empty when there was none.
 * With NULL: the last refusal on the calling thread that had no analysis to tell it to. Never NULL.
 * [valid until the next call that is refused, or until the analysis is destroyed; with NULL, until
 * the next call on this thread that is refused]
 */
AUDIOANALYZER_EXPORT const char* AudioAnalysis_GetErrorText(const AudioAnalysis* pAnalysis);

/**
 * A few words on an AudioAnalysisError, also on one that does not exist. Static. [any thread]
 */
AUDIOANALYZER_EXPORT const char* AudioAnalysis_DescribeError(int32_t pError);

/* ---- Samples: Analysis.cpp ------------------------------------------------------------------- */

/**
 * Analyses pFrameCount frames of pChannelCount interleaved 16-bit samples in the machine's byte
 * order, all of them or none. Several channels, 1 to 1024, are averaged; where that would cancel
 * them, the automatic tracker hears the loudest one instead. The samples are only read,
 * and not kept. None, Null, Range (a bad channel count, more bytes than memory has, or samples that
 * are not aligned to their size), Busy, Finished, Memory, Internal. [audio path: allocates one
 * record per pulse and one list node per candidate]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_PushInt16(AudioAnalysis* pAnalysis,
                                                                const int16_t* pSamples,
                                                                size_t pFrameCount,
                                                                int32_t pChannelCount);

/**
 * The same for samples in [-1, 1]: rounded to 16 bits after averaging, and saturated. NaN counts as
 * 0. [audio path: allocates one record per pulse and one list node per candidate]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_PushFloat(AudioAnalysis* pAnalysis,
                                                                const float* pSamples,
                                                                size_t pFrameCount,
                                                                int32_t pChannelCount);

/**
 * The audio has ended: tells the beats that are still undecided, none of which lies behind the end.
 * Further samples are refused until AudioAnalysis_Restart. None, Null, Busy, Finished, Memory,
 * Internal.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Finish(AudioAnalysis* pAnalysis);

/**
 * Makes the analysis as new, for other audio of the same rate: index and time are 0 again.
 * Settings, profile and callbacks stay. None, Null, Busy, Memory, and then all is as before.
 * [allocates]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Restart(AudioAnalysis* pAnalysis);

/**
 * Forgets tempo, beats, accuracy and volumes, and searches anew, for the next song of a stream. The
 * index goes on; settings, profile and callbacks stay. Music counts as stopped until the next stop
 * decision. None, Null. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Reset(AudioAnalysis* pAnalysis);

/* ---- Settings: AnalysisSettings.cpp ---------------------------------------------------------- */

/**
 * Sets an AudioAnalysisSetting, at any time. Magnitudes and switches are whole numbers. To change
 * one that the engine's beats alone depend on (threshold, BPM duration, fixed BPM, consistency,
 * virtual when stopped) chooses the tracker with a profile. None, Null, Range, Unknown, Memory.
 * [allocates when the average duration changes]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Set(AudioAnalysis* pAnalysis,
                                                          int32_t pSetting,
                                                          double pValue);

/**
 * Stores what was set in *pValue. None, Null, Unknown. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Get(const AudioAnalysis* pAnalysis,
                                                          int32_t pSetting,
                                                          double* pValue);

/**
 * What the other interfaces call the setting of that number, "stop-duration" say; NULL for a number
 * that none has, so that a host can list them from 0. Static. [any thread]
 */
AUDIOANALYZER_EXPORT const char* AudioAnalysis_GetSettingName(int32_t pSetting);

/**
 * Stores the limits of a setting, both included, and its default through the pointers that are not
 * NULL. None, Unknown. [any thread]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_GetLimits(int32_t pSetting,
                                                                double* pMinimum,
                                                                double* pMaximum,
                                                                double* pDefault);

/* ---- The tracker, and a hand on it: AnalysisTracker.cpp ---------------------------------------
 */

/**
 * Chooses an AudioAnalysisTracker. The automatic one begins anew with the next sample. Pulses,
 * spectrum and volumes are the engine's with both. None, Null, Range, Busy. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetTracker(AudioAnalysis* pAnalysis,
                                                                 int32_t pTracker);
/** The AudioAnalysisTracker in use, -1 for NULL. [no allocation] */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetTracker(const AudioAnalysis* pAnalysis);

/*
 * The automatic tracker alone heeds what follows, within one beat; with the other one it changes
 * nothing. None of it allocates.
 */

/**
 * The user tapped a beat at the index, usually a moment ago. A tap moves the beat, the time between
 * taps the tempo; the music goes on being followed. Three settle both. None, Null, Busy.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Tap(AudioAnalysis* pAnalysis,
                                                          uint64_t pIndex);
/**
 * Follows the music at 2, 1/2, 3/2 or 2/3 times the tempo, and stays at that level. None, Null,
 * Busy, Range (another factor, or a tempo outside the range).
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_Multiply(AudioAnalysis* pAnalysis,
                                                               double pFactor);
/**
 * The beat nearest to the index is the first of a bar; bars are counted from there on until
 * AudioAnalysis_ReleaseDownbeat, Reset or Restart. None, Null, Busy.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetDownbeat(AudioAnalysis* pAnalysis,
                                                                  uint64_t pIndex);
/** Lets the music tell the bar again. None, Null, Busy. */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_ReleaseDownbeat(AudioAnalysis* pAnalysis);
/**
 * Limits the tempo: 60 <= pMinimum <= pMaximum <= 190 BPM. A tempo outside goes to its double,
 * half, 3/2 or 2/3, if that is inside. It stays over Reset and Restart. None, Null, Busy, Range.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetTempoRange(AudioAnalysis* pAnalysis,
                                                                    double pMinimum,
                                                                    double pMaximum);

/* ---- Profiles: AnalysisProfiles.cpp ---------------------------------------------------------- */

/**
 * Name of the built-in profile of that number, from 0; NULL behind the last one. Static. [any
 * thread]
 */
AUDIOANALYZER_EXPORT const char* AudioAnalysis_GetProfileName(size_t pNumber);

/**
 * Stores the built-in profile of that name, in any case of its letters, in *pProfile. None, Null,
 * Unknown, Memory. [any thread]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_FindProfile(const char* pName,
                                                                  AudioAnalysisProfile* pProfile);

/**
 * Makes the analysis follow the built-in profile of that name, in any case of its letters, and
 * chooses the tracker that has one. None, Null, Unknown, Memory.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SelectProfile(AudioAnalysis* pAnalysis,
                                                                    const char* pName);

/**
 * Makes the analysis follow a profile of the host's own, which is copied, and chooses the tracker
 * that has one. It may change while audio is pushed; AudioAnalysis_Reset then searches anew. None,
 * Null, Range. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError
AudioAnalysis_SetProfile(AudioAnalysis* pAnalysis, const AudioAnalysisProfile* pProfile);

/**
 * Stores the profile in use in *pProfile. None, Null. [no allocation]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_GetProfile(const AudioAnalysis* pAnalysis,
                                                                 AudioAnalysisProfile* pProfile);

/* ---- Events: AnalysisEvents.cpp -------------------------------------------------------------- */

/*
 * Each sets one callback and what it is given as pUser, which belongs to the host; NULL ends the
 * calls. None, Null. [no allocation]
 */

/** For every pulse, when it is heard. */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetPulseCallback(
    AudioAnalysis* pAnalysis, AudioAnalysisPulseCallback pCallback, void* pUser);

/**
 * For every beat: of the automatic tracker, once its sample was pushed; of the engine, once its
 * beat window has passed: six blocks, about 0.14 s, behind it. A fixed
 * tempo below the profile's range puts the first virtual beat behind its window, ahead of what was
 * pushed.
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetBeatCallback(
    AudioAnalysis* pAnalysis, AudioAnalysisBeatCallback pCallback, void* pUser);

/** For every beat that changes the tempo of the automatic tracker; for every beat window of the
 * engine that was closed, after its beat. */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetTempoCallback(
    AudioAnalysis* pAnalysis, AudioAnalysisTempoCallback pCallback, void* pUser);

/** For every stop, and when the music plays again. */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetStopCallback(
    AudioAnalysis* pAnalysis, AudioAnalysisStopCallback pCallback, void* pUser);

/** For every block while music plays, before its pulse. */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_SetSpectrumCallback(
    AudioAnalysis* pAnalysis, AudioAnalysisSpectrumCallback pCallback, void* pUser);

/* ---- A whole recording: AnalysisEvents.cpp ----------------------------------------------------
 */

/**
 * Stores the one tempo of a recording in *pBPM, 0 = unknown, from the pCount beats that its
 * analysis told: their times, tempos and virtual marks, in arrays of the host's own. It is the
 * median of the tempos of the real beats from ten seconds after the first of them on; for want of
 * those, of all real beats, or of all beats. None, Null (an array may be NULL if pCount is 0),
 * Memory. [any thread] [allocates]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError
AudioAnalysis_ComputeRecordingTempo(const double* pTimes,
                                    const double* pBPMs,
                                    const int32_t* pVirtualMarks,
                                    size_t pCount,
                                    double* pBPM);

/**
 * The same for beats of the automatic tracker, which lie more exactly than it reports their tempo:
 * the median of the tempos that each nine beats in a row make. None, Null (an array may be NULL if
 * pCount is 0), Memory. [any thread] [allocates]
 */
AUDIOANALYZER_EXPORT AudioAnalysisError AudioAnalysis_ComputeTempoOfTimes(const double* pTimes,
                                                                          const double* pBPMs,
                                                                          size_t pCount,
                                                                          double* pBPM);

/* ---- State: AnalysisEvents.cpp --------------------------------------------------------------- */

/* None of them allocates. For NULL each answers -1, GetSampleCount and GetBlockSize 0. */

/** Hz. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetSampleRate(const AudioAnalysis* pAnalysis);
/** Frames pushed since the analysis was made or restarted. */
AUDIOANALYZER_EXPORT uint64_t AudioAnalysis_GetSampleCount(const AudioAnalysis* pAnalysis);
/** Samples in a pulse block: the resolution of all indexes, but for the automatic beats. */
AUDIOANALYZER_EXPORT uint64_t AudioAnalysis_GetBlockSize(const AudioAnalysis* pAnalysis);
/** The tempo in force, imposed or measured, BPM; 0 = unknown. It says little while the music is
 * stopped. */
AUDIOANALYZER_EXPORT double AudioAnalysis_GetBPM(const AudioAnalysis* pAnalysis);
/** In (0, 1]: falls with every beat window of the engine that holds no pulse; with the automatic
 * tracker its confidence, 0 while nothing plays. */
AUDIOANALYZER_EXPORT double AudioAnalysis_GetAccuracy(const AudioAnalysis* pAnalysis);
/** 1: the music is stopped, or has not begun; 0: it plays. To the automatic tracker: whether there
 * is no meter to follow. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_IsStopped(const AudioAnalysis* pAnalysis);
/** Magnitude over the average duration, within the profile's band; -1 before any music. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetAverageVolume(const AudioAnalysis* pAnalysis);
/** Loudest magnitude of this beat window. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetCurrentVolume(const AudioAnalysis* pAnalysis);
/** Loudest magnitude of this and the previous beat window. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetMaximalVolume(const AudioAnalysis* pAnalysis);
/** Magnitude that makes a pulse now, -1 before any music if it is automatic. */
AUDIOANALYZER_EXPORT int32_t AudioAnalysis_GetThreshold(const AudioAnalysis* pAnalysis);

#ifdef __cplusplus
}
#endif
