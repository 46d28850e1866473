/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/api/Analysis.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The push interface from plain C, in a process without Qt's application object: every function
 * with good and with bad arguments. Prints the checks that fail, and nothing else. */

enum
{
    RATE = 44100,
    SECONDS = 20,
    COUNT = RATE * SECONDS,
    PORTION = 777
};

static const double BPM = 120.0;
static int s_failures = 0;

#define CHECK(condition)                                                                           \
    ((condition) ? (void)0                                                                         \
                 : (void)(++s_failures, printf("line %d: not true: %s\n", __LINE__, #condition)))
#define REFUSES(error, call) CHECK((call) == AudioAnalysisError_##error)
#define TAKES(call) REFUSES(None, call)

typedef struct Seen
{
    AudioAnalysis* pAnalysis;
    int pulses;
    int beats;
    int virtualBeats;
    int tempos;
    int stops;
    int spectra;
    double lastTime;
    double lastBPM;
    int lastStop;
} Seen;

static void OnPulse(void* pUser, const AudioAnalysisPulse* pPulse)
{
    Seen* pSeen = pUser;
    ++pSeen->pulses;
    CHECK(pPulse->time == (double)pPulse->index / RATE);
    CHECK(pPulse->length == 1024);
    CHECK(pPulse->loudness >= pPulse->threshold);
    CHECK(pPulse->averageVolume > 0);
}

static void OnBeat(void* pUser, const AudioAnalysisBeat* pBeat)
{
    Seen* pSeen = pUser;
    const int16_t sample = 0;
    ++pSeen->beats;
    pSeen->virtualBeats += pBeat->isVirtual;
    CHECK(pBeat->time > pSeen->lastTime);
    CHECK(pBeat->time == (double)pBeat->index / RATE);
    CHECK(pBeat->index < AudioAnalysis_GetSampleCount(pSeen->pAnalysis));
    CHECK(pBeat->accuracy > 0.0 && pBeat->accuracy <= 1.0);
    pSeen->lastTime = pBeat->time;
    REFUSES(Busy, AudioAnalysis_PushInt16(pSeen->pAnalysis, &sample, 1, 1));
    REFUSES(Busy, AudioAnalysis_Finish(pSeen->pAnalysis));
    REFUSES(Busy, AudioAnalysis_Restart(pSeen->pAnalysis));
    REFUSES(Busy, AudioAnalysis_Destroy(pSeen->pAnalysis));
    TAKES(AudioAnalysis_Set(pSeen->pAnalysis, AudioAnalysisSetting_Consistency, 1.0));
}

static void OnTempo(void* pUser, const AudioAnalysisTempo* pTempo)
{
    Seen* pSeen = pUser;
    ++pSeen->tempos;
    pSeen->lastBPM = pTempo->bpm;
    CHECK(pTempo->index % 1024 == 0);
}

static void OnStop(void* pUser, const AudioAnalysisStop* pStop)
{
    Seen* pSeen = pUser;
    CHECK(pStop->isStopped == (pSeen->stops % 2 == 0));
    CHECK(pStop->isStopped == AudioAnalysis_IsStopped(pSeen->pAnalysis));
    ++pSeen->stops;
    pSeen->lastStop = pStop->isStopped;
}

static void OnSpectrum(void* pUser, const AudioAnalysisSpectrum* pSpectrum)
{
    Seen* pSeen = pUser;
    ++pSeen->spectra;
    CHECK(pSpectrum->count == 512);
    CHECK(pSpectrum->binWidth == RATE / 2.0 / 512.0);
    CHECK(pSpectrum->index % 1024 == 0);
    for (size_t i = 0; i < pSpectrum->count; ++i)
        CHECK(pSpectrum->amplitudes[i] >= 0.0 && pSpectrum->amplitudes[i] <= 1.0);
}

static int16_t* MakeKicks(void)
{
    const double pi = 3.14159265358979323846;
    int16_t* pSamples = malloc(COUNT * sizeof *pSamples);
    for (int i = 0; i < COUNT; ++i) {
        const double time = fmod((double)i / RATE, 60.0 / BPM);
        pSamples[i] = (int16_t)(28000.0 * exp(-time / 0.1) * sin(2.0 * pi * 55.0 * time));
    }
    return pSamples;
}

static void CheckNull(void)
{
    double value = 0.0;
    AudioAnalysisProfile profile;
    const int16_t sample = 0;
    const float real = 0.0f;
    REFUSES(Null, AudioAnalysis_Destroy(NULL));
    CHECK(strlen(AudioAnalysis_GetErrorText(NULL)) > 0);
    REFUSES(Null, AudioAnalysis_PushInt16(NULL, &sample, 1, 1));
    REFUSES(Null, AudioAnalysis_PushFloat(NULL, &real, 1, 1));
    REFUSES(Null, AudioAnalysis_Finish(NULL));
    REFUSES(Null, AudioAnalysis_Restart(NULL));
    REFUSES(Null, AudioAnalysis_Reset(NULL));
    REFUSES(Null, AudioAnalysis_Set(NULL, AudioAnalysisSetting_Threshold, 5.0));
    REFUSES(Null, AudioAnalysis_Get(NULL, AudioAnalysisSetting_Threshold, &value));
    REFUSES(Null, AudioAnalysis_FindProfile(NULL, &profile));
    REFUSES(Null, AudioAnalysis_FindProfile("Slow", NULL));
    REFUSES(Null, AudioAnalysis_SelectProfile(NULL, "Slow"));
    REFUSES(Null, AudioAnalysis_SetProfile(NULL, &profile));
    REFUSES(Null, AudioAnalysis_GetProfile(NULL, &profile));
    REFUSES(Null, AudioAnalysis_SetPulseCallback(NULL, &OnPulse, NULL));
    REFUSES(Null, AudioAnalysis_SetBeatCallback(NULL, &OnBeat, NULL));
    REFUSES(Null, AudioAnalysis_SetTempoCallback(NULL, &OnTempo, NULL));
    REFUSES(Null, AudioAnalysis_SetStopCallback(NULL, &OnStop, NULL));
    REFUSES(Null, AudioAnalysis_SetSpectrumCallback(NULL, &OnSpectrum, NULL));
    CHECK(AudioAnalysis_GetSampleRate(NULL) == -1);
    CHECK(AudioAnalysis_GetSampleCount(NULL) == 0);
    CHECK(AudioAnalysis_GetBlockSize(NULL) == 0);
    CHECK(AudioAnalysis_GetBPM(NULL) == -1.0);
    CHECK(AudioAnalysis_GetAccuracy(NULL) == -1.0);
    CHECK(AudioAnalysis_IsStopped(NULL) == -1);
    CHECK(AudioAnalysis_GetAverageVolume(NULL) == -1);
    CHECK(AudioAnalysis_GetCurrentVolume(NULL) == -1);
    CHECK(AudioAnalysis_GetMaximalVolume(NULL) == -1);
    CHECK(AudioAnalysis_GetThreshold(NULL) == -1);
}

static void CheckNonsense(AudioAnalysis* pAnalysis)
{
    const float samples[4] = {0.0f, 0.0f, 0.0f, 0.0f};
    const char* pBytes = (const char*)samples;
    AudioAnalysisProfile profile;
    CHECK(AudioAnalysis_Create(-44100) == NULL);
    CHECK(AudioAnalysis_Create(0) == NULL);
    CHECK(strstr(AudioAnalysis_GetErrorText(NULL), "8000 to 192000") != NULL);
    REFUSES(Range, AudioAnalysis_PushFloat(pAnalysis, samples, 1, 0));
    REFUSES(Range, AudioAnalysis_PushFloat(pAnalysis, samples, 1, -1));
    REFUSES(Range, AudioAnalysis_PushFloat(pAnalysis, samples, 1, 1025));
    REFUSES(Range, AudioAnalysis_PushFloat(pAnalysis, samples, SIZE_MAX, 1));
    REFUSES(Range, AudioAnalysis_PushFloat(pAnalysis, samples, SIZE_MAX / 8 + 1, 2));
    REFUSES(Range,
            AudioAnalysis_PushInt16(pAnalysis, (const int16_t*)(const void*)(pBytes + 1), 1, 1));
    REFUSES(Null, AudioAnalysis_PushFloat(pAnalysis, NULL, 1, 1));
    REFUSES(Null, AudioAnalysis_PushInt16(pAnalysis, NULL, 1, 1));
    TAKES(AudioAnalysis_PushInt16(pAnalysis, NULL, 0, 1));
    REFUSES(Range, AudioAnalysis_Set(pAnalysis, AudioAnalysisSetting_StopDuration, NAN));
    REFUSES(Range, AudioAnalysis_Set(pAnalysis, AudioAnalysisSetting_StopDuration, INFINITY));
    REFUSES(Unknown, AudioAnalysis_Set(pAnalysis, -1, 1.0));
    REFUSES(Unknown, AudioAnalysis_Set(pAnalysis, 8, 1.0));
    REFUSES(Null, AudioAnalysis_Get(pAnalysis, AudioAnalysisSetting_Threshold, NULL));
    REFUSES(Unknown, AudioAnalysis_Get(pAnalysis, INT32_MAX, &profile.sensibility));
    REFUSES(Unknown, AudioAnalysis_GetLimits(INT32_MIN, NULL, NULL, NULL));
    TAKES(AudioAnalysis_GetLimits(0, NULL, NULL, NULL));
    REFUSES(Unknown, AudioAnalysis_SelectProfile(pAnalysis, "Waltz"));
    CHECK(strstr(AudioAnalysis_GetErrorText(pAnalysis), "Waltz") != NULL);
    REFUSES(Unknown, AudioAnalysis_SelectProfile(pAnalysis, "\xff\xfe"));
    REFUSES(Null, AudioAnalysis_SelectProfile(pAnalysis, NULL));
    REFUSES(Null, AudioAnalysis_SetProfile(pAnalysis, NULL));
    REFUSES(Null, AudioAnalysis_GetProfile(pAnalysis, NULL));
    TAKES(AudioAnalysis_GetProfile(pAnalysis, &profile));
    profile.minimalBPM = NAN;
    REFUSES(Range, AudioAnalysis_SetProfile(pAnalysis, &profile));
    CHECK(AudioAnalysis_GetProfileName(SIZE_MAX) == NULL);
    CHECK(strcmp(AudioAnalysis_DescribeError(-5), "there is no such error") == 0);
    CHECK(AudioAnalysis_GetSampleCount(pAnalysis) == 0);
}

static void CheckMusic(AudioAnalysis* pAnalysis)
{
    Seen seen = {0};
    int16_t* pSamples = MakeKicks();
    seen.pAnalysis = pAnalysis;
    seen.lastTime = -1.0;
    TAKES(AudioAnalysis_SetPulseCallback(pAnalysis, &OnPulse, &seen));
    TAKES(AudioAnalysis_SetBeatCallback(pAnalysis, &OnBeat, &seen));
    TAKES(AudioAnalysis_SetTempoCallback(pAnalysis, &OnTempo, &seen));
    TAKES(AudioAnalysis_SetStopCallback(pAnalysis, &OnStop, &seen));
    TAKES(AudioAnalysis_SetSpectrumCallback(pAnalysis, &OnSpectrum, &seen));
    for (size_t at = 0; at < COUNT; at += PORTION) {
        const size_t count = COUNT - at < PORTION ? COUNT - at : PORTION;
        TAKES(AudioAnalysis_PushInt16(pAnalysis, pSamples + at, count, 1));
    }
    free(pSamples);
    CHECK(AudioAnalysis_GetSampleCount(pAnalysis) == COUNT);
    CHECK(fabs(AudioAnalysis_GetBPM(pAnalysis) - BPM) < 1.0);
    CHECK(AudioAnalysis_IsStopped(pAnalysis) == 0);
    CHECK(AudioAnalysis_GetAverageVolume(pAnalysis) > 0);
    CHECK(AudioAnalysis_GetMaximalVolume(pAnalysis) >= AudioAnalysis_GetCurrentVolume(pAnalysis));
    CHECK(AudioAnalysis_GetThreshold(pAnalysis) > 0);
    CHECK(AudioAnalysis_GetAccuracy(pAnalysis) > 0.0);
    TAKES(AudioAnalysis_Finish(pAnalysis));
    REFUSES(Finished, AudioAnalysis_Finish(pAnalysis));
    REFUSES(Finished, AudioAnalysis_PushInt16(pAnalysis, NULL, 0, 1));
    /* Music is heard from 1.5 s on, and 37 kicks follow. The search may miss the first of them, and
     * bridges them with virtual beats at the profile's middle tempo, 132.5 BPM. */
    CHECK(seen.beats - seen.virtualBeats >= 32 && seen.beats - seen.virtualBeats <= 37);
    CHECK(seen.virtualBeats <= 7);
    CHECK(seen.pulses >= seen.beats - seen.virtualBeats);
    CHECK(seen.tempos >= seen.beats);
    CHECK(fabs(seen.lastBPM - BPM) < 1.0);
    CHECK(seen.stops == 2 && seen.lastStop == 0);
    CHECK(seen.spectra >= 790);
    CHECK(seen.lastTime < SECONDS);
}

/* Beats of the automatic tracker have a place in the bar. */
static void OnBarBeat(void* pUser, const AudioAnalysisBeat* pBeat)
{
    int* pCount = (int*)pUser;
    CHECK(pBeat->beatInBar >= 1 && pBeat->beatInBar <= 4);
    CHECK(pBeat->confidence > 0.0 && pBeat->confidence <= 1.0);
    CHECK(pBeat->barConfidence > 0.0 && pBeat->barConfidence <= 1.0);
    ++*pCount;
}

static void CheckTracker(AudioAnalysis* pAnalysis)
{
    int beats = 0;
    TAKES(AudioAnalysis_Restart(pAnalysis));
    TAKES(AudioAnalysis_SetPulseCallback(pAnalysis, NULL, NULL));
    TAKES(AudioAnalysis_SetTempoCallback(pAnalysis, NULL, NULL));
    TAKES(AudioAnalysis_SetStopCallback(pAnalysis, NULL, NULL));
    TAKES(AudioAnalysis_SetSpectrumCallback(pAnalysis, NULL, NULL));
    TAKES(AudioAnalysis_SetBeatCallback(pAnalysis, &OnBarBeat, &beats));
    TAKES(AudioAnalysis_SetTracker(pAnalysis, AudioAnalysisTracker_Automatic));
    TAKES(AudioAnalysis_SetTempoRange(pAnalysis, 80.0, 160.0));
    int16_t* pSamples = MakeKicks();
    TAKES(AudioAnalysis_PushInt16(pAnalysis, pSamples, COUNT, 1));
    free(pSamples);
    TAKES(AudioAnalysis_Tap(pAnalysis, 0));
    TAKES(AudioAnalysis_SetDownbeat(pAnalysis, 0));
    TAKES(AudioAnalysis_ReleaseDownbeat(pAnalysis));
    REFUSES(Range, AudioAnalysis_Multiply(pAnalysis, 7.0));
    CHECK(beats > 5);
}

int main(void)
{
    AudioAnalysis* pAnalysis = AudioAnalysis_Create(RATE);
    CHECK(pAnalysis != NULL);
    if (!pAnalysis)
        return 1;
    CHECK(strcmp(AudioAnalysis_GetErrorText(pAnalysis), "") == 0);
    CHECK(AudioAnalysis_GetSampleRate(pAnalysis) == RATE);
    CHECK(AudioAnalysis_GetBlockSize(pAnalysis) == 1024);
    CHECK(AudioAnalysis_IsStopped(pAnalysis) == 1);
    CHECK(AudioAnalysis_GetBPM(pAnalysis) == 0.0);
    CHECK(AudioAnalysis_GetThreshold(pAnalysis) == -1);
    CHECK(AudioAnalysis_GetTracker(pAnalysis) == AudioAnalysisTracker_Automatic);
    CheckNull();
    CheckNonsense(pAnalysis);
    TAKES(AudioAnalysis_SetTracker(pAnalysis, AudioAnalysisTracker_Profile));
    CHECK(AudioAnalysis_GetTracker(pAnalysis) == AudioAnalysisTracker_Profile);
    CheckMusic(pAnalysis);
    TAKES(AudioAnalysis_Restart(pAnalysis));
    CheckMusic(pAnalysis);
    CheckTracker(pAnalysis);
    TAKES(AudioAnalysis_Reset(pAnalysis));
    TAKES(AudioAnalysis_Destroy(pAnalysis));
    return s_failures == 0 ? 0 : 1;
}
