// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/HandMessage.h>

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>

class QSocketNotifier;

/// Listens for OSC over UDP, where it was asked to and nowhere else.
///
/// Threads: one event-loop thread.
class OscInput : public QObject
{
    Q_OBJECT

public:
    explicit OscInput(QObject* pParent = nullptr);
    ~OscInput() override;

    /// pAddress: one of this machine's, "0.0.0.0" = all, empty = the machine itself only. pPort 0 =
    /// any. False, and getError() in words, when it cannot be had.
    bool Open(const QString& pAddress, std::uint16_t pPort);
    void Close();
    std::uint16_t getPort() const { return m_port; }  ///< 0 = closed
    QString getError() const { return m_error; }

Q_SIGNALS:
    /// In the order in which they came.
    void OnMessage(const shared::HandMessage& pMessage);

private:
    void _Read();

    int m_socket = -1;  ///< -1 = none
    std::uint16_t m_port = 0;
    QString m_error;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
