// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/detail/NotePlan.h>

namespace shared::detail {

const std::vector<MidiMessage>& NotePlan::Tick(const ClockTick& pTick)
{
    m_sent.clear();
    const bool isBeat = pTick.place == 0;
    if (isBeat || pTick.number >= m_end)
        _Release();
    if (isBeat) {
        m_end = pTick.number + m_settings.length / _Step();
        _Play(m_settings.beatNote);
        if (pTick.beatInBar == 0 && m_settings.barNote != m_settings.beatNote)
            _Play(m_settings.barNote);
    }
    return m_sent;
}

const std::vector<MidiMessage>& NotePlan::End()
{
    m_sent.clear();
    _Release();
    return m_sent;
}

void NotePlan::_Play(int pNote)
{
    if (pNote == MidiNoteSettings::kNone)
        return;
    m_sent.push_back(MidiMessage::NoteOn(m_settings.channel, pNote, m_settings.velocity));
    m_sounding.push_back(pNote);
}

void NotePlan::_Release()
{
    for (const int note : m_sounding)
        m_sent.push_back(MidiMessage::NoteOff(m_settings.channel, note));
    m_sounding.clear();
}

}  // namespace shared::detail
