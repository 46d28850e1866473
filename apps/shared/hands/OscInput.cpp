// SPDX-License-Identifier: MIT
#include <shared/hands/OscInput.h>
#include <shared/hands/detail/OscReader.h>

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstring>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

OscInput::OscInput(QObject* pParent) : QObject(pParent) {}

OscInput::~OscInput()
{
    Close();
}

bool OscInput::Open(const QString& pAddress, std::uint16_t pPort)
{
    Close();
    addrinfo hints = {};
    hints.ai_socktype = SOCK_DGRAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const QByteArray host = pAddress.isEmpty() ? QByteArray("127.0.0.1") : pAddress.toUtf8();
    const int error =
        getaddrinfo(host.constData(), QByteArray::number(pPort).constData(), &hints, &found);
    if (error != 0) {
        m_error = QString::fromLocal8Bit(gai_strerror(error));
        return false;
    }
    m_socket = ::socket(found->ai_family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const bool isBound = m_socket >= 0 && ::bind(m_socket, found->ai_addr, found->ai_addrlen) == 0;
    m_error = isBound ? QString() : QString::fromLocal8Bit(std::strerror(errno));
    freeaddrinfo(found);
    if (!isBound) {
        Close();
        return false;
    }
    sockaddr_storage own = {};
    socklen_t size = sizeof(own);
    getsockname(m_socket, reinterpret_cast<sockaddr*>(&own), &size);
    // The port stands in the same place for either protocol.
    m_port = ntohs(reinterpret_cast<const sockaddr_in*>(&own)->sin_port);
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &OscInput::_Read);
    return true;
}

void OscInput::Close()
{
    m_notifier.reset();
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
    m_port = 0;
}

/// A flood is read between all else that the event loop does.
void OscInput::_Read()
{
    constexpr int kMostPackets = 16;
    std::array<char, 8192> bytes;
    for (int i = 0; i < kMostPackets && m_socket >= 0; ++i) {
        const ssize_t count = ::recv(m_socket, bytes.data(), bytes.size(), 0);
        if (count < 0)
            return;
        for (const auto& message : shared::detail::ReadOsc(QByteArray(bytes.data(), int(count))))
            Q_EMIT OnMessage(message);
    }
}

#include "moc_OscInput.cpp"
