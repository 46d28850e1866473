// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/BeliefColumn.h>

#include <cstddef>
#include <vector>

class MeterTracker;

/// What the automatic tracker believes of each tempo over time, in bounded memory, for plots.
///
/// As LevelTrace does it: blocks are merged into columns, whose beliefs are means; when all columns
/// are full, neighbours merge.
class BeliefTrace
{
public:
    static constexpr std::size_t kMaximalColumns = 512;

    struct Column : BeliefColumn
    {
        double time = 0.0;  ///< seconds, start of the column
    };

    /// One block that starts at pTime seconds, as the tracker stands then.
    void Append(double pTime, const MeterTracker& pTracker);
    const std::vector<Column>& getColumns() const { return m_columns; }
    /// BPM, the fastest first; empty before the first block. [valid for ever]
    const std::vector<double>& getTempi() const { return m_tempi; }

private:
    void _Merge();

    std::vector<double> m_tempi;
    std::vector<Column> m_columns;
    std::size_t m_blocksPerColumn = 1;
};
