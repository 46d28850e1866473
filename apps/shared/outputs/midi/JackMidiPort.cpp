// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/midi/JackMidiPort.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <jack/midiport.h>
#include <thread>

namespace shared {

namespace {

constexpr std::size_t kEntries = 256;
constexpr std::int64_t kMargin = 1000;  // µs; of the thread that sends

QStringList InputsOf(jack_client_t* pClient)
{
    QStringList names;
    const char** ports = jack_get_ports(pClient, nullptr, JACK_DEFAULT_MIDI_TYPE, JackPortIsInput);
    for (const char** port = ports; port && *port; ++port)
        names << QString::fromUtf8(*port);
    jack_free(ports);
    return names;
}

/// False when a condition does not come true soon: a server that hangs keeps nobody.
template <typename Condition>
bool Await(const Condition& pCondition)
{
    constexpr int kMostWaits = 2000;
    for (int i = 0; i < kMostWaits && !pCondition(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return pCondition();
}

}  // namespace

QStringList JackMidiPort::ListPorts()
{
    JackClient client;
    return client.Open("audio-analyzer") ? InputsOf(client.get()) : QStringList();
}

bool JackMidiPort::Open()
{
    Close();
    if (!m_client.Open(m_name.client)) {
        m_state = tr("no JACK server runs");
        return false;
    }
    if (_Register() && _Connect())
        return true;
    const QString state = m_state;
    Close();
    m_state = state;
    return false;
}

bool JackMidiPort::_Register()
{
    m_ring = jack_ringbuffer_create(kEntries * sizeof(Entry));
    m_port = jack_port_register(
        m_client.get(), m_name.port, JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(m_client.get(), &JackMidiPort::_Process, this);
    if (!m_target.isEmpty())
        m_client.Watch(m_port);
    m_state = tr("the JACK server refuses a port");
    return m_ring && m_port && jack_activate(m_client.get()) == 0;
}

bool JackMidiPort::_Connect()
{
    const QString own = QString::fromUtf8(jack_port_name(m_port));
    if (m_target.isEmpty()) {
        m_state = tr("JACK port %1").arg(own);
        return true;
    }
    const QStringList found = InputsOf(m_client.get()).filter(m_target, Qt::CaseInsensitive);
    if (found.isEmpty()) {
        m_state = tr("no JACK port is named %1").arg(m_target);
        return false;
    }
    m_state = tr("JACK port %1").arg(found.first());
    return jack_connect(m_client.get(), qPrintable(own), found.first().toUtf8().constData()) == 0 &&
           _AwaitConnection();
}

/// It comes into force with one of the server's next cycles; what is sent before is lost.
bool JackMidiPort::_AwaitConnection() const
{
    return Await([this] { return m_client.isGone() || jack_port_connected(m_port) > 0; }) &&
           isThere();
}

/// Behind the cycle that takes the last one, since the others read it in that cycle.
void JackMidiPort::_AwaitDeparture() const
{
    if (!m_ring || !isThere())
        return;
    Await([this] { return m_client.isGone() || jack_ringbuffer_read_space(m_ring) == 0; });
    const unsigned cycle = m_cycle;
    Await([this, cycle] { return m_client.isGone() || m_cycle - cycle > 1; });
}

void JackMidiPort::Close()
{
    _AwaitDeparture();
    m_client.Close();
    if (m_ring)
        jack_ringbuffer_free(m_ring);
    m_port = nullptr;
    m_ring = nullptr;
}

bool JackMidiPort::Send(const MidiEvent& pEvent)
{
    if (!isThere()) {
        m_state = m_client.isCut() && !m_client.isGone()
                      ? tr("the JACK port %1 has gone").arg(m_target)
                      : tr("the JACK server has gone");
        return false;
    }
    const std::int64_t late = std::max<std::int64_t>(ClockThread::getTime() - pEvent.time, 0);
    const std::int64_t rate = jack_get_sample_rate(m_client.get());
    const std::int64_t ahead =
        (kMargin - late) * rate / 1000000 + jack_get_buffer_size(m_client.get());
    const Entry entry = {jack_frame_time(m_client.get()) + static_cast<jack_nframes_t>(ahead),
                         pEvent.message};
    // A server that no longer takes anything hangs, and is as good as gone.
    if (jack_ringbuffer_write_space(m_ring) < sizeof(entry)) {
        m_state = tr("the JACK server hangs");
        return false;
    }
    jack_ringbuffer_write(m_ring, reinterpret_cast<const char*>(&entry), sizeof(entry));
    return true;
}

int JackMidiPort::_Process(jack_nframes_t pCount, void* pSelf)
{
    static_cast<JackMidiPort*>(pSelf)->_Write(pCount);
    return 0;
}

/// In the server's thread. Frames are counted in 32 bits, and begin anew.
void JackMidiPort::_Write(jack_nframes_t pCount)
{
    ++m_cycle;
    void* buffer = jack_port_get_buffer(m_port, pCount);
    jack_midi_clear_buffer(buffer);
    const jack_nframes_t start = jack_last_frame_time(m_client.get());
    jack_nframes_t last = 0;
    Entry entry;
    while (jack_ringbuffer_peek(m_ring, reinterpret_cast<char*>(&entry), sizeof(entry)) ==
           sizeof(entry)) {
        const auto ahead = static_cast<std::int32_t>(entry.frame - start);
        if (ahead >= static_cast<std::int32_t>(pCount))
            return;
        last = std::max(last, static_cast<jack_nframes_t>(std::max(ahead, 0)));
        jack_midi_event_write(buffer, last, entry.message.bytes.data(), entry.message.size);
        jack_ringbuffer_read_advance(m_ring, sizeof(entry));
    }
}

}  // namespace shared
