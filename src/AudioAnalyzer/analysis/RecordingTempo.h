// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <vector>

/// The one tempo of a whole recording.
///
/// It is the median of the tempos that were reported with real beats, which outliers and breaks do
/// not move; the lower one of the two middle ones for an even number, so that it is a tempo that
/// was reported. A reported tempo is a mean over ten seconds of beats unless configured otherwise,
/// so those of the first ten seconds from the first real beat on, when the search still shows in
/// them, only count for want of later ones; and those reported with virtual beats for want of all
/// others.
///
/// Threads: any.
class AUDIOANALYZER_EXPORT RecordingTempo
{
public:
    /// A beat, as BeatFollower tells it.
    struct Report
    {
        double time;     ///< seconds
        double bpm;      ///< reported with it; what is not above 0 is unknown, and does not count
        bool isVirtual;  ///< stands in for a beat window that held no pulse
    };

    /// BPM; 0 = unknown. pReports: in order of time. [any thread] [allocates]
    static double Compute(const std::vector<Report>& pReports);

    /// The same for beats of the automatic tracker, which lie more exactly than it reports their
    /// tempo: the median of the tempos that each nine beats in a row make, those of the first ten
    /// seconds only for want of others. An interval of more than one and a half reported ones
    /// breaks a row; where there is no row at all, the reports count as above. BPM; 0 = unknown.
    /// [any thread] [allocates]
    static double ComputeFromTimes(const std::vector<Report>& pReports);
};
