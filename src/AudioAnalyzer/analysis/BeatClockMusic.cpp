// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>
#include <AudioAnalyzer/analysis/detail/TempoFactor.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t kFarthestBeat = 5000000;  ///< µs from the present
constexpr int kTempoDoubts = 2;                  ///< beats that make another tempo believed
constexpr double kMostSteps = 4.0;               ///< beats between two that are compared
constexpr int kNewBeats = 5;                     ///< that a new song begins with
constexpr double kFirstSureness = 0.25;

double PeriodOf(double pBPM, double pOtherwise)
{
    return detail::IsTempo(pBPM) ? detail::kMinute / pBPM : pOtherwise;
}

/// 0 to 1; NaN is none.
double TrustOf(const BeatClock::Beat& pBeat)
{
    return pBeat.trust > 0.0 ? std::min(pBeat.trust, 1.0) : 0.0;
}

}  // namespace

void BeatClock::Hear(const Beat& pBeat, std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    if (!_IsUsable(pBeat, now))
        return;
    const bool isHandDone =
        m_state.charge == BeatClockCharge_Hand && m_isPlaying && pBeat.time >= m_handEnd;
    if (isHandDone)
        _LetGo(now);
    if (m_state.charge == BeatClockCharge_Music) {
        if (m_isReturning)
            _TakeBack(pBeat);
        if (m_isLocked)
            _Follow(pBeat, now);
        else
            _FindTempo(pBeat, now);
    }
    m_heardTime = pBeat.time;
    _Post();
}

void BeatClock::setPlaying(bool pIsPlaying, std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    m_isPlaying = pIsPlaying;
    if (!pIsPlaying) {
        m_isFresh = true;
        _ForgetDoubts();
        if (!m_isGoingOn && m_state.charge == BeatClockCharge_Music)
            _Stop(now);
    }
    _Post();
}

void BeatClock::setGoingOn(bool pIsGoingOn, std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    m_isGoingOn = pIsGoingOn;
    if (!pIsGoingOn && !m_isPlaying && m_state.charge == BeatClockCharge_Music)
        _Stop(now);
    _Post();
}

bool BeatClock::_IsUsable(const Beat& pBeat, std::int64_t pNow) const
{
    const std::int64_t distance = pBeat.time - pNow;
    return !pBeat.isVirtual && pBeat.time > m_heardTime && distance >= -kFarthestBeat &&
           distance <= kFarthestBeat;
}

/// The hand has let go: finds the beats of the music that make the clock run as it does. One of
/// them is the one.
void BeatClock::_TakeBack(const Beat& pBeat)
{
    m_isReturning = false;
    if (!m_isLocked)
        return;
    const BeatLine clock = _Target();
    const detail::TempoFactor factor = detail::IsTempo(pBeat.bpm)
                                           ? detail::FactorBetween(pBeat.bpm, m_state.bpm)
                                           : detail::TempoFactor();
    m_numerator = factor.numerator;
    m_denominator = factor.denominator;
    m_base = static_cast<double>(m_state.oneBeat);
    m_nudge = 0.0;
    m_music = {clock.time, (clock.position - m_base) / _Factor(), clock.period * _Factor()};
    m_lastIndex = std::round(m_music.getPosition(pBeat.time)) - 1.0;
    m_count = 2;
    _ForgetDoubts();
}

/// The first beats: one that tells its tempo, or two.
void BeatClock::_FindTempo(const Beat& pBeat, std::int64_t pNow)
{
    const auto interval = static_cast<double>(pBeat.time - m_doubtTime);
    const double heard = m_isDoubting ? detail::kMinute / interval : 0.0;
    const double period = PeriodOf(pBeat.bpm, PeriodOf(heard, 0.0));
    if (period > 0.0) {
        _Lock(pBeat, period, pNow);
        return;
    }
    m_isDoubting = true;
    m_doubtTime = pBeat.time;
}

void BeatClock::_Follow(const Beat& pBeat, std::int64_t pNow)
{
    const double position = m_music.getPosition(pBeat.time);
    const double index = std::round(position);
    const double claimed = PeriodOf(pBeat.bpm, m_music.period);
    const bool fits = std::abs(position - index) <= detail::kPhaseWindow;
    _CountTempoDoubts(pBeat, claimed);
    const bool isNewSong = !fits && (m_isFresh || _IsDoubtShared(pBeat, claimed));
    if (isNewSong || m_tempoDoubts >= kTempoDoubts) {
        _Lock(pBeat, claimed, pNow);
    } else if (fits) {
        // A second beat in the place of the last one is no news.
        if (index > m_lastIndex)
            _Correct(pBeat, index, pNow);
    } else {
        m_isDoubting = true;
        m_doubtTime = pBeat.time;
        m_state.sureness = detail::SurenessAfter(m_state.sureness, 1.0, TrustOf(pBeat));
    }
}

/// A tracker that tells another tempo is believed when its beats keep it, too.
void BeatClock::_CountTempoDoubts(const Beat& pBeat, double pClaimed)
{
    const bool isSame = std::abs(m_music.period / pClaimed - 1.0) <= detail::kSameTempo;
    const auto interval = static_cast<double>(pBeat.time - m_heardTime);
    const bool isKept = detail::IsWholePeriods(interval, pClaimed, detail::kSameTempo, kMostSteps);
    m_tempoDoubts = !isSame && isKept ? m_tempoDoubts + 1 : 0;
}

/// Whether the last beat that did not fit, and this one, belong together.
bool BeatClock::_IsDoubtShared(const Beat& pBeat, double pClaimed) const
{
    const auto interval = static_cast<double>(pBeat.time - m_doubtTime);
    return m_isDoubting &&
           detail::IsWholePeriods(interval, pClaimed, detail::kSameStep, kMostSteps);
}

void BeatClock::_Correct(const Beat& pBeat, double pIndex, std::int64_t pNow)
{
    const double error = m_music.getPosition(pBeat.time) - pIndex;
    m_count = std::min(m_count + 1, detail::kBestMemory);
    m_music = detail::FollowBeat(
        m_music, pBeat.time, pIndex, pIndex - m_lastIndex, detail::GainsOf(m_count));
    m_lastIndex = pIndex;
    m_isDoubting = false;
    m_isFresh = false;
    m_state.sureness = detail::SurenessAfter(
        detail::FadedSureness(m_state.sureness,
                              static_cast<double>(pBeat.time - m_state.heardTime) /
                                  m_state.period()),
        error,
        TrustOf(pBeat));
    m_state.heardTime = pBeat.time;
    _HearOne(pBeat);
    _Steer(pNow);
    m_newBeats = std::max(0, m_newBeats - 1);
}

/// A new song: the line is this beat and its tempo. That counts for one other beat, also where a
/// tracker tells it: at first it is a hundredth or two off, and the beats are not.
void BeatClock::_Lock(const Beat& pBeat, double pPeriod, std::int64_t pNow)
{
    const double index =
        m_isLocked ? std::max(std::round(m_music.getPosition(pBeat.time)), m_lastIndex + 1.0) : 0.0;
    m_music = {pBeat.time, index, pPeriod};
    m_lastIndex = index;
    m_count = 2;
    m_isLocked = true;
    m_isFresh = false;
    m_newBeats = kNewBeats;
    m_nudge = 0.0;
    m_isOneMarked = false;
    _ForgetDoubts();
    if (!detail::IsTempo(detail::kMinute / pPeriod * _Factor())) {
        m_numerator = 1;
        m_denominator = 1;
    }
    m_state.sureness = kFirstSureness * TrustOf(pBeat);
    m_state.heardTime = pBeat.time;
    _Jump(pNow);
    _HearOne(pBeat);
}

/// The tracker's bar counts unless the hand has marked one, and while beats are beats.
void BeatClock::_HearOne(const Beat& pBeat)
{
    if (m_isOneMarked || m_numerator != m_denominator || pBeat.beatInBar < 0)
        return;
    m_state.oneBeat = std::llround(_Target().getPosition(pBeat.time)) - pBeat.beatInBar;
}

void BeatClock::_ForgetDoubts()
{
    m_isDoubting = false;
    m_tempoDoubts = 0;
}
