// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseBackEnd.h>
#include <shared/pulse/PulseInput.h>
#include <shared/pulse/PulseStream.h>

#include <QByteArray>

namespace {

constexpr int kSampleBytes = int(sizeof(qint16));
constexpr int kFragmentUs = 10000;

}  // namespace

PulseInput::PulseInput(PulseBackEnd& pBackEnd, const QByteArray& pSource)
    : m_backEnd(pBackEnd), m_source(pSource), m_recording(pBackEnd.getConnection(), [this] {
          QMetaObject::invokeMethod(
              this, [this] { _OnNews(); }, Qt::QueuedConnection);
      })
{
}

PulseInput::~PulseInput()
{
    m_recording.Close();
}

void PulseInput::start(QIODevice* pDevice)
{
    m_pTarget = pDevice;
    _Open();
}

QIODevice* PulseInput::start()
{
    if (!_Open())
        return nullptr;
    m_pStream = new PulseStream(*this);
    return m_pStream;
}

bool PulseInput::_Open()
{
    const bool isOpen =
        m_recording.Open(m_source, m_format.sampleRate(), m_backEnd.getChannels(m_source));
    if (isOpen)
        m_clock.start();
    _SetState(isOpen ? QAudio::ActiveState : QAudio::StoppedState,
              isOpen ? QAudio::NoError : QAudio::OpenError);
    return isOpen;
}

void PulseInput::stop()
{
    m_recording.Close();
    _SetState(QAudio::StoppedState, QAudio::NoError);
}

void PulseInput::reset()
{
    stop();
}

void PulseInput::suspend()
{
    if (m_state != QAudio::ActiveState)
        return;
    m_recording.setPaused(true);
    _SetState(QAudio::SuspendedState, QAudio::NoError);
}

void PulseInput::resume()
{
    if (m_state != QAudio::SuspendedState)
        return;
    m_recording.setPaused(false);
    _SetState(QAudio::ActiveState, QAudio::NoError);
}

/// Whoever is told may delete this.
void PulseInput::_OnNews()
{
    const QPointer<PulseInput> self(this);
    const bool hasEnded = m_recording.TakeNews();
    if (m_state == QAudio::StoppedState)
        return;
    if (m_pTarget)
        _Push();
    else if (m_pStream && bytesReady() > 0)
        Q_EMIT m_pStream->readyRead();
    if (!self || !hasEnded)
        return;
    m_recording.Close();
    _SetState(QAudio::StoppedState, QAudio::IOError);
}

void PulseInput::_Push()
{
    QByteArray bytes(bytesReady(), Qt::Uninitialized);
    bytes.truncate(int(Read(bytes.data(), bytes.size())));
    m_pTarget->write(bytes);
}

qint64 PulseInput::Read(char* pData, qint64 pMaxSize)
{
    const std::size_t count =
        m_recording.Read(reinterpret_cast<qint16*>(pData), std::size_t(pMaxSize) / sizeof(qint16));
    m_backEnd.setPosition(m_recording.getPosition());
    return qint64(count * sizeof(qint16));
}

int PulseInput::bytesReady() const
{
    return m_recording.getSamplesReady() * kSampleBytes;
}

int PulseInput::periodSize() const
{
    return m_format.bytesForDuration(kFragmentUs);
}

void PulseInput::setBufferSize(int) {}

int PulseInput::bufferSize() const
{
    return PulseRecording::kCapacity * kSampleBytes;
}

void PulseInput::setNotifyInterval(int pMilliSeconds)
{
    m_notifyInterval = pMilliSeconds;
}

int PulseInput::notifyInterval() const
{
    return m_notifyInterval;
}

qint64 PulseInput::processedUSecs() const
{
    const qint64 rate = m_format.sampleRate();
    return rate > 0 ? qint64(m_recording.getSamplesRead()) * 1000000 / rate : 0;
}

qint64 PulseInput::elapsedUSecs() const
{
    return m_clock.isValid() ? m_clock.nsecsElapsed() / 1000 : 0;
}

QAudio::Error PulseInput::error() const
{
    return m_error;
}

QAudio::State PulseInput::state() const
{
    return m_state;
}

void PulseInput::setFormat(const QAudioFormat& pFormat)
{
    m_format = pFormat;
}

QAudioFormat PulseInput::format() const
{
    return m_format;
}

void PulseInput::setVolume(qreal) {}

qreal PulseInput::volume() const
{
    return 1.0;
}

/// The error stands before the state is told, for whoever asks then.
void PulseInput::_SetState(QAudio::State pState, QAudio::Error pError)
{
    m_error = pError;
    if (m_state == pState)
        return;
    m_state = pState;
    Q_EMIT stateChanged(pState);
}

#include "moc_PulseInput.cpp"
