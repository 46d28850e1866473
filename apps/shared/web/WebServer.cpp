// SPDX-License-Identifier: MIT
#include <shared/web/WebServer.h>
#include <shared/web/detail/WebDocument.h>
#include <shared/web/detail/WebRequest.h>

#include <QHostAddress>
#include <QNetworkInterface>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <array>

namespace {

/// 128 bits that nobody can guess.
QByteArray MakeToken()
{
    std::array<quint32, 4> numbers = {};
    QRandomGenerator::system()->fillRange(numbers.data(), int(numbers.size()));
    return QByteArray(reinterpret_cast<const char*>(numbers.data()), sizeof(numbers)).toHex();
}

/// As it stands in a link: IPv6 between brackets, IPv4 that came through IPv6 as what it is.
QString NameOf(const QHostAddress& pAddress)
{
    bool isOld = false;
    const quint32 old = pAddress.toIPv4Address(&isOld);
    if (isOld)
        return QHostAddress(old).toString();
    QHostAddress address = pAddress;
    address.setScopeId({});
    return QStringLiteral("[%1]").arg(address.toString());
}

bool IsAny(const QHostAddress& pAddress)
{
    return pAddress == QHostAddress::AnyIPv4 || pAddress == QHostAddress::AnyIPv6 ||
           pAddress == QHostAddress::Any;
}

/// One that others in the network know this machine by.
QHostAddress FindOutsideAddress()
{
    const auto addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress& address : addresses)
        if (!address.isLoopback() && address.protocol() == QAbstractSocket::IPv4Protocol)
            return address;
    return QHostAddress::LocalHost;
}

const char* ReasonOf(int pStatus)
{
    switch (pStatus) {
    case 200:
        return "OK";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 503:
        return "Service Unavailable";
    default:
        return "Bad Request";
    }
}

}  // namespace

WebServer::WebServer(QObject* pParent) : QObject(pParent), m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &WebServer::_Accept);
}

WebServer::~WebServer()
{
    // Before the sockets, which are the server's.
    m_clients.Clear();
}

bool WebServer::Open(const QString& pAddress, std::uint16_t pPort)
{
    const bool isLocal = pAddress.isEmpty() || pAddress == QLatin1String("localhost");
    const QHostAddress address = isLocal ? QHostAddress::LocalHost : QHostAddress(pAddress);
    m_server->close();
    m_token = address.isLoopback() ? QByteArray() : MakeToken();
    const bool isOpen = !address.isNull() && m_server->listen(address, pPort);
    m_error = isOpen             ? QString()
              : address.isNull() ? tr("%1 is not an address").arg(pAddress)
                                 : m_server->errorString();
    return isOpen;
}

std::uint16_t WebServer::getPort() const
{
    return m_server->serverPort();
}

QString WebServer::getLink() const
{
    const QHostAddress address = m_server->serverAddress();
    const QString host = NameOf(IsAny(address) ? FindOutsideAddress() : address);
    const QString link = QStringLiteral("http://%1:%2/").arg(host).arg(getPort());
    return m_token.isEmpty() ? link : link + QLatin1String("?token=") + QLatin1String(m_token);
}

void WebServer::_Accept()
{
    while (QTcpSocket* pSocket = m_server->nextPendingConnection()) {
        // Those that wait are the server's children.
        if (m_server->findChildren<QTcpSocket*>().size() > kMostRequests) {
            delete pSocket;
            continue;
        }
        pSocket->setReadBufferSize(2 * shared::detail::kLongestHead);
        connect(pSocket, &QTcpSocket::disconnected, pSocket, &QObject::deleteLater);
        connect(pSocket, &QTcpSocket::readyRead, this, [this, pSocket] { _Read(pSocket); });
        auto* pPatience = new QTimer(pSocket);
        pPatience->setSingleShot(true);
        connect(pPatience, &QTimer::timeout, pSocket, &QTcpSocket::abort);
        pPatience->start(kPatienceMs);
        _Read(pSocket);
    }
}

/// The head of a request stays in the socket, for the websocket's handshake.
void WebServer::_Read(QTcpSocket* pSocket)
{
    const QByteArray head = pSocket->peek(shared::detail::kLongestHead);
    const int end = head.indexOf("\r\n\r\n");
    if (end < 0 && head.size() < shared::detail::kLongestHead)
        return;
    disconnect(pSocket, &QTcpSocket::readyRead, this, nullptr);
    const auto request =
        end < 0 ? std::nullopt : shared::detail::ReadWebRequest(head.left(end + 4));
    const shared::detail::WebGate gate = {_HostsOf(*pSocket), m_token};
    int status = request ? shared::detail::JudgeWebRequest(*request, gate) : 400;
    if (status == 101 && m_clients.isFull())
        status = 503;
    if (status != 101)
        return _Answer(pSocket, status, request ? request->host : QByteArray());
    delete pSocket->findChild<QTimer*>();
    m_clients.Take(pSocket);
}

/// What the server is called by who has reached it through this connection.
QByteArray WebServer::_HostsOf(const QTcpSocket& pSocket) const
{
    constexpr int kUsualPort = 80;
    const QHostAddress address = pSocket.localAddress();
    QStringList names = {NameOf(address)};
    if (address.isLoopback())
        names += QStringLiteral("localhost");
    QStringList hosts = getPort() == kUsualPort ? names : QStringList();
    for (const QString& name : qAsConst(names))
        hosts += QStringLiteral("%1:%2").arg(name).arg(getPort());
    return hosts.join(QLatin1Char(' ')).toLatin1().toLower();
}

void WebServer::_Answer(QTcpSocket* pSocket, int pStatus, const QByteArray& pHost)
{
    const bool isPage = pStatus == 200;
    const QByteArray reason = QByteArray::number(pStatus) + ' ' + ReasonOf(pStatus);
    const QByteArray body = isPage ? shared::detail::readWebDocument() : reason + '\n';
    QByteArray answer =
        "HTTP/1.1 " + reason + "\r\nConnection: close\r\nCache-Control: no-store\r\n";
    answer += "X-Content-Type-Options: nosniff\r\nReferrer-Policy: no-referrer\r\n";
    answer +=
        isPage ? "Content-Type: text/html; charset=utf-8\r\n" : "Content-Type: text/plain\r\n";
    answer += "Content-Security-Policy: default-src 'none'; style-src 'unsafe-inline'; "
              "script-src 'unsafe-inline'; img-src data:; frame-ancestors 'none'";
    // Some browsers do not count websockets of the same place as 'self'.
    if (isPage)
        answer += "; connect-src 'self' ws://" + pHost;
    answer += "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n";
    pSocket->readAll();
    pSocket->write(answer + body);
    pSocket->disconnectFromHost();
}

#include "moc_WebServer.cpp"
