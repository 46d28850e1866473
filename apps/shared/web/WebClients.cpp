// SPDX-License-Identifier: MIT
#include <shared/web/WebClients.h>

#include <QHostAddress>
#include <QTcpSocket>
#include <QWebSocket>
#include <QWebSocketServer>

#include <algorithm>

WebClients::WebClients(QObject* pParent)
    : QObject(pParent),
      m_server(new QWebSocketServer(QString(), QWebSocketServer::NonSecureMode, this))
{
    connect(m_server, &QWebSocketServer::newConnection, this, &WebClients::_Join);
}

WebClients::~WebClients()
{
    Clear();
}

void WebClients::Take(QTcpSocket* pSocket)
{
    m_handshakes.erase(std::remove(m_handshakes.begin(), m_handshakes.end(), nullptr),
                       m_handshakes.end());
    m_handshakes.emplace_back(pSocket);
    m_server->handleConnection(pSocket);
}

void WebClients::Say(const QByteArray& pMessage)
{
    const QString text = QString::fromUtf8(pMessage);
    for (Client& client : m_clients)
        _SayTo(client, text);
    const std::vector<Client> clients = m_clients;
    for (const Client& client : clients)
        if (client.lost > kMostLost || client.pSocket->bytesToWrite() > kTooMuch)
            client.pSocket->abort();
}

/// What it has not read may also be answers to its pings.
void WebClients::_SayTo(Client& pClient, const QString& pText)
{
    const bool isReading = pClient.pSocket->bytesToWrite() <= kMostWaiting;
    pClient.lost = isReading ? 0 : pClient.lost + 1;
    if (isReading)
        pClient.pSocket->sendTextMessage(pText);
}

void WebClients::Clear()
{
    for (const Client& client : m_clients) {
        client.pSocket->disconnect(this);
        client.pSocket->close(QWebSocketProtocol::CloseCodeGoingAway);
        delete client.pSocket;
    }
    m_clients.clear();
}

void WebClients::_Join()
{
    while (QWebSocket* pClient = m_server->nextPendingConnection()) {
        _Own(pClient);
        // Several may have been let in before the first of them was here.
        if (isFull()) {
            pClient->abort();
            pClient->deleteLater();
            continue;
        }
        pClient->setMaxAllowedIncomingFrameSize(shared::detail::kLongestMessage);
        pClient->setMaxAllowedIncomingMessageSize(shared::detail::kLongestMessage);
        m_clients.push_back({pClient, 0});
        connect(
            pClient, &QWebSocket::disconnected, this, [this, pClient] { _Leave(pClient); });
        connect(
            pClient,
            &QWebSocket::textMessageReceived,
            this,
            [this, pClient](const QString& p) { _Hear(pClient, p); });
        connect(pClient, &QWebSocket::binaryMessageReceived, this, [this, pClient] {
            _Hear(pClient, QString());
        });
        Q_EMIT OnJoined();
    }
}

/// A websocket leaves the connection that it took over to others, and cuts its signals.
void WebClients::_Own(QWebSocket* pClient)
{
    for (QPointer<QTcpSocket>& pSocket : m_handshakes) {
        if (!pSocket || pSocket->peerPort() != pClient->peerPort() ||
            pSocket->peerAddress() != pClient->peerAddress())
            continue;
        disconnect(pSocket, &QTcpSocket::disconnected, pSocket, &QObject::deleteLater);
        pSocket->setParent(pClient);
        pSocket.clear();
    }
}

void WebClients::_Hear(QWebSocket* pClient, const QString& pMessage)
{
    const auto wish = shared::detail::ReadWebMessage(pMessage);
    if (wish)
        Q_EMIT OnWish(*wish);
    else
        pClient->close(QWebSocketProtocol::CloseCodePolicyViolated);
}

void WebClients::_Leave(QWebSocket* pClient)
{
    const auto isIt = [pClient](const Client& pOther) { return pOther.pSocket == pClient; };
    m_clients.erase(std::remove_if(m_clients.begin(), m_clients.end(), isIt), m_clients.end());
    pClient->deleteLater();
}

#include "moc_WebClients.cpp"
