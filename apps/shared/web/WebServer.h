// SPDX-License-Identifier: MIT
#pragma once

#include <shared/web/WebClients.h>

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstdint>

class QTcpServer;
class QTcpSocket;

/// Serves one page, and the websockets that it asks for, where it was asked to and nowhere else.
///
/// A request must name the place where it arrives, a websocket must come from the page, and where
/// others than this machine may come, both must bring the token of the link.
///
/// Threads: one event-loop thread.
class WebServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMostRequests = 32;  ///< at once, beside the clients
    static constexpr int kPatienceMs = 5000;  ///< for a request to be whole

    explicit WebServer(QObject* pParent = nullptr);
    ~WebServer() override;

    /// pAddress: one of this machine's, "0.0.0.0" = all, empty = the machine itself only. pPort 0 =
    /// any. False, and getError() in words, when it cannot be had.
    bool Open(const QString& pAddress, std::uint16_t pPort);
    QString getError() const { return m_error; }
    std::uint16_t getPort() const;  ///< 0 = closed
    /// What is to be opened in a browser, with the token.
    QString getLink() const;

    WebClients& getClients() { return m_clients; }

private:
    void _Accept();
    void _Read(QTcpSocket* pSocket);
    QByteArray _HostsOf(const QTcpSocket& pSocket) const;
    void _Answer(QTcpSocket* pSocket, int pStatus, const QByteArray& pHost);

    QTcpServer* m_server;
    WebClients m_clients;
    QByteArray m_token;  ///< empty = none is needed
    QString m_error;
};
