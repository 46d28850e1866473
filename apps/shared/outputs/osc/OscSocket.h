// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

namespace shared {

/// Packets to one receiver, over UDP or TCP; nothing takes longer than kPatienceMs but finding the
/// host's name.
///
/// Threads: one at a time.
class OscSocket
{
    Q_DECLARE_TR_FUNCTIONS(shared::OscSocket)

public:
    static constexpr int kPatienceMs = 500;

    OscSocket() = default;
    ~OscSocket() { Close(); }
    OscSocket(const OscSocket&) = delete;
    OscSocket& operator=(const OscSocket&) = delete;

    /// Finds the host and, with TCP, connects. Otherwise false, and getError() says why.
    bool Open(const QString& pHost, int pPort, bool pIsTCP);
    void Close();
    bool isOpen() const { return m_socket >= 0; }

    /// With TCP behind its size, in four bytes. False when the connection is lost, or nothing is
    /// taken.
    bool Send(const QByteArray& pPacket);
    /// False when the receiver has closed the connection. To be called now and then.
    bool Look();
    /// Over UDP: what was sent came back, since nobody listens there.
    bool isRefused() const { return m_isRefused; }
    const QString& getError() const { return m_error; }

private:
    bool _Connect(int pFamily, const void* pAddress, unsigned pSize);
    bool _SendAll(const QByteArray& pBytes);
    void _NoteAnswer(int pError);
    bool _Fail(const QString& pReason);

    int m_socket = -1;
    bool m_isTCP = false;
    bool m_isRefused = false;
    bool m_isAnswerDue = false;  ///< a packet was sent since the socket was looked at
    int m_quietLooks = 0;        ///< with a packet before each that did not come back
    QString m_error;
};

}  // namespace shared
