/* SPDX-License-Identifier: MIT */
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/Clock.h>
#include <AudioAnalyzer/api/EntryPoints.h>

/* Sizes and numbers that compiled hosts rely on. */

_Static_assert(sizeof(struct AudioValues) == 2 * sizeof(void*), "two machine words");

_Static_assert(sizeof(AudioAnalysisProfile) == 40, "part of the binary interface");
_Static_assert(sizeof(AudioAnalysisPulse) == 40, "grows at the end only");
_Static_assert(sizeof(AudioAnalysisBeat) == 64, "grows at the end only");
_Static_assert(sizeof(AudioAnalysisTempo) == 24, "grows at the end only");
_Static_assert(sizeof(AudioAnalysisStop) == 24, "grows at the end only");
_Static_assert(sizeof(AudioAnalysisSpectrum) == 24 + 2 * sizeof(void*), "grows at the end only");

_Static_assert(AudioAnalysisError_Internal == 7, "numbers stay");
_Static_assert(AudioAnalysisSetting_VirtualWhenStopped == 7, "numbers stay");

_Static_assert(sizeof(BeatLine) == 24, "part of the binary interface");
_Static_assert(sizeof(BeatClockState) == 136, "part of the binary interface");
_Static_assert(sizeof(AudioClockBeat) == 32, "part of the binary interface");

_Static_assert(BeatClockCharge_Held == 2, "numbers stay");
_Static_assert(AudioClockSetting_GoesOn == 3, "numbers stay");
