// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// The other side of OS2L, on a port of the loopback that the system chooses and that stays its
/// own. Nothing here waits.
class LightProgram
{
public:
    LightProgram() { Listen(); }
    ~LightProgram()
    {
        Leave();
        Hush();
    }
    LightProgram(const LightProgram&) = delete;
    LightProgram& operator=(const LightProgram&) = delete;

    bool Listen()
    {
        Hush();
        m_server = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        const int yes = 1;
        setsockopt(m_server, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(m_port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        auto* value = reinterpret_cast<sockaddr*>(&address);
        const bool isThere = ::bind(m_server, value, size) == 0 && ::listen(m_server, 8) == 0;
        getsockname(m_server, value, &size);
        m_port = ntohs(address.sin_port);
        return isThere;
    }
    /// Does not listen any more; who is there stays.
    void Hush()
    {
        if (m_server >= 0)
            ::close(m_server);
        m_server = -1;
    }
    std::uint16_t port() const { return m_port; }

    /// Takes who has come, in place of who was there. False when nobody has.
    bool Accept()
    {
        const int peer = ::accept4(m_server, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (peer < 0)
            return false;
        Leave();
        m_peer = peer;
        return true;
    }
    QByteArray Read()
    {
        QByteArray bytes(65536, '\0');
        const auto count = ::recv(m_peer, bytes.data(), std::size_t(bytes.size()), 0);
        return bytes.left(int(count < 0 ? 0 : count));
    }
    bool Send(const QByteArray& pBytes)
    {
        return ::send(m_peer, pBytes.constData(), std::size_t(pBytes.size()), MSG_NOSIGNAL) ==
               pBytes.size();
    }
    void Leave()
    {
        if (m_peer >= 0)
            ::close(m_peer);
        m_peer = -1;
    }
    /// Leaves without a proper end.
    void Reset()
    {
        const linger none = {1, 0};
        setsockopt(m_peer, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
        Leave();
    }

private:
    int m_server = -1;
    int m_peer = -1;
    std::uint16_t m_port = 0;
};
