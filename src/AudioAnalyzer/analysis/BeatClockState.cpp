// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>
#include <AudioAnalyzer/analysis/detail/PhaseLoop.h>

#include <algorithm>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<BeatClockState>, "it is copied between threads");
static_assert(std::is_standard_layout_v<BeatClockState>, "it is the record of the C interface");

double BeatClockState::getPosition(std::int64_t pTime, std::int64_t pOffset) const
{
    if (period() <= 0.0)
        return 0.0;
    const std::int64_t time = std::min(pTime - offset - pOffset, endTime);
    return (time < then.time ? now : then).getPosition(time);
}

// By the instants of the beats, which are whole microseconds, so that a beat has come when its
// instant has.
std::int64_t BeatClockState::getBeat(std::int64_t pTime, std::int64_t pOffset) const
{
    return getNextTick(pTime, 1, pOffset) - 1;
}

double BeatClockState::getPhase(std::int64_t pTime, std::int64_t pOffset) const
{
    constexpr double kBelowOne = 1.0 - 0x1.0p-53;
    const double phase = getPosition(pTime, pOffset) - static_cast<double>(getBeat(pTime, pOffset));
    return std::clamp(phase, 0.0, kBelowOne);
}

std::int32_t BeatClockState::getBeatInBar(std::int64_t pBeat) const
{
    const std::int64_t rest = (pBeat - oneBeat) % beatsPerBar;
    return static_cast<std::int32_t>(rest < 0 ? rest + beatsPerBar : rest);
}

std::int64_t
BeatClockState::getTickTime(std::int64_t pTick, std::int32_t pDivision, std::int64_t pOffset) const
{
    if (period() <= 0.0)
        return BEATCLOCK_NEVER;
    const double position =
        static_cast<double>(pTick / pDivision) + static_cast<double>(pTick % pDivision) / pDivision;
    const std::int64_t time = position < then.position ? std::min(now.getTime(position), then.time)
                                                       : then.getTime(position);
    return time > endTime ? BEATCLOCK_NEVER : time + offset + pOffset;
}

std::int64_t
BeatClockState::getNextTick(std::int64_t pTime, std::int32_t pDivision, std::int64_t pOffset) const
{
    const double ticks = std::floor(getPosition(pTime, pOffset) * pDivision);
    std::int64_t tick = static_cast<std::int64_t>(ticks) + 1;
    if (period() <= 0.0)
        return tick;
    // The instants are rounded, so that the guess may be off by one.
    while (getTickTime(tick - 1, pDivision, pOffset) > pTime &&
           getTickTime(tick - 1, pDivision, pOffset) != BEATCLOCK_NEVER)
        --tick;
    while (getTickTime(tick, pDivision, pOffset) <= pTime)
        ++tick;
    return tick;
}

double BeatClockState::getSureness(std::int64_t pTime) const
{
    if (charge != BeatClockCharge_Music)
        return 1.0;
    if (period() <= 0.0)
        return 0.0;
    return detail::FadedSureness(sureness, static_cast<double>(pTime - heardTime) / period());
}
