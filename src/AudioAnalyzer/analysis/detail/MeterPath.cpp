// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterPath.h>

#include <algorithm>

namespace detail {

namespace {

constexpr float kLeapChance = 1e-6F;  ///< for all beats of a frame together
constexpr int kPacking = 1;           ///< level of compression

float shareOfFeel(std::size_t pFeel)
{
    return pFeel == eMeterSwung ? MeterFilter::kSwungShare : 1.0F - MeterFilter::kSwungShare;
}

/// The beat before one, in the bar of its feel.
std::size_t beatBefore(std::size_t pBeat)
{
    return pBeat % kBeatsPerBar == 0 ? pBeat + kBeatsPerBar - 1 : pBeat - 1;
}

}  // namespace

MeterPath::MeterPath()
    : m_kernel(fastestMeterKernel()), m_end(getStates().getTempi().size()),
      m_cells(getStates().getSize()), m_moved(m_cells.size()), m_sums(m_end)
{
    for (std::size_t beat = 0; beat < kFeltBeats; ++beat) {
        m_left[beat].resize(m_end + 2 * MeterFilter::kReach);
        m_isLong[beat].resize(m_end);
    }
    Allow(0, m_end);
}

void MeterPath::Allow(std::size_t pFirst, std::size_t pEnd)
{
    m_first = pFirst;
    m_end = pEnd;
    std::fill(m_cells.begin(), m_cells.end(), 0.0F);
    std::fill(m_sums.begin(), m_sums.end(), 0.0F);
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = getStates().getTempi()[i];
        const std::size_t bar = kBeatsPerBar * tempo.cells;
        for (std::size_t feel = 0; feel < kMeterFeels; ++feel)
            std::fill_n(&m_cells[tempo.offset + feel * bar],
                        bar,
                        shareOfFeel(feel) * m_filter.getPrior()[i]);
        m_sums[i] = 1.0F;
    }
}

void MeterPath::Update(const MeterLikelihoods& pLikelihoods)
{
    // What the last frame's total was divides this one, so that the numbers stay near 1.
    MeterLikelihoods likelihoods = pLikelihoods;
    for (float& likelihood : likelihoods)
        likelihood /= m_total;
    float best = 0.0F;
    m_bests.push_back(_FindBest(best));
    const auto chunkSize = static_cast<int>(kFramesPerChunk * kFeltBeats * m_sums.size());
    if ((m_bests.size() - 1) % kFramesPerChunk == 0) {
        if (!m_origins.isEmpty())
            m_packed.push_back(qCompress(m_origins, kPacking));
        m_origins.fill('\0', chunkSize);
    }
    _LeaveBeats();
    _EnterBeats(best * kLeapChance);
    m_total = 0.0F;
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = getStates().getTempi()[i];
        m_sums[i] = m_kernel.move(&m_cells[tempo.offset],
                                  &getStates().getSteps()[tempo.offset],
                                  likelihoods,
                                  0.0F,
                                  tempo.blocks,
                                  &m_moved[tempo.offset]);
        m_total += m_sums[i];
    }
    m_cells.swap(m_moved);
}

// The best cell of the tempo that has most: the best of all, or next to it.
MeterPath::State MeterPath::_FindBest(float& pScore) const
{
    const auto most = std::max_element(m_sums.begin(), m_sums.end()) - m_sums.begin();
    const MeterStates::Tempo& tempo = getStates().getTempi()[static_cast<std::size_t>(most)];
    const float* cells = &m_cells[tempo.offset];
    const float* best = std::max_element(cells, cells + kFeltBeats * tempo.cells);
    const auto place = static_cast<std::size_t>(best - cells);
    pScore = *best;
    return {static_cast<quint8>(most),
            static_cast<quint8>(place / tempo.cells),
            static_cast<quint8>(place % tempo.cells)};
}

// A period is no whole number of frames: a beat lasts as many as fit, or one more. The more
// frequent of both costs nothing, or tempi of whole periods would be preferred.
void MeterPath::_LeaveBeats()
{
    for (std::size_t i = m_first; i < m_end; ++i) {
        const MeterStates::Tempo& tempo = getStates().getTempi()[i];
        const float most = std::max(tempo.stay, 1.0F - tempo.stay);
        float* last = &m_cells[tempo.offset] + tempo.cells - 1;
        for (std::size_t beat = 0; beat < kFeltBeats; ++beat, last += tempo.cells) {
            const float shorter = last[-1] * (1.0F - tempo.stay) / most;
            m_isLong[beat][i] = last[0] > shorter;
            m_left[beat][i + MeterFilter::kReach] = std::max(last[0], shorter);
            last[-1] *= tempo.stay / most;
        }
    }
}

void MeterPath::_EnterBeats(float pLeap)
{
    const std::size_t frame = m_bests.size() - 1;
    for (std::size_t beat = 0; beat < kFeltBeats; ++beat)
        for (std::size_t i = m_first; i < m_end; ++i) {
            const MeterStates::Tempo& tempo = getStates().getTempi()[i];
            const auto cells = static_cast<float>(tempo.cells);
            auto [score, origin] = _FindEntry(beatBefore(beat), i);
            const float leap =
                pLeap * shareOfFeel(beat / kBeatsPerBar) * m_filter.getPrior()[i] * cells;
            if (leap > score) {
                score = leap;
                origin = kLeap;
            }
            m_origins.data()[_IndexInChunk(frame, i, beat)] = static_cast<char>(origin);
            m_cells[tempo.offset + beat * tempo.cells - 1] = score;
        }
}

/// The best way into a tempo from what leaves the beat pBeat, and from where it comes.
std::pair<float, quint8> MeterPath::_FindEntry(std::size_t pBeat, std::size_t pTempo) const
{
    constexpr std::size_t kReach = MeterFilter::kReach;
    float best = 0.0F;
    std::size_t from = kReach;
    for (std::size_t k = 0; k < MeterFilter::kReachWidth; ++k) {
        const float score = m_filter.getTransitions()[k][pTempo] * m_left[pBeat][pTempo + k];
        if (score > best) {
            best = score;
            from = k;
        }
    }
    const bool isLong = best > 0.0F && m_isLong[pBeat][pTempo + from - kReach];
    return {best, static_cast<quint8>(from | (isLong ? kLong : 0U))};
}

std::size_t
MeterPath::_IndexInChunk(std::size_t pFrame, std::size_t pTempo, std::size_t pBeat) const
{
    return (pFrame % kFramesPerChunk * m_sums.size() + pTempo) * kFeltBeats + pBeat;
}

std::vector<MeterPath::Beat> MeterPath::Trace() const
{
    std::vector<Beat> beats;
    float score = 0.0F;
    State state = _FindBest(score);
    QByteArray origins = m_origins;
    std::size_t chunk = m_packed.size();
    // The frame in whose cell 0 the beat began, counted from 0.
    auto frame = static_cast<std::ptrdiff_t>(m_bests.size()) - 1 - state.cell;
    while (frame >= 0) {
        beats.push_back({static_cast<double>(frame + 1) - MeterStates::kCellCentre,
                         state.tempo,
                         state.beat % kBeatsPerBar});
        const auto entered = static_cast<std::size_t>(frame);
        for (; chunk > entered / kFramesPerChunk; --chunk)
            origins = qUncompress(m_packed[chunk - 1]);
        const auto place = static_cast<int>(_IndexInChunk(entered, state.tempo, state.beat));
        const auto origin = static_cast<quint8>(origins.at(place));
        if (origin == kLeap) {
            state = m_bests[entered];
            frame -= 1 + state.cell;
            continue;
        }
        const std::size_t from = origin & (kLong - 1U);
        state.tempo = static_cast<quint8>(state.tempo + from - MeterFilter::kReach);
        state.beat = static_cast<quint8>(beatBefore(state.beat));
        const std::size_t cells = getStates().getTempi()[state.tempo].cells;
        frame -= static_cast<std::ptrdiff_t>(cells - ((origin & kLong) != 0U ? 0U : 1U));
    }
    std::reverse(beats.begin(), beats.end());
    return beats;
}

}  // namespace detail
