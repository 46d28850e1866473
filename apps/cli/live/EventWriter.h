// SPDX-License-Identifier: MIT
#pragma once

#include <cli/output/OutputFile.h>
#include <shared/clock/ClockListener.h>
#include <shared/clock/StallQueue.h>

#include <QByteArray>

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

/// A beat that falls due, as the clock's thread leaves it for those that tell it.
struct Announcement
{
    shared::ClockTick tick;
    double bpm;         ///< of the clock
    double confidence;  ///< 0 to 1
};

/// Writes events to a stream, standard output, on a thread of its own, so that a reader who stalls
/// holds up neither the beat nor the sound. What such a reader does not take is kept, up to
/// kMostEvents; then the oldest is lost, and the reader told how many were as soon as it reads on.
class EventWriter
{
public:
    static constexpr std::size_t kMostEvents = 1000;
    static constexpr int kPatienceMs = 500;  ///< at the end, for a reader that stalls

    /// Both make a line with its line feed, on the writing thread; an empty one is not written.
    struct Forms
    {
        std::function<QByteArray(const Announcement&)> announcement;
        std::function<QByteArray(std::uint64_t pCount)> loss;
    };

    /// pPath: a stream, or "-".
    explicit EventWriter(Forms pForms, const QString& pPath = QStringLiteral("-"));
    /// Ends.
    ~EventWriter();
    EventWriter(const EventWriter&) = delete;
    EventWriter& operator=(const EventWriter&) = delete;

    /// A line with its line feed. [any thread]
    void Write(const QByteArray& pLine);
    /// [any thread] [no allocation]
    void Announce(const Announcement& pAnnouncement);
    /// Writes what is left, and gives a reader up that does not take it within kPatienceMs.
    void End();

    /// Nothing can be written any more. [any thread]
    bool isBroken() const { return m_isBroken; }
    /// Events that no reader took, so far. [any thread]
    std::uint64_t getLostCount() const { return m_lost; }
    /// [after End()]
    const OutputFile& getOutput() const { return m_output; }

private:
    struct Event
    {
        bool isAnnouncement = false;
        Announcement announcement = {};
        QByteArray line;
    };

    void _Push(Event pEvent);
    void _Run();
    void _WriteAll();
    bool _WriteLine(const QByteArray& pLine);
    bool _AwaitReader();

    const Forms m_forms;
    OutputFile m_output;
    shared::StallQueue<Event> m_events{kMostEvents};
    int m_bell;  ///< rings for a new event, and at the end
    std::atomic<bool> m_isEnding{false};
    std::atomic<bool> m_isBroken{false};
    std::atomic<std::uint64_t> m_lost{0};
    std::thread m_thread;
};
