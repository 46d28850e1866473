// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QAudio>
#include <QAudioDeviceInfo>
#include <QAudioFormat>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class AudioResampler;
class QAudioInput;
class QIODevice;

/// Captures from one input device and delivers mono signed 16-bit samples.
///
/// State table; a device object records once, and to record again the host makes a new one:
///
///     state         format   m_pAudioInput  m_pInputStream  accepts
///     Created       invalid  null           null            SetRecordingFormat
///     Configured    valid    null           null            SetRecordingFormat, StartRecording
///     Recording     valid    set            set             StopRecording
///     Start failed  valid    set            null            StopRecording
///     Stopped       valid    set (kept)     null            StopRecording, again and again
///
/// isRecording() is true in the last three. The destructor stops what is not stopped, and emits
/// OnRecordingStopped() in the last three.
///
/// The sound back end may destroy the stream or the capture object at any moment; neither is
/// touched from then on.
///
/// Threads: the owner's event-loop thread only; every signal is emitted synchronously. A slot may
/// stop or delete the device from any signal but the destructor's own.
class AUDIOANALYZER_EXPORT QtAudioInputDevice : public QObject
{
    Q_OBJECT

public:
    /// State Created. Owned by pParent, or by the caller when pParent is null. [event loop]
    QtAudioInputDevice(const QAudioDeviceInfo& pDeviceInfo, QObject* pParent);
    ~QtAudioInputDevice() override;

    /// The device's name, trimmed.
    QString getName() const;
    /// The format asked of the device; invalid until one was set.
    const QAudioFormat& getInputFormat() const;
    /// The format delivered: the input format as mono signed 16-bit; invalid until one was set.
    const QAudioFormat& getOutputFormat() const;
    /// True once StartRecording() got past its checks, and ever after: also after a stop.
    bool isRecording() const;

    // ---- Formats: QtAudioInputDeviceFormats.cpp -------------------------------------------------

    /// Integer PCM formats that the device accepts, by channel count, then sample size, then rate,
    /// each in the device's own order. pSampleRate (Hz), pSampleSize (bits) and pChannelCount
    /// select one value; below 1 they stand for every value (sizes: every one of 8, 16 and 32).
    /// [event loop]
    QList<QAudioFormat>
    getSupportedInputFormats(int pSampleRate, int pSampleSize, int pChannelCount) const;
    /// 48000 Hz mono 16-bit, else 44100 Hz mono 16-bit, else the supported format of the highest
    /// rank; invalid when there is none. [event loop]
    QAudioFormat getPreferredInputFormat() const;
    /// The higher the better, 0 = unusable: rate closest to 48000 Hz, then fewest channels, then 16
    /// before 32 before 8 bits.
    static quint64 _ComputeRank(const QAudioFormat& pFormat);
    /// Takes the format and picks the converter to the output format. False, with nothing changed,
    /// when recording, or when the format is invalid, unsupported, not PCM, or not of 8, 16 or 32
    /// bits. False with the formats kept when there is no converter. [event loop]
    bool SetRecordingFormat(const QAudioFormat& pFormat);

    // ---- Capture: QtAudioInputDevice.cpp --------------------------------------------------------

    /// Starts the capture. False when started before, when no format was set, or when the device
    /// gave no stream (state Start failed). [event loop]
    bool StartRecording();
    /// Stops the capture and processes pending events once. False when there is nothing to stop;
    /// true otherwise, also when already stopped. [event loop]
    bool StopRecording();

Q_SIGNALS:
    /// pCount samples at pAudioSamples, owned by the device.
    /// [audio path: no allocation] [valid until the emission ends]
    void OnAudioSamplesRecorded(qint16* pAudioSamples, unsigned pCount);
    void OnRecordingStarted();
    void OnRecordingStopped();

private Q_SLOTS:
    void _OnAudioSamplesRecorded();
    void _OnStateChanged(QAudio::State pState);

private:
    void _ConnectCapture();
    void _DisconnectCapture();
    void _StopCapture();
    void _ReleaseCapture();
    quint64 _getWholeBytesReady() const;
    qint64 _ReadStream(quint64 pBytes);
    void _DeliverConverted(qint64 pBytesRead);
    void _DeliverRaw(qint64 pBytesRead);

    QAudioInput* m_pAudioInput;    ///< child; kept after a stop: only m_audioInputGuard is followed
    AudioResampler* m_pResampler;  ///< owned; null when the input is delivered as it is
    QIODevice* m_pInputStream;     ///< of the capture object: only m_inputStreamGuard is followed
    QAudioDeviceInfo m_deviceInfo;
    quint64 m_frameSize;  ///< bytes in a frame of the input format
    QAudioFormat m_inputFormat;
    QAudioFormat m_outputFormat;
    char* m_pBuffer;           ///< owned read buffer
    quint64 m_bufferCapacity;  ///< bytes

    QPointer<QAudioInput> m_audioInputGuard;  ///< null once the capture object is destroyed
    QPointer<QIODevice> m_inputStreamGuard;   ///< null once the stream is destroyed or let go
    int m_backEndCalls;                       ///< private slots that are running
};
