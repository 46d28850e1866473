// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <cstdint>

namespace shared {

/// A tick that falls due now.
struct ClockTick
{
    std::int64_t number;     ///< of the output's division; goes up by one while the clock runs
    std::int64_t beat;       ///< number of the beat that it belongs to
    std::int32_t place;      ///< in that beat: 0 = the beat itself, to the division - 1
    std::int32_t beatInBar;  ///< of that beat, 0 = the one
    std::int64_t time;       ///< µs of ClockThread::getTime(); when it was due
    std::int64_t lateness;   ///< µs from then until it is told, 0 at least
    std::int64_t wallTime;   ///< µs since the epoch; when it was due
};

/// What an output does when ticks fall due.
///
/// Its functions are called in the clock's thread, which keeps the time of all outputs: they must
/// not wait, nor lock what anything slow may hold. What can stall gets a queue of its own, and
/// loses old ticks rather than hold up new ones.
class ClockListener
{
public:
    virtual ~ClockListener() = default;

    /// [clock thread]
    virtual void OnTick(const ClockTick& pTick, const BeatClockState& pState) = 0;
    /// The clock begins, before its first tick, or stands still. [clock thread]
    virtual void OnRunningChanged(bool pIsRunning, const BeatClockState& pState) = 0;

protected:
    ClockListener() = default;
    ClockListener(const ClockListener&) = default;
    ClockListener& operator=(const ClockListener&) = default;
};

}  // namespace shared
