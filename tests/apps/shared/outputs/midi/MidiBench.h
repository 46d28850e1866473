// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <shared/clock/ClockListener.h>
#include <shared/outputs/midi/MidiMessage.h>

#include <QString>
#include <QStringList>

/// Ticks of 125 BPM, which are 20 ms apart, and messages as text.
namespace midi_bench {

constexpr qint64 kTick = 20000;  ///< µs

inline BeatClockState state(int pBeatsPerBar = 4)
{
    BeatClockState state = {};
    state.then.period = 24 * kTick;
    state.now = state.then;
    state.endTime = BEATCLOCK_NEVER;
    state.beatsPerBar = pBeatsPerBar;
    return state;
}

/// Due at its number's multiple of 20 ms, or at pTime, µs; pOne: beat that begins a bar.
inline shared::ClockTick tick(qint64 pNumber, qint64 pOne = 0, qint64 pTime = -1)
{
    shared::ClockTick tick = {};
    tick.number = pNumber;
    tick.beat = pNumber / 24;
    tick.place = int(pNumber % 24);
    tick.beatInBar = int((tick.beat + 400 - pOne) % 4);
    tick.time = pTime < 0 ? pNumber * kTick : pTime;
    return tick;
}

inline QString bytes(const shared::MidiMessage& pMessage)
{
    const auto size = int(pMessage.size);
    return QString::fromLatin1(
        QByteArray(reinterpret_cast<const char*>(pMessage.bytes.data()), size).toHex());
}

}  // namespace midi_bench
