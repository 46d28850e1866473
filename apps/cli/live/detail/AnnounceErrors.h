// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <deque>
#include <vector>

namespace cli {

/// How far announcements lie from the beats that they announce. All times in ms.
struct AnnounceStatistics
{
    std::size_t count = 0;    ///< beats that were announced
    std::size_t missing = 0;  ///< beats that were not, after the first one that was
    double median = 0.0;      ///< of announcement minus sound; negative = early
    double deviation = 0.0;   ///< standard deviation
    double most = 0.0;        ///< 95 % are off by no more, to either side
};

/// Pairs announcements with beats. An announcement belongs to the beat whose sound is nearest, up
/// to half a beat away.
class AnnounceErrors
{
public:
    /// A beat was announced at pNow, µs.
    void AddAnnouncement(quint64 pNow);
    /// A beat sounded at pSound, µs, later than the one before. It is paired when the next one is
    /// known, since a late announcement may still come.
    void AddBeat(quint64 pSound);
    /// What comes does not follow on what was.
    void Interrupt();

    AnnounceStatistics getStatistics() const;

private:
    void _Pair(quint64 pSound, quint64 pReach);

    std::deque<quint64> m_announcements;  ///< µs, not paired yet
    quint64 m_beat = 0;                   ///< sound of the beat to be paired, µs; 0 = none
    std::vector<double> m_errors;         ///< ms
    std::size_t m_missing = 0;
};

}  // namespace cli
