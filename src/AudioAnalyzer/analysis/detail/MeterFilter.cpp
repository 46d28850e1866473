// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>
#include <AudioAnalyzer/dsp/Elementary.h>

#include <algorithm>
#include <cmath>

namespace detail {

namespace {

constexpr float kLeak = 1e-5F;          ///< a frame
constexpr float kTempoSpread = 100.0F;  ///< of the exponential law of tempo changes
constexpr float kPriorBPM = 125.0F;
constexpr float kPriorOctaves = 0.5F;
constexpr float kDriftBPM = 120.0F;  ///< where tempo tends to, slowly
constexpr float kDriftOctaves = 0.35F;
constexpr float kDriftRate = 0.25F;  ///< a second
constexpr float kFramesPerSecond = 100.0F;

typedef float Vector __attribute__((vector_size(MeterStates::kLanes * sizeof(float))));
typedef float UnalignedVector __attribute__((vector_size(MeterStates::kLanes * sizeof(float)),
                                             aligned(sizeof(float)),
                                             may_alias));

inline UnalignedVector& vectorAt(float* pValues)
{
    return *reinterpret_cast<UnalignedVector*>(pValues);
}

inline const UnalignedVector& vectorAt(const float* pValues)
{
    return *reinterpret_cast<const UnalignedVector*>(pValues);
}

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
    : m_prior(m_states.getTempi().size()), m_cells(m_states.getSize()), m_moved(m_cells.size()),
      m_left(m_prior.size() + 2 * kReach), m_entered(m_prior.size()), m_masses(m_prior.size())
{
    _MakePrior();
    _MakeTransitions();
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
    m_transitions.assign(count * kReachWidth, 0.0F);
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
            m_transitions[to * kReachWidth + from + kReach - to] =
                weights[to - first] / sum * worth;
        }
    }
}

void MeterFilter::Reset()
{
    std::fill(m_cells.begin(), m_cells.end(), 0.0F);
    std::fill(m_moved.begin(), m_moved.end(), 0.0F);
    for (std::size_t i = 0; i < m_prior.size(); ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        const std::size_t count = kBeatsPerBar * tempo.cells;
        std::fill_n(&m_cells[tempo.offset], count, m_prior[i]);
        m_masses[i] = m_prior[i] * static_cast<float>(count);
    }
    m_total = 1.0F;
}

float MeterFilter::Update(const MeterLikelihoods& pLikelihoods)
{
    MeterLikelihoods likelihoods = pLikelihoods;
    const float scale = 1.0F / m_total;
    for (auto& beat : likelihoods)
        for (float& likelihood : beat)
            likelihood *= scale;
    _LeaveBeats();
    _EnterBeats();
    const float leak = kLeak * m_total;
    m_total = 0.0F;
    for (std::size_t i = 0; i < m_masses.size(); ++i) {
        _MoveCells(i, likelihoods, leak * m_prior[i]);
        m_masses[i] = _SumMass(i);
        m_total += m_masses[i];
    }
    m_cells.swap(m_moved);
    return m_total;
}

void MeterFilter::_LeaveBeats()
{
    for (std::size_t i = 0; i < m_masses.size(); ++i) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[i];
        const float* cells = &m_cells[tempo.offset] + tempo.cells - 2;
        const float leave = 1.0F - tempo.stay;
        for (std::size_t beat = 0; beat < kBeatsPerBar; ++beat, cells += tempo.cells)
            m_left[i + kReach][beat] = leave * cells[0] + cells[1];
    }
}

void MeterFilter::_EnterBeats()
{
    for (std::size_t i = 0; i < m_masses.size(); ++i) {
        BeatVector sum = {};
        const float* weights = &m_transitions[i * kReachWidth];
        for (std::size_t k = 0; k < kReachWidth; ++k)
            sum += weights[k] * m_left[i + k];
        m_entered[i] = BeatVector{sum[3], sum[0], sum[1], sum[2]};
    }
}

// Runs of cells that share a likelihood are written as whole vectors, each over the rest of the one
// before it.
void MeterFilter::_MoveCells(std::size_t pTempo, const MeterLikelihoods& pLikelihoods, float pLeak)
{
    const MeterStates::Tempo& tempo = m_states.getTempi()[pTempo];
    const std::uint8_t* starts = m_states.getRunStarts(pTempo);
    const float* from = &m_cells[tempo.offset] - 1;
    float* to = &m_moved[tempo.offset];
    for (std::size_t beat = 0; beat < kBeatsPerBar; ++beat) {
        for (std::size_t bin = 0; bin <= kBinsPerBeat; ++bin) {
            const std::size_t i = starts[bin];
            vectorAt(to + i) = (vectorAt(from + i) + pLeak) * pLikelihoods[beat][bin];
        }
        to[0] = (m_entered[pTempo][beat] + pLeak) * pLikelihoods[beat][0];
        to[tempo.cells - 1] *= tempo.stay;
        to += tempo.cells;
        from += tempo.cells;
    }
    vectorAt(to) = Vector{};
}

float MeterFilter::_SumMass(std::size_t pTempo) const
{
    const MeterStates::Tempo& tempo = m_states.getTempi()[pTempo];
    Vector sum = {};
    for (std::size_t i = 0; i < tempo.vectors; ++i)
        sum += vectorAt(&m_moved[tempo.offset + i * MeterStates::kLanes]);
    return ((sum[0] + sum[4]) + (sum[1] + sum[5])) + ((sum[2] + sum[6]) + (sum[3] + sum[7]));
}

}  // namespace detail
