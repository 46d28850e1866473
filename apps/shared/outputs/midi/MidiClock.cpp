// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/midi/MidiClock.h>
#include <shared/outputs/midi/detail/SleepUntil.h>

#include <algorithm>
#include <cmath>

namespace shared {

MidiClock::MidiClock(std::unique_ptr<MidiPort> pPort, bool pIsAlwaysClocked)
    : m_port(std::move(pPort)), m_isAlwaysClocked(pIsAlwaysClocked), m_song(pIsAlwaysClocked),
      m_standby(*m_port)
{
}

MidiClock::~MidiClock() = default;

bool MidiClock::Open()
{
    return m_port->Open();
}

void MidiClock::Close()
{
    m_standby.Stop();
    _Send(m_song.End(ClockThread::getTime()));
    m_port->Close();
}

QString MidiClock::getState() const
{
    return m_port->getState();
}

bool MidiClock::Tick(const OutputMoment& pMoment)
{
    const std::int64_t now = ClockThread::getTime();
    const std::int64_t due = pMoment.tick.time;
    const bool isPunctual = now - due <= kPunctual;
    return _Send(m_song.Tick(pMoment.tick, pMoment.state, isPunctual ? due : now));
}

bool MidiClock::Playing(bool pIsPlaying, const BeatClockState& pState)
{
    const bool isSound = m_standby.Stop();
    if (pIsPlaying)
        return isSound;
    const bool isStopped = _Send(m_song.End(ClockThread::getTime()));
    if (m_isAlwaysClocked && pState.period() > 0.0)
        m_standby.Start(std::llround(pState.period() / detail::SongClock::kTicks));
    return isSound && isStopped;
}

bool MidiClock::Rest()
{
    return !m_standby.hasFailed() && m_port->isThere();
}

bool MidiClock::_Send(const std::vector<MidiEvent>& pEvents)
{
    return std::all_of(
        pEvents.begin(),
        pEvents.end(),
        [this](const MidiEvent& pEvent) {
            detail::SleepUntil(pEvent.time);
            return m_port->Send(pEvent);
        });
}

}  // namespace shared
