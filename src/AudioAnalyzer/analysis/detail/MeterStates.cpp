// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <cmath>

namespace detail {

MeterStates::MeterStates()
{
    m_size = kLanes;
    const double slowest = kFramesPerMinute / kSlowestBPM * std::sqrt(kTempoStep);
    for (double period = kFramesPerMinute / kFastestBPM; period < slowest; period *= kTempoStep) {
        Tempo tempo = {};
        tempo.period = static_cast<float>(period);
        tempo.cells = static_cast<std::size_t>(std::ceil(tempo.period));
        tempo.stay = tempo.period - static_cast<float>(tempo.cells - 1);
        tempo.offset = m_size;
        tempo.vectors = (kBeatsPerBar * tempo.cells + kLanes - 1) / kLanes;
        m_size += (tempo.vectors + 2) * kLanes;
        m_tempi.push_back(tempo);
        // The first cell whose phase, to the nearest step, is the run's.
        for (std::size_t bin = 0; bin <= kBinsPerBeat; ++bin) {
            const double phase = (static_cast<double>(bin) - 0.5) / kBinsPerBeat;
            const double first = bin == 0 ? 0.0 : std::ceil(phase * tempo.period);
            m_runStarts.push_back(static_cast<std::uint8_t>(first));
        }
    }
}

}  // namespace detail
