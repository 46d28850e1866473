// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdint>
#include <netinet/in.h>
#include <sys/socket.h>
#include <vector>

namespace shared {

/// A TCP connection to somebody who may be slow, or gone: but for Begin(), which resolves a name,
/// nothing here waits longer than it is told.
class TcpLine
{
public:
    TcpLine() = default;
    ~TcpLine() { Close(); }
    TcpLine(const TcpLine&) = delete;
    TcpLine& operator=(const TcpLine&) = delete;

    /// Begins to connect to a name or an address. False when it is none, or refuses at once.
    bool Begin(const QByteArray& pHost, std::uint16_t pPort);
    /// Goes on connecting, for pMilliSeconds at most. False when nobody is there, and it is closed.
    bool Proceed(int pMilliSeconds);
    bool isOpen() const { return m_isOpen; }
    /// Connecting, or connected.
    bool isUp() const { return m_socket >= 0; }

    /// All of it at once. False when it does not fit, since then the other side does not read, or
    /// when that has gone; then the line is closed.
    bool Send(const QByteArray& pBytes);
    /// Appends what has come, at most kMost bytes. False when the other side has gone; then the
    /// line is closed.
    bool Receive(QByteArray& pBytes);
    static constexpr int kMost = 16384;

    void Close();

private:
    struct Address
    {
        sockaddr_storage value;
        socklen_t size;
    };

    bool _TryNext();

    int m_socket = -1;  ///< -1 = none
    bool m_isOpen = false;
    std::vector<Address> m_addresses;  ///< that were not tried yet, the next one last
};

}  // namespace shared
