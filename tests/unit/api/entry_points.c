/* SPDX-License-Identifier: MIT */
#include "entry_points.h"

#include <AudioAnalyzer/api/EntryPoints.h>

void CallStartAudio(void)
{
    StartAudio();
}

struct AudioValues CallGetAudioValues(void)
{
    return GetAudioValues();
}
