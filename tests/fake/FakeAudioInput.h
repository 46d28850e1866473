// SPDX-License-Identifier: MIT
#pragma once

#include "FakeAudioDevice.h"
#include "FakeAudioStream.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <qaudiosystem.h>

/// One scripted capture. Tests find it through FakeAudioState and drive it by hand, unless its
/// device has a source: then it plays that in real time, its count of frames following the clock.
class FakeAudioInput : public QAbstractAudioInput
{
    Q_OBJECT

public:
    explicit FakeAudioInput(const FakeAudioDevice& pDevice);

    /// Makes bytes ready and signals readyRead(), also for none.
    void Push(const QByteArray& pBytes);
    /// What bytesReady() answers from now on instead of the truth.
    void ScriptBytesReady(int pBytes);
    /// The back end stops the capture by itself.
    void StopSpontaneously();
    /// Signals a state without any other effect.
    void SignalState(QAudio::State pState);
    /// The back end destroys its stream.
    void DeleteStream();
    /// The device is pulled.
    void Vanish();

    /// Null before start(), and once deleted.
    FakeAudioStream* stream() const;
    int startCount() const;
    int stopCount() const;

    void start(QIODevice* pDevice) override;
    QIODevice* start() override;
    void stop() override;
    void reset() override;
    void suspend() override;
    void resume() override;
    int bytesReady() const override;
    int periodSize() const override;
    void setBufferSize(int pBytes) override;
    int bufferSize() const override;
    void setNotifyInterval(int pMilliSeconds) override;
    int notifyInterval() const override;
    qint64 processedUSecs() const override;
    qint64 elapsedUSecs() const override;
    QAudio::Error error() const override;
    QAudio::State state() const override;
    void setFormat(const QAudioFormat& pFormat) override;
    QAudioFormat format() const override;
    void setVolume(qreal pVolume) override;
    qreal volume() const override;

private:
    void _SetState(QAudio::State pState);
    void _StartPlaying();
    void _PlayDueFrames();

    FakeAudioDevice m_device;
    QAudioFormat m_format;
    QPointer<FakeAudioStream> m_pStream;
    QAudio::State m_state;
    QAudio::Error m_error;
    int m_scriptedBytesReady;  ///< -1: not scripted
    int m_startCount;
    int m_stopCount;
    int m_bufferSize;      ///< bytes, 0 until somebody sets it
    int m_notifyInterval;  ///< ms, 0 until somebody sets it
    FakeAudioDevice::Source m_source;
    QTimer m_playTimer;
    QElapsedTimer m_clock;
    qint64 m_playedFrames;
    int m_signals;
};
