// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace cli {

/// How late ticks were told, in ms, in memory that does not grow.
class TickStatistics
{
public:
    void Add(double pLateness)
    {
        ++m_count;
        const double distance = pLateness - m_mean;
        m_mean += distance / double(m_count);
        m_squares += distance * (pLateness - m_mean);
        m_worst = std::max(m_worst, pLateness);
    }

    std::uint64_t getCount() const { return m_count; }
    double getMean() const { return m_mean; }
    double getDeviation() const
    {
        return m_count > 0 ? std::sqrt(m_squares / double(m_count)) : 0.0;
    }
    double getWorst() const { return m_worst; }

private:
    std::uint64_t m_count = 0;
    double m_mean = 0.0;
    double m_squares = 0.0;  ///< sum of the squares of the distances from the mean
    double m_worst = 0.0;
};

}  // namespace cli
