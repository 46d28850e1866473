// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/midi/MidiNotes.h>

#include <algorithm>

namespace shared {

MidiNotes::MidiNotes(std::unique_ptr<MidiPort> pPort, const MidiNoteSettings& pSettings)
    : m_port(std::move(pPort)), m_plan(pSettings)
{
}

MidiNotes::~MidiNotes() = default;

bool MidiNotes::Open()
{
    return m_port->Open();
}

void MidiNotes::Close()
{
    _Send(m_plan.End(), ClockThread::getTime());
    m_port->Close();
}

QString MidiNotes::getState() const
{
    return m_port->getState();
}

bool MidiNotes::Tick(const OutputMoment& pMoment)
{
    return _Send(m_plan.Tick(pMoment.tick), pMoment.tick.time);
}

bool MidiNotes::Playing(bool pIsPlaying, const BeatClockState&)
{
    return pIsPlaying || _Send(m_plan.End(), ClockThread::getTime());
}

bool MidiNotes::_Send(const std::vector<MidiMessage>& pMessages, std::int64_t pTime)
{
    return std::all_of(
        pMessages.begin(),
        pMessages.end(),
        [&](const MidiMessage& pMessage) {
            return m_port->Send({pTime, pMessage});
        });
}

}  // namespace shared
