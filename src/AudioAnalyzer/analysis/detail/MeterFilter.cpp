// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/dsp/Elementary.h>

#include <algorithm>
#include <cmath>

namespace detail {

namespace {

constexpr float kLeak = 1e-6F;         ///< a frame
constexpr float kTempoSpread = 80.0F;  ///< of the exponential law of tempo changes
constexpr float kPriorBPM = 125.0F;
constexpr float kPriorOctaves = 0.5F;
constexpr float kDriftBPM = 130.0F;  ///< where tempo tends to, slowly
constexpr float kDriftOctaves = 0.35F;
constexpr float kDriftRate = 0.12F;  ///< a second
constexpr float kFramesPerSecond = 100.0F;

// Squared distance in pOctaves from pBPM.
float tempoDistance(float pPeriod, float pBPM, float pOctaves)
{
    constexpr float kLn2 = 0.693147181F;
    const float bpm = static_cast<float>(MeterStates::kFramesPerMinute) / pPeriod;
    const float distance = elementary::naturalLog(bpm / pBPM) / kLn2 / pOctaves;
    return distance * distance;
}

}  // namespace

MeterFilter::MeterFilter()
    : m_kernel(fastestMeterKernel()), m_prior(m_states.getTempi().size()),
      m_cells(m_states.getSize()), m_moved(m_cells.size()), m_masses(m_prior.size())
{
    const std::size_t groups = (m_prior.size() + kGroup - 1) / kGroup;
    m_entered.resize(groups * kGroup);
    for (Values& left : m_left)
        left.resize(m_entered.size() + 2 * kReach);
    for (Values& weights : m_transitions)
        weights.resize(m_entered.size());
    _MakePrior();
    _MakeTransitions();
    m_end = m_prior.size();
    Reset();
}

void MeterFilter::_MakePrior()
{
    float sum = 0.0F;
    const std::vector<MeterStates::Tempo>& tempi = m_states.getTempi();
    for (std::size_t i = 0; i < tempi.size(); ++i) {
        m_masses[i] = elementary::exponential(
            -0.5F * tempoDistance(tempi[i].period, kPriorBPM, kPriorOctaves));
        sum += m_masses[i];
    }
    for (std::size_t i = 0; i < tempi.size(); ++i)
        m_prior[i] = m_masses[i] / (sum * static_cast<float>(kBeatsPerBar * tempi[i].cells));
}

// What leaves a tempo is shared out; then every tempo keeps what a beat of it is worth, by length.
void MeterFilter::_MakeTransitions()
{
    const std::vector<MeterStates::Tempo>& tempi = m_states.getTempi();
    const std::size_t count = tempi.size();
    for (std::size_t from = 0; from < count; ++from) {
        const std::size_t first = from < kReach ? 0 : from - kReach;
        const std::size_t end = std::min(count, from + kReach + 1);
        std::vector<float> weights;
        float sum = 0.0F;
        for (std::size_t to = first; to < end; ++to) {
            const float change = tempi[to].period / tempi[from].period - 1.0F;
            weights.push_back(elementary::exponential(-kTempoSpread * std::fabs(change)));
            sum += weights.back();
        }
        for (std::size_t to = first; to < end; ++to) {
            const float seconds = tempi[to].period / kFramesPerSecond;
            const float worth = elementary::exponential(
                -kDriftRate * seconds * tempoDistance(tempi[to].period, kDriftBPM, kDriftOctaves));
            m_transitions[from + kReach - to][to] = weights[to - first] / sum * worth;
        }
    }
}

void MeterFilter::Reset()
{
    std::fill(m_cells.begin(), m_cells.end(), 0.0F);
    std::fill(m_moved.begin(), m_moved.end(), 0.0F);
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        const std::size_t bar = kBeatsPerBar * tempo.cells;
        std::fill_n(&m_cells[tempo.offset], bar, (1.0F - kSwungShare) * m_prior[i]);
        std::fill_n(&m_cells[tempo.offset + bar], bar, kSwungShare * m_prior[i]);
    }
    _CollectMasses();
}

void MeterFilter::_CollectMasses()
{
    m_total = 0.0F;
    for (std::size_t i = 0; i < m_masses.size(); ++i) {
        const float* cells = getCells(i);
        m_masses[i] = 0.0F;
        for (std::size_t k = 0; k < kFeltBeats * m_states.getTempi()[i].cells; ++k)
            m_masses[i] += cells[k];
        m_total += m_masses[i];
    }
}

float MeterFilter::Update(const MeterLikelihoods& pLikelihoods)
{
    // What the last frame's total was divides this one, so that the numbers stay near 1.
    MeterLikelihoods likelihoods = pLikelihoods;
    for (float& likelihood : likelihoods)
        likelihood /= m_total;
    _LeaveBeats();
    _EnterBeats();
    const float leak = kLeak / static_cast<float>(kMeterFeels) * m_total;
    m_total = 0.0F;
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        m_masses[i] = m_kernel.move(&m_cells[tempo.offset],
                                    &m_states.getSteps()[tempo.offset],
                                    likelihoods,
                                    leak * m_prior[i],
                                    tempo.blocks,
                                    &m_moved[tempo.offset]);
        m_total += m_masses[i];
    }
    m_cells.swap(m_moved);
    return m_total;
}

// A period is no whole number of frames: some leave a cell early, and the others wait in the last.
void MeterFilter::_LeaveBeats()
{
    for (std::size_t i = 0; i < m_masses.size(); ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        float* last = &m_cells[tempo.offset] + tempo.cells - 1;
        for (std::size_t beat = 0; beat < kFeltBeats; ++beat, last += tempo.cells) {
            const float waiting = tempo.stay * last[-1];
            m_left[beat][i + kReach] = (last[-1] - waiting) + last[0];
            last[-1] = waiting;
        }
    }
}

// What enters a beat takes the place before its first cell, from where it will move on.
void MeterFilter::_EnterBeats()
{
    for (std::size_t beat = 0; beat < kFeltBeats; ++beat) {
        const bool isFirst = beat % kBeatsPerBar == 0;
        const Values& left = m_left[isFirst ? beat + kBeatsPerBar - 1 : beat - 1];
        for (std::size_t first = 0; first < m_masses.size(); first += kGroup) {
            std::array<float, kGroup> sums = {};
            for (std::size_t k = 0; k < kReachWidth; ++k)
                for (std::size_t i = 0; i < kGroup; ++i)
                    sums[i] += m_transitions[k][first + i] * left[first + i + k];
            std::copy(sums.begin(), sums.end(), &m_entered[first]);
        }
        for (std::size_t i = m_first; i < m_end; ++i) {
            const MeterStates::Tempo& tempo = m_states.getTempi()[i];
            m_cells[tempo.offset + beat * tempo.cells - 1] = m_entered[i];
        }
    }
}

}  // namespace detail
