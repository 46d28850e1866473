// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <deque>
#include <vector>

/// The tempo of taps: that of the median interval of the latest ones, so that one late finger does
/// not count.
///
/// Times come from the caller, in microseconds on any clock.
///
/// Threads: one at a time.
class TapTempo
{
public:
    static constexpr quint64 kStale = 3000000;   ///< µs; a later tap begins anew
    static constexpr quint64 kBounce = 100000;   ///< µs; an earlier tap is no tap: above 600 BPM
    static constexpr std::size_t kMostTaps = 9;  ///< two bars of four

    /// False when the tap came too soon after the last one and does not count. [allocates]
    bool Tap(quint64 pTime)
    {
        const quint64 last = m_taps.empty() ? 0 : m_taps.back();
        // A clock that was set back makes the earlier taps worthless, too.
        if (pTime < last || pTime - last > kStale)
            m_taps.clear();
        if (!m_taps.empty() && pTime - last < kBounce)
            return false;
        m_taps.push_back(pTime);
        if (m_taps.size() > kMostTaps)
            m_taps.pop_front();
        return true;
    }
    void Clear() { m_taps.clear(); }

    int getCount() const { return static_cast<int>(m_taps.size()); }
    /// BPM; 0 before the second tap. [allocates]
    double getBPM() const
    {
        constexpr double kMinute = 60e6;  // µs
        return m_taps.size() < 2 ? 0.0 : kMinute / _Period();
    }
    /// How far behind the last tap the beat lies that all of them mean, in µs: the median of their
    /// distances from a steady beat. 0 before the second tap. [allocates]
    double getLag() const
    {
        std::vector<double> lags;
        const double period = m_taps.size() < 2 ? 0.0 : _Period();
        double lag = 0.0;
        for (std::size_t i = m_taps.size(); i-- > 0; lags.push_back(lag)) {
            if (i + 1 == m_taps.size())
                continue;
            const auto interval = static_cast<double>(m_taps[i + 1] - m_taps[i]);
            lag += period * std::round(interval / period) - interval;
        }
        return lags.empty() ? 0.0 : _Median(lags);
    }

private:
    /// µs
    double _Period() const
    {
        std::vector<double> intervals;
        for (std::size_t i = 1; i < m_taps.size(); ++i)
            intervals.push_back(static_cast<double>(m_taps[i] - m_taps[i - 1]));
        return _Median(intervals);
    }
    /// Of an even count, the middle of the two in the middle. pValues is not empty.
    static double _Median(std::vector<double>& pValues)
    {
        std::sort(pValues.begin(), pValues.end());
        return (pValues[(pValues.size() - 1) / 2] + pValues[pValues.size() / 2]) / 2.0;
    }

    std::deque<quint64> m_taps;  ///< µs, the oldest first
};
