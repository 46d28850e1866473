// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterPhase.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace detail {

/// The states of the meter: a tempo, a feel, and a position in a bar of four beats, in frames of
/// 10 ms.
///
/// The cells of a tempo lie one behind the other, first a straight bar, then a swung one, as many
/// for each beat as its period has frames, rounded up. Empty cells fill them up to whole blocks,
/// and one block stands before each tempo.
class MeterStates
{
public:
    static constexpr double kSlowestBPM = 60.0;
    static constexpr double kFastestBPM = 190.0;
    static constexpr double kTempoStep = 1.015;
    static constexpr double kFramesPerMinute = 6000.0;
    static constexpr float kCellCentre = 0.5F;  ///< frames since a cell was entered
    static constexpr std::size_t kBlock = 16;   ///< cells that are computed at once
    static constexpr std::uint8_t kNoStep = kMeterFeels * kStepsPerBar + 1;  ///< of empty cells

    /// One tempo and where its cells lie.
    struct Tempo
    {
        float period;        ///< frames
        float stay;          ///< share that waits one frame more before the last cell
        std::size_t cells;   ///< of one beat
        std::size_t offset;  ///< of the first cell
        std::size_t blocks;  ///< that hold all its cells
    };

    MeterStates();

    /// Fastest first.
    const std::vector<Tempo>& getTempi() const { return m_tempi; }
    /// The tempo whose period is nearest to pPeriod frames; one behind the last, or before the
    /// first (-1), when it lies outside.
    int findTempo(float pPeriod) const;
    /// The step of the bar, to the nearest, in which each cell lies, kStepsPerBar more for a swung
    /// one. The last of a bar may lie in the first step of the next. No cell lies more than one
    /// step behind the one before it, but the first of a beat.
    const std::vector<std::uint8_t>& getSteps() const { return m_steps; }
    /// Cells of all tempi, the empty ones as well.
    std::size_t getSize() const { return m_steps.size(); }

private:
    void _AddTempo(double pPeriod);
    void _AddBeat(const Tempo& pTempo, std::size_t pBeat);

    std::vector<Tempo> m_tempi;
    std::vector<std::uint8_t> m_steps;
};

}  // namespace detail
