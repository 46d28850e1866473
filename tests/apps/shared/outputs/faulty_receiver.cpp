// SPDX-License-Identifier: MIT
#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <poll.h>
#include <random>
#include <sys/socket.h>
#include <unistd.h>

// A receiver, by TCP and UDP, that does what its standard input says: faulty_receiver PORT
//
//   g  sends garbage to whoever has sent to it last
//   c  leaves who is connected in the middle of a packet
//   j  reads nothing any more; r: reads again
//
// Says "t" or "u" for each piece that came, by TCP or UDP, and ends with its input.

namespace {

int Listen(int pType, int pPort)
{
    const int socket = ::socket(AF_INET, pType | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(pPort));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool isBound =
        ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    if (!isBound || (pType == SOCK_STREAM && ::listen(socket, 8) != 0))
        std::exit(1);
    return socket;
}

class FaultyReceiver
{
public:
    explicit FaultyReceiver(int pPort)
        : m_server(Listen(SOCK_STREAM, pPort)), m_packets(Listen(SOCK_DGRAM, pPort))
    {
    }

    /// Until its input ends.
    void Run()
    {
        while (true) {
            const short wanted = m_isJammed ? 0 : POLLIN;
            std::array<pollfd, 4> files = {pollfd{STDIN_FILENO, POLLIN, 0},
                                           pollfd{m_server, POLLIN, 0},
                                           pollfd{m_packets, wanted, 0},
                                           pollfd{m_isJammed ? -1 : m_peer, wanted, 0}};
            ::poll(files.data(), files.size(), -1);
            char command = 0;
            if (files[0].revents != 0 && ::read(STDIN_FILENO, &command, 1) <= 0)
                return;
            _Obey(command);
            if (files[1].revents != 0)
                _Accept();
            if (files[2].revents != 0)
                _ReadPacket();
            if (files[3].revents != 0 && m_peer == files[3].fd)
                _ReadPeer();
        }
    }

private:
    void _Obey(char pCommand)
    {
        if (pCommand == 'g')
            _SendGarbage();
        if (pCommand == 'c')
            _Cut();
        if (pCommand == 'j' || pCommand == 'r')
            m_isJammed = pCommand == 'j';
    }
    void _Accept()
    {
        const int peer = ::accept4(m_server, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (peer < 0)
            return;
        _Leave();
        m_peer = peer;
    }
    void _ReadPacket()
    {
        socklen_t size = sizeof(m_sender);
        auto* pSender = reinterpret_cast<sockaddr*>(&m_sender);
        if (::recvfrom(m_packets, m_bytes.data(), m_bytes.size(), 0, pSender, &size) > 0)
            _Say("u");
    }
    void _ReadPeer()
    {
        if (::recv(m_peer, m_bytes.data(), m_bytes.size(), 0) > 0)
            _Say("t");
        else
            _Leave();
    }
    void _SendGarbage()
    {
        for (char& byte : m_bytes)
            byte = static_cast<char>(m_random());
        ::send(m_peer, m_bytes.data(), m_bytes.size(), MSG_NOSIGNAL);
        const auto* pSender = reinterpret_cast<const sockaddr*>(&m_sender);
        ::sendto(m_packets, m_bytes.data(), 1000, 0, pSender, sizeof(m_sender));
    }
    /// With bytes that it has not read, which resets the connection.
    void _Cut()
    {
        ::recv(m_peer, m_bytes.data(), 3, 0);
        const linger none = {1, 0};
        setsockopt(m_peer, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
        _Leave();
    }
    void _Leave()
    {
        if (m_peer >= 0)
            ::close(m_peer);
        m_peer = -1;
    }
    static void _Say(const char* pWord)
    {
        std::fputs(pWord, stdout);
        std::fflush(stdout);
    }

    int m_server;
    int m_packets;
    int m_peer = -1;
    bool m_isJammed = false;
    sockaddr_in m_sender = {};
    std::array<char, 4096> m_bytes = {};
    std::mt19937 m_random{1};
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    FaultyReceiver(std::atoi(argv[1])).Run();
    return 0;
}
