// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockOutputs.h>

#include <atomic>
#include <cstdint>
#include <thread>

namespace shared {

/// The thread that keeps the time of a beat clock, and tells the outputs.
///
/// It sleeps until an instant, not for a while, so that no delay adds up, and reads the clock's
/// state without a lock: neither a window that paints nor a reader that stalls delays a tick. It
/// asks for real-time priority; where that is not allowed it goes on without, and isRealTime() says
/// so.
///
/// The clock's instants must be those of getTime().
///
/// Threads: that of the owner, but for what is marked.
class ClockThread
{
public:
    /// The clock is not owned, and outlives this.
    explicit ClockThread(const BeatClock& pClock) : m_clock(pClock) {}
    /// Stops.
    ~ClockThread() { Stop(); }
    ClockThread(const ClockThread&) = delete;
    ClockThread& operator=(const ClockThread&) = delete;

    /// µs of the system's monotonic clock. [any thread] [no allocation]
    static std::int64_t getTime();

    /// Adds, or removes, an output, which is not owned; see ClockOutputs. The thread
    /// pauses for it, and the other outputs miss nothing.
    void Add(ClockListener& pListener, std::int32_t pDivision, std::int64_t pOffset = 0);
    void Remove(const ClockListener& pListener);
    /// Of an output that is there. µs, positive is later.
    void setOffset(const ClockListener& pListener, std::int64_t pOffset);

    /// Ticks are told from now on. [allocates]
    void Start();
    /// When it returns, no listener is being called, nor will be.
    void Stop();
    bool isStarted() const { return m_thread.joinable(); }

    /// Whether the system has granted real-time priority; false before the thread has begun. [any
    /// thread]
    bool isRealTime() const { return m_isRealTime; }
    /// See ClockOutputs. [any thread]
    std::uint64_t getLostCount() const { return m_outputs.getLostCount(); }

private:
    void _Begin();
    void _Run();

    const BeatClock& m_clock;  ///< not owned
    ClockOutputs m_outputs;
    std::atomic<bool> m_isStopping{false};
    std::atomic<bool> m_isRealTime{false};
    std::thread m_thread;
};

}  // namespace shared
