// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <deque>

namespace shared {

/// When the sample of an index arrived, for the last blocks.
class ArrivalLog
{
public:
    static constexpr std::size_t kLongest = 256;  ///< blocks

    void Clear() { m_blocks.clear(); }

    /// A block has arrived at pNow, µs; pEnd is the index behind its last sample.
    void Add(quint64 pEnd, quint64 pNow)
    {
        m_blocks.push_back({pEnd, pNow});
        if (m_blocks.size() > kLongest)
            m_blocks.pop_front();
    }

    /// Arrival of the block that holds the sample, µs; 0 when it has not arrived. For one before
    /// the blocks that are kept, that of the oldest.
    quint64 getArrival(quint64 pIndex) const
    {
        quint64 arrival = 0;
        for (auto block = m_blocks.rbegin(); block != m_blocks.rend() && block->end > pIndex;
             ++block)
            arrival = block->time;
        return arrival;
    }

private:
    struct Block
    {
        quint64 end;   ///< index behind the last sample
        quint64 time;  ///< µs
    };

    std::deque<Block> m_blocks;
};

}  // namespace shared
