/* SPDX-License-Identifier: MIT */
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/AudioValues.h>

/*
 * The library for hosts that do not use Qt objects. Valid C11 and C++17.
 *
 * The first call brings the library up: it loads the configuration file next to the executable,
 * finds the selected audio input device, fixes its recording format and makes the process-wide
 * analyzer. While that fails, each call tries again.
 *
 * The process needs a QCoreApplication, and its event loop for beats to be sent. Call both
 * functions on the thread that runs it.
 */

#ifdef __cplusplus
extern "C" {
#endif

/** Starts the analysis. Does nothing when it runs already or there is no analyzer. [event loop] */
AUDIOANALYZER_EXPORT void StartAudio(void);

/**
 * The pulse block being assembled: raw samples, the first of them overwritten by those not yet
 * analysed. Without an analyzer size is 0 and samples is null. [event loop] [valid until the
 * analyzer is replaced]
 */
AUDIOANALYZER_EXPORT struct AudioValues GetAudioValues(void);

#ifdef __cplusplus
}
#endif
