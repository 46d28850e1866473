// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/TcpLine.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>

namespace shared {

namespace {

template <typename Value>
void SetOption(int pSocket, int pLevel, int pName, Value pValue)
{
    setsockopt(pSocket, pLevel, pName, &pValue, sizeof(pValue));
}

/// Beats leave at once, and who has been switched off is noticed within seconds.
void SetOptions(int pSocket)
{
    constexpr int kPatience = 4;  // s
    SetOption(pSocket, IPPROTO_TCP, TCP_NODELAY, 1);
    SetOption(pSocket, IPPROTO_TCP, TCP_USER_TIMEOUT, 1000U * kPatience);
    SetOption(pSocket, SOL_SOCKET, SO_KEEPALIVE, 1);
    SetOption(pSocket, IPPROTO_TCP, TCP_KEEPIDLE, kPatience);
    SetOption(pSocket, IPPROTO_TCP, TCP_KEEPINTVL, 1);
    SetOption(pSocket, IPPROTO_TCP, TCP_KEEPCNT, kPatience);
}

/// A socket that looks for a port of its own machine where nobody listens may find itself.
bool IsAlone(int pSocket)
{
    sockaddr_storage own = {};
    sockaddr_storage other = {};
    socklen_t ownSize = sizeof(own);
    socklen_t otherSize = sizeof(other);
    getsockname(pSocket, reinterpret_cast<sockaddr*>(&own), &ownSize);
    getpeername(pSocket, reinterpret_cast<sockaddr*>(&other), &otherSize);
    return std::memcmp(&own, &other, sizeof(own)) == 0;
}

}  // namespace

bool TcpLine::Begin(const QByteArray& pHost, std::uint16_t pPort)
{
    Close();
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(pHost.constData(), QByteArray::number(pPort).constData(), &hints, &found) != 0)
        return false;
    for (const addrinfo* info = found; info; info = info->ai_next) {
        Address address = {{}, info->ai_addrlen};
        std::memcpy(&address.value, info->ai_addr, info->ai_addrlen);
        m_addresses.push_back(address);
    }
    freeaddrinfo(found);
    std::reverse(m_addresses.begin(), m_addresses.end());
    return _TryNext();
}

bool TcpLine::_TryNext()
{
    while (!m_addresses.empty()) {
        const Address address = m_addresses.back();
        m_addresses.pop_back();
        if (m_socket >= 0)
            ::close(m_socket);
        m_socket = ::socket(
            address.value.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
        if (m_socket < 0)
            continue;
        SetOptions(m_socket);
        const auto* value = reinterpret_cast<const sockaddr*>(&address.value);
        if (::connect(m_socket, value, address.size) == 0 || errno == EINPROGRESS)
            return true;
    }
    Close();
    return false;
}

bool TcpLine::Proceed(int pMilliSeconds)
{
    while (isUp() && !m_isOpen) {
        pollfd poll = {m_socket, POLLOUT, 0};
        if (::poll(&poll, 1, pMilliSeconds) <= 0)
            return true;
        int error = 0;
        socklen_t size = sizeof(error);
        getsockopt(m_socket, SOL_SOCKET, SO_ERROR, &error, &size);
        m_isOpen = error == 0 && !IsAlone(m_socket);
        if (!m_isOpen)
            _TryNext();
    }
    return isUp();
}

bool TcpLine::Send(const QByteArray& pBytes)
{
    const ssize_t sent =
        ::send(m_socket, pBytes.constData(), size_t(pBytes.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent != pBytes.size())
        Close();
    return isUp();
}

bool TcpLine::Receive(QByteArray& pBytes)
{
    const int before = pBytes.size();
    pBytes.resize(before + kMost);
    const ssize_t count = ::recv(m_socket, pBytes.data() + before, kMost, MSG_DONTWAIT);
    const bool isQuiet = count < 0 && (errno == EAGAIN || errno == EINTR);
    pBytes.resize(before + int(std::max<ssize_t>(count, 0)));
    if (count <= 0 && !isQuiet)
        Close();
    return isUp();
}

void TcpLine::Close()
{
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
    m_isOpen = false;
    m_addresses.clear();
}

}  // namespace shared
