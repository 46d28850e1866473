// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/DeviceChoice.h>
#include <desktop/session/MonitorSession.h>
#include <shared/capture/InputDevices.h>
#include <shared/settings/AnalysisOptions.h>

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

constexpr int kTickMs = 200;
constexpr int kClippedMs = 4000;  ///< how long a clipped level is told
constexpr int kFullScale = 32767;

}  // namespace

MonitorSession::MonitorSession(QObject* pParent) : QObject(pParent)
{
    connect(&m_tick, &QTimer::timeout, this, &MonitorSession::_Tick);
    m_tick.start(kTickMs);
}

MonitorSession::~MonitorSession()
{
    m_feed.Follow(nullptr, 0);
}

bool MonitorSession::Load(QString& pError)
{
    const bool isLoaded = m_store.Load();
    pError = m_store.getError();
    m_deviceName = m_store.getDeviceName();
    if (!QFileInfo::exists(ConfigurationStore::getPath()))
        _SetHostDefaults();
    return isLoaded;
}

/// Until the user chooses, silence is judged as often as in the other hosts.
void MonitorSession::_SetHostDefaults()
{
    Configuration& configuration = m_store.getConfiguration();
    configuration.setStopDetectionDuration(AnalysisOptions::kStopDuration);
    configuration.setIsModified(false);
}

AudioAnalyzer* MonitorSession::getAnalyzer() const
{
    if (m_player)
        return m_player->getAnalyzer();
    return m_capture ? m_capture->getAnalyzer() : nullptr;
}

// ---- The source ---------------------------------------------------------------------------------

void MonitorSession::Listen(const QString& pName)
{
    _Close();
    m_deviceName = pName;
    if (m_deviceName.isEmpty())
        m_deviceName = m_store.getDeviceName();
    if (m_deviceName.isEmpty())
        m_deviceName = chooseDevice(listInputDevices());
    if (m_deviceName.isEmpty())
        _WaitForAnyDevice();
    else
        _OpenCapture();
}

void MonitorSession::ChooseDevice(const QString& pName)
{
    if (pName != m_store.getDeviceName()) {
        m_store.setDeviceName(pName);
        m_saver.Touch();
    }
    if (pName != m_deviceName || !m_capture)
        Listen(pName);
}

void MonitorSession::PlayFile(const QString& pPath, bool pIsLooped)
{
    _Close();
    m_player = std::make_unique<FilePlayer>(m_store.getConfiguration());
    FilePlayer* pPlayer = m_player.get();
    connect(pPlayer, &FilePlayer::OnAnalyzerCreated, this, [this, pPlayer](AudioAnalyzer* pNew) {
        _OnAnalyzerCreated(pNew, pPlayer->getSampleRate());
    });
    connect(pPlayer, &FilePlayer::OnAnchored, this, &MonitorSession::_OnAnchored);
    connect(pPlayer, &FilePlayer::OnNotice, this, &MonitorSession::_OnNotice);
    // Queued, since the player is deleted then; meanwhile another may have taken its place.
    connect(
        pPlayer,
        &FilePlayer::OnEnded,
        this,
        [this, pPlayer](const QString& pError) {
            if (m_player.get() == pPlayer)
                _OnFileEnded(pError);
        },
        Qt::QueuedConnection);
    pPlayer->Open(pPath, pIsLooped);
    Q_EMIT OnSourceChanged();
}

void MonitorSession::StopFile()
{
    if (m_player || m_endedFile)
        Listen(m_deviceName);
}

void MonitorSession::_Close()
{
    QtAudioInputDevicesManager::GetInstance()->disconnect(this);
    _SetAnalyzer(nullptr, 0);
    m_capture.reset();
    m_player.reset();
    m_endedFile.reset();
    m_notice.reset();
    m_peak = 0;
}

void MonitorSession::_OpenCapture()
{
    m_capture = std::make_unique<CaptureSession>(m_store.getConfiguration());
    CaptureSession* pCapture = m_capture.get();
    using S = CaptureSession;
    connect(pCapture, &S::OnAnalyzerCreated, this, [this, pCapture](AudioAnalyzer* pAnalyzer) {
        _OnAnalyzerCreated(pAnalyzer, pCapture->getSampleClock().getSampleRate());
    });
    connect(pCapture, &S::OnAnchored, this, &MonitorSession::_OnAnchored);
    connect(pCapture, &S::OnNotice, this, &MonitorSession::_OnNotice);
    connect(pCapture, &S::OnStateChanged, this, &MonitorSession::_OnCaptureState);
    pCapture->Open(m_deviceName);
}

void MonitorSession::_WaitForAnyDevice()
{
    using M = QtAudioInputDevicesManager;
    M* pWatcher = M::GetInstance();
    // Queued: the watcher is in the middle of its report.
    connect(
        pWatcher,
        &M::OnConnected,
        this,
        [this] {
            if (m_deviceName.isEmpty())
                Listen({});
        },
        Qt::QueuedConnection);
    pWatcher->Start();
    Q_EMIT OnDeviceChanged({}, false);
    Q_EMIT OnSourceChanged();
}

bool MonitorSession::isDevicePresent() const
{
    if (m_capture)
        return m_capture->getState() != eCaptureWaiting;
    return QtAudioInputDevicesManager::GetInstance()->GetAudioInputDevice(m_deviceName) != nullptr;
}

SourceState MonitorSession::getSource() const
{
    if (m_endedFile)
        return *m_endedFile;
    SourceState state;
    state.notice = m_notice;
    if (m_player) {
        state.kind = SourceState::eFile;
        state.name = QFileInfo(m_player->getPath()).fileName();
        state.position = m_player->getPosition();
        state.length = m_player->getLength();
    } else if (m_capture) {
        state.kind = SourceState::eDevice;
        state.name = m_capture->getDeviceName();
        state.capture = m_capture->getState();
        state.channels = m_capture->getInputFormat().channelCount();
        state.isPlaying = m_capture->isPlaying();
    }
    state.channels = std::max(state.channels, 0);
    return state;
}

int MonitorSession::TakePeak()
{
    return std::exchange(m_peak, 0);
}

// ---- The analysis -------------------------------------------------------------------------------

void MonitorSession::setFixedTempo(double pBPM)
{
    m_fixedTempo = pBPM;
    if (getAnalyzer())
        getAnalyzer()->setFixedBPM(pBPM);
}

void MonitorSession::Reset()
{
    if (getAnalyzer())
        getAnalyzer()->Reset();
    m_feed.Forget();
}

void MonitorSession::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    pAnalyzer->setFixedBPM(m_fixedTempo);
    _SetAnalyzer(pAnalyzer, pSampleRate);
}

void MonitorSession::_SetAnalyzer(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    m_feed.Follow(pAnalyzer, pSampleRate);
    Q_EMIT OnAnalyzerChanged(pAnalyzer);
}

void MonitorSession::_OnAnchored()
{
    m_feed.Restart();
    if (m_notice == eNoDataNotice)
        m_notice.reset();
    Q_EMIT OnSourceChanged();
}

void MonitorSession::_OnNotice(eCaptureNotice pNotice)
{
    m_notice = pNotice;
    if (pNotice == eClippedNotice)
        m_sinceClipped.start();
    Q_EMIT OnSourceChanged();
}

void MonitorSession::_OnCaptureState()
{
    if (m_capture->getState() != eCaptureRunning)
        m_notice.reset();
    Q_EMIT OnDeviceChanged(m_deviceName, isDevicePresent());
    Q_EMIT OnSourceChanged();
}

void MonitorSession::_OnFileEnded(const QString& pError)
{
    SourceState state = getSource();
    state.kind = SourceState::eEnded;
    state.error = pError;
    state.notice.reset();
    _SetAnalyzer(nullptr, 0);
    m_player.reset();
    m_notice.reset();
    m_endedFile = state;
    Q_EMIT OnSourceChanged();
}

void MonitorSession::_Tick()
{
    const int peak = m_player ? m_player->TakePeak() : m_capture ? m_capture->TakePeak() : 0;
    m_peak = std::max(m_peak, peak);
    if (peak >= kFullScale && m_notice == eClippedNotice)
        m_sinceClipped.start();
    _JudgeNotice();
}

/// What was noticed once holds until something shows that it is over.
void MonitorSession::_JudgeNotice()
{
    const bool isOver = m_notice == eClippedNotice
                            ? m_sinceClipped.elapsed() >= kClippedMs
                            : (m_notice == eTooQuietNotice || m_notice == eDigitalSilenceNotice) &&
                                  m_feed.Read().isPlaying;
    if (isOver) {
        m_notice.reset();
        Q_EMIT OnSourceChanged();
    }
}

#include "moc_MonitorSession.cpp"
