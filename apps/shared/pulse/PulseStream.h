// SPDX-License-Identifier: MIT
#pragma once

#include <shared/pulse/PulseInput.h>

#include <QIODevice>

/// The stream from which a capture's samples are taken.
class PulseStream : public QIODevice
{
    Q_OBJECT

public:
    /// Owned by the capture.
    explicit PulseStream(PulseInput& pInput);

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_input.bytesReady(); }

protected:
    qint64 readData(char* pData, qint64 pMaxSize) override { return m_input.Read(pData, pMaxSize); }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    PulseInput& m_input;
};
