// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <memory>

/// Sends two bars at 120 BPM to a receiver, as soon as it is there.
///
/// Threads: one event-loop thread.
class OutputTrial : public QObject
{
    Q_OBJECT

public:
    static constexpr double kTempo = 120.0;              ///< BPM
    static constexpr std::int64_t kBeats = 8;            ///< two bars
    static constexpr std::int64_t kPatience = 10000000;  ///< µs for the receiver to be there

    /// Begins at once. pOffset: ms, positive is later.
    OutputTrial(std::unique_ptr<shared::OutputReceiver> pReceiver,
                double pOffset,
                QObject* pParent = nullptr);
    /// Waits until the receiver is closed.
    ~OutputTrial() override;

    /// Whether the receiver is reached.
    bool isOpen() const;
    /// Of the beats from now on; none is left out. ms, positive is later.
    void setOffset(double pOffset);

Q_SIGNALS:
    /// What there is to say of the receiver, in words for people.
    void OnStateChanged(const QString& pWords);
    /// Once, with the receiver closed. pIsDone: all was sent; else it was lost, or not reached.
    void OnEnded(bool pIsDone, const QString& pWords);

private:
    void _OnTick();
    void _Await(std::int64_t pNow);
    void _End(bool pIsDone, const QString& pWords);

    double m_offset;  ///< ms
    BeatClock m_clock;
    shared::ClockThread m_thread{m_clock};
    Outputs m_outputs{m_thread, [](const BeatClockState&) { return 1.0; }};
    QTimer m_tick;
    std::int64_t m_start;          ///< µs
    std::int64_t m_firstTime = 0;  ///< µs; when the first beat is sent; 0 = not yet
};
