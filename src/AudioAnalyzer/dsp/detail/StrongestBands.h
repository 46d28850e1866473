// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/FrequencyBandAmplitude.h>

#include <algorithm>
#include <cstddef>

namespace detail {

/// Keeps the strongest of the records offered, as many as the caller's array has room for.
/// Records stand in the order of their arrival; a stronger one takes the place of the weakest,
/// which among equals is the first.
class StrongestBands
{
public:
    /// pRecords: pCapacity records, at least one, that outlive the object.
    StrongestBands(FrequencyBandAmplitude* pRecords, std::size_t pCapacity)
        : m_pRecords(pRecords), m_capacity(pCapacity)
    {
    }

    /// Whether a record of this amplitude would be kept.
    bool isWanted(double pAmplitude) const
    {
        return m_count < m_capacity || pAmplitude > m_pRecords[m_weakest].amplitude;
    }

    void offer(const FrequencyBandAmplitude& pRecord)
    {
        if (m_count < m_capacity) {
            m_pRecords[m_count++] = pRecord;
            if (m_count == m_capacity)
                _FindWeakest(0);
        } else if (isWanted(pRecord.amplitude)) {
            m_pRecords[m_weakest] = pRecord;
            _FindWeakest(m_weakest);
        }
    }

    std::size_t count() const { return m_count; }

private:
    // A tie goes to the record the search starts at, then to the lowest position.
    void _FindWeakest(std::size_t pStart)
    {
        m_weakest = pStart;
        for (std::size_t i = 0; i < m_capacity; ++i)
            if (m_pRecords[i].amplitude < m_pRecords[m_weakest].amplitude)
                m_weakest = i;
    }

    FrequencyBandAmplitude* m_pRecords;
    std::size_t m_capacity;
    std::size_t m_count = 0;
    std::size_t m_weakest = 0;
};

}  // namespace detail
