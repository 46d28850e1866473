// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>

#include <QCoreApplication>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <memory>

/// Sends two bars at 120 BPM to a receiver, as soon as it is there.
class OutputsTest
{
    Q_DECLARE_TR_FUNCTIONS(OutputsTest)

public:
    static constexpr double kTempo = 120.0;              ///< BPM
    static constexpr std::int64_t kBeats = 8;            ///< two bars
    static constexpr std::int64_t kPatience = 10000000;  ///< µs for the receiver to be there

    /// pOffset: ms.
    OutputsTest(const QString& pName, double pOffset);

    /// Does the work and returns the exit code. To be called once.
    int Run(std::unique_ptr<shared::OutputReceiver> pReceiver);

private:
    void _OnTick();
    void _Await(std::int64_t pNow, bool pIsOpen);
    void _End(int pExitCode, const QString& pWords);

    const QString m_name;
    const double m_offset;  ///< ms
    BeatClock m_clock;
    shared::ClockThread m_thread{m_clock};
    Outputs m_outputs{m_thread, [](const BeatClockState&) { return 1.0; }};
    QTimer m_tick;
    std::int64_t m_start = 0;      ///< µs
    std::int64_t m_firstTime = 0;  ///< µs; when the first beat is sent; 0 = not yet
    int m_exitCode = 0;
};
