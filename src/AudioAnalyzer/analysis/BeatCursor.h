// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <algorithm>
#include <cstdint>

/// The place of one output in the beats of a clock: what it has told, and what comes next.
///
/// However the clock is corrected meanwhile, numbers ascend by one, so that no tick is told twice
/// and none is lost, and instants never go back. When the clock begins to run anew, the next tick
/// is the first one of its first beat.
///
///     BeatCursor cursor(24, -20000);  // MIDI clock, 20 ms early
///     cursor.Join(clock.getState(), now());
///     while (playing) {
///         SleepUntil(cursor.getTime(clock.getState()));  // wakes early when the clock changes
///         while (cursor.Take(clock.getState(), now()))
///             Send(cursor.getTick());
///     }
///
/// Threads: one at a time; those of different cursors run side by side.
class BeatCursor
{
public:
    /// pDivision: ticks a beat, 1 at least. pOffset: µs, positive is later.
    explicit BeatCursor(std::int32_t pDivision = 1, std::int64_t pOffset = 0)
        : m_division(pDivision), m_offset(pOffset)
    {
    }

    /// Begins with the first tick behind pNow, in µs: what was due before is not told. [no
    /// allocation]
    void Join(const BeatClockState& pState, std::int64_t pNow)
    {
        m_run = pState.run;
        m_tick = std::max(pState.getNextTick(pNow, m_division, m_offset),
                          pState.firstBeat * m_division) -
                 1;
        m_time = pNow;
    }
    /// When the next tick is due, µs, not before the last one; BEATCLOCK_NEVER while the clock
    /// stands. [no allocation]
    std::int64_t getTime(const BeatClockState& pState) const
    {
        return std::max(pState.getTickTime(_Next(pState), m_division, m_offset), m_time);
    }
    /// Takes the next tick if it is due at pNow; false if not. To be called until it is false. [no
    /// allocation]
    bool Take(const BeatClockState& pState, std::int64_t pNow)
    {
        const std::int64_t time = getTime(pState);
        if (time > pNow)
            return false;
        m_tick = _Next(pState);
        m_run = pState.run;
        m_time = time;
        return true;
    }

    /// Number of the last tick taken; a beat is a multiple of the division.
    std::int64_t getTick() const { return m_tick; }
    /// The instant at which it was due, µs.
    std::int64_t getTickTime() const { return m_time; }
    std::int32_t getDivision() const { return m_division; }
    std::int64_t getOffset() const { return m_offset; }  ///< µs
    /// From the next tick on. µs, positive is later.
    void setOffset(std::int64_t pOffset) { m_offset = pOffset; }

private:
    std::int64_t _Next(const BeatClockState& pState) const
    {
        return pState.run == m_run ? m_tick + 1 : pState.firstBeat * m_division;
    }

    std::int32_t m_division;          ///< ticks a beat
    std::int64_t m_offset;            ///< µs
    std::uint32_t m_run = 0;          ///< of the clock
    std::int64_t m_tick = -1;         ///< last one taken
    std::int64_t m_time = INT64_MIN;  ///< µs, of the last one taken
};
