/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/api/EntryPoints.h>

#include "event_loop.h"

#include <stdio.h>
#include <stdlib.h>

/* A host in plain C: polls the block being assembled and prints its peak.
 *
 * It listens to the device that the configuration file names; "audio-analyzer listen --save" writes
 * one. The library works inside a Qt event loop, which event_loop.cpp lends to this program. */

static int s_pollsLeft = 10;

static int Poll(void)
{
    const struct AudioValues values = GetAudioValues();
    int peak = 0;
    for (uint32_t i = 0; i < values.size; ++i)
        if (abs(values.samples[i]) > peak)
            peak = abs(values.samples[i]);
    printf("block of %u samples, peak %d\n", (unsigned)values.size, peak);
    fflush(stdout);
    return --s_pollsLeft > 0;
}

int main(int argc, char* argv[])
{
    if (!OpenEventLoop(&argc, argv)) {
        fputs("no device to listen to: audio-analyzer listen --save selects one\n", stderr);
        return 1;
    }
    StartAudio();
    RunEventLoop(100, &Poll);
    return 0;
}
