/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/api/Analysis.h>

#include <math.h>
#include <stdio.h>
#include <string.h>

/* Pushes half a minute of strokes, 125 a minute, and counts the beats that it is told. */

#define RATE 44100 /* Hz */
#define SECONDS 30
#define BEAT_LENGTH 21168 /* samples: 125 BPM */
#define BATCH 500         /* frames */

struct Heard
{
    int beatCount;
    int strayCount; /* beats that lie more than two blocks from a stroke */
    double bpm;
};

static void OnBeat(void* pUser, const AudioAnalysisBeat* pBeat)
{
    struct Heard* pHeard = pUser;
    const uint64_t offset = pBeat->index % BEAT_LENGTH;
    const uint64_t distance = offset < BEAT_LENGTH / 2 ? offset : BEAT_LENGTH - offset;
    ++pHeard->beatCount;
    pHeard->strayCount += distance > 2048;
    pHeard->bpm = pBeat->bpm;
}

static float Stroke(int pIndex)
{
    const double time = (double)(pIndex % BEAT_LENGTH) / RATE;
    return (float)(0.9 * exp(-time / 0.1) * sin(6.283185307 * 60 * time));
}

int main(void)
{
    struct Heard heard = {0, 0, 0.0};
    AudioAnalysis* pAnalysis = AudioAnalysis_Create(RATE);
    if (!pAnalysis || strcmp(AudioAnalysis_GetVersion(), AUDIOANALYZER_VERSION) != 0) {
        fprintf(stderr, "%s\n", AudioAnalysis_GetErrorText(NULL));
        return 1;
    }
    AudioAnalysis_SetBeatCallback(pAnalysis, &OnBeat, &heard);
    for (int start = 0; start < RATE * SECONDS; start += BATCH) {
        float stereo[2 * BATCH];
        for (int i = 0; i < BATCH; ++i)
            stereo[2 * i] = stereo[2 * i + 1] = Stroke(start + i);
        if (AudioAnalysis_PushFloat(pAnalysis, stereo, BATCH, 2) != AudioAnalysisError_None) {
            fprintf(stderr, "%s\n", AudioAnalysis_GetErrorText(pAnalysis));
            return 1;
        }
    }
    AudioAnalysis_Finish(pAnalysis);
    AudioAnalysis_Destroy(pAnalysis);
    printf("%d beats, %d astray, tempo %.2f\n", heard.beatCount, heard.strayCount, heard.bpm);
    /* The first 1.5 s are needed to tell music from silence; then there are 59 strokes, and a
     * virtual beat here and there. */
    return heard.beatCount >= 56 && heard.beatCount <= 62 && heard.strayCount <= 3 &&
                   fabs(heard.bpm - 125.0) < 1.0
               ? 0
               : 1;
}
