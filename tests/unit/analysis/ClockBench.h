// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClock.h>

#include <QtGlobal>

/// A beat clock, told beats in milliseconds at the instant they sound.
struct ClockBench
{
    static constexpr qint64 kNever = BEATCLOCK_NEVER;

    /// pCount steady beats from pStart on, told with their tempo; answers when the next is due, ms.
    qint64 hear(qint64 pStart, int pCount, qint64 pPeriod, bool pIsTempoTold = true)
    {
        const double bpm = pIsTempoTold ? 60e3 / double(pPeriod) : 0.0;
        for (int i = 0; i < pCount; ++i)
            beat(pStart + i * pPeriod, bpm);
        return pStart + pCount * pPeriod;
    }
    void beat(qint64 pTime, double pBPM = 120.0) { clock.Hear({pTime * 1000, pBPM}, pTime * 1000); }

    BeatClockState state() const { return clock.getState(); }
    double bpm() const { return state().bpm; }
    /// Beats at an instant in ms.
    double position(qint64 pTime) const { return state().getPosition(pTime * 1000); }
    /// When the first beat behind an instant is due, both in ms, rounded down.
    qint64 next(qint64 pTime) const
    {
        const qint64 time = state().getTickTime(state().getNextTick(pTime * 1000));
        return time == kNever ? kNever : time / 1000;
    }

    BeatClock clock;
};
