// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <shared/clock/ClockListener.h>
#include <shared/outputs/midi/MidiMessage.h>

#include <cstdint>
#include <vector>

namespace shared::detail {

/// What a receiver of MIDI clock is sent, and when: the arithmetic of MidiClock.
///
/// A receiver counts clocks, so that one too few would shift it for good, and measures their
/// distances, so that two at once would shake its tempo. It begins with the one, by Start right
/// before that beat's clock. A tick that was lost, or that the clock told together with others
/// after a jump, is made up for by a clock halfway between two; when more than a sixteenth is
/// missing, the receiver is stopped, and goes on from the right place with the next sixteenth. So
/// it is when the one has moved: a bar's beginning is a multiple of the bar in the song.
class SongClock
{
public:
    static constexpr int kTicks = 24;                        ///< a beat
    static constexpr int kSixteenth = 6;                     ///< ticks
    static constexpr std::int64_t kMostBehind = kSixteenth;  ///< ticks; more is a jump

    /// pIsAlwaysClocked: also before the start; many devices want to know the tempo by then.
    explicit SongClock(bool pIsAlwaysClocked) : m_isAlwaysClocked(pIsAlwaysClocked) {}

    /// What is to be sent when the clock stands still.
    const std::vector<MidiEvent>& End(std::int64_t pNow);
    /// A tick of division 24; µs of ClockThread::getTime(). Events in order, the first ones of now,
    /// at most one of a time to come, half a tick away. [valid until the next call]
    const std::vector<MidiEvent>&
    Tick(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow);
    bool isStarted() const { return m_place != eStopped; }

private:
    static constexpr std::int64_t kLongAgo = -(std::int64_t(1) << 53);  ///< µs; before any instant

    enum ePlace
    {
        eStopped,  ///< until the one
        eGoing,
        eLost  ///< until the next sixteenth
    };

    void _Add(std::int64_t pTime, const MidiMessage& pMessage)
    {
        m_events.push_back({pTime, pMessage});
    }
    void _Start(const ClockTick& pTick, std::int64_t pNow);
    void _WatchPlace(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow);
    void _Find(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow);
    void _Lose(std::int64_t pNow);
    void _Count(const ClockTick& pTick, const BeatClockState& pState, std::int64_t pNow);
    void _Clock(std::int64_t pTime);

    bool m_isAlwaysClocked;
    ePlace m_place = eStopped;
    std::int64_t m_origin = 0;           ///< tick with which the song begins
    std::int64_t m_counted = 0;          ///< tick of the last clock that counted
    std::int64_t m_lastTime = kLongAgo;  ///< µs; of the last clock
    std::int64_t m_lastDue = kLongAgo;   ///< µs; of the last tick
    std::vector<MidiEvent> m_events;
};

}  // namespace shared::detail
