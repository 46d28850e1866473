// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <algorithm>
#include <cmath>
#include <vector>

/// A tracker, and all that it has told.
class TrackedBeats
{
public:
    explicit TrackedBeats(int pSampleRate) : tracker(pSampleRate)
    {
        QObject::connect(
            &tracker,
            &MeterTracker::OnBeatForeseen,
            [this](const MeterTracker::Beat& pBeat) { beats.push_back(pBeat); });
        QObject::connect(&tracker,
                         &MeterTracker::OnPlayingChanged,
                         [this](quint64 pIndex, bool pOn) { changes.emplace_back(pIndex, pOn); });
    }

    void push(const std::vector<qint16>& pSamples, std::size_t pPortion = 1024)
    {
        for (std::size_t i = 0; i < pSamples.size(); i += pPortion)
            tracker.Push(&pSamples[i], std::min(pPortion, pSamples.size() - i));
    }

    std::vector<double> seconds() const
    {
        std::vector<double> times;
        for (const MeterTracker::Beat& beat : beats)
            times.push_back(double(beat.index) / tracker.getSampleRate());
        return times;
    }

    /// Beats from pFrom to pTo seconds.
    int count(double pFrom, double pTo) const
    {
        const std::vector<double> times = seconds();
        return int(std::count_if(times.begin(), times.end(), [=](double pTime) {
            return pTime >= pFrom && pTime < pTo;
        }));
    }

    /// The greatest distance of a beat from pFrom seconds on to the grid of pBPM that begins at 0.
    double greatestError(double pBPM, double pFrom) const
    {
        double greatest = 0.0;
        for (const double time : seconds()) {
            const double period = 60.0 / pBPM;
            const double error = time - std::round(time / period) * period;
            if (time >= pFrom)
                greatest = std::max(greatest, std::fabs(error));
        }
        return greatest;
    }

    MeterTracker tracker;
    std::vector<MeterTracker::Beat> beats;
    std::vector<std::pair<quint64, bool>> changes;
};

inline bool operator==(const MeterTracker::Beat& pLeft, const MeterTracker::Beat& pRight)
{
    return pLeft.index == pRight.index && pLeft.bpm == pRight.bpm &&
           pLeft.beatInBar == pRight.beatInBar && pLeft.confidence == pRight.confidence &&
           pLeft.barConfidence == pRight.barConfidence;
}
