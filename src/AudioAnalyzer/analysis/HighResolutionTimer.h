// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

/// The library's one clock, and a stopwatch on it.
///
/// All times are microseconds since the epoch of the system's wall clock; 0 means "not set"
/// elsewhere in the library, and the clock never reads 0. The clock is the wall clock unless a
/// HighResolutionTimerOverride is in force on the calling thread.
///
/// Differences are unsigned: a clock set back behind the start gives a very large elapsed time.
///
/// Threads: getTime() may be called from any thread; an object belongs to one thread at a time.
class AUDIOANALYZER_EXPORT HighResolutionTimer
{
public:
    /// Starts the stopwatch now. [audio path: no allocation]
    HighResolutionTimer();
    /// Measures from the same start as pOther. [audio path: no allocation]
    HighResolutionTimer(const HighResolutionTimer& pOther);
    HighResolutionTimer& operator=(const HighResolutionTimer& pOther);
    ~HighResolutionTimer() = default;

    /// Microseconds since the epoch. [any thread] [audio path: no allocation]
    static quint64 getTime();

    /// Restarts the stopwatch now. [audio path: no allocation]
    void Reset();

    /// Time since construction or the last Reset(). [audio path: no allocation]
    quint64 getElapsedMicroSeconds() const;
    double getElapsedMilliSeconds() const;
    double getElapsedSeconds() const;

private:
    quint64 m_startTime;  ///< µs since the epoch
};
