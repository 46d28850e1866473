// SPDX-License-Identifier: MIT
#include "FakeAudioInput.h"

namespace {

constexpr int kPeriodMs = 20;
constexpr int kNotScripted = -1;
constexpr qint64 kNsPerSecond = 1000000000;

}  // namespace

FakeAudioInput::FakeAudioInput(const FakeAudioDevice& pDevice)
    : m_device(pDevice), m_state(QAudio::StoppedState), m_error(QAudio::NoError),
      m_scriptedBytesReady(kNotScripted), m_startCount(0), m_stopCount(0), m_bufferSize(0),
      m_notifyInterval(0), m_playedFrames(0), m_signals(0)
{
    m_playTimer.setTimerType(Qt::PreciseTimer);
    m_playTimer.setInterval(kPeriodMs);
    connect(&m_playTimer, &QTimer::timeout, this, &FakeAudioInput::_PlayDueFrames);
}

void FakeAudioInput::Push(const QByteArray& pBytes)
{
    if (!m_pStream)
        return;
    m_pStream->Append(pBytes);
    Q_EMIT m_pStream->readyRead();
    ++m_signals;  // a real back end touches itself as well once its listeners return
}

void FakeAudioInput::ScriptBytesReady(int pBytes)
{
    m_scriptedBytesReady = pBytes;
}

void FakeAudioInput::StopSpontaneously()
{
    m_error = QAudio::IOError;
    m_playTimer.stop();
    _SetState(QAudio::StoppedState);
}

void FakeAudioInput::SignalState(QAudio::State pState)
{
    Q_EMIT stateChanged(pState);
    ++m_signals;
}

void FakeAudioInput::DeleteStream()
{
    delete m_pStream;
}

void FakeAudioInput::Vanish()
{
    m_playTimer.stop();
    if (m_device.vanishing == eVanishing::eSilent)
        return;
    if (m_device.vanishing == eVanishing::eStreamDeleted)
        DeleteStream();
    StopSpontaneously();
}

FakeAudioStream* FakeAudioInput::stream() const
{
    return m_pStream;
}

int FakeAudioInput::startCount() const
{
    return m_startCount;
}

int FakeAudioInput::stopCount() const
{
    return m_stopCount;
}

void FakeAudioInput::start(QIODevice*)
{
    ++m_startCount;  // push mode is not used
}

QIODevice* FakeAudioInput::start()
{
    ++m_startCount;
    if (!m_device.givesStream) {
        m_error = QAudio::OpenError;
        return nullptr;
    }
    m_pStream = new FakeAudioStream(this);
    _SetState(QAudio::ActiveState);
    if (m_device.makeSource)
        _StartPlaying();
    return m_pStream;
}

void FakeAudioInput::stop()
{
    ++m_stopCount;
    m_playTimer.stop();
    _SetState(QAudio::StoppedState);
}

void FakeAudioInput::reset()
{
    stop();
}

void FakeAudioInput::suspend()
{
    _SetState(QAudio::SuspendedState);
}

void FakeAudioInput::resume()
{
    _SetState(QAudio::ActiveState);
}

int FakeAudioInput::bytesReady() const
{
    if (m_scriptedBytesReady != kNotScripted)
        return m_scriptedBytesReady;
    return m_pStream ? m_pStream->pendingBytes() : 0;
}

int FakeAudioInput::periodSize() const
{
    return m_format.bytesForDuration(kPeriodMs * 1000);
}

void FakeAudioInput::setBufferSize(int pBytes)
{
    m_bufferSize = pBytes;
}

int FakeAudioInput::bufferSize() const
{
    return m_bufferSize;
}

void FakeAudioInput::setNotifyInterval(int pMilliSeconds)
{
    m_notifyInterval = pMilliSeconds;
}

int FakeAudioInput::notifyInterval() const
{
    return m_notifyInterval;
}

qint64 FakeAudioInput::processedUSecs() const
{
    return m_format.durationForFrames(static_cast<qint32>(m_playedFrames));
}

qint64 FakeAudioInput::elapsedUSecs() const
{
    return m_clock.isValid() ? m_clock.nsecsElapsed() / 1000 : 0;
}

QAudio::Error FakeAudioInput::error() const
{
    return m_error;
}

QAudio::State FakeAudioInput::state() const
{
    return m_state;
}

void FakeAudioInput::setFormat(const QAudioFormat& pFormat)
{
    m_format = pFormat;
}

QAudioFormat FakeAudioInput::format() const
{
    return m_format;
}

void FakeAudioInput::setVolume(qreal) {}

qreal FakeAudioInput::volume() const
{
    return 1.0;
}

void FakeAudioInput::_SetState(QAudio::State pState)
{
    if (m_state == pState)
        return;
    m_state = pState;
    Q_EMIT stateChanged(pState);
    ++m_signals;
}

void FakeAudioInput::_StartPlaying()
{
    m_source = m_device.makeSource();
    m_playedFrames = 0;
    m_clock.start();
    m_playTimer.start();
}

void FakeAudioInput::_PlayDueFrames()
{
    const qint64 dueFrames = m_clock.nsecsElapsed() * m_format.sampleRate() / kNsPerSecond;
    const int wantedFrames = static_cast<int>(dueFrames - m_playedFrames);
    if (wantedFrames <= 0 || m_state != QAudio::ActiveState)
        return;
    const QByteArray bytes = m_source(m_format, wantedFrames);
    m_playedFrames += wantedFrames;
    if (!bytes.isEmpty())
        Push(bytes);
}

#include "moc_FakeAudioInput.cpp"
