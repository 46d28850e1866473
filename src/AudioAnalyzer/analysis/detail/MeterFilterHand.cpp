// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/dsp/Elementary.h>

#include <algorithm>
#include <cmath>

namespace detail {

namespace {

constexpr float kShareOfTap = 0.5F;       ///< of belief that starts anew at a tap
constexpr float kTapSpread = 3.0F;        ///< frames: how exactly people tap
constexpr float kIntervalSpread = 0.06F;  ///< natural logarithm of the tempo
constexpr float kTapDoubt = 0.01F;        ///< a tap may be wrong

float bell(float pDeviation)
{
    return elementary::exponential(-0.5F * std::min(pDeviation * pDeviation, 100.0F));
}

// Distance of a place in a beat to the beat itself, both in frames.
float distanceToBeat(float pPlace, float pPeriod)
{
    const float past = pPlace - std::floor(pPlace / pPeriod) * pPeriod;
    return std::min(past, pPeriod - past);
}

}  // namespace

void MeterFilter::Tap(float pFramesAgo, float pInterval)
{
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        float weight = 1.0F;
        if (pInterval > 0.0F)
            weight = kTapDoubt +
                     bell(elementary::naturalLog(tempo.period / pInterval) / kIntervalSpread);
        const float fresh = kShareOfTap * m_total * m_prior[i];
        for (std::size_t cell = 0; cell < tempo.cells; ++cell) {
            const float place = static_cast<float>(cell) + 0.5F - pFramesAgo;
            const float fit = kTapDoubt + bell(distanceToBeat(place, tempo.period) / kTapSpread);
            for (std::size_t beat = 0; beat < kFeltBeats; ++beat) {
                float& belief = m_cells[tempo.offset + beat * tempo.cells + cell];
                belief = ((1.0F - kShareOfTap) * belief + fresh) * fit * weight;
            }
        }
    }
    _CollectMasses();
}

// A place x of the new bar is where x / factor was in the old one, and that one or more bars on.
// At another level a swung beat is a straight one of uneven halves: which it is, is asked anew.
void MeterFilter::Multiply(float pFactor)
{
    constexpr auto kBar = static_cast<float>(kBeatsPerBar);
    std::fill(m_moved.begin(), m_moved.end(), 0.0F);
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& to = m_states.getTempi()[i];
        const int nearest = m_states.findTempo(to.period * pFactor);
        if (nearest < 0 || nearest >= static_cast<int>(m_masses.size()))
            continue;
        const MeterStates::Tempo& from = m_states.getTempi()[static_cast<std::size_t>(nearest)];
        const float* cells = getCells(static_cast<std::size_t>(nearest));
        for (std::size_t k = 0; k < kBeatsPerBar * to.cells; ++k) {
            const auto beat = static_cast<float>(k / to.cells);
            const float place = beat + (static_cast<float>(k % to.cells) + 0.5F) / to.period;
            for (float x = place / pFactor; x < std::max(kBar, place / pFactor + 0.01F);
                 x += kBar / pFactor) {
                const float old = x - kBar * std::floor(x / kBar);
                const auto oldBeat = static_cast<std::size_t>(old);
                const auto cell =
                    static_cast<std::size_t>((old - static_cast<float>(oldBeat)) * from.period);
                const std::size_t source = std::min(oldBeat, kBeatsPerBar - 1) * from.cells +
                                           std::min(cell, from.cells - 1);
                m_moved[to.offset + k] += cells[source] + cells[kBeatsPerBar * from.cells + source];
            }
        }
    }
    _ShareFeels();
    m_cells.swap(m_moved);
    _CollectMasses();
    if (!(m_total > 0.0F))
        Reset();
}

// Of the straight bars in m_moved, the swung ones take their share.
void MeterFilter::_ShareFeels()
{
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        const std::size_t bar = kBeatsPerBar * tempo.cells;
        float* straight = &m_moved[tempo.offset];
        for (std::size_t k = 0; k < bar; ++k) {
            straight[bar + k] = kSwungShare * straight[k];
            straight[k] -= straight[bar + k];
        }
    }
}

bool MeterFilter::Allow(std::size_t pFirst, std::size_t pEnd)
{
    constexpr float kLeastBelief = 1e-6F;
    const float before = m_total;
    m_first = pFirst;
    m_end = pEnd;
    for (std::size_t i = 0; i < m_masses.size(); ++i)
        if (i < pFirst || i >= pEnd) {
            const MeterStates::Tempo& tempo = m_states.getTempi()[i];
            std::fill_n(&m_cells[tempo.offset], tempo.blocks * MeterStates::kBlock, 0.0F);
            std::fill_n(&m_moved[tempo.offset], tempo.blocks * MeterStates::kBlock, 0.0F);
        }
    _CollectMasses();
    const bool isBelieved = m_total > kLeastBelief * before;
    if (!isBelieved)
        Reset();
    return isBelieved;
}

}  // namespace detail
