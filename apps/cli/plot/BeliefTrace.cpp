// SPDX-License-Identifier: MIT
#include <cli/plot/BeliefTrace.h>

void BeliefTrace::Append(double pTime, const MeterTracker& pTracker)
{
    if (m_tempi.empty())
        m_tempi = BeliefColumn::GetTempi(pTracker);
    if (m_columns.empty() || m_columns.back().count == m_blocksPerColumn) {
        if (m_columns.size() == kMaximalColumns)
            _Merge();
        m_columns.emplace_back();
        m_columns.back().time = pTime;
    }
    m_columns.back().Add(pTracker);
}

/// Only called when every column is full, so every merged column is full as well.
void BeliefTrace::_Merge()
{
    static_assert(kMaximalColumns % 2 == 0, "every column needs a neighbour");
    for (std::size_t i = 0; i < m_columns.size() / 2; ++i) {
        Column merged = m_columns[2 * i];
        const Column& right = m_columns[2 * i + 1];
        for (std::size_t k = 0; k < merged.beliefs.size(); ++k)
            merged.beliefs[k] = 0.5F * (merged.beliefs[k] + right.beliefs[k]);
        merged.confidence = 0.5F * (merged.confidence + right.confidence);
        merged.count += right.count;
        m_columns[i] = merged;
    }
    m_columns.resize(m_columns.size() / 2);
    m_blocksPerColumn *= 2;
}
