// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockListener.h>
#include <shared/outputs/midi/MidiMessage.h>

#include <cstdint>
#include <numeric>
#include <vector>

namespace shared {

/// The notes that beats and bars are played as.
struct MidiNoteSettings
{
    static constexpr int kNone = -1;  ///< no note

    int channel = 10;    ///< 1 to 16
    int beatNote = 36;   ///< 0 to 127 or kNone; on every beat
    int barNote = 38;    ///< likewise; on the one, besides the beat's
    int velocity = 100;  ///< 1 to 127
    int length = 6;      ///< 24ths of a beat, 1 to 24
};

namespace detail {

/// What a receiver of notes is sent: the arithmetic of MidiNotes. A note ends before it begins
/// anew, whatever ticks are missing.
class NotePlan
{
public:
    explicit NotePlan(const MidiNoteSettings& pSettings) : m_settings(pSettings) {}

    /// Ticks a beat: as few as have one where the notes end.
    std::int32_t getDivision() const { return kParts / _Step(); }
    /// A tick of that division. In the order in which they are to be sent. [valid until the next
    /// call]
    const std::vector<MidiMessage>& Tick(const ClockTick& pTick);
    /// All that sounds ends.
    const std::vector<MidiMessage>& End();

private:
    static constexpr int kParts = 24;  ///< of a beat, which a length counts

    int _Step() const { return std::gcd(kParts, m_settings.length); }
    void _Play(int pNote);
    void _Release();

    MidiNoteSettings m_settings;
    std::int64_t m_end = 0;       ///< tick with which the notes end
    std::vector<int> m_sounding;  ///< notes
    std::vector<MidiMessage> m_sent;
};

}  // namespace detail
}  // namespace shared
