// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <vector>

/// Level and threshold over time in bounded memory, for plots.
///
/// Blocks are merged into columns; when all columns are full, neighbours merge and a column holds
/// twice as many blocks from then on. A recording of any length so takes at most kMaximalColumns
/// columns.
class LevelTrace
{
public:
    static constexpr std::size_t kMaximalColumns = 4096;

    struct Column
    {
        double time;    ///< seconds, start of the column
        int level;      ///< greatest sample magnitude of the column
        int threshold;  ///< greatest threshold in force in the column; 0 while stopped
    };

    /// One pulse block that starts at pTime seconds.
    void Append(double pTime, int pLevel, int pThreshold);
    const std::vector<Column>& getColumns() const { return m_columns; }

private:
    void _Merge();

    std::vector<Column> m_columns;
    std::size_t m_blocksPerColumn = 1;
    std::size_t m_lastColumnBlocks = 0;  ///< blocks merged into the last column so far
};
