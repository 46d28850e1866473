// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/JackClient.h>

#include <mutex>

namespace shared {

namespace {

/// The library counts its clients without a lock.
std::mutex& JackMutex()
{
    static std::mutex mutex;
    return mutex;
}

}  // namespace

std::atomic<int> JackClient::m_goneCount{0};

bool JackClient::Open(const char* pName)
{
    Close();
    const std::lock_guard<std::mutex> lock(JackMutex());
    if (m_goneCount > 0)
        return false;
    // Its words, on standard error, are for nobody.
    jack_set_error_function([](const char*) {});
    jack_set_info_function([](const char*) {});
    m_client = jack_client_open(pName, JackNoStartServer, nullptr);
    if (!m_client)
        return false;
    const auto onShutdown = [](void* pSelf) {
        if (!static_cast<JackClient*>(pSelf)->m_isGone.exchange(true))
            ++m_goneCount;
    };
    jack_on_shutdown(m_client, onShutdown, this);
    return true;
}

void JackClient::Watch(jack_port_t* pPort)
{
    m_watched = pPort;
    m_isCut = false;
    jack_set_port_connect_callback(m_client, &JackClient::_OnConnection, this);
}

/// In a thread of the server's library.
void JackClient::_OnConnection(jack_port_id_t pOne, jack_port_id_t pOther, int pIsMade, void* pSelf)
{
    auto& self = *static_cast<JackClient*>(pSelf);
    if (!pIsMade && (jack_port_by_id(self.m_client, pOne) == self.m_watched ||
                     jack_port_by_id(self.m_client, pOther) == self.m_watched))
        self.m_isCut = true;
}

void JackClient::Close()
{
    if (!m_client)
        return;
    const std::lock_guard<std::mutex> lock(JackMutex());
    jack_client_close(m_client);
    m_client = nullptr;
    m_isCut = false;
    if (m_isGone.exchange(false))
        --m_goneCount;
}

}  // namespace shared
