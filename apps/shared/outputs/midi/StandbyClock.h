// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/midi/MidiPort.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

namespace shared {

/// Clocks at a steady tempo while nothing else is sent, in a thread of its own.
class StandbyClock
{
public:
    /// pPort is not owned. It is this object's alone from Start() to Stop().
    explicit StandbyClock(MidiPort& pPort) : m_port(pPort) {}
    ~StandbyClock() { Stop(); }
    StandbyClock(const StandbyClock&) = delete;
    StandbyClock& operator=(const StandbyClock&) = delete;

    /// pInterval: µs between two clocks, above 0; the first one comes after that.
    void Start(std::int64_t pInterval);
    /// Waits for nothing. False when the port has gone meanwhile.
    bool Stop();
    /// The port has gone since Start().
    bool hasFailed() const { return m_hasFailed; }

private:
    void _Run(std::int64_t pInterval);

    MidiPort& m_port;
    std::atomic<bool> m_hasFailed{false};
    std::mutex m_mutex;
    std::condition_variable m_change;
    bool m_isStopping = false;  ///< guarded by m_mutex
    std::thread m_thread;
};

}  // namespace shared
