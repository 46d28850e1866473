// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterEvidence.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <vector>

namespace detail {

/// The most probable way through the states of the meter over all frames.
///
/// Where MeterFilter adds up all ways that lead to a state, this one keeps the best. Inside a beat
/// there is but one way, so it has to remember only from where each beat was entered: a byte for
/// each tempo and beat of the bar of each feel, compressed. A surprise may leap from the best state
/// of all to any beat.
class MeterPath
{
public:
    struct Beat
    {
        double time;        ///< frames
        std::size_t tempo;  ///< number of its tempo
        std::size_t beat;   ///< of the bar, 0 to 3, of either feel
    };

    MeterPath();

    /// Only the tempi from pFirst to below pEnd are possible. Before the first frame.
    void Allow(std::size_t pFirst, std::size_t pEnd);
    /// One frame. [allocates once in ten seconds]
    void Update(const MeterLikelihoods& pLikelihoods);
    /// The beats of the best way, in order of time. [allocates]
    std::vector<Beat> Trace() const;

    const MeterStates& getStates() const { return m_filter.getStates(); }

private:
    static constexpr quint8 kLong = 32;   ///< the beat before took its longer way
    static constexpr quint8 kLeap = 255;  ///< from the best state of the frame before
    static constexpr std::size_t kFramesPerChunk = 1000;

    struct State
    {
        quint8 tempo;
        quint8 beat;  ///< of the bar of its feel, 0 to kFeltBeats - 1
        quint8 cell;
    };

    State _FindBest(float& pScore) const;
    void _LeaveBeats();
    void _EnterBeats(float pLeap);
    std::pair<float, quint8> _FindEntry(std::size_t pBeat, std::size_t pTempo) const;
    std::size_t _IndexInChunk(std::size_t pFrame, std::size_t pTempo, std::size_t pBeat) const;

    MeterFilter m_filter;  ///< for its states and transitions
    const MeterKernel& m_kernel;
    std::size_t m_first = 0;  ///< tempi that are possible ...
    std::size_t m_end;        ///< ... and the one behind the last
    std::vector<float> m_cells, m_moved;
    std::array<std::vector<float>, kFeltBeats> m_left;   ///< leaves each beat of each tempo
    std::array<std::vector<bool>, kFeltBeats> m_isLong;  ///< by the longer way
    std::vector<float> m_sums;                           ///< of the cells of each tempo
    float m_total = 1.0F;
    std::vector<State> m_bests;        ///< of each frame
    QByteArray m_origins;              ///< of the last, incomplete chunk of frames
    std::vector<QByteArray> m_packed;  ///< of the chunks before it, compressed
};

}  // namespace detail
