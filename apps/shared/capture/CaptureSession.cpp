// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/capture/CaptureSession.h>
#include <shared/capture/InputDevices.h>
#include <shared/capture/SoundBackEnd.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr int kTickMs = 100;

QtAudioInputDevicesManager* Watcher()
{
    return QtAudioInputDevicesManager::GetInstance();
}

}  // namespace

CaptureSession::CaptureSession(Configuration& pConfiguration, QObject* pParent)
    : LiveSource(pConfiguration, pParent)
{
    connect(&m_tick, &QTimer::timeout, this, &CaptureSession::_Tick);
}

CaptureSession::~CaptureSession()
{
    if (m_pDevice)
        m_pDevice->disconnect(this);
    delete m_pDevice;
}

void CaptureSession::Open(const QString& pName)
{
    m_name = pName;
    QtAudioInputDevicesManager* pWatcher = Watcher();
    using M = QtAudioInputDevicesManager;
    connect(pWatcher, &M::OnConnected, this, &CaptureSession::_OnConnected);
    connect(pWatcher, &M::OnDisconnected, this, &CaptureSession::_OnDisconnected);
    QElapsedTimer timer;
    timer.start();
    pWatcher->Enumerate(true);
    m_isEnumerationSlow = timer.elapsed() >= m_limits.slowEnumerationMs;
    pWatcher->Start();
    m_tick.start(kTickMs);
    _TryToRecord();
}

void CaptureSession::Switch(const QString& pName)
{
    if (pName == m_name)
        return;
    if (m_pDevice)
        _Release();
    m_name = pName;
    _RestWatcher(false);
    _TryToRecord();
}

SourceState CaptureSession::getSource() const
{
    SourceState state;
    state.kind = SourceState::eDevice;
    state.name = m_name;
    state.capture = m_state;
    state.channels = std::max(m_inputFormat.channelCount(), 0);
    state.isPlaying = isPlaying();
    return state;
}

void CaptureSession::_Tick()
{
    if (m_followsDefault)
        _FollowDefault();
    if (m_pDevice)
        _WatchData();
    else if (m_sinceTry.elapsed() >= _GetRetryMs())
        _TryToRecord();
}

int CaptureSession::_GetRetryMs() const
{
    return m_isEnumerationSlow ? m_limits.slowRetryMs : m_limits.retryMs;
}

// ---- The device ---------------------------------------------------------------------------------

void CaptureSession::_TryToRecord()
{
    if (m_pDevice)
        return;
    m_pDevice = _HasDevice() ? QtAudioInputDeviceInfo(m_name, false).Create(this) : nullptr;
    if (!m_pDevice)
        return _SetState(eCaptureWaiting);
    if (!_SetFormat())
        return _SetState(eCaptureUnusable);
    _SetClock();
    using D = QtAudioInputDevice;
    connect(m_pDevice, &D::OnAudioSamplesRecorded, this, &CaptureSession::_OnSamples);
    connect(m_pDevice, &D::OnRecordingStopped, this, &CaptureSession::_Lose);
    m_sinceData.start();
    m_isNoDataTold = false;
    m_lostBefore += std::exchange(m_lost, 0);
    if (m_pDevice->StartRecording())
        _SetState(eCaptureStarting);
    else
        _Lose();
}

/// Asks anew: to record a device that went a moment ago may hang.
bool CaptureSession::_HasDevice()
{
    m_sinceTry.start();
    Watcher()->Enumerate(true);
    return Watcher()->GetAudioInputDevice(m_name) != nullptr;
}

bool CaptureSession::_SetFormat()
{
    m_inputFormat = m_pDevice->getPreferredInputFormat();
    if (InputDevice::isUsable(m_inputFormat) && m_pDevice->SetRecordingFormat(m_inputFormat))
        return true;
    delete std::exchange(m_pDevice, nullptr);
    return false;
}

/// The clock is there before anybody is told of the analyzer.
void CaptureSession::_SetClock()
{
    const QAudioFormat& format = m_pDevice->getOutputFormat();
    if (m_clock.getSampleRate() != format.sampleRate())
        m_clock = shared::SampleClock(format.sampleRate());
    _Prepare(format, m_limits.levelWindow);
}

/// May be called from a signal of the device, which therefore is deleted later.
void CaptureSession::_Lose()
{
    if (!m_pDevice)
        return;
    _Release();
    m_sinceTry.start();
    _RestWatcher(false);
    _SetState(eCaptureWaiting);
}

void CaptureSession::_Release()
{
    m_pDevice->disconnect(this);
    std::exchange(m_pDevice, nullptr)->deleteLater();
    getAnalyzer()->Stop();
}

/// A server that is only just back may never connect a recording to its source. Nothing is said of
/// it, and the wait for the first samples goes on.
void CaptureSession::_Reopen()
{
    const QElapsedTimer sinceData = m_sinceData;
    const bool isNoDataTold = m_isNoDataTold;
    _Release();
    _TryToRecord();
    m_sinceData = sinceData;
    m_isNoDataTold = isNoDataTold;
}

/// While there is no server, there is no default one either; the last one is waited for.
void CaptureSession::_FollowDefault()
{
    const SoundBackEnd* pBackEnd = SoundBackEnd::get();
    const std::vector<SoundSource> sources =
        pBackEnd ? pBackEnd->getSources() : std::vector<SoundSource>();
    if (!sources.empty() && sources.front().isDefault)
        Switch(sources.front().name);
}

void CaptureSession::_OnConnected(const QtAudioInputDeviceInfo& pDevice)
{
    // Not from here: the watcher is in the middle of its report.
    if (pDevice.getDeviceName() == m_name && !m_pDevice)
        QTimer::singleShot(0, this, &CaptureSession::_TryToRecord);
}

void CaptureSession::_OnDisconnected(const QtAudioInputDeviceInfo& pDevice)
{
    if (pDevice.getDeviceName() == m_name)
        _Lose();
}

void CaptureSession::_WatchData()
{
    const bool isMissed =
        m_state == eCaptureStarting && m_sinceTry.elapsed() >= m_limits.firstReopenMs;
    if (isMissed && SoundBackEnd::get())
        _Reopen();
    if (!m_pDevice)
        return;
    const qint64 silence = m_sinceData.elapsed();
    const bool isHung = SoundBackEnd::get() && !SoundBackEnd::get()->isAnswering();
    const bool isFirst = m_state == eCaptureStarting && !isHung;
    if (silence < (isFirst ? m_limits.firstDataMs : m_limits.noDataMs))
        return;
    if (m_sinceTry.elapsed() >= _GetRetryMs() && !_HasDevice())
        _Lose();
    if (!m_pDevice)
        return;
    if (!std::exchange(m_isNoDataTold, true)) {
        getAnalyzer()->Stop();
        Q_EMIT OnNotice(eNoDataNotice);
    } else if (silence >= m_limits.reopenMs) {
        _Lose();
    }
}

// ---- The samples --------------------------------------------------------------------------------

void CaptureSession::_OnSamples(qint16* pSamples, unsigned pCount)
{
    const quint64 end = _Place();
    m_sinceData.start();
    m_isNoDataTold = false;
    if (m_state != eCaptureRunning) {
        _RestWatcher(m_isEnumerationSlow);
        _SetState(eCaptureRunning);
    }
    Q_EMIT OnSamples(pSamples, pCount, end);
    if (getAnalyzer()->isAnalyzing())
        _Analyze(pSamples, pCount, end);
    else
        _Anchor(end);
    _WatchLevel(pSamples, pCount);
}

/// The instant at which the sample behind those that have arrived sounds, µs: as the back end
/// tells, else now. What is lost leaves a gap in the count of samples, behind which it begins anew.
quint64 CaptureSession::_Place()
{
    const SoundBackEnd* pBackEnd = SoundBackEnd::get();
    const std::optional<SoundPosition> position = pBackEnd ? pBackEnd->getPosition() : std::nullopt;
    if (!position)
        return HighResolutionTimer::getTime();
    if (position->lost != m_lost) {
        m_lost = position->lost;
        getAnalyzer()->Stop();
    }
    return position->instant;
}

void CaptureSession::_Analyze(qint16* pSamples, unsigned pCount, quint64 pEnd)
{
    m_clock.Add(pCount, pEnd);
    m_arrivals.Add(m_clock.getCount(), HighResolutionTimer::getTime());
    getAnalyzer()->Analyze(pSamples, pCount);
    _WatchDrift();
}

void CaptureSession::_Anchor(quint64 pEnd)
{
    m_clock.Start(pEnd);
    m_arrivals.Clear();
    ++m_anchorCount;
    {
        const HighResolutionTimerOverride clock(pEnd);
        getAnalyzer()->Start();
    }
    Q_EMIT OnAnchored();
}

/// The block that arrives next anchors the analysis anew.
void CaptureSession::_WatchDrift()
{
    const qint64 drift = std::abs(m_clock.getDrift());
    if (drift >= (isPlaying() ? m_limits.greatDrift : m_limits.drift))
        getAnalyzer()->Stop();
}

void CaptureSession::_SetState(eCaptureState pState)
{
    if (pState == m_state)
        return;
    m_state = pState;
    Q_EMIT OnStateChanged(pState);
    Q_EMIT OnSourceChanged();
}

void CaptureSession::_RestWatcher(bool pIsResting)
{
    if (pIsResting)
        Watcher()->Stop();
    else
        Watcher()->Start();
}

#include "moc_CaptureSession.cpp"
