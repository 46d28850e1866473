// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

/// Puts the clock of the calling thread under the host's control while the object lives.
///
/// A host that analyses a file faster than real time derives the time from the samples it has
/// delivered; the same file then gives the same events on every run and every machine, the
/// ten-second accuracy watch included:
///
///     HighResolutionTimerOverride clock(startTime);
///     while (read(block)) {
///         samples += block.count;
///         clock.setTime(startTime + samples * 1000000 / sampleRate);
///         analyzer.Analyze(block.samples, block.count);
///     }
///
/// Overrides nest: the youngest one of a thread is in force, and its destruction brings back the
/// one before it. Destroy them in reverse order of creation, on the thread that made them. Other
/// threads keep their own clock. The event loop's timers are not affected.
class AUDIOANALYZER_EXPORT HighResolutionTimerOverride
{
public:
    /// pTime: microseconds since the epoch, greater than 0. [this thread only] [no allocation]
    explicit HighResolutionTimerOverride(quint64 pTime);
    ~HighResolutionTimerOverride();
    HighResolutionTimerOverride(const HighResolutionTimerOverride&) = delete;
    HighResolutionTimerOverride& operator=(const HighResolutionTimerOverride&) = delete;

    /// From now on the thread's clock reads pTime, in microseconds since the epoch.
    /// False, and no change, when pTime is 0: the clock must never read 0. [no allocation]
    bool setTime(quint64 pTime);

    /// What the thread's clock reads while this override is in force, in microseconds.
    quint64 getTime() const { return m_time; }

    /// The override in force on the calling thread, or null. [any thread] [no allocation]
    static const HighResolutionTimerOverride* getCurrent();

private:
    HighResolutionTimerOverride*
        m_pOuter;    ///< override in force before this one, or null; not owned
    quint64 m_time;  ///< µs since the epoch
};
