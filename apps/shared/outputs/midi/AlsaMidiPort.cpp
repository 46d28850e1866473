// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/AlsaMidiPort.h>
#include <shared/text/Text.h>

#include <rtmidi/RtMidi.h>
#include <unistd.h>

namespace shared {

namespace {

/// Null without a sequencer, about which the system's library would otherwise complain aloud.
std::unique_ptr<RtMidiOut> OpenSequencer()
{
    if (access("/dev/snd/seq", R_OK | W_OK) != 0)
        return nullptr;
    try {
        auto out = std::make_unique<RtMidiOut>(RtMidi::LINUX_ALSA, "audio-analyzer");
        out->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        return out;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

}  // namespace

AlsaMidiPort::AlsaMidiPort(QString pTarget) : m_target(std::move(pTarget)) {}

AlsaMidiPort::~AlsaMidiPort() = default;

QStringList AlsaMidiPort::ListPorts()
{
    QStringList names;
    const std::unique_ptr<RtMidiOut> out = OpenSequencer();
    for (unsigned int i = 0; out && i < out->getPortCount(); ++i)
        names << QString::fromStdString(out->getPortName(i));
    return names;
}

bool AlsaMidiPort::Open()
{
    Close();
    m_out = OpenSequencer();
    m_state = tr("there is no ALSA sequencer: is the module snd-seq loaded?");
    if (m_out && _Connect())
        return true;
    Close();
    return false;
}

bool AlsaMidiPort::_Connect()
{
    if (m_target.isEmpty()) {
        m_out->openVirtualPort("clock");
        m_state = tr("ALSA port audio-analyzer:clock");
        return true;
    }
    for (unsigned int i = 0; i < m_out->getPortCount(); ++i) {
        const QString name = QString::fromStdString(m_out->getPortName(i));
        if (!name.contains(m_target, Qt::CaseInsensitive))
            continue;
        m_out->openPort(i, "clock");
        m_state = tr("ALSA port %1").arg(name);
        return m_out->isPortOpen();
    }
    m_state = tr("no ALSA port is named %1").arg(m_target);
    return false;
}

void AlsaMidiPort::Close()
{
    m_out.reset();
}

bool AlsaMidiPort::Send(const MidiEvent& pEvent)
{
    if (!m_out)
        return false;
    m_out->sendMessage(pEvent.message.bytes.data(), pEvent.message.size);
    return true;
}

}  // namespace shared
