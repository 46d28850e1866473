/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/api/EntryPoints.h>

#include "event_loop.h"

#include <stdio.h>

/* Polls the block being assembled until it is loud, for ten seconds at most. */

static int s_pollsLeft = 500;
static int s_peak = 0;

static int Poll(void)
{
    const struct AudioValues values = GetAudioValues();
    for (uint32_t i = 0; i < values.size; ++i)
        if (values.samples[i] > s_peak)
            s_peak = values.samples[i];
    return s_peak < 3000 && --s_pollsLeft > 0;
}

int main(int argc, char* argv[])
{
    if (!OpenEventLoop(&argc, argv)) {
        fputs("no device to listen to\n", stderr);
        return 1;
    }
    StartAudio();
    RunEventLoop(20, &Poll);
    printf("block of %u samples, peak %d\n", (unsigned)GetAudioValues().size, s_peak);
    return s_peak >= 3000 && GetAudioValues().size == 1024 ? 0 : 1;
}
