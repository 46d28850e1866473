// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <map>

namespace cli {

/// The median of any number of tempos, to a tenth of a BPM, in bounded memory.
class TempoMedian
{
public:
    void Add(double pBPM)
    {
        ++m_counts[static_cast<int>(std::lround(pBPM * kScale))];
        ++m_count;
    }

    /// The lower of the two middle ones for an even number; 0 without any.
    double getMedian() const
    {
        std::uint64_t below = 0;
        for (const auto& [tempo, count] : m_counts) {
            below += count;
            if (2 * below >= m_count)
                return tempo / kScale;
        }
        return 0.0;
    }

private:
    static constexpr double kScale = 10.0;

    std::map<int, std::uint64_t> m_counts;  ///< by tempo in tenths of a BPM
    std::uint64_t m_count = 0;
};

}  // namespace cli
