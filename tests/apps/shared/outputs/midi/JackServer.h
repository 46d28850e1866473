// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <csignal>
#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/ringbuffer.h>

/// A JACK server of our own, without hardware: this process's clients reach it, and no other one.
class JackServer
{
public:
    /// pPeriod: frames a cycle, of 48000 a second.
    explicit JackServer(int pPeriod, bool pIsRealTime = false)
    {
        const QString name = QStringLiteral("aa%1").arg(QCoreApplication::applicationPid());
        qputenv("JACK_DEFAULT_SERVER", name.toUtf8());
        qputenv("JACK_NO_AUDIO_RESERVATION", "1");
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        // It waits for its clients in each cycle, however busy the machine is: else what they send
        // and take then is lost.
        m_arguments = QStringList{QStringLiteral("-n"),
                                  name,
                                  QStringLiteral("--sync"),
                                  QStringLiteral("--timeout"),
                                  QString::number(kTimeoutMs),
                                  pIsRealTime ? QStringLiteral("--realtime")
                                              : QStringLiteral("--no-realtime"),
                                  QStringLiteral("-d"),
                                  QStringLiteral("dummy"),
                                  QStringLiteral("-r"),
                                  QStringLiteral("48000"),
                                  QStringLiteral("-p"),
                                  QString::number(pPeriod)};
    }
    ~JackServer() { End(); }
    JackServer(const JackServer&) = delete;
    JackServer& operator=(const JackServer&) = delete;

    void Start()
    {
        m_process.start(QStringLiteral("jackd"), m_arguments);
        m_process.waitForStarted(kTimeoutMs);
    }
    void Kill()
    {
        m_process.kill();
        m_process.waitForFinished(kTimeoutMs);
    }
    void Signal(int pSignal) { ::kill(pid_t(m_process.processId()), pSignal); }
    void End()
    {
        m_process.terminate();
        m_process.waitForFinished(kTimeoutMs);
    }

private:
    static constexpr int kTimeoutMs = 60000;

    QProcess m_process;
    QStringList m_arguments;
};

/// What arrives at a MIDI input of that server, with the frames at which it does.
class JackMonitor
{
public:
    struct Event
    {
        jack_nframes_t frame;
        double time;  ///< ms on the server's clock
        std::uint8_t bytes[3];
        std::uint8_t size;
    };

    ~JackMonitor()
    {
        if (m_client)
            jack_client_close(m_client);
        if (m_ring)
            jack_ringbuffer_free(m_ring);
    }
    /// False while there is no server; true also when it is open.
    bool Open()
    {
        if (m_client)
            return true;
        jack_set_error_function([](const char*) {});
        jack_set_info_function([](const char*) {});
        m_client = jack_client_open("monitor", JackNoStartServer, nullptr);
        if (!m_client)
            return false;
        m_ring = jack_ringbuffer_create(65536 * sizeof(Event));
        m_port = jack_port_register(m_client, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
        jack_set_process_callback(m_client, &JackMonitor::_Process, this);
        return jack_activate(m_client) == 0;
    }
    bool Take(Event& pEvent)
    {
        return jack_ringbuffer_read(m_ring, reinterpret_cast<char*>(&pEvent), sizeof(pEvent)) ==
               sizeof(pEvent);
    }
    jack_client_t* getClient() { return m_client; }

private:
    static int _Process(jack_nframes_t pCount, void* pSelf)
    {
        auto& self = *static_cast<JackMonitor*>(pSelf);
        void* buffer = jack_port_get_buffer(self.m_port, pCount);
        const jack_nframes_t start = jack_last_frame_time(self.m_client);
        for (jack_nframes_t i = 0; i < jack_midi_get_event_count(buffer); ++i) {
            jack_midi_event_t event;
            if (jack_midi_event_get(&event, buffer, i) != 0 || event.size > 3)
                continue;
            const jack_nframes_t frame = start + event.time;
            const double time = double(jack_frames_to_time(self.m_client, frame)) / 1000.0;
            Event entry = {frame, time, {}, std::uint8_t(event.size)};
            std::copy_n(event.buffer, event.size, entry.bytes);
            jack_ringbuffer_write(
                self.m_ring, reinterpret_cast<const char*>(&entry), sizeof(entry));
        }
        return 0;
    }

    jack_client_t* m_client = nullptr;
    jack_port_t* m_port = nullptr;
    jack_ringbuffer_t* m_ring = nullptr;
};
