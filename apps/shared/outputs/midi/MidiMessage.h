// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace shared {

/// One message as it goes over the wire: its status byte and the data behind it.
struct MidiMessage
{
    std::array<std::uint8_t, 3> bytes;
    std::size_t size;  ///< 1 to 3

    static constexpr MidiMessage Clock() { return {{0xF8}, 1}; }
    /// From the beginning, with the next clock.
    static constexpr MidiMessage Start() { return {{0xFA}, 1}; }
    /// From the song position, with the next clock.
    static constexpr MidiMessage Continue() { return {{0xFB}, 1}; }
    static constexpr MidiMessage Stop() { return {{0xFC}, 1}; }
    /// pSixteenths: since the beginning, below 16384; for who has stopped.
    static constexpr MidiMessage SongPosition(std::int64_t pSixteenths)
    {
        return {{0xF2, _Low(pSixteenths), _Low(pSixteenths / 128)}, 3};
    }
    /// pChannel: 1 to 16; pNote and pVelocity: 0 to 127, a velocity of 0 ends the note.
    static constexpr MidiMessage NoteOn(int pChannel, int pNote, int pVelocity)
    {
        return {{_Status(0x90, pChannel), _Low(pNote), _Low(pVelocity)}, 3};
    }
    static constexpr MidiMessage NoteOff(int pChannel, int pNote)
    {
        return {{_Status(0x80, pChannel), _Low(pNote), 0}, 3};
    }

private:
    static constexpr std::uint8_t _Low(std::int64_t pValue)
    {
        return static_cast<std::uint8_t>(pValue % 128);
    }
    static constexpr std::uint8_t _Status(int pKind, int pChannel)
    {
        return static_cast<std::uint8_t>(pKind + (pChannel - 1) % 16);
    }
};

/// A message and its instant, µs of ClockThread::getTime().
struct MidiEvent
{
    std::int64_t time;
    MidiMessage message;
};

}  // namespace shared
