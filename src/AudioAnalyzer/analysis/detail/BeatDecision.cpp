// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace detail {

namespace {

constexpr std::size_t kPeakReach = 2;    ///< tempi on each side that make a peak
constexpr std::size_t kPeriodReach = 3;  ///< tempi on each side whose mean is the period
constexpr float kLoyalty = 3.0F;         ///< how much more belief another tempo needs
constexpr std::size_t kPhaseReach = 4;   ///< tempi on each side that tell the phase
constexpr float kAheadFrames = 1.0F;
constexpr float kBehindFrames = 5.0F;
constexpr float kClosestBeats = 0.5F;      ///< periods between two beats, ahead
constexpr float kClosestLateBeats = 0.6F;  ///< the same for a beat that was missed
constexpr float kFirstShare = 0.4F;  ///< of belief in any phase of the tempo, for the first beat
constexpr std::size_t kNear = 5;     ///< frames on each side of a beat

// A Gaussian of 2 frames, from its centre outward, its sum 1.
constexpr std::array<float, 7> kBlur = {
    0.1996F, 0.1762F, 0.1211F, 0.0648F, 0.0270F, 0.0088F, 0.0022F};

std::size_t lowEnd(std::size_t pIndex, std::size_t pReach)
{
    return pIndex < pReach ? 0 : pIndex - pReach;
}

// Of the same cell in all beats of a bar.
float sumOfBeats(const float* pCells, std::size_t pCellsPerBeat)
{
    return (pCells[0] + pCells[pCellsPerBeat]) +
           (pCells[2 * pCellsPerBeat] + pCells[3 * pCellsPerBeat]);
}

}  // namespace

BeatDecision::BeatDecision(const MeterStates& pStates) : m_states(pStates)
{
    const std::size_t longest = pStates.getTempi().back().cells + 1;
    m_left.reserve(2 * longest);
    m_smoothed.reserve(longest);
    Reset();
}

void BeatDecision::Reset()
{
    m_last.reset();
    m_now = m_next = 0.0;
    m_tempo = 0;
    m_beat = 0;
    m_barShare = m_phaseShare = m_tempoShare = 0.0F;
    m_period = m_states.getTempi().front().period;
}

std::optional<double> BeatDecision::Update(quint64 pFrame, const MeterFilter& pFilter)
{
    m_now = static_cast<double>(pFrame);
    const float belief = _Reckon(pFilter);
    std::optional<double> due;
    if (m_last || belief >= kFirstShare * _Sum())
        due = _FindDueBeat();
    if (due) {
        _ChooseBeat(pFilter);
        m_last = due;
    }
    return due;
}

void BeatDecision::Reconsider(const MeterFilter& pFilter)
{
    _Reckon(pFilter);
    if (m_last && m_next - *m_last < kClosestBeats * static_cast<double>(m_period))
        m_next += static_cast<double>(m_period);
}

// Returns the belief in the next beat.
float BeatDecision::_Reckon(const MeterFilter& pFilter)
{
    _ChooseTempo(pFilter);
    _GatherTimesLeft(pFilter);
    const float left = _FindTimeLeft();
    m_next = m_now + static_cast<double>(left);
    const float belief = _BeliefAt(left);
    m_phaseShare = belief / pFilter.getTotal();
    return belief;
}

// A beat ahead within the next frame; or one that was not seen coming, a little while ago.
std::optional<double> BeatDecision::_FindDueBeat()
{
    const auto period = static_cast<double>(m_period);
    const double missed = m_next - period;
    if (m_last && m_next - *m_last < kClosestBeats * period)
        m_next += period;
    if (m_next - m_now < kAheadFrames)
        return m_next;
    if (m_now - missed < kBehindFrames &&
        (!m_last || missed - *m_last > kClosestLateBeats * period))
        return missed;
    return std::nullopt;
}

// A single drum leaves open whether its strokes are the beat or half of it: the tempo that has been
// told stays until another has far more belief.
void BeatDecision::_ChooseTempo(const MeterFilter& pFilter)
{
    const std::vector<float>& masses = pFilter.getTempoMasses();
    const std::size_t first = m_last ? lowEnd(m_tempo, kPeriodReach) : masses.size();
    const std::size_t last = m_tempo + kPeriodReach;
    float highest = -1.0F;
    std::size_t tempo = 0;
    for (std::size_t i = 0; i < masses.size(); ++i) {
        float sum = 0.0F;
        const std::size_t end = std::min(masses.size(), i + kPeakReach + 1);
        for (std::size_t k = lowEnd(i, kPeakReach); k < end; ++k)
            sum += masses[k];
        if (i >= first && i <= last)
            sum *= kLoyalty;
        if (sum > highest) {
            highest = sum;
            tempo = i;
        }
    }
    m_tempo = tempo;
    float weight = 0.0F;
    float sum = 0.0F;
    const std::size_t end = std::min(masses.size(), m_tempo + kPeriodReach + 1);
    for (std::size_t k = lowEnd(m_tempo, kPeriodReach); k < end; ++k) {
        weight += masses[k];
        sum += masses[k] * m_states.getTempi()[k].period;
    }
    m_period = sum / weight;
    m_tempoShare = weight / pFilter.getTotal();
}

// The time left until the next beat falls by one frame from cell to cell.
void BeatDecision::_GatherTimesLeft(const MeterFilter& pFilter)
{
    const auto count = static_cast<std::size_t>(std::ceil(m_period));
    m_left.assign(m_left.capacity(), 0.0F);
    const std::size_t end = std::min(m_states.getTempi().size(), m_tempo + kPhaseReach + 1);
    for (std::size_t k = lowEnd(m_tempo, kPhaseReach); k < end; ++k) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[k];
        const float* cells = pFilter.getCells(k);
        const float first = tempo.period - MeterStates::kCellCentre;
        const auto longest = static_cast<std::size_t>(first);
        for (std::size_t cell = 0; cell < tempo.cells; ++cell)
            m_left[longest - std::min(cell, longest)] +=
                sumOfBeats(cells + cell, tempo.cells) +
                sumOfBeats(cells + cell + kBeatsPerBar * tempo.cells, tempo.cells);
    }
    for (std::size_t i = count; i < m_left.size(); ++i)
        m_left[i % count] += m_left[i];
    m_left.resize(count);
}

float BeatDecision::_FindTimeLeft()
{
    const std::size_t count = m_left.size();
    const auto at = [&](std::size_t pIndex) {
        return m_left[pIndex < count ? pIndex : pIndex - count];
    };
    m_smoothed.assign(count, 0.0F);
    for (std::size_t i = 0; i < count; ++i) {
        float sum = kBlur[0] * m_left[i];
        for (std::size_t k = 1; k < kBlur.size(); ++k)
            sum += kBlur[k] * (at(i + k) + at(i + count - k));
        m_smoothed[i] = sum;
    }
    const auto peak = static_cast<std::size_t>(
        std::max_element(m_smoothed.begin(), m_smoothed.end()) - m_smoothed.begin());
    const float before = m_smoothed[(peak + count - 1) % count];
    const float after = m_smoothed[(peak + 1) % count];
    const float curve = before - 2.0F * m_smoothed[peak] + after;
    const float shift = curve < 0.0F ? 0.5F * (before - after) / curve : 0.0F;
    return static_cast<float>(peak) + 0.5F + shift;
}

float BeatDecision::_Sum() const
{
    float sum = 0.0F;
    for (const float belief : m_left)
        sum += belief;
    return sum;
}

// Belief that the next beat lies near pTimeLeft.
float BeatDecision::_BeliefAt(float pTimeLeft) const
{
    const std::size_t count = m_left.size();
    const std::size_t first = static_cast<std::size_t>(std::max(pTimeLeft, 0.0F)) + count - kNear;
    float sum = 0.0F;
    for (std::size_t i = first; i <= first + 2 * kNear; ++i)
        sum += m_left[i % count];
    return sum;
}

// The beat of the bar whose cells lie where the beat is due.
void BeatDecision::_ChooseBeat(const MeterFilter& pFilter)
{
    std::array<float, kBeatsPerBar> masses = {};
    const std::size_t end = std::min(m_states.getTempi().size(), m_tempo + kPhaseReach + 1);
    for (std::size_t k = lowEnd(m_tempo, kPhaseReach); k < end; ++k) {
        const MeterStates::Tempo& tempo = m_states.getTempi()[k];
        const float* cells = pFilter.getCells(k);
        const std::size_t bar = kBeatsPerBar * tempo.cells;
        const auto place = [&](std::size_t pBeat, std::size_t pCell) {
            return ((pBeat + kBeatsPerBar) * tempo.cells + pCell + bar - 3) % bar;
        };
        for (std::size_t beat = 0; beat < kBeatsPerBar; ++beat)
            for (std::size_t i = 0; i < 6; ++i)
                masses[beat] += cells[place(beat, i)] + cells[bar + place(beat, i)];
    }
    const auto best = std::max_element(masses.begin(), masses.end());
    float sum = 0.0F;
    for (const float mass : masses)
        sum += mass;
    m_beat = static_cast<std::size_t>(best - masses.begin());
    m_barShare = sum > 0.0F ? *best / sum : 0.0F;
}

}  // namespace detail
