// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/midi/MidiPort.h>
#include <shared/outputs/midi/StandbyClock.h>
#include <shared/outputs/midi/detail/SongClock.h>

#include <memory>

namespace shared {

/// A sequencer, drum machine or effect that follows MIDI clock; see SongClock for what it is sent.
class MidiClock : public OutputReceiver
{
public:
    /// A tick that is told later than this, µs, is sent when it is told, and else when it was due.
    static constexpr std::int64_t kPunctual = 1000;

    /// pIsAlwaysClocked: also while the music stands, at the last tempo.
    MidiClock(std::unique_ptr<MidiPort> pPort, bool pIsAlwaysClocked);
    ~MidiClock() override;

    std::int32_t getDivision() const override { return detail::SongClock::kTicks; }
    bool Open() override;
    void Close() override;
    QString getState() const override;
    bool Beat(const OutputMoment& pMoment) override { return Tick(pMoment); }
    bool Tick(const OutputMoment& pMoment) override;
    bool Playing(bool pIsPlaying, const BeatClockState& pState) override;
    bool Rest() override;

private:
    bool _Send(const std::vector<MidiEvent>& pEvents);

    std::unique_ptr<MidiPort> m_port;
    bool m_isAlwaysClocked;
    detail::SongClock m_song;
    StandbyClock m_standby;  ///< uses the port while it runs
};

}  // namespace shared
