// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/AlsaMidiPort.h>

#include <rtmidi/RtMidi.h>
#include <unistd.h>

namespace shared {

namespace {

/// Null without a sequencer, about which the system's library would otherwise complain aloud.
std::unique_ptr<RtMidiOut> OpenSequencer(const char* pClient)
{
    if (access("/dev/snd/seq", R_OK | W_OK) != 0)
        return nullptr;
    try {
        auto out = std::make_unique<RtMidiOut>(RtMidi::LINUX_ALSA, pClient);
        out->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        return out;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

}  // namespace

AlsaMidiPort::AlsaMidiPort(QString pTarget, const MidiPortName& pName)
    : m_target(std::move(pTarget)), m_name(pName)
{
}

AlsaMidiPort::~AlsaMidiPort() = default;

QStringList AlsaMidiPort::ListPorts()
{
    QStringList names;
    const std::unique_ptr<RtMidiOut> out = OpenSequencer(kMidiClockPort.client);
    for (unsigned int i = 0; out && i < out->getPortCount(); ++i)
        names << QString::fromStdString(out->getPortName(i));
    return names;
}

bool AlsaMidiPort::Open()
{
    Close();
    m_out = OpenSequencer(m_name.client);
    m_state = tr("there is no ALSA sequencer: is the module snd-seq loaded?");
    if (m_out && _Connect())
        return true;
    Close();
    return false;
}

bool AlsaMidiPort::_Connect()
{
    if (m_target.isEmpty()) {
        m_out->openVirtualPort(m_name.port);
        m_state = tr("ALSA port %1")
                      .arg(QStringLiteral("%1:%2").arg(QLatin1String(m_name.client),
                                                       QLatin1String(m_name.port)));
        return true;
    }
    const int port = _Find();
    if (port < 0) {
        m_state = tr("no ALSA port is named %1").arg(m_target);
        return false;
    }
    m_state = tr("ALSA port %1").arg(QString::fromStdString(m_out->getPortName(unsigned(port))));
    m_out->openPort(unsigned(port), m_name.port);
    return m_out->isPortOpen();
}

/// The named port's number; negative when it is not there, or no longer.
int AlsaMidiPort::_Find() const
{
    const auto count = int(m_out->getPortCount());
    for (int i = 0; i < count; ++i)
        if (QString::fromStdString(m_out->getPortName(unsigned(i)))
                .contains(m_target, Qt::CaseInsensitive))
            return i;
    return -1;
}

/// A device that is unplugged takes its port with it, and brings another one when it returns.
bool AlsaMidiPort::isThere() const
{
    return m_out && (m_target.isEmpty() || _Find() >= 0);
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
