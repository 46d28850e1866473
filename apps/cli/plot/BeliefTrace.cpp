// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <cli/plot/BeliefTrace.h>

void BeliefTrace::Append(double pTime, const MeterTracker& pTracker)
{
    if (m_tempi.empty())
        for (std::size_t i = 0; i < pTracker.getTempoCount(); ++i)
            m_tempi.push_back(pTracker.getTempo(i));
    if (m_columns.empty() || m_lastColumnBlocks == m_blocksPerColumn) {
        if (m_columns.size() == kMaximalColumns)
            _Merge();
        m_columns.push_back({pTime, std::vector<float>(m_tempi.size()), 0.0F});
        m_lastColumnBlocks = 0;
    }
    _AddToLast(pTracker);
}

/// The mean so far moves towards the new value by its share.
void BeliefTrace::_AddToLast(const MeterTracker& pTracker)
{
    const float share = 1.0F / float(++m_lastColumnBlocks);
    Column& column = m_columns.back();
    for (std::size_t i = 0; i < m_tempi.size(); ++i)
        column.beliefs[i] += share * (float(pTracker.getTempoBelief(i)) - column.beliefs[i]);
    column.confidence += share * (float(pTracker.getConfidence()) - column.confidence);
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
        m_columns[i] = merged;
    }
    m_columns.resize(m_columns.size() / 2);
    m_blocksPerColumn *= 2;
}
