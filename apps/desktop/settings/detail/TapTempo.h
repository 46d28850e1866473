// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <deque>
#include <vector>

namespace desktop {

/// The tempo of taps: that of the median interval of the latest ones, so that one late finger does
/// not count.
///
/// Times come from the caller, in microseconds on any clock.
class TapTempo
{
public:
    static constexpr quint64 kStale = 3000000;   ///< µs; a later tap begins anew
    static constexpr quint64 kBounce = 100000;   ///< µs; an earlier tap is no tap: above 600 BPM
    static constexpr std::size_t kMostTaps = 9;  ///< two bars of four

    /// False when the tap came too soon after the last one and does not count.
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
    /// BPM; 0 before the second tap.
    double getBPM() const
    {
        constexpr double kMinute = 60e6;  // µs
        return m_taps.size() < 2 ? 0.0 : kMinute / _Median();
    }

private:
    /// µs; of an even count, the middle of the two in the middle.
    double _Median() const
    {
        std::vector<quint64> intervals;
        for (std::size_t i = 1; i < m_taps.size(); ++i)
            intervals.push_back(m_taps[i] - m_taps[i - 1]);
        std::sort(intervals.begin(), intervals.end());
        const quint64 lower = intervals[(intervals.size() - 1) / 2];
        const quint64 upper = intervals[intervals.size() / 2];
        return static_cast<double>(lower + upper) / 2.0;
    }

    std::deque<quint64> m_taps;  ///< µs, the oldest first
};

}  // namespace desktop
