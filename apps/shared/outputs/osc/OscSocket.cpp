// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscSocket.h>

#include <QtEndian>

#include <array>
#include <cerrno>
#include <cstring>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace shared {

namespace {

bool Await(int pSocket, short pEvents)
{
    pollfd file = {pSocket, pEvents, 0};
    return ::poll(&file, 1, OscSocket::kPatienceMs) > 0;
}

/// What happened to a socket since it was asked last; 0 = nothing.
int TakeError(int pSocket)
{
    int error = 0;
    socklen_t size = sizeof error;
    ::getsockopt(pSocket, SOL_SOCKET, SO_ERROR, &error, &size);
    return error;
}

void Switch(int pSocket, int pLevel, int pOption)
{
    const int on = 1;
    ::setsockopt(pSocket, pLevel, pOption, &on, sizeof on);
}

}  // namespace

bool OscSocket::Open(const QString& pHost, int pPort, bool pIsTCP)
{
    Close();
    m_isTCP = pIsTCP;
    m_isRefused = false;
    addrinfo hints = {};
    hints.ai_socktype = pIsTCP ? SOCK_STREAM : SOCK_DGRAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* pFound = nullptr;
    const int problem = ::getaddrinfo(
        pHost.toUtf8().constData(), QByteArray::number(pPort).constData(), &hints, &pFound);
    if (problem != 0)
        return _Fail(problem == EAI_NONAME ? tr("there is no host \"%1\"").arg(pHost)
                                           : tr("the host's name cannot be resolved"));
    // Over UDP nobody says that he only listens to the other family.
    for (const int family : {AF_INET, AF_INET6})
        for (const addrinfo* p = pFound; p && !isOpen(); p = p->ai_next)
            if (p->ai_family == family)
                _Connect(family, p->ai_addr, p->ai_addrlen);
    ::freeaddrinfo(pFound);
    return isOpen();
}

bool OscSocket::_Connect(int pFamily, const void* pAddress, unsigned pSize)
{
    const int type = (m_isTCP ? SOCK_STREAM : SOCK_DGRAM) | SOCK_CLOEXEC | SOCK_NONBLOCK;
    m_socket = ::socket(pFamily, type, 0);
    if (!isOpen())
        return _Fail(QString::fromLocal8Bit(::strerror(errno)));
    Switch(m_socket, SOL_SOCKET, SO_BROADCAST);
    if (m_isTCP)
        Switch(m_socket, IPPROTO_TCP, TCP_NODELAY);
    int error = 0;
    if (::connect(m_socket, static_cast<const sockaddr*>(pAddress), pSize) != 0)
        error = errno;
    if (error == EINPROGRESS)
        error = Await(m_socket, POLLOUT) ? TakeError(m_socket) : ETIMEDOUT;
    return error == 0 || _Fail(error == ECONNREFUSED ? tr("nothing listens there")
                               : error == ETIMEDOUT  ? tr("nobody answers")
                                                     : QString::fromLocal8Bit(::strerror(error)));
}

void OscSocket::Close()
{
    if (isOpen())
        ::close(m_socket);
    m_socket = -1;
}

bool OscSocket::Send(const QByteArray& pPacket)
{
    if (m_isTCP) {
        std::array<char, 4> size = {};
        qToBigEndian(quint32(pPacket.size()), size.data());
        return _SendAll(QByteArray(size.data(), size.size()) + pPacket);
    }
    // What came back of an earlier packet stands in the way of this one. That the network is away
    // is no reason to open the socket again.
    m_isAnswerDue = true;
    if (::send(m_socket, pPacket.constData(), size_t(pPacket.size()), MSG_NOSIGNAL) < 0) {
        _NoteAnswer(errno);
        ::send(m_socket, pPacket.constData(), size_t(pPacket.size()), MSG_NOSIGNAL);
    }
    return true;
}

bool OscSocket::_SendAll(const QByteArray& pBytes)
{
    for (int sent = 0; sent < pBytes.size();) {
        const ssize_t count =
            ::send(m_socket, pBytes.constData() + sent, size_t(pBytes.size() - sent), MSG_NOSIGNAL);
        if (count >= 0)
            sent += int(count);
        else if (errno != EAGAIN && errno != EINTR)
            return _Fail(tr("the connection is lost"));
        else if (!Await(m_socket, POLLOUT))
            return _Fail(tr("it takes nothing"));
    }
    return true;
}

bool OscSocket::Look()
{
    if (!m_isTCP) {
        if (m_isAnswerDue)
            _NoteAnswer(TakeError(m_socket));
        m_isAnswerDue = false;
        return true;
    }
    std::array<char, 1024> answer = {};
    const ssize_t count = ::recv(m_socket, answer.data(), answer.size(), 0);
    const bool isThere = count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
    return isThere || _Fail(tr("the connection is closed"));
}

/// An answer may take longer than until the next look.
void OscSocket::_NoteAnswer(int pError)
{
    constexpr int kQuietEnough = 3;
    m_quietLooks = pError == ECONNREFUSED ? 0 : m_quietLooks + 1;
    if (m_quietLooks == 0 || m_quietLooks >= kQuietEnough)
        m_isRefused = m_quietLooks == 0;
}

bool OscSocket::_Fail(const QString& pReason)
{
    Close();
    m_error = pReason;
    return false;
}

}  // namespace shared
