// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevice.h>

#include <shared/capture/LiveSource.h>
#include <shared/capture/detail/ArrivalLog.h>
#include <shared/capture/detail/SampleClock.h>

#include <QElapsedTimer>
#include <QString>
#include <QTimer>

class Configuration;
class QtAudioInputDeviceInfo;

/// Records a device by its name and has the samples analysed, come what may.
///
/// Anchor: the analyzer counts samples and must know when the first of them sounded, or OnBeat()
/// comes at a wrong time. The hosts' own back end tells the instant. Another may deliver its first
/// block seconds after it was asked, and all at once. So the analysis is started when a block
/// arrives, and the next block is the first to be analysed: it began to sound just then. From then
/// on the count of samples is compared with the clock. When they have drifted apart, the analysis
/// is anchored anew in the next silence, where it costs nothing; when they are far apart, at once.
/// The tempo survives.
///
/// Survival: a device that is gone (the watcher says so, the capture stops, or no data comes any
/// more) is waited for and recorded by a new device object once it is listed again. A device that
/// stays silent without being gone is reopened now and then.
///
/// Enumeration: where it is slow, the watcher rests as long as samples arrive.
///
/// Threads: one event-loop thread.
class CaptureSession : public LiveSource
{
    Q_OBJECT

public:
    struct Limits
    {
        int noDataMs = 2000;         ///< without samples, after the first
        int firstDataMs = 5000;      ///< until the first samples
        int firstReopenMs = 2500;    ///< without the first samples from the hosts' own back end
        int reopenMs = 10000;        ///< without samples until the device is opened anew
        int retryMs = 200;           ///< between two looks for the device
        int slowRetryMs = 1000;      ///< the same where a look takes its time
        int slowEnumerationMs = 10;  ///< from which on the watcher rests
        qint64 drift = 20000;        ///< µs; anchored anew in the next silence
        qint64 greatDrift = 150000;  ///< µs; anchored anew at once
        double levelWindow = 3.0;    ///< seconds over which the level is judged
    };

    /// pConfiguration is that of the analysis; it is not owned and must outlive the session.
    explicit CaptureSession(Configuration& pConfiguration, QObject* pParent = nullptr);
    ~CaptureSession() override;

    void setLimits(const Limits& pLimits) { m_limits = pLimits; }
    /// Records the device of exactly that name, now or when it is there. To be called once.
    void Open(const QString& pName);
    /// Records another device from now on, in the same way; the analysis goes on with it. To be
    /// called once it is opened.
    void Switch(const QString& pName);
    /// Goes on with another device when that becomes the sound server's default one, which the
    /// device of the given name is by now. Only the hosts' own back end tells.
    void FollowDefault(bool pFollows = true) { m_followsDefault = pFollows; }

    SourceState getSource() const override;
    eCaptureState getState() const { return m_state; }
    QString getDeviceName() const { return m_name; }
    /// Of the last recording; invalid before the first, and when the device has no usable one.
    const QAudioFormat& getInputFormat() const { return m_inputFormat; }
    /// Since the last anchor.
    const shared::SampleClock& getSampleClock() const { return m_clock; }
    const shared::ArrivalLog& getArrivals() const { return m_arrivals; }
    int getAnchorCount() const { return m_anchorCount; }
    /// Samples that arrived and were not taken in time, since the session was opened.
    quint64 getLostSamples() const { return m_lostBefore + m_lost; }

Q_SIGNALS:
    void OnStateChanged(eCaptureState pState);

private:
    void _Tick();
    void _TryToRecord();
    bool _HasDevice();
    bool _SetFormat();
    void _SetClock();
    void _Lose();
    void _Release();
    void _Reopen();
    void _FollowDefault();
    void _WatchData();
    void _OnSamples(qint16* pSamples, unsigned pCount);
    void _Analyze(qint16* pSamples, unsigned pCount, quint64 pEnd);
    quint64 _Place();
    int _GetRetryMs() const;
    void _Anchor(quint64 pEnd);
    void _WatchDrift();
    void _OnConnected(const QtAudioInputDeviceInfo& pDevice);
    void _OnDisconnected(const QtAudioInputDeviceInfo& pDevice);
    void _SetState(eCaptureState pState);
    void _RestWatcher(bool pIsResting);

    Limits m_limits;
    QString m_name;
    eCaptureState m_state = eCaptureClosed;
    QtAudioInputDevice* m_pDevice = nullptr;  ///< child; null while not recording
    QAudioFormat m_inputFormat;
    QTimer m_tick;
    QElapsedTimer m_sinceTry;   ///< the last look for the device
    QElapsedTimer m_sinceData;  ///< the last samples, or since recording was asked for
    bool m_followsDefault = false;
    bool m_isEnumerationSlow = false;
    bool m_isNoDataTold = false;
    int m_anchorCount = 0;
    quint64 m_lost = 0;        ///< samples of this recording
    quint64 m_lostBefore = 0;  ///< samples of the recordings before
    shared::SampleClock m_clock;
    shared::ArrivalLog m_arrivals;
};
