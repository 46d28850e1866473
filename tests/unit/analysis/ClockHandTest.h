// SPDX-License-Identifier: MIT
#pragma once

#include "ClockBench.h"

/// A bench whose clock follows music of 120 BPM from 1 s on; the beat at m_next is to come.
struct PlayingBench : ClockBench
{
    PlayingBench() { next120 = hear(1000, 8, 500); }

    bool tap(qint64 pTime) { return clock.Tap(pTime * 1000); }

    qint64 next120 = 0;  ///< ms; beat 8
};
