// SPDX-License-Identifier: MIT
#include <cli/plot/LevelTrace.h>

#include <algorithm>

void LevelTrace::Append(double pTime, int pLevel, int pThreshold)
{
    if (!m_columns.empty() && m_lastColumnBlocks < m_blocksPerColumn) {
        Column& last = m_columns.back();
        last.level = std::max(last.level, pLevel);
        last.threshold = std::max(last.threshold, pThreshold);
        ++m_lastColumnBlocks;
        return;
    }
    if (m_columns.size() == kMaximalColumns)
        _Merge();
    m_columns.push_back({pTime, pLevel, pThreshold});
    m_lastColumnBlocks = 1;
}

/// Only called when every column is full, so every merged column is full as well.
void LevelTrace::_Merge()
{
    static_assert(kMaximalColumns % 2 == 0, "every column needs a neighbour");
    for (std::size_t i = 0; i < m_columns.size() / 2; ++i) {
        const Column& left = m_columns[2 * i];
        const Column& right = m_columns[2 * i + 1];
        m_columns[i] = {left.time,
                        std::max(left.level, right.level),
                        std::max(left.threshold, right.threshold)};
    }
    m_columns.resize(m_columns.size() / 2);
    m_blocksPerColumn *= 2;
}
