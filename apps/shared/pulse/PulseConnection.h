// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundBackEnd.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <pulse/pulseaudio.h>
#include <string>

/// The process's connection to a PulseAudio server, or to PipeWire's, for as long as it lives: a
/// server that goes is looked for until it is back.
///
/// libpulse works on a thread of its own, where its events keep the list of sources fresh; whoever
/// asks for the list looks at it under a lock that is never held for long. Nothing here ever waits
/// for the server but Start(). A server that hangs keeps its last list.
class PulseConnection
{
public:
    enum eAnswer
    {
        eAbsent,  ///< there is no server
        eSilent,  ///< there is one that does not answer
        eReady
    };

    PulseConnection();
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    /// Connects, and waits so long at most until the sources are known. When there is no server,
    /// none is looked for later. To be called once. [event loop]
    eAnswer Start(int pTimeoutMs);

    /// The default one first. [any thread]
    std::vector<SoundSource> getSources() const;
    /// [any thread]
    bool isAnswering() const;

    /// Keeps libpulse's thread away, for calls to it. Not from that thread.
    class Lock
    {
    public:
        explicit Lock(PulseConnection& pConnection);
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pa_threaded_mainloop* m_pLoop;
    };
    /// Null while there is no server. [under Lock, or on libpulse's thread]
    pa_context* getContext() const;

private:
    eAnswer _AwaitAnswer(int pTimeoutMs);
    void _Connect();
    void _ConnectLater();
    void _Drop();
    void _OnState();
    void _OnReady();
    void _OnEvent(pa_subscription_event_type_t pType, std::uint32_t pIndex);
    void _OnSource(const pa_source_info& pInfo);
    void _OnServer(const pa_server_info& pInfo);
    void _OnListed();
    void _Ask();

    static void _StateCallback(pa_context*, void* pThis);
    static void _EventCallback(pa_context*,
                               pa_subscription_event_type_t pType,
                               std::uint32_t pIndex,
                               void* pThis);
    static void _SourceCallback(pa_context*, const pa_source_info* pInfo, int pIsLast, void* pThis);
    static void _ListCallback(pa_context*, const pa_source_info* pInfo, int pIsLast, void* pThis);
    static void _ServerCallback(pa_context*, const pa_server_info* pInfo, void* pThis);
    static void _ConnectCallback(pa_mainloop_api*, pa_time_event*, const timeval*, void* pThis);
    static void _AskCallback(pa_mainloop_api*, pa_time_event*, const timeval*, void* pThis);

    pa_threaded_mainloop* m_pLoop;
    pa_context* m_pContext = nullptr;
    pa_time_event* m_pTimer = nullptr;  ///< until the next attempt, or the next question
    pa_usec_t m_delay;                  ///< before the next attempt, µs

    mutable std::mutex m_mutex;  ///< guards all below
    std::condition_variable m_changed;
    std::map<std::uint32_t, SoundSource> m_sources;  ///< by the server's index
    QString m_default;
    std::optional<eAnswer> m_answer;  ///< to the first attempt
    bool m_isAsked = false;           ///< and has not answered yet
    bool m_isAnswering = false;
};
