// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockListener.h>
#include <shared/clock/StallQueue.h>
#include <shared/outputs/OutputDelivery.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

namespace shared {

/// A receiver with its thread. What the clock's thread tells it is left in a queue, and a bell is
/// rung: nothing that the receiver does holds up the clock or another output.
///
/// The thread asks for the clock's real-time priority, and goes on without it where that is not
/// allowed.
///
/// Threads: that of the owner, but for what is marked.
class OutputRunner : public ClockListener
{
public:
    /// That the next beat is right, 0 to 1. [clock thread] [no allocation]
    using Confidence = std::function<double(const BeatClockState& pState)>;

    /// pReport is called in the runner's thread; see OutputDelivery.
    OutputRunner(std::unique_ptr<OutputReceiver> pReceiver,
                 Confidence pConfidence,
                 OutputDelivery::Report pReport);
    /// Stops.
    ~OutputRunner() override;
    OutputRunner(const OutputRunner&) = delete;
    OutputRunner& operator=(const OutputRunner&) = delete;

    const OutputReceiver& getReceiver() const { return *m_pReceiver; }

    /// The receiver is opened, and told what comes. To be called once. [allocates]
    void Start();
    /// The receiver will be closed; does not wait for it. [any thread]
    void Leave();
    /// Waits until the receiver is closed, which takes as long as what it does takes.
    void Stop();

    void OnTick(const ClockTick& pTick, const BeatClockState& pState) override;
    void OnRunningChanged(bool pIsRunning, const BeatClockState& pState) override;
    /// For receivers that hear sound. [any thread] [no allocation]
    void Hear(const OutputSound& pSound);

    /// Whether the receiver is open. [any thread]
    bool isOpen() const { return m_delivery.isOpen(); }
    /// What was too old when its turn came. [any thread]
    std::uint64_t getLostCount() const { return m_delivery.getLostCount() + m_crowdedOut; }
    /// Whether the system has granted real-time priority. [any thread]
    bool isRealTime() const { return m_isRealTime; }

private:
    static constexpr std::size_t kMostEvents = 64;  ///< more than fit into OutputDelivery::kOldest
    static constexpr std::size_t kMostSounds = 8;   ///< likewise

    void _Ring() const;
    void _Run();
    void _DeliverAll();
    void _WaitUntil(std::int64_t pTime) const;

    const std::unique_ptr<OutputReceiver> m_pReceiver;
    const Confidence m_confidence;
    OutputDelivery m_delivery;
    bool m_isRunning = false;  ///< the clock, as its thread says
    StallQueue<OutputEvent> m_events{kMostEvents};
    StallQueue<OutputSound> m_sounds{kMostSounds};
    int m_bell;  ///< rings for a new event, and at the end
    std::atomic<bool> m_isEnding{false};
    std::atomic<bool> m_isRealTime{false};
    std::atomic<std::uint64_t> m_crowdedOut{0};  ///< what fell out of the queues
    std::thread m_thread;
};

}  // namespace shared
