// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>
#include <AudioAnalyzer/analysis/detail/SlewPlan.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t kLongAgo = -(std::int64_t(1) << 53);  ///< µs; before any instant
constexpr std::int64_t kFarthestOffset = 500000;             ///< µs
constexpr double kFarthestNudge = 500000.0;                  ///< µs
constexpr double kSmallestJump = 1.0;                        ///< µs
constexpr double kNewSlew = 0.5;                             ///< share of the tempo
/// Numbers left out between two runs: more beats than an output that is early can be ahead.
constexpr std::int64_t kRunGap = 32;

BeatClockState FirstState()
{
    BeatClockState state = {};
    state.endTime = BEATCLOCK_NEVER;
    state.heardTime = kLongAgo;
    state.beatsPerBar = 4;
    state.charge = BeatClockCharge_Music;
    state.isPlaying = 1;
    state.numerator = 1;
    state.denominator = 1;
    return state;
}

}  // namespace

BeatClock::BeatClock()
    : m_heardTime(kLongAgo), m_present(kLongAgo), m_state(FirstState()), m_published(m_state)
{
}

bool BeatClock::setBeatsPerBar(int pCount)
{
    constexpr int kFewest = 2;
    constexpr int kMost = 12;
    if (pCount < kFewest || pCount > kMost)
        return false;
    m_state.beatsPerBar = pCount;
    _Post();
    return true;
}

bool BeatClock::setSlew(double pShare)
{
    if (!(pShare >= 0.001 && pShare <= 0.5))
        return false;
    m_slew = pShare;
    return true;
}

bool BeatClock::setOffset(std::int64_t pMicroSeconds)
{
    if (pMicroSeconds < -kFarthestOffset || pMicroSeconds > kFarthestOffset)
        return false;
    m_state.offset = pMicroSeconds;
    _Post();
    return true;
}

void BeatClock::Restart(std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    m_bend = 0.0;
    m_taps.Clear();
    m_numerator = 1;
    m_denominator = 1;
    m_state.charge = BeatClockCharge_Music;
    m_state.sureness = 0.0;
    _ForgetDoubts();
    m_heardTime = kLongAgo;
    m_isReturning = false;
    m_isOneMarked = false;
    m_isPlaying = true;
    m_isFresh = false;
    _Stop(now);
    _Post();
}

// What a nudge that is held has moved up to the present.
std::int64_t BeatClock::_Settle(std::int64_t pNow)
{
    const std::int64_t now = std::max(pNow, m_present);
    if (m_bend != 0.0)
        _Shift(-m_bend * static_cast<double>(now - m_present));
    m_present = now;
    return now;
}

/// The line that the clock is to be on.
BeatLine BeatClock::_Target() const
{
    return {m_music.time,
            m_base + _Factor() * (m_music.position - m_nudge / m_music.period),
            m_music.period / _Factor()};
}

double BeatClock::_Factor() const
{
    return static_cast<double>(m_numerator) / m_denominator;
}

void BeatClock::_Shift(double pMicroSeconds)
{
    m_nudge += pMicroSeconds;
    if (m_state.charge == BeatClockCharge_Music)
        m_nudge = std::clamp(m_nudge, -kFarthestNudge, kFarthestNudge);
}

/// Leads the clock to the target, from where it is.
void BeatClock::_Steer(std::int64_t pNow)
{
    if (m_state.isRunning())
        _Approach(pNow);
    else
        _Begin(pNow);
    m_state.bpm = detail::kMinute / (m_music.period / _Factor());
    m_state.numerator = m_numerator;
    m_state.denominator = m_denominator;
}

/// Sets the clock on the target at once, which is new. The target's numbers are moved by whole
/// beats so that it is as near as can be; answers by how many.
std::int64_t BeatClock::_Jump(std::int64_t pNow)
{
    if (!m_state.isRunning()) {
        _Steer(pNow);
        return 0;
    }
    const double position = m_state.getPosition(pNow + m_state.offset);
    const double shift = std::round(position - _Target().getPosition(pNow));
    m_base += shift;
    m_state.now = _Target();
    m_state.then = m_state.now;
    const double jump = m_state.now.getPosition(pNow) - position;
    if (std::abs(jump) * m_state.period() > kSmallestJump)
        ++m_state.epoch;
    _Steer(pNow);
    return std::llround(shift);
}

/// The clock runs from the first beat of the target on that is not past.
void BeatClock::_Begin(std::int64_t pNow)
{
    constexpr double kRounding = 0.5;  // µs
    const BeatLine target = _Target();
    const double first = std::ceil(target.getPosition(pNow) - kRounding / target.period);
    m_base += static_cast<double>(m_state.firstBeat) - first;
    m_state.now = _Target();
    m_state.then = m_state.now;
    m_state.endTime = BEATCLOCK_NEVER;
    m_state.oneBeat = m_state.firstBeat;
    ++m_state.run;
}

/// By a tempo within the slew; while a nudge is held, by that.
void BeatClock::_Approach(std::int64_t pNow)
{
    const BeatLine target = _Target();
    const double position = m_state.getPosition(pNow + m_state.offset);
    if (m_bend == 0.0) {
        const double slew = m_newBeats > 0 ? std::max(m_slew, kNewSlew) : m_slew;
        const detail::SlewPlan plan = detail::PlanSlew(target, position, pNow, slew);
        m_state.now = plan.now;
        m_state.then = plan.then;
    } else {
        m_state.now = {pNow, position, target.period / (1.0 + m_bend)};
        m_state.then = m_state.now;
    }
}

/// Beats that are due up to pNow stay; a new run has numbers behind all that outputs may have told.
void BeatClock::_Stop(std::int64_t pNow)
{
    m_isLocked = false;
    m_nudge = 0.0;
    m_base = 0.0;
    if (m_state.isRunning()) {
        m_state.firstBeat = m_state.getBeat(pNow + m_state.offset) + 1 + kRunGap;
        m_state.endTime = pNow;
    }
}

void BeatClock::_Post()
{
    m_state.isPlaying = m_isPlaying ? 1 : 0;
    m_published.Set(m_state);
}
