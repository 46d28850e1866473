// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QQueue>

/// The stream of a fake capture: hands out the bytes pushed into it, or misbehaves as scripted.
class FakeAudioStream : public QIODevice
{
    Q_OBJECT

public:
    enum class eRead
    {
        eShort,     ///< half of the bytes asked for
        eOneByte,   ///< a single byte
        eEmpty,     ///< 0
        eFailing,   ///< -1
        eThrowing,  ///< throws std::runtime_error
    };

    explicit FakeAudioStream(QObject* pParent);

    /// Appends bytes without a signal.
    void Append(const QByteArray& pBytes);
    /// Scripts the next read that is not scripted yet.
    void ScriptRead(eRead pRead);
    int pendingBytes() const;
    /// The sizes that reads asked for, in order.
    const QList<qint64>& requestedSizes() const;

    bool isSequential() const override;
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char* pData, qint64 pMaxSize) override;
    qint64 writeData(const char* pData, qint64 pSize) override;

private:
    qint64 _Take(char* pData, qint64 pSize);

    QByteArray m_pending;
    QQueue<eRead> m_script;
    QList<qint64> m_requestedSizes;
};
