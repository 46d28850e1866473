// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstdlib>

namespace shared {

/// Compares a stream's count of samples with the clock.
///
/// Samples arrive in blocks, each a little late by chance; never early. So of each window of time
/// only the least late block counts. Its lateness against the anchor is the drift: positive when
/// the samples fall behind the clock.
class SampleClock
{
public:
    static constexpr qint64 kWindow = 2000000;  ///< µs

    SampleClock() = default;
    explicit SampleClock(int pSampleRate) : m_rate(pSampleRate) {}

    /// The next sample is the first, and belongs to pNow, µs.
    void Start(quint64 pNow)
    {
        *this = SampleClock(m_rate);
        m_anchor = pNow;
    }

    /// pCount more samples have arrived, the last of them at pNow, µs.
    void Add(quint64 pCount, quint64 pNow)
    {
        m_count += pCount;
        const qint64 elapsed = static_cast<qint64>(pNow - m_anchor);
        const qint64 lateness = elapsed - getSpan(m_count);
        m_least = m_isWindowEmpty ? lateness : std::min(m_least, lateness);
        m_isWindowEmpty = false;
        // Whoever sets the clock back ends the window as well.
        if (std::abs(elapsed - m_windowStart) >= kWindow)
            _Close(elapsed);
    }

    int getSampleRate() const { return m_rate; }  ///< Hz
    quint64 getCount() const { return m_count; }  ///< samples since the anchor
    /// µs from the anchor to the sample of that index, by the count alone.
    qint64 getSpan(quint64 pIndex) const
    {
        const auto rate = static_cast<quint64>(m_rate);
        return static_cast<qint64>(pIndex / rate * 1000000 + pIndex % rate * 1000000 / rate);
    }
    /// µs; 0 until the first window has passed.
    qint64 getDrift() const { return m_lastDrift; }
    /// Drift per time, parts in a million; 0 until two windows have passed.
    double getPpm() const
    {
        return m_lastTime > m_firstTime
                   ? 1e6 * double(m_lastDrift - m_firstDrift) / double(m_lastTime - m_firstTime)
                   : 0.0;
    }

private:
    void _Close(qint64 pElapsed)
    {
        m_lastDrift = m_least;
        m_lastTime = pElapsed;
        if (m_firstTime == 0) {
            m_firstDrift = m_lastDrift;
            m_firstTime = m_lastTime;
        }
        m_windowStart = pElapsed;
        m_isWindowEmpty = true;
    }

    int m_rate = 1;            ///< Hz
    quint64 m_anchor = 0;      ///< µs since the epoch; all times below count from here
    quint64 m_count = 0;       ///< samples
    qint64 m_windowStart = 0;  ///< µs
    qint64 m_least = 0;        ///< least lateness of the present window, µs
    bool m_isWindowEmpty = true;
    qint64 m_firstDrift = 0;  ///< µs
    qint64 m_firstTime = 0;   ///< end of the first window, µs; 0 = not yet
    qint64 m_lastDrift = 0;   ///< µs
    qint64 m_lastTime = 0;    ///< µs
};

}  // namespace shared
