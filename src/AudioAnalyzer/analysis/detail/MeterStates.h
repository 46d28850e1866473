// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace detail {

constexpr std::size_t kBeatsPerBar = 4;
constexpr std::size_t kBinsPerBeat = 24;  ///< steps of phase that the evidence tells apart

/// The states of the meter: a tempo, and a position in a bar of four beats, in frames of 10 ms.
///
/// Each tempo has kBeatsPerBar beats of as many cells as its period has frames, rounded up, one
/// behind the other; then room to write vectors beyond the end.
class MeterStates
{
public:
    static constexpr double kSlowestBPM = 60.0;
    static constexpr double kFastestBPM = 190.0;
    static constexpr double kTempoStep = 1.015;
    static constexpr double kFramesPerMinute = 6000.0;
    static constexpr std::size_t kLanes = 8;  ///< values that are written at once

    /// One tempo and where its cells lie.
    struct Tempo
    {
        float period;         ///< frames
        float stay;           ///< share that waits one frame more before the last cell
        std::size_t cells;    ///< of one beat
        std::size_t offset;   ///< of the first cell; a multiple of kLanes
        std::size_t vectors;  ///< that cover all cells
    };

    MeterStates();

    /// Fastest first.
    const std::vector<Tempo>& getTempi() const { return m_tempi; }
    /// Cells from which on the position falls into the next step of phase: kBinsPerBeat + 1 of
    /// them for each tempo, the last belonging to the next beat's first step.
    const std::uint8_t* getRunStarts(std::size_t pTempo) const
    {
        return &m_runStarts[pTempo * (kBinsPerBeat + 1)];
    }
    /// Values that an array of all cells must hold.
    std::size_t getSize() const { return m_size; }

private:
    std::vector<Tempo> m_tempi;
    std::vector<std::uint8_t> m_runStarts;
    std::size_t m_size = 0;
};

}  // namespace detail
