// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>

namespace plain {

/// Rolling window of samples whose figures are computed by a pass over all of it.
class Statistics
{
public:
    explicit Statistics(std::size_t pCapacity) : m_capacity(pCapacity) {}

    void update(const short* pSamples, std::size_t pCount)
    {
        m_samples.insert(m_samples.end(), pSamples, pSamples + pCount);
        while (m_samples.size() > m_capacity)
            m_samples.pop_front();
    }

    void reset() { m_samples.clear(); }

    /// Another length keeps the two extremes of what was there.
    void resize(std::size_t pCapacity)
    {
        m_capacity = pCapacity;
        if (m_samples.empty())
            return;
        const std::deque<short> extremes = {maximum(), minimum()};
        m_samples = extremes;
    }

    short average() const
    {
        long long sum = 0;
        for (const short sample : m_samples)
            sum += magnitude(sample);
        const unsigned long long size = m_samples.size();
        return size == 0 ? short(-1)
                         : static_cast<short>(static_cast<unsigned long long>(sum) / size);
    }

    short maximum() const
    {
        short result = m_samples.empty() ? short(-1) : magnitude(m_samples.front());
        for (const short sample : m_samples)
            if (magnitude(sample) > result)
                result = magnitude(sample);
        return result;
    }

    short minimum() const
    {
        short result = m_samples.empty() ? short(-1) : magnitude(m_samples.front());
        for (const short sample : m_samples)
            if (magnitude(sample) < result)
                result = magnitude(sample);
        return result;
    }

private:
    static short magnitude(short pSample)
    {
        return static_cast<short>(pSample < 0 ? -pSample : pSample);
    }

    std::size_t m_capacity;
    std::deque<short> m_samples;
};

}  // namespace plain
