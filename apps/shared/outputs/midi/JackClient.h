// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <jack/jack.h>

namespace shared {

/// A client of the JACK server.
///
/// When the server goes, every client has to be closed before another one is opened: the server's
/// library frees those that are left, and whoever closes one of them later crashes. So no client is
/// had while one of this process is still open whose server has gone.
///
/// Threads: one at a time; isGone() any.
class JackClient
{
public:
    JackClient() = default;
    ~JackClient() { Close(); }
    JackClient(const JackClient&) = delete;
    JackClient& operator=(const JackClient&) = delete;

    /// False while there is no server, which is not started for it.
    bool Open(const char* pName);
    void Close();
    /// The server has gone since it was opened: to be closed soon.
    bool isGone() const { return m_isGone; }
    /// A port of this client that is about to be connected with one of another client; before it is
    /// activated.
    void Watch(jack_port_t* pPort);
    /// The watched port has lost a connection since, as it does when the other port goes.
    bool isCut() const { return m_isCut; }
    /// Null while it is closed. Not to be closed by others.
    jack_client_t* get() const { return m_client; }

private:
    static void _OnConnection(jack_port_id_t pOne, jack_port_id_t pOther, int pIsMade, void* pSelf);

    static std::atomic<int> m_goneCount;  ///< clients of this process whose server has gone

    jack_client_t* m_client = nullptr;
    jack_port_t* m_watched = nullptr;  ///< of the client
    std::atomic<bool> m_isGone{false};
    std::atomic<bool> m_isCut{false};
};

}  // namespace shared
