// SPDX-License-Identifier: MIT
#pragma once

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

    struct Column
    {
        double time;                 ///< seconds, start of the column
        std::vector<float> beliefs;  ///< share of each tempo, 0 to 1; in the order of getTempi()
        float confidence;            ///< that the next beat is right, 0 to 1; 0 while none is told
    };

    /// One block that starts at pTime seconds, as the tracker stands then.
    void Append(double pTime, const MeterTracker& pTracker);
    const std::vector<Column>& getColumns() const { return m_columns; }
    /// BPM, the fastest first; empty before the first block. [valid for ever]
    const std::vector<double>& getTempi() const { return m_tempi; }

private:
    void _AddToLast(const MeterTracker& pTracker);
    void _Merge();

    std::vector<double> m_tempi;
    std::vector<Column> m_columns;
    std::size_t m_blocksPerColumn = 1;
    std::size_t m_lastColumnBlocks = 0;  ///< blocks merged into the last column so far
};
