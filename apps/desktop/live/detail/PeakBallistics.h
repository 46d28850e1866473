// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/detail/Decibels.h>

#include <QtGlobal>

#include <algorithm>

namespace desktop {

/// How a peak meter moves: up at once, down slowly, with a mark that rests on the highest level.
class PeakBallistics
{
public:
    static constexpr double kFall = 24.0;  ///< dB per second
    static constexpr qint64 kHoldMs = 2000;

    void Clear() { *this = PeakBallistics(); }

    /// A level of now, dBFS; pNow: ms, growing.
    void Add(double pDecibels, qint64 pNow)
    {
        const double fall = kFall * double(std::clamp<qint64>(pNow - m_time, 0, 10000)) / 1000.0;
        m_time = pNow;
        m_level = std::max({pDecibels, m_level - fall, kLeastDecibels});
        if (m_level >= m_peak || pNow - m_peakTime >= kHoldMs) {
            m_peak = m_level;
            m_peakTime = pNow;
        }
    }

    double getLevel() const { return m_level; }  ///< dBFS
    double getPeak() const { return m_peak; }    ///< dBFS; the mark

private:
    double m_level = kLeastDecibels;
    double m_peak = kLeastDecibels;
    qint64 m_time = 0;      ///< ms
    qint64 m_peakTime = 0;  ///< ms
};

}  // namespace desktop
