// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/detail/GrowingBuffer.h>

#include <QAudioInput>
#include <QCoreApplication>
#include <QIODevice>

namespace {

/// Counts a call of the back end while it lasts, even if the device does not outlive it.
class BackEndCall
{
public:
    BackEndCall(QObject* pDevice, int& pCalls) : m_device(pDevice), m_calls(pCalls) { ++m_calls; }
    ~BackEndCall()
    {
        if (m_device)
            --m_calls;
    }
    BackEndCall(const BackEndCall&) = delete;
    BackEndCall& operator=(const BackEndCall&) = delete;

private:
    const QPointer<QObject> m_device;
    int& m_calls;
};

}  // namespace

QtAudioInputDevice::QtAudioInputDevice(const QAudioDeviceInfo& pDeviceInfo, QObject* pParent)
    : QObject(pParent), m_pAudioInput(nullptr), m_pResampler(nullptr), m_pInputStream(nullptr),
      m_deviceInfo(pDeviceInfo), m_frameSize(0), m_pBuffer(nullptr), m_bufferCapacity(0),
      m_backEndCalls(0)
{
}

QtAudioInputDevice::~QtAudioInputDevice()
{
    if (isRecording()) {
        _DisconnectCapture();
        _StopCapture();
        _ReleaseCapture();
        // Under a call of the capture object, its deletion has to wait until that returns.
        if (m_audioInputGuard && m_backEndCalls > 0)
            m_audioInputGuard->setParent(nullptr);
        Q_EMIT OnRecordingStopped();
    }
    delete m_pResampler;
    delete[] m_pBuffer;
}

QString QtAudioInputDevice::getName() const
{
    return m_deviceInfo.deviceName().trimmed();
}

const QAudioFormat& QtAudioInputDevice::getInputFormat() const
{
    return m_inputFormat;
}

const QAudioFormat& QtAudioInputDevice::getOutputFormat() const
{
    return m_outputFormat;
}

bool QtAudioInputDevice::isRecording() const
{
    return m_pAudioInput || m_pInputStream;
}

bool QtAudioInputDevice::StartRecording()
{
    if (isRecording() || !m_inputFormat.isValid())
        return false;
    m_pAudioInput = new QAudioInput(m_deviceInfo, m_inputFormat, this);
    m_audioInputGuard = m_pAudioInput;
    m_pInputStream = m_pAudioInput->start();
    m_inputStreamGuard = m_pInputStream;
    // Intended: the capture object stays, and the device counts as recording from now on.
    if (!m_pInputStream)
        return false;
    _ConnectCapture();
    Q_EMIT OnRecordingStarted();
    return true;
}

bool QtAudioInputDevice::StopRecording()
{
    if (!isRecording())
        return false;
    // What runs meanwhile may stop the device once more, or delete it.
    const QPointer<QtAudioInputDevice> self(this);
    _DisconnectCapture();
    _StopCapture();
    QCoreApplication::processEvents();
    if (!self)
        return true;
    _ReleaseCapture();
    Q_EMIT OnRecordingStopped();
    return true;
}

void QtAudioInputDevice::_OnAudioSamplesRecorded()
{
    const BackEndCall call(this, m_backEndCalls);
    const quint64 bytes = _getWholeBytesReady();
    if (bytes == 0)
        return;
    detail::EnsureCapacity(m_pBuffer, m_bufferCapacity, bytes);
    const qint64 bytesRead = _ReadStream(bytes);
    if (m_pResampler)
        _DeliverConverted(bytesRead);
    else
        _DeliverRaw(bytesRead);
}

void QtAudioInputDevice::_OnStateChanged(QAudio::State pState)
{
    const BackEndCall call(this, m_backEndCalls);
    if (pState == QAudio::StoppedState && isRecording())
        StopRecording();
}

void QtAudioInputDevice::_ConnectCapture()
{
    const bool isStateConnected = connect(m_pAudioInput,
                                          SIGNAL(stateChanged(QAudio::State)),
                                          this,
                                          SLOT(_OnStateChanged(QAudio::State)));
    const bool isStreamConnected =
        connect(m_pInputStream, SIGNAL(readyRead()), this, SLOT(_OnAudioSamplesRecorded()));
    Q_ASSERT(isStateConnected && isStreamConnected);
    Q_UNUSED(isStateConnected)
    Q_UNUSED(isStreamConnected)
}

void QtAudioInputDevice::_DisconnectCapture()
{
    if (m_inputStreamGuard)
        disconnect(m_inputStreamGuard, SIGNAL(readyRead()), this, SLOT(_OnAudioSamplesRecorded()));
    if (m_audioInputGuard)
        disconnect(m_audioInputGuard,
                   SIGNAL(stateChanged(QAudio::State)),
                   this,
                   SLOT(_OnStateChanged(QAudio::State)));
}

void QtAudioInputDevice::_StopCapture()
{
    if (m_audioInputGuard && m_audioInputGuard->state() != QAudio::StoppedState)
        m_audioInputGuard->stop();
}

/// Intended: m_pAudioInput keeps its value, so that isRecording() stays true and the device cannot
/// be started again; the guard alone is followed from here on.
void QtAudioInputDevice::_ReleaseCapture()
{
    m_pInputStream = nullptr;
    m_inputStreamGuard.clear();
    if (m_audioInputGuard)
        m_audioInputGuard->deleteLater();
}

/// Whole frames with a converter, whole 16-bit samples without. A device of 0 channels has no frame
/// to deliver.
quint64 QtAudioInputDevice::_getWholeBytesReady() const
{
    const int ready = m_audioInputGuard ? m_audioInputGuard->bytesReady() : 0;
    const quint64 unit = m_pResampler ? m_frameSize : sizeof(qint16);
    if (ready <= 0 || unit == 0)
        return 0;
    const quint64 bytes = static_cast<quint64>(ready);
    return bytes - bytes % unit;
}

/// The bytes read into the buffer; negative on failure, be it by an exception.
qint64 QtAudioInputDevice::_ReadStream(quint64 pBytes)
{
    if (!m_inputStreamGuard)
        return -1;
    try {
        return m_inputStreamGuard->read(m_pBuffer, static_cast<qint64>(pBytes));
    } catch (...) {
        return -1;
    }
}

void QtAudioInputDevice::_DeliverConverted(qint64 pBytesRead)
{
    if (pBytesRead <= 0 || static_cast<quint64>(pBytesRead) < m_frameSize)
        return;
    size_t count = 0;
    qint16* pSamples = m_pResampler->Resample(m_pBuffer, static_cast<size_t>(pBytesRead), count);
    if (pSamples && count != 0)
        Q_EMIT OnAudioSamplesRecorded(pSamples, static_cast<unsigned>(count));
}

void QtAudioInputDevice::_DeliverRaw(qint64 pBytesRead)
{
    if (pBytesRead >= 2)
        Q_EMIT OnAudioSamplesRecorded(reinterpret_cast<qint16*>(m_pBuffer),
                                      static_cast<unsigned>(pBytesRead / 2));
}

#include "moc_QtAudioInputDevice.cpp"
