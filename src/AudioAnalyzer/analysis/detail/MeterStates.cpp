// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <algorithm>
#include <cmath>

namespace detail {

MeterStates::MeterStates()
{
    const double slowest = kFramesPerMinute / kSlowestBPM * std::sqrt(kTempoStep);
    for (double period = kFramesPerMinute / kFastestBPM; period < slowest; period *= kTempoStep)
        _AddTempo(period);
}

int MeterStates::findTempo(float pPeriod) const
{
    const auto half = static_cast<float>(std::sqrt(kTempoStep));
    int index = -1;
    while (index < static_cast<int>(m_tempi.size()) &&
           pPeriod > (index < 0 ? m_tempi[0].period / half
                                : m_tempi[static_cast<std::size_t>(index)].period * half))
        ++index;
    return index;
}

void MeterStates::_AddTempo(double pPeriod)
{
    m_steps.resize(m_steps.size() + kBlock, kNoStep);
    Tempo tempo = {};
    tempo.period = static_cast<float>(pPeriod);
    tempo.cells = static_cast<std::size_t>(std::ceil(tempo.period));
    tempo.stay = tempo.period - static_cast<float>(tempo.cells - 1);
    tempo.offset = m_steps.size();
    tempo.blocks = (kFeltBeats * tempo.cells + kBlock - 1) / kBlock;
    for (std::size_t beat = 0; beat < kFeltBeats; ++beat)
        _AddBeat(tempo, beat);
    m_steps.resize(tempo.offset + tempo.blocks * kBlock, kNoStep);
    m_tempi.push_back(tempo);
}

void MeterStates::_AddBeat(const Tempo& pTempo, std::size_t pBeat)
{
    const eMeterFeel feel = pBeat < kBeatsPerBar ? eMeterStraight : eMeterSwung;
    std::size_t highest = pBeat * kBinsPerBeat;
    for (std::size_t cell = 0; cell < pTempo.cells; ++cell) {
        const auto period = static_cast<double>(pTempo.period);
        const double place = meterStep(static_cast<double>(cell) / period, period, feel);
        const auto bin = static_cast<std::size_t>(place + 0.5);
        const std::size_t step = std::min(pBeat * kBinsPerBeat + bin, highest);
        m_steps.push_back(static_cast<std::uint8_t>(step));
        highest = step + 1;
    }
}

}  // namespace detail
