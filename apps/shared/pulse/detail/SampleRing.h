// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace pulse {

/// The last samples of a recording that nobody has read yet; when it is full, the oldest are lost.
/// Samples are counted from the beginning of the recording. Not thread-safe.
class SampleRing
{
public:
    explicit SampleRing(std::size_t pCapacity) : m_samples(pCapacity) {}

    /// Null stands for silence. [audio path: no allocation]
    void Write(const qint16* pSamples, std::size_t pCount)
    {
        for (std::size_t i = 0; i < pCount; ++i)
            m_samples[(m_written + i) % m_samples.size()] = pSamples ? pSamples[i] : qint16(0);
        m_written += pCount;
        const quint64 oldest = m_written - std::min<quint64>(m_written, m_samples.size());
        if (m_read < oldest) {
            m_lost += oldest - m_read;
            m_read = oldest;
        }
    }

    /// Returns how many there were, at most pCount. [audio path: no allocation]
    std::size_t Read(qint16* pSamples, std::size_t pCount)
    {
        const std::size_t count = std::min(pCount, getSize());
        for (std::size_t i = 0; i < count; ++i)
            pSamples[i] = m_samples[(m_read + i) % m_samples.size()];
        m_read += count;
        return count;
    }

    std::size_t getSize() const { return std::size_t(m_written - m_read); }
    quint64 getWritten() const { return m_written; }  ///< index behind the last one written
    quint64 getRead() const { return m_read; }        ///< index of the next one to be read
    quint64 getLost() const { return m_lost; }

private:
    std::vector<qint16> m_samples;
    quint64 m_written = 0;
    quint64 m_read = 0;
    quint64 m_lost = 0;
};

}  // namespace pulse
