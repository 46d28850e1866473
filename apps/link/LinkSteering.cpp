// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <link/LinkSteering.h>
#include <numeric>
#include <vector>

namespace {

// What trackers have a bar of; a quantum that does not fit shares what it can.
constexpr int kBar = 4;
// Differences of tempo that peers need not hear of, of the tempo.
constexpr double kWobble = 0.001;
// A tempo this far from that of the beat before is another one.
constexpr double kLeap = 0.04;
// Beats that are off by less stay so: 10 ms at 120 BPM.
constexpr double kInStep = 0.02;
// Off by more is what --force moves.
constexpr double kForced = 0.1;
// A nudge takes so many beats, unless it would be faster than listeners bear.
constexpr double kNudgeBeats = 8.0;
constexpr double kMostBend = 0.02;
// Without beats for so long, in seconds, a nudge ends.
constexpr double kPatience = 2.0;

constexpr double kMicrosecondsPerMinute = 60e6;
constexpr double kLeastDifference = 0.0003;  // BPM

/// Into the half-open range from -pCycle / 2 to pCycle / 2.
double Wrap(double pValue, double pCycle)
{
    return pValue - pCycle * std::floor(pValue / pCycle + 0.5);
}

}  // namespace

bool isSameTempo(double pLeft, double pRight)
{
    const double step = pLeft * pRight / kMicrosecondsPerMinute;
    return std::fabs(pLeft - pRight) <= std::max(kLeastDifference, step);
}

LinkSteering::LinkSteering(const Options& pOptions) : m_options(pOptions) {}

LinkChange LinkSteering::Hear(const HeardBeat& pBeat, const LinkView& pSession)
{
    _Count(pBeat);
    _Notice(pSession);
    if (!isSure())
        return Finish(pSession);
    _FollowTempo(pSession.bpm);
    LinkChange phase;
    _FollowPhase(pSession, phase);
    LinkChange change = _SetTempo(pSession.bpm);
    change.phase = phase.phase;
    change.beat = phase.beat;
    return change;
}

LinkChange LinkSteering::Wait(double pNow, const LinkView& pSession)
{
    return pNow - m_last.time > kPatience ? Finish(pSession) : LinkChange();
}

LinkChange LinkSteering::Finish(const LinkView& pSession)
{
    _Notice(pSession);
    if (!isNudging())
        return {};
    m_bend = 0.0;
    return _SetTempo(pSession.bpm);
}

/// A beat counts behind the one before when it comes about when that one foretold, at its tempo.
void LinkSteering::_Count(const HeardBeat& pBeat)
{
    const double distance = (pBeat.time - m_last.time) * m_last.bpm / 60.0;
    const bool isNext =
        distance > 0.5 && distance < 1.5 && std::fabs(pBeat.bpm - m_last.bpm) < kLeap * m_last.bpm;
    const bool isConfident = pBeat.bpm > 0.0 && pBeat.confidence >= m_options.confidence;
    m_streak = !isConfident ? 0 : isNext ? std::min(m_streak, m_options.beats) + 1 : 1;
    m_last = pBeat;
    if (m_streak <= 1)
        m_tempos.clear();
    if (isConfident)
        m_tempos.push_back(pBeat.bpm);
    if (m_tempos.size() > std::size_t(m_options.beats))
        m_tempos.pop_front();
}

/// Who sets the tempo by hand, or brings one along into the session, is left alone with it for the
/// time that it takes to be sure anew.
void LinkSteering::_Notice(const LinkView& pSession)
{
    if (m_expected > 0.0 && !isSameTempo(pSession.bpm, m_expected)) {
        m_streak = 0;
        m_tempos.clear();
        m_tempo = 0.0;
        m_bend = 0.0;
    }
    m_expected = pSession.bpm;
}

void LinkSteering::_FollowTempo(double pSessionBPM)
{
    if (m_tempo == 0.0)
        m_tempo = pSessionBPM;
    const double heard = _getMedian();
    if (std::fabs(heard - m_tempo) > kWobble * m_tempo)
        m_tempo = heard;
}

void LinkSteering::_FollowPhase(const LinkView& pSession, LinkChange& pChange)
{
    const int shared = std::gcd(m_options.quantum, kBar);
    m_error = Wrap(pSession.phase - (m_last.beatInBar - 1), shared);
    const double off = std::fabs(m_error);
    const bool isAlone = pSession.peers == 0;
    if ((isAlone && off > kInStep) || (m_options.isForced && off > kForced)) {
        pChange.phase = isAlone ? LinkChange::eRequest : LinkChange::eForce;
        const double beat = std::round(pSession.phase - m_error);
        pChange.beat = beat - m_options.quantum * std::floor(beat / m_options.quantum);
        m_error = 0.0;
    }
    _Nudge();
}

/// A nudge ends when what is left is less than half of what it moves in a beat. The tempo that it
/// begins and ends with is told anyway, so it may as well be the exact one.
void LinkSteering::_Nudge()
{
    const double error = Wrap(m_error, 1.0);
    const double before = m_bend;
    if (!isNudging() && std::fabs(error) > kInStep)
        m_bend = std::clamp(-error / kNudgeBeats, -kMostBend, kMostBend);
    else if (isNudging() && (error * m_bend > 0.0 || std::fabs(error) < std::fabs(m_bend) / 2.0))
        m_bend = 0.0;
    if (m_bend != before)
        m_tempo = _getMedian();
}

double LinkSteering::_getMedian() const
{
    std::vector<double> tempos(m_tempos.begin(), m_tempos.end());
    const auto middle = tempos.begin() + std::ptrdiff_t(tempos.size() / 2);
    std::nth_element(tempos.begin(), middle, tempos.end());
    return *middle;
}

LinkChange LinkSteering::_SetTempo(double pSessionBPM)
{
    LinkChange change;
    const double target = m_tempo * (1.0 + m_bend);
    if (!isSameTempo(target, pSessionBPM)) {
        change.bpm = target;
        m_expected = target;
    }
    return change;
}
