// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace pulse {

/// The instants at which the samples of a stream sound, as a straight line through what the server
/// tells now and then. Each single answer is off by a little, to either side.
class SoundLine
{
public:
    static constexpr double kJump = 20000.0;  ///< µs; farther off, the line begins anew
    static constexpr int kMemory = 8;         ///< answers over which the line is averaged

    explicit SoundLine(int pSampleRate = 1) : m_rate(pSampleRate) {}

    /// The sample of that index sounds at pInstant, µs, as it seems. Indexes grow.
    void Add(quint64 pIndex, quint64 pInstant)
    {
        const auto measured = double(qint64(pInstant - m_origin));
        const double foreseen = _At(pIndex);
        if (m_count == 0 || std::fabs(measured - foreseen) > kJump) {
            m_origin = pInstant;
            m_offset = 0.0;
            m_count = 0;
        } else {
            m_offset = foreseen + (measured - foreseen) / (m_count + 1);
        }
        m_index = pIndex;
        m_count = std::min(m_count + 1, kMemory);
    }

    bool isKnown() const { return m_count > 0; }
    /// µs; only while it is known.
    quint64 getInstant(quint64 pIndex) const
    {
        return m_origin + quint64(qint64(std::llround(_At(pIndex))));
    }
    /// How many samples have sounded by pInstant, µs; only while it is known.
    quint64 getIndex(quint64 pInstant) const
    {
        const double elapsed = double(qint64(pInstant - m_origin)) - m_offset;
        const auto index = qint64(m_index) + qint64(std::floor(elapsed * m_rate / 1e6));
        return quint64(std::max<qint64>(index, 0));
    }

private:
    /// µs after the origin.
    double _At(quint64 pIndex) const
    {
        return m_offset + double(qint64(pIndex - m_index)) * 1e6 / m_rate;
    }

    int m_rate;             ///< Hz
    int m_count = 0;        ///< answers so far, kMemory at most
    quint64 m_origin = 0;   ///< µs since the epoch
    quint64 m_index = 0;    ///< of the last answer
    double m_offset = 0.0;  ///< µs from the origin to that sample
};

}  // namespace pulse
