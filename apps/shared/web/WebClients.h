// SPDX-License-Identifier: MIT
#pragma once

#include <shared/web/detail/WebMessages.h>

#include <QObject>
#include <QPointer>

#include <vector>

class QTcpSocket;
class QWebSocket;
class QWebSocketServer;

/// The browsers that look at the page: what is said goes to all of them, what they say is a wish or
/// their end.
///
/// Threads: one event-loop thread.
class WebClients : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMost = 16;
    static constexpr qint64 kMostWaiting = 16384;  ///< bytes; one with more loses what comes
    static constexpr qint64 kTooMuch = 262144;     ///< bytes; it is sent away
    static constexpr int kMostLost = 200;          ///< messages in a row; likewise

    explicit WebClients(QObject* pParent = nullptr);
    ~WebClients() override;

    /// A connection that asks for a websocket and may have it; takes it over.
    void Take(QTcpSocket* pSocket);
    bool isFull() const { return getCount() >= kMost; }
    int getCount() const { return static_cast<int>(m_clients.size()); }

    /// One JSON object. Who has not yet read what was said before does not get it.
    void Say(const QByteArray& pMessage);
    /// Ends all connections.
    void Clear();

Q_SIGNALS:
    void OnJoined();
    void OnWish(const shared::detail::WebWish& pWish);

private:
    struct Client
    {
        QWebSocket* pSocket;
        int lost;  ///< messages since the last one that it got
    };

    void _Join();
    void _Own(QWebSocket* pClient);
    void _SayTo(Client& pClient, const QString& pText);
    void _Hear(QWebSocket* pClient, const QString& pMessage);
    void _Leave(QWebSocket* pClient);

    QWebSocketServer* m_server;  ///< for handshakes; listens nowhere
    std::vector<QPointer<QTcpSocket>> m_handshakes;
    std::vector<Client> m_clients;
};
