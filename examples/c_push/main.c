/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/api/Analysis.h>

#include <stdio.h>
#include <stdlib.h>

/* Prints the time of each beat in raw PCM, 16 bits, interleaved, from standard input:
 *
 *     sox song.flac -t s16 - | c_push 44100 2
 *     arecord -q -f S16_LE -r 44100 -c 2 | c_push 44100 2 */

static void OnBeat(void* pUser, const AudioAnalysisBeat* pBeat)
{
    (void)pUser;
    printf("%.6f\n", pBeat->time);
    fflush(stdout);
}

int main(int argc, char* argv[])
{
    static int16_t samples[1 << 13];
    const int rate = argc > 1 ? atoi(argv[1]) : 44100;
    const int channels = argc > 2 && atoi(argv[2]) > 0 ? atoi(argv[2]) : 1;
    const size_t frameSize = sizeof samples[0] * (size_t)channels;
    size_t frames = 0;
    AudioAnalysisError error = AudioAnalysisError_None;
    AudioAnalysis* pAnalysis = AudioAnalysis_Create(rate);
    if (!pAnalysis) {
        fprintf(stderr, "%s\n", AudioAnalysis_GetErrorText(NULL));
        return 1;
    }
    AudioAnalysis_SetBeatCallback(pAnalysis, &OnBeat, NULL);
    while (!error && (frames = fread(samples, frameSize, sizeof samples / frameSize, stdin)) > 0)
        error = AudioAnalysis_PushInt16(pAnalysis, samples, frames, channels);
    if (error)
        fprintf(stderr, "%s\n", AudioAnalysis_GetErrorText(pAnalysis));
    AudioAnalysis_Finish(pAnalysis);
    AudioAnalysis_Destroy(pAnalysis);
    return error ? 1 : 0;
}
