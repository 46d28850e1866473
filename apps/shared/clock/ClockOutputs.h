// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatCursor.h>

#include <shared/clock/ClockListener.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace shared {

/// The outputs of a beat clock, and what each has been told.
///
/// Threads: one at a time; setOffset() and getLostCount() may be called by any other meanwhile.
class ClockOutputs
{
public:
    static constexpr std::int64_t kOldest = 1000000;    ///< µs; an older tick is lost, not told
    static constexpr std::int64_t kLongestRest = 5000;  ///< µs; corrections are seen by then

    /// The listener is not owned. pDivision: ticks a beat, 1 at least. pOffset: µs, positive is
    /// later. [allocates]
    void Add(ClockListener& pListener, std::int32_t pDivision, std::int64_t pOffset);
    /// Whether the listener was there. [allocates]
    bool Remove(const ClockListener& pListener);
    /// From the next step on, for a listener that is there. [any thread] [no allocation]
    void setOffset(const ClockListener& pListener, std::int64_t pOffset);

    /// All outputs begin anew at the next step. [no allocation]
    void Leave();
    /// Tells all that is due at pNow, in µs; pWallNow: the same instant, µs since the epoch. An
    /// output that is new is told what comes behind pNow. Answers when it is to be called again,
    /// µs: at the next tick, or when kLongestRest is over. [no allocation]
    std::int64_t Step(const BeatClockState& pState, std::int64_t pNow, std::int64_t pWallNow);

    /// Ticks that were lost because a step came more than kOldest late. [any thread]
    std::uint64_t getLostCount() const { return m_lostCount; }

private:
    struct Output
    {
        Output(ClockListener& pTold, std::int32_t pDivision, std::int64_t pOffset)
            : listener(pTold), cursor(pDivision, pOffset), offset(pOffset)
        {
        }

        ClockListener& listener;  ///< not owned
        BeatCursor cursor;
        std::atomic<std::int64_t> offset;  ///< µs, as it was set
        bool isJoined = false;
        bool isRunning = false;  ///< as it was told
        std::uint32_t run = 0;   ///< of the clock, as it was told
    };

    void
    _Tell(Output& pOutput, const BeatClockState& pState, std::int64_t pNow, std::int64_t pWallNow);
    static void _TellBeginning(Output& pOutput, const BeatClockState& pState);
    void _LoseOld(Output& pOutput, const BeatClockState& pState, std::int64_t pNow);

    std::vector<std::unique_ptr<Output>> m_outputs;
    std::atomic<std::uint64_t> m_lostCount{0};
};

}  // namespace shared
