// SPDX-License-Identifier: MIT
#include <shared/hands/MidiInput.h>
#include <shared/hands/detail/MidiReader.h>
#include <shared/outputs/midi/JackClient.h>
#include <shared/text/Text.h>

#include <QSocketNotifier>

#include <algorithm>
#include <jack/midiport.h>
#include <rtmidi/RtMidi.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

/// The number of the port whose name has this in it; negative when there is none.
int FindPort(RtMidiIn& pInput, const QString& pName)
{
    const auto count = int(pInput.getPortCount());
    for (int i = 0; i < count; ++i)
        if (QString::fromStdString(pInput.getPortName(unsigned(i)))
                .contains(pName, Qt::CaseInsensitive))
            return i;
    return -1;
}

}  // namespace

/// The client of a JACK server, and what it does in the server's thread.
struct MidiInput::JackEnd
{
    explicit JackEnd(MidiInput& pInput) : input(pInput) {}
    static int Process(jack_nframes_t pCount, void* pSelf)
    {
        const auto& self = *static_cast<const JackEnd*>(pSelf);
        void* buffer = jack_port_get_buffer(self.port, pCount);
        for (jack_nframes_t i = 0; i < jack_midi_get_event_count(buffer); ++i) {
            jack_midi_event_t event = {};
            if (jack_midi_event_get(&event, buffer, i) == 0)
                self.input._Push(event.buffer, event.size);
        }
        return 0;
    }

    MidiInput& input;
    jack_port_t* port = nullptr;
    shared::JackClient client;  ///< the first to go, and with it the server's thread
};

MidiInput::MidiInput(QObject* pParent)
    : QObject(pParent), m_bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_notifier(std::make_unique<QSocketNotifier>(m_bell, QSocketNotifier::Read))
{
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &MidiInput::_Read);
    connect(&m_watch, &QTimer::timeout, this, &MidiInput::_Try);
}

MidiInput::~MidiInput()
{
    Close();
    m_notifier.reset();
    ::close(m_bell);
}

void MidiInput::Open(const QString& pTarget)
{
    Close();
    m_target = pTarget;
    _Try();
    m_watch.start(kPauseMs);
}

void MidiInput::Close()
{
    m_watch.stop();
    m_alsa.reset();
    m_jack.reset();
}

void MidiInput::_Try()
{
    if (m_alsa && !_HearsAlsa())
        m_alsa.reset();
    if (m_jack && !_HearsJack())
        m_jack.reset();
    if (!isOpen())
        _Reach();
    if (m_state == m_said)
        return;
    m_said = m_state;
    Q_EMIT OnStateChanged(m_state);
}

void MidiInput::_Reach()
{
    const bool isAlsa = m_target.startsWith(QLatin1String("alsa:"));
    const bool isJack = m_target.startsWith(QLatin1String("jack:"));
    m_name = isAlsa || isJack ? m_target.section(QLatin1Char(':'), 1) : m_target;
    if ((isJack || !_OpenAlsa(m_name)) && !isAlsa)
        _OpenJack(m_name);
}

/// A device that is unplugged takes its port with it, and brings another one when it returns.
bool MidiInput::_HearsAlsa() const
{
    return m_name.isEmpty() || FindPort(*m_alsa, m_name) >= 0;
}

bool MidiInput::_HearsJack() const
{
    return !m_jack->client.isGone() && !m_jack->client.isCut();
}

bool MidiInput::_OpenAlsa(const QString& pTarget)
{
    // The system's library would complain aloud.
    m_state = tr("there is no ALSA sequencer, nor a JACK server");
    if (::access("/dev/snd/seq", R_OK | W_OK) != 0)
        return false;
    try {
        auto input = std::make_unique<RtMidiIn>(RtMidi::LINUX_ALSA, "audio-analyzer");
        input->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        input->setCallback(
            [](double, std::vector<unsigned char>* pBytes, void* pSelf) {
                static_cast<MidiInput*>(pSelf)->_Push(pBytes->data(), pBytes->size());
            },
            this);
        const int port = pTarget.isEmpty() ? -1 : FindPort(*input, pTarget);
        m_state = tr("no MIDI port is named %1").arg(pTarget);
        if (pTarget.isEmpty())
            input->openVirtualPort("hands");
        else if (port >= 0)
            input->openPort(unsigned(port), "hands");
        else
            return false;
        m_alsa = std::move(input);
    } catch (const RtMidiError&) {
        return false;
    }
    m_state = pTarget.isEmpty() ? tr("MIDI port audio-analyzer:hands") : pTarget;
    return true;
}

bool MidiInput::_OpenJack(const QString& pTarget)
{
    m_jack = std::make_unique<JackEnd>(*this);
    if (!m_jack->client.Open("audio-analyzer-hands")) {
        m_jack.reset();
        return false;
    }
    jack_client_t* client = m_jack->client.get();
    m_jack->port = jack_port_register(client, "hands", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
    jack_set_process_callback(client, &JackEnd::Process, m_jack.get());
    if (!pTarget.isEmpty())
        m_jack->client.Watch(m_jack->port);
    bool isHeard = m_jack->port && jack_activate(client) == 0;
    m_state = tr("MIDI port audio-analyzer-hands:hands");
    if (isHeard && !pTarget.isEmpty()) {
        const char** names =
            jack_get_ports(client, nullptr, JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput);
        const char** name = names;
        while (name && *name && !QString::fromUtf8(*name).contains(pTarget, Qt::CaseInsensitive))
            ++name;
        isHeard = name && *name && jack_connect(client, *name, jack_port_name(m_jack->port)) == 0;
        m_state = isHeard ? tr("MIDI port %1").arg(QString::fromUtf8(*name))
                          : tr("no MIDI port is named %1").arg(pTarget);
        jack_free(names);
    }
    if (!isHeard)
        m_jack.reset();
    return isHeard;
}

/// In the thread of whoever has it.
void MidiInput::_Push(const std::uint8_t* pBytes, std::size_t pSize)
{
    if (pSize < 1 || pSize > 3)
        return;
    Entry entry = {pSize, {}};
    std::copy_n(pBytes, pSize, entry.bytes.begin());
    m_entries.Push(entry);
    eventfd_write(m_bell, 1);
}

void MidiInput::_Read()
{
    eventfd_t count = 0;
    eventfd_read(m_bell, &count);
    Entry entry = {};
    while (m_entries.Take(entry)) {
        const auto message = shared::detail::ReadMidi(entry.bytes.data(), entry.size);
        if (message)
            Q_EMIT OnMessage(*message);
    }
}

#include "moc_MidiInput.cpp"
