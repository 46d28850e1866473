// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

namespace shared {

/// What the clock's thread leaves for an output.
struct OutputEvent
{
    bool isTick;  ///< else the clock begins or stands still
    bool isRunning;
    ClockTick tick;  ///< if it is one
    BeatClockState state;
    double confidence;  ///< 0 to 1
};

/// What a receiver is told, and when: whatever it does, it hears of the present, never of what is
/// over, and is looked for again at growing intervals when it has gone.
///
/// Time is that of ClockThread::getTime().
///
/// Threads: one at a time, that of the receiver, but for what is marked.
class OutputDelivery
{
public:
    static constexpr std::int64_t kOldest = 100000;         ///< µs; what is older is not told
    static constexpr std::int64_t kRestInterval = 100000;   ///< µs
    static constexpr std::int64_t kShortestPause = 250000;  ///< µs, between two attempts to open
    static constexpr std::int64_t kLongestPause = 2000000;  ///< µs; also of a good connection
    static constexpr double kLeastTempoChange = 0.005;      ///< BPM; less is the same tempo

    /// Hears what there is to say of the receiver, each state once; isOpen() fits it.
    using Report = std::function<void(const QString& pWords)>;

    /// The receiver is not owned.
    OutputDelivery(OutputReceiver& pReceiver, Report pReport);

    void Tell(const OutputEvent& pEvent);
    void Hear(const OutputSound& pSound);
    /// Opens the receiver when it is time to, and lets it rest. Answers when it is to be called
    /// again, µs, if nothing is told before.
    std::int64_t Step();
    /// Closes the receiver.
    void End();

    /// [any thread]
    bool isOpen() const { return m_isOpen; }
    /// What was too old when its turn came. [any thread]
    std::uint64_t getLostCount() const { return m_lost; }

private:
    void _Open();
    bool _TellPlaying();
    bool _TellTick(const OutputEvent& pEvent);
    bool _IsOld(std::int64_t pTime);
    void _Fail();
    void _Pause();
    void _Say(const QString& pWords);

    OutputReceiver& m_receiver;  ///< not owned
    const Report m_report;
    QString m_said;  ///< words of the state that was said last
    std::atomic<bool> m_isOpen{false};
    std::atomic<std::uint64_t> m_lost{0};
    std::int64_t m_openTime = 0;            ///< µs; since when it is open
    std::int64_t m_attemptTime = 0;         ///< µs; when it is to be opened
    std::int64_t m_restTime = 0;            ///< µs; when it may rest
    std::int64_t m_pause = kShortestPause;  ///< µs; the next one
    bool m_isRunning = false;               ///< as the clock says
    BeatClockState m_state = {};
    std::optional<bool> m_toldRunning;  ///< none: nothing was told since it was opened
    std::uint32_t m_toldRun = 0;
    double m_toldBPM = 0.0;  ///< 0 = none
};

}  // namespace shared
