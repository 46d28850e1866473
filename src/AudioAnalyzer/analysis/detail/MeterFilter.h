// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterKernel.h>
#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <array>
#include <cstddef>
#include <vector>

namespace detail {

/// The probability of every state of the meter, after each frame of evidence: a forward filter.
///
/// In a frame all positions move on by one cell. Tempo changes only at beats, and little; the feel
/// never. A small leak to the prior lets any state be reached from silence or surprise.
class MeterFilter
{
public:
    static constexpr std::size_t kReach = 12;  ///< steps of tempo at one beat
    static constexpr std::size_t kReachWidth = 2 * kReach + 1;
    static constexpr float kSwungShare = 0.15F;  ///< of music
    using Values = std::vector<float>;

    MeterFilter();

    /// All states as likely as before any evidence. [no allocation]
    void Reset();
    /// One frame. Returns the evidence's probability given all before it. [no allocation]
    float Update(const MeterLikelihoods& pLikelihoods);

    // ---- A hand on it: MeterFilterHand.cpp -----------------------------------------------------

    /// A beat was tapped pFramesAgo. pInterval is the time between taps, frames; 0 = unknown. Half
    /// of the belief is given up for what the tap says. [no allocation]
    void Tap(float pFramesAgo, float pInterval);
    /// Takes every belief to pFactor times its tempo, in the same place of the bar. What falls
    /// outside the tempi is lost. [no allocation]
    void Multiply(float pFactor);
    /// Only the tempi from pFirst to below pEnd are possible from now on. False, and nothing
    /// changed but for the belief starting anew, when there was none in them. [no allocation]
    bool Allow(std::size_t pFirst, std::size_t pEnd);

    const MeterStates& getStates() const { return m_states; }
    /// Of one cell of each tempo, before any evidence.
    const Values& getPrior() const { return m_prior; }
    /// How much of what leaves a beat enters one of another tempo: [left - entered + kReach]
    /// [entered].
    const std::array<Values, kReachWidth>& getTransitions() const { return m_transitions; }
    /// Probability of each tempo; their sum is getTotal(). [valid until the next Update]
    const std::vector<float>& getTempoMasses() const { return m_masses; }
    float getTotal() const { return m_total; }
    /// The cells of a tempo, as MeterStates lays them out. [valid until the next Update]
    const float* getCells(std::size_t pTempo) const
    {
        return &m_cells[m_states.getTempi()[pTempo].offset];
    }

private:
    static constexpr std::size_t kGroup = 16;  ///< tempi that are computed at once

    void _CollectMasses();
    void _MakePrior();
    void _MakeTransitions();
    void _LeaveBeats();
    void _EnterBeats();
    void _ShareFeels();

    MeterStates m_states;
    const MeterKernel& m_kernel;
    Values m_prior;                                 ///< of one cell of each tempo
    std::array<Values, kReachWidth> m_transitions;  ///< [tempo left - entered][entered]
    Values m_cells, m_moved;                        ///< now, and where the next frame is made
    std::array<Values, kFeltBeats> m_left;          ///< leaves each beat of each tempo
    Values m_entered;                               ///< enters one beat of each tempo
    Values m_masses;                                ///< of each tempo
    float m_total = 1.0F;
    std::size_t m_first = 0;  ///< tempi that are possible ...
    std::size_t m_end = 0;    ///< ... and the one behind the last
};

}  // namespace detail
