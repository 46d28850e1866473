// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceLog.h"

#include <QAudioDeviceInfo>
#include <QAudioInput>
#include <QCoreApplication>
#include <QPointer>

#include <fake/FakeAudioState.h>
#include <initializer_list>
#include <memory>

/// A machine with one device that takes any format, a capture device on it, and a log of its
/// signals.
class Capture
{
public:
    explicit Capture(FakeAudioDevice pDevice = FakeAudioDevice())
    {
        FakeAudioState::Get().Clear();
        pDevice.name = QStringLiteral("Mic");
        pDevice.isSupported = [](const QAudioFormat&) { return true; };
        handle = FakeAudioState::Get().Plug(pDevice);
        pCapture = new QtAudioInputDevice(QAudioDeviceInfo::defaultInputDevice(), nullptr);
        pLog = std::make_unique<DeviceLog>(pCapture);
    }
    ~Capture() { delete pCapture; }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    bool Configure(int pSize,
                   int pChannelCount,
                   QAudioFormat::SampleType pType = QAudioFormat::SignedInt)
    {
        QAudioFormat format;
        format.setCodec(QStringLiteral("audio/pcm"));
        format.setSampleRate(48000);
        format.setSampleSize(pSize);
        format.setChannelCount(pChannelCount);
        format.setSampleType(pType);
        return pCapture->SetRecordingFormat(format);
    }

    /// Configures, starts, and forgets the signals so far.
    bool
    Record(int pSize, int pChannelCount, QAudioFormat::SampleType pType = QAudioFormat::SignedInt)
    {
        const bool isStarted = Configure(pSize, pChannelCount, pType) && pCapture->StartRecording();
        pLog->Take();
        return isStarted;
    }

    void Push(std::initializer_list<int> pBytes)
    {
        QByteArray bytes;
        for (int byte : pBytes)
            bytes.append(static_cast<char>(byte));
        backEnd()->Push(bytes);
    }

    /// Runs the deletions that were put off.
    static void RunDeletions()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    FakeAudioInput* backEnd() const { return FakeAudioState::Get().LastInput(); }
    /// The sizes of the reads so far.
    QList<qint64> reads() const { return backEnd()->stream()->requestedSizes(); }
    QString Take() { return pLog->Take(); }

    QByteArray handle;
    QPointer<QtAudioInputDevice> pCapture;
    std::unique_ptr<DeviceLog> pLog;
};
