// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/midi/MidiPort.h>
#include <shared/outputs/midi/detail/NotePlan.h>

#include <memory>

namespace shared {

/// A program without clock that learns notes: one a beat, and another one a bar.
class MidiNotes : public OutputReceiver
{
public:
    MidiNotes(std::unique_ptr<MidiPort> pPort, const MidiNoteSettings& pSettings);
    ~MidiNotes() override;

    /// For the ends of notes.
    std::int32_t getDivision() const override { return m_plan.getDivision(); }
    bool Open() override;
    void Close() override;
    QString getState() const override;
    bool Beat(const OutputMoment& pMoment) override { return Tick(pMoment); }
    bool Tick(const OutputMoment& pMoment) override;
    bool Playing(bool pIsPlaying, const BeatClockState& pState) override;
    bool Rest() override { return m_port->isThere(); }

private:
    bool _Send(const std::vector<MidiMessage>& pMessages, std::int64_t pTime);

    std::unique_ptr<MidiPort> m_port;
    detail::NotePlan m_plan;
};

}  // namespace shared
