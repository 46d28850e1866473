// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterDecoder.h>
#include <AudioAnalyzer/analysis/detail/MeterPath.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t kLongestGap = 1000;   ///< frames without a meter that are bridged
constexpr std::size_t kSilentFrames = 120;  ///< in a row that are none
constexpr float kSilence = 1e-7F;           ///< mean square: -70 dBFS
constexpr double kUnsteady = 0.04;          ///< periods by which an interval may differ
constexpr double kShortestBeat = 0.5;       ///< periods
constexpr quint64 kOpen = std::numeric_limits<quint64>::max();  ///< end of what still plays
constexpr std::size_t kPeriods = 4;  ///< on each side of a beat that make its tempo

using Path = std::vector<detail::MeterPath::Beat>;

bool isSteady(const Path& pPath, std::size_t pFirst, double pPeriod)
{
    const double interval = pPath[pFirst + 1].time - pPath[pFirst].time;
    return std::fabs(interval - pPeriod) <= 1.0 + kUnsteady * pPeriod;
}

/// The way has whole frames; the mean of as many beats on each side as keep their distance has
/// parts.
double smoothTime(const Path& pPath, std::size_t pBeat, double pPeriod)
{
    double sum = pPath[pBeat].time;
    double count = 1.0;
    for (std::size_t k = 1; k <= kPeriods && k <= pBeat && pBeat + k < pPath.size(); ++k) {
        if (!isSteady(pPath, pBeat - k, pPeriod) || !isSteady(pPath, pBeat + k - 1, pPeriod))
            break;
        sum += pPath[pBeat - k].time + pPath[pBeat + k].time;
        count += 2.0;
    }
    return sum / count;
}

}  // namespace

MeterDecoder::MeterDecoder(int pSampleRate)
    : m_tracker(pSampleRate), m_pOnsets(std::make_unique<OnsetLevels>(m_tracker.getSampleRate())),
      m_pEvidence(std::make_unique<detail::MeterEvidence>(detail::kMeterTable)),
      m_pPath(std::make_unique<detail::MeterPath>())
{
    using T = MeterTracker;
    QObject::connect(
        &m_tracker,
        &T::OnBeatForeseen,
        &m_tracker,
        [this](const T::Beat& pBeat) { m_told.push_back(pBeat); },
        Qt::DirectConnection);
    QObject::connect(
        &m_tracker,
        &T::OnPlayingChanged,
        &m_tracker,
        [this](quint64 pIndex, bool pIsPlaying) {
            // What is known at the end of the first frame counts from the beginning.
            const bool isFirst = m_isQuiet.empty() && m_playing.empty() && _FrameOf(pIndex) < 2;
            if (pIsPlaying)
                m_playing.push_back({isFirst ? 0 : pIndex, kOpen});
            else if (!m_playing.empty())
                m_playing.back().end = pIndex;
        },
        Qt::DirectConnection);
}

MeterDecoder::~MeterDecoder() = default;

void MeterDecoder::Push(const qint16* pSamples, std::size_t pCount)
{
    if (m_tracker.getSampleCount() == 0)
        _AllowTempi();
    m_tracker.Push(pSamples, pCount);
    while (pCount > 0) {
        const std::size_t taken = m_pOnsets->Push(pSamples, pCount);
        pSamples += taken;
        pCount -= taken;
        if (m_pOnsets->isFrameComplete()) {
            m_pPath->Update(m_pEvidence->Weigh(m_pOnsets->getLevels()));
            m_isQuiet.push_back(m_pOnsets->getMeanSquare() < kSilence);
        }
    }
}

void MeterDecoder::_AllowTempi()
{
    const detail::MeterStates& states = m_pPath->getStates();
    const int last = static_cast<int>(states.getTempi().size()) - 1;
    const auto find = [&](double pBPM) {
        const auto period = static_cast<float>(detail::MeterStates::kFramesPerMinute / pBPM);
        return static_cast<std::size_t>(qBound(0, states.findTempo(period), last));
    };
    m_pPath->Allow(find(m_tracker.getMaximalBPM()), find(m_tracker.getMinimalBPM()) + 1);
}

MeterDecoder::Decoding MeterDecoder::Decode() const
{
    Decoding result = {{}, _FindStretches()};
    auto stretch = result.stretches.begin();
    for (const MeterTracker::Beat& beat : _FindBeats()) {
        while (stretch != result.stretches.end() && beat.index >= stretch->end)
            ++stretch;
        if (stretch != result.stretches.end() && beat.index >= stretch->start)
            result.beats.push_back(beat);
    }
    return result;
}

std::vector<MeterDecoder::Stretch> MeterDecoder::_FindStretches() const
{
    std::vector<Stretch> stretches;
    for (Stretch playing : m_playing) {
        playing.end = std::min(playing.end, m_tracker.getSampleCount());
        if (!stretches.empty() && _isBridged(stretches.back().end, playing.start))
            stretches.back().end = playing.end;
        else if (playing.end > playing.start)
            stretches.push_back(playing);
    }
    return stretches;
}

/// A short gap without a silence.
bool MeterDecoder::_isBridged(quint64 pStart, quint64 pEnd) const
{
    const std::size_t end = std::min<std::size_t>(_FrameOf(pEnd), m_isQuiet.size());
    std::size_t quietFrames = 0;
    for (std::size_t i = _FrameOf(pStart); i < end && quietFrames < kSilentFrames; ++i)
        quietFrames = m_isQuiet[i] ? quietFrames + 1 : 0;
    return quietFrames < kSilentFrames && _FrameOf(pEnd) - _FrameOf(pStart) < kLongestGap;
}

std::size_t MeterDecoder::_FrameOf(quint64 pIndex) const
{
    return static_cast<std::size_t>(pIndex * OnsetLevels::kFramesPerSecond /
                                    static_cast<quint64>(m_tracker.getSampleRate()));
}

std::vector<MeterTracker::Beat> MeterDecoder::_FindBeats() const
{
    const std::vector<detail::MeterPath::Beat> path = m_pPath->Trace();
    std::vector<MeterTracker::Beat> beats;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const std::size_t first = i < kPeriods ? 0 : i - kPeriods;
        const std::size_t end = std::min(path.size(), i + kPeriods + 1);
        double sum = 0.0;
        for (std::size_t k = first; k < end; ++k)
            sum += static_cast<double>(m_pPath->getStates().getTempi()[path[k].tempo].period);
        const double period = sum / static_cast<double>(end - first);
        // A leap may cut a beat short.
        const bool isCut =
            i + 1 < path.size() && path[i + 1].time - path[i].time < kShortestBeat * period;
        if (!isCut)
            beats.push_back(_MakeBeat(smoothTime(path, i, period), period, path[i].beat));
    }
    return beats;
}

// The tracker's confidences are those of the beat that it told next to this one.
MeterTracker::Beat MeterDecoder::_MakeBeat(double pFrame, double pPeriod, std::size_t pBeat) const
{
    const double index = pFrame * m_tracker.getSampleRate() / OnsetLevels::kFramesPerSecond;
    MeterTracker::Beat beat = {static_cast<quint64>(qRound64(index)),
                               detail::MeterStates::kFramesPerMinute / pPeriod,
                               static_cast<int>(pBeat) + 1,
                               0.0,
                               0.0};
    auto near = std::lower_bound(
        m_told.begin(), m_told.end(), beat, [](const auto& pLeft, const auto& pRight) {
            return pLeft.index < pRight.index;
        });
    if (near == m_told.end() ||
        (near != m_told.begin() && beat.index - (near - 1)->index < near->index - beat.index))
        near -= near == m_told.begin() ? 0 : 1;
    if (near == m_told.end())
        return beat;
    const bool isSame = near->beatInBar == beat.beatInBar;
    beat.confidence = near->confidence;
    beat.barConfidence =
        isSame ? near->barConfidence : (1.0 - near->barConfidence) / (detail::kBeatsPerBar - 1);
    return beat;
}
