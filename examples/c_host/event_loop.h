/* SPDX-License-Identifier: MIT */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/* Makes the event loop and records the selected device into it; 0 when there is none. To be called
 * once, with the arguments of main, which must stay. */
int OpenEventLoop(int* pCount, char* pArguments[]);
/* Runs it, and calls pPoll every pMilliSeconds until that returns 0. */
void RunEventLoop(int pMilliSeconds, int (*pPoll)(void));

#ifdef __cplusplus
}
#endif
