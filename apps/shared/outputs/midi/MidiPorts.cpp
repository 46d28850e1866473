// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/AlsaMidiPort.h>
#include <shared/outputs/midi/JackMidiPort.h>
#include <shared/outputs/midi/MidiPorts.h>

#include <array>

namespace shared {

namespace {

const QLatin1String kAlsa("alsa:");
const QLatin1String kJack("jack:");

/// The one of two that can be had.
class EitherMidiPort : public MidiPort
{
public:
    EitherMidiPort(const QString& pTarget, const MidiPortName& pName)
        : m_ports{std::make_unique<AlsaMidiPort>(pTarget, pName),
                  std::make_unique<JackMidiPort>(pTarget, pName)}
    {
    }

    bool Open() override
    {
        Close();
        QStringList states;
        for (const auto& port : m_ports) {
            if (port->Open()) {
                m_open = port.get();
                return true;
            }
            states << port->getState();
        }
        m_state = states.join(QLatin1String("; "));
        return false;
    }
    void Close() override
    {
        if (m_open)
            m_open->Close();
        m_open = nullptr;
    }
    bool Send(const MidiEvent& pEvent) override
    {
        const bool isSent = m_open && m_open->Send(pEvent);
        if (m_open)
            m_state = m_open->getState();
        return isSent;
    }
    bool isThere() const override { return m_open && m_open->isThere(); }
    QString getState() const override { return m_open ? m_open->getState() : m_state; }

private:
    std::array<std::unique_ptr<MidiPort>, 2> m_ports;
    MidiPort* m_open = nullptr;  ///< of m_ports
    QString m_state;
};

}  // namespace

std::unique_ptr<MidiPort> MakeMidiPort(const QString& pText, const MidiPortName& pName)
{
    if (pText.startsWith(kAlsa))
        return std::make_unique<AlsaMidiPort>(pText.mid(kAlsa.size()), pName);
    if (pText.startsWith(kJack))
        return std::make_unique<JackMidiPort>(pText.mid(kJack.size()), pName);
    return std::make_unique<EitherMidiPort>(pText, pName);
}

QStringList ListMidiPorts()
{
    const QStringList alsa = AlsaMidiPort::ListPorts();
    const QStringList jack = JackMidiPort::ListPorts();
    QStringList names;
    for (const QString& name : alsa)
        names << kAlsa + name;
    for (const QString& name : jack)
        names << kJack + name;
    return names;
}

}  // namespace shared
