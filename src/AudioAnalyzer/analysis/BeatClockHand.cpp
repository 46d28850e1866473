// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>
#include <AudioAnalyzer/analysis/detail/TempoFactor.h>

#include <cmath>

namespace {

constexpr double kHandBeats = 8.0;      ///< after the last tap
constexpr double kStrongestBend = 0.5;  ///< share of the tempo

}  // namespace

bool BeatClock::Tap(std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    if (!m_taps.Tap(static_cast<quint64>(now)) || m_taps.getCount() < 2)
        return false;
    const double period = detail::kMinute / m_taps.getBPM();
    _TakeInHand(m_state.charge == BeatClockCharge_Held ? BeatClockCharge_Held
                                                       : BeatClockCharge_Hand);
    m_music = {now + std::llround(m_taps.getLag()), 0.0, period};
    m_handEnd = now + std::llround(kHandBeats * period);
    _Jump(now);
    _Post();
    return true;
}

void BeatClock::Nudge(std::int64_t pMicroSeconds, std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    if (!m_state.isRunning())
        return;
    _Shift(static_cast<double>(pMicroSeconds));
    _Steer(now);
    _Post();
}

bool BeatClock::Bend(double pShare, std::int64_t pNow)
{
    if (!(pShare >= -kStrongestBend && pShare <= kStrongestBend))
        return false;
    const std::int64_t now = _Settle(pNow);
    m_bend = pShare;
    if (m_state.isRunning())
        _Steer(now);
    _Post();
    return true;
}

void BeatClock::MarkOne(std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    if (!m_state.isRunning())
        return;
    m_state.oneBeat = std::llround(m_state.getPosition(now + m_state.offset));
    m_isOneMarked = true;
    _Post();
}

bool BeatClock::Scale(int pNumerator, int pDenominator, std::int64_t pNow)
{
    if (!m_state.isRunning() || !detail::IsFactor(pNumerator, pDenominator))
        return false;
    const detail::TempoFactor step = {pNumerator, pDenominator};
    const detail::TempoFactor factor = detail::Multiply({m_numerator, m_denominator}, step);
    if (!detail::IsFactor(factor.numerator, factor.denominator) ||
        !detail::IsTempo(m_state.bpm * step.getValue()))
        return false;
    const std::int64_t now = _Settle(pNow);
    const auto one = static_cast<double>(m_state.oneBeat);
    m_base = one + step.getValue() * (m_base - one);
    m_numerator = factor.numerator;
    m_denominator = factor.denominator;
    // The one is a beat before and after. Numbers go on where they are, so its number moves.
    m_state.oneBeat += _Jump(now);
    if (m_state.charge != BeatClockCharge_Music)
        _TakeInHand(static_cast<BeatClockCharge>(m_state.charge));
    _Post();
    return true;
}

bool BeatClock::Round(std::int64_t pNow)
{
    const double bpm = std::round(m_state.bpm);
    if (!m_state.isRunning() || !detail::IsTempo(bpm))
        return false;
    const std::int64_t now = _Settle(pNow);
    m_music = {now, m_music.getPosition(now), detail::kMinute / bpm * _Factor()};
    _Steer(now);
    _Post();
    return true;
}

bool BeatClock::Hold(std::int64_t pNow)
{
    if (!m_state.isRunning())
        return false;
    const std::int64_t now = _Settle(pNow);
    _TakeInHand(BeatClockCharge_Held);
    _Steer(now);
    _Post();
    return true;
}

bool BeatClock::HoldAt(double pBPM, std::int64_t pNow)
{
    if (!detail::IsTempo(pBPM))
        return false;
    const std::int64_t now = _Settle(pNow);
    _TakeInHand(BeatClockCharge_Held);
    const double position = m_state.isRunning() ? _Target().getPosition(now) : 0.0;
    m_music = {now, position, detail::kMinute / pBPM};
    _Steer(now);
    _Post();
    return true;
}

void BeatClock::Release(std::int64_t pNow)
{
    const std::int64_t now = _Settle(pNow);
    if (m_state.charge != BeatClockCharge_Music)
        _LetGo(now);
    _Post();
}

void BeatClock::_LetGo(std::int64_t pNow)
{
    m_state.charge = BeatClockCharge_Music;
    m_isReturning = true;
    if (!m_isPlaying && !m_isGoingOn)
        _Stop(pNow);
}

/// The target becomes a line of the clock's own beats, which no beat of the music moves.
void BeatClock::_TakeInHand(BeatClockCharge pCharge)
{
    if (m_isLocked)
        m_music = _Target();
    m_base = 0.0;
    m_numerator = 1;
    m_denominator = 1;
    m_nudge = 0.0;
    m_isLocked = true;
    m_isReturning = false;
    _ForgetDoubts();
    m_state.charge = pCharge;
    m_state.numerator = 1;
    m_state.denominator = 1;
}
