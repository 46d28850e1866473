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
    /// Null while it is closed. Not to be closed by others.
    jack_client_t* get() const { return m_client; }

private:
    static std::atomic<int> m_goneCount;  ///< clients of this process whose server has gone

    jack_client_t* m_client = nullptr;
    std::atomic<bool> m_isGone{false};
};

}  // namespace shared
