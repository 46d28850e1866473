// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterFilter.h>

#include <QtGlobal>

#include <cstddef>
#include <optional>
#include <vector>

namespace detail {

/// Chooses one tempo and one phase from the probabilities of all, and when a beat is due.
///
/// Times are in frames; a frame's number is the time at which it ends.
class BeatDecision
{
public:
    explicit BeatDecision(const MeterStates& pStates);

    void Reset();
    /// The frame pFrame was filtered. A beat that is due: at most one frame ahead, at most five
    /// behind. [no allocation]
    std::optional<double> Update(quint64 pFrame, const MeterFilter& pFilter);

    /// The belief was changed by hand after the last frame. [no allocation]
    void Reconsider(const MeterFilter& pFilter);
    /// There was a beat at pTime, frames: the next is one period on.
    void setLastBeat(double pTime) { m_last = pTime; }

    float getPeriod() const { return m_period; }           ///< frames
    double getNextBeat() const { return m_next; }          ///< frames
    std::size_t getTempo() const { return m_tempo; }       ///< the chosen one's number
    std::size_t getBeatInBar() const { return m_beat; }    ///< of the next beat, 0 to 3
    float getBarConfidence() const { return m_barShare; }  ///< of that number, 0 to 1
    float getPhaseShare() const { return m_phaseShare; }   ///< of all belief, near the next beat
    float getTempoShare() const { return m_tempoShare; }   ///< of all belief, near the tempo

private:
    void _ChooseTempo(const MeterFilter& pFilter);
    void _GatherTimesLeft(const MeterFilter& pFilter);
    float _FindTimeLeft();
    float _Sum() const;
    float _BeliefAt(float pTimeLeft) const;
    float _Reckon(const MeterFilter& pFilter);
    std::optional<double> _FindDueBeat();
    void _ChooseBeat(const MeterFilter& pFilter);

    const MeterStates& m_states;
    std::size_t m_tempo = 0;
    float m_period = 0.0F;         ///< frames
    double m_now = 0.0;            ///< frames
    double m_next = 0.0;           ///< frames
    std::optional<double> m_last;  ///< the beat told last, frames
    std::size_t m_beat = 0;
    float m_barShare = 0.0F;
    float m_phaseShare = 0.0F;
    float m_tempoShare = 0.0F;
    std::vector<float> m_left;  ///< belief in each time left, whole frames
    std::vector<float> m_smoothed;
};

}  // namespace detail
