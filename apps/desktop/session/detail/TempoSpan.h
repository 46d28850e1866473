// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <deque>

namespace desktop {

/// The tempo of the beats of the last seconds, whatever the range of the profile.
///
/// The analyzer only tells its tempo clamped to that range; this one shows that music lies outside.
class TempoSpan
{
public:
    static constexpr std::size_t kLeastBeats = 5;

    void Clear() { m_beats.clear(); }

    /// A beat at sample pIndex, behind all others; forgets those more than pSpan samples before it.
    void Add(quint64 pIndex, quint64 pSpan)
    {
        if (!m_beats.empty() && pIndex <= m_beats.back())
            m_beats.clear();
        m_beats.push_back(pIndex);
        while (pIndex - m_beats.front() > pSpan)
            m_beats.pop_front();
    }

    /// BPM; 0 with fewer than kLeastBeats beats.
    double getBPM(int pSampleRate) const
    {
        if (m_beats.size() < kLeastBeats)
            return 0.0;
        const auto length = static_cast<double>(m_beats.back() - m_beats.front());
        return 60.0 * pSampleRate * double(m_beats.size() - 1) / length;
    }

private:
    std::deque<quint64> m_beats;  ///< sample indexes, growing
};

}  // namespace desktop
