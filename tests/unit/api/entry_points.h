/* SPDX-License-Identifier: MIT */
#pragma once

#include <AudioAnalyzer/analysis/AudioValues.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The entry points as a C11 host calls them. */
void CallStartAudio(void);
struct AudioValues CallGetAudioValues(void);

#ifdef __cplusplus
}
#endif
