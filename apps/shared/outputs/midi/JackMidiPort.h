// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/midi/JackClient.h>
#include <shared/outputs/midi/MidiPort.h>

#include <QCoreApplication>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <jack/jack.h>
#include <jack/ringbuffer.h>

namespace shared {

/// A port of the JACK server, or PipeWire's: of its own that others connect to, or one that is
/// connected to a named port.
///
/// The server works in cycles, in which a message has a place of its own: it leaves a cycle and a
/// millisecond behind its instant, on the sample, however long the cycles are and however late the
/// thread that sends it was within that millisecond.
class JackMidiPort : public MidiPort
{
    Q_DECLARE_TR_FUNCTIONS(shared::JackMidiPort)

public:
    /// pTarget: a part of the name of the port to reach; empty = none, others connect to this one.
    explicit JackMidiPort(QString pTarget, const MidiPortName& pName = kMidiClockPort)
        : m_target(std::move(pTarget)), m_name(pName)
    {
    }
    ~JackMidiPort() override { JackMidiPort::Close(); }

    bool Open() override;
    /// Waits until what was sent has left.
    void Close() override;
    bool Send(const MidiEvent& pEvent) override;
    bool isThere() const override
    {
        return m_client.get() && !m_client.isGone() && !m_client.isCut();
    }
    QString getState() const override { return m_state; }

    /// The ports that can be reached; none without a server.
    static QStringList ListPorts();

private:
    /// What waits for its cycle.
    struct Entry
    {
        jack_nframes_t frame;
        MidiMessage message;
    };

    bool _Register();
    bool _Connect();
    bool _AwaitConnection() const;
    void _AwaitDeparture() const;
    static int _Process(jack_nframes_t pCount, void* pSelf);
    void _Write(jack_nframes_t pCount);

    QString m_target;
    MidiPortName m_name;
    QString m_state;
    JackClient m_client;
    jack_port_t* m_port = nullptr;        ///< of the client
    jack_ringbuffer_t* m_ring = nullptr;  ///< owned; entries
    std::atomic<unsigned> m_cycle{0};     ///< of the server, counted
};

}  // namespace shared
