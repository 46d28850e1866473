// SPDX-License-Identifier: MIT
#pragma once

#include <shared/pulse/PulseRecording.h>

#include <QElapsedTimer>
#include <QIODevice>
#include <QPointer>
#include <qaudiosystem.h>

class PulseBackEnd;

/// One capture, as Qt Multimedia asks for it. A recording that ends by itself, since its source or
/// its server has gone, shows as StoppedState with an error at once.
///
/// Threads: one event-loop thread.
class PulseInput : public QAbstractAudioInput
{
    Q_OBJECT

public:
    PulseInput(PulseBackEnd& pBackEnd, const QByteArray& pSource);
    ~PulseInput() override;

    void start(QIODevice* pDevice) override;
    QIODevice* start() override;
    void stop() override;
    void reset() override;
    void suspend() override;
    void resume() override;
    int bytesReady() const override;
    int periodSize() const override;
    /// Without effect: fragments have 10 ms, and the ring behind them has its size.
    void setBufferSize(int pBytes) override;
    int bufferSize() const override;
    /// Kept, but nothing is notified.
    void setNotifyInterval(int pMilliSeconds) override;
    int notifyInterval() const override;
    qint64 processedUSecs() const override;
    qint64 elapsedUSecs() const override;
    QAudio::Error error() const override;
    QAudio::State state() const override;
    void setFormat(const QAudioFormat& pFormat) override;
    QAudioFormat format() const override;
    /// Without effect: sound is recorded as loud as it is.
    void setVolume(qreal pVolume) override;
    qreal volume() const override;

    /// Takes bytes of whole samples, at most so many. [audio path: no allocation]
    qint64 Read(char* pData, qint64 pMaxSize);

private:
    bool _Open();
    void _OnNews();
    void _Push();
    void _SetState(QAudio::State pState, QAudio::Error pError);

    PulseBackEnd& m_backEnd;  ///< not owned
    const QByteArray m_source;
    PulseRecording m_recording;
    QPointer<QIODevice> m_pStream;  ///< owned; samples are taken from it
    QPointer<QIODevice> m_pTarget;  ///< not owned; samples are put into it
    QAudioFormat m_format;
    QAudio::State m_state = QAudio::StoppedState;
    QAudio::Error m_error = QAudio::NoError;
    QElapsedTimer m_clock;
    int m_notifyInterval = 0;  ///< ms
};
