// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/detail/SongClock.h>

#include <algorithm>
#include <cmath>

namespace shared::detail {

namespace {

/// The song position counts this far.
constexpr std::int64_t kSongLength = 16384;  // sixteenths

/// Bars go on being bars when the position begins anew.
std::int64_t SongPositionOf(std::int64_t pTicks, std::int32_t pBeatsPerBar)
{
    const std::int64_t bar = std::int64_t(4) * pBeatsPerBar;
    return pTicks / SongClock::kSixteenth % (kSongLength / bar * bar);
}

bool IsOne(const ClockTick& pTick)
{
    return pTick.place == 0 && pTick.beatInBar == 0;
}

}  // namespace

const std::vector<MidiEvent>& SongClock::End(std::int64_t pNow)
{
    m_events.clear();
    if (m_place == eGoing)
        _Add(pNow, MidiMessage::Stop());
    m_place = eStopped;
    return m_events;
}

const std::vector<MidiEvent>&
SongClock::Tick(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow)
{
    m_events.clear();
    if (m_place == eStopped)
        _Start(pTick, pNow);
    if (m_place == eGoing)
        _WatchPlace(pTick, pState, pNow);
    if (m_place == eLost)
        _Find(pTick, pState, pNow);
    if (m_place == eGoing)
        _Count(pTick, pState, pNow);
    else if (m_isAlwaysClocked && pTick.time != m_lastDue)
        _Clock(pNow);
    m_lastDue = pTick.time;
    return m_events;
}

void SongClock::_Start(const ClockTick& pTick, std::int64_t pNow)
{
    if (!IsOne(pTick))
        return;
    // What was sent before does not count: neither its number nor its distance.
    m_lastTime = kLongAgo;
    m_lastDue = kLongAgo;
    m_origin = pTick.number;
    m_counted = pTick.number - 1;
    m_place = eGoing;
    _Add(pNow, MidiMessage::Start());
}

/// Whether the receiver can still be led to where the music is.
void SongClock::_WatchPlace(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow)
{
    const std::int64_t bar = std::int64_t(kTicks) * pState.beatsPerBar;
    const std::int64_t beyond = (pTick.number - m_origin) % bar;
    if (pTick.number - m_counted > kMostBehind) {
        _Lose(pNow);
    } else if (IsOne(pTick) && beyond != 0) {
        _Lose(pNow);
        m_origin -= bar - beyond;
    }
}

void SongClock::_Lose(std::int64_t pNow)
{
    _Add(pNow, MidiMessage::Stop());
    m_place = eLost;
}

void SongClock::_Find(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow)
{
    if (pTick.place % kSixteenth != 0)
        return;
    const std::int64_t ticks = pTick.number - m_origin;
    _Add(pNow, MidiMessage::SongPosition(SongPositionOf(ticks, pState.beatsPerBar)));
    _Add(pNow, MidiMessage::Continue());
    m_counted = pTick.number - 1;
    m_place = eGoing;
}

/// Of ticks that are told together, all but the first one are made up for behind the next.
void SongClock::_Count(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow)
{
    if (pTick.time == m_lastDue)
        return;
    const std::int64_t half = std::llround(pState.period() / kTicks / 2.0);
    const std::int64_t first = std::max(pNow, m_lastTime + half);
    _Clock(first);
    ++m_counted;
    if (m_counted < pTick.number && first <= pNow) {
        _Clock(first + half);
        ++m_counted;
    }
}

void SongClock::_Clock(std::int64_t pTime)
{
    _Add(pTime, MidiMessage::Clock());
    m_lastTime = pTime;
}

}  // namespace shared::detail
