// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/session/DeviceChoice.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/session/SourceTexts.h>
#include <shared/capture/CaptureSession.h>
#include <shared/capture/InputDevices.h>
#include <shared/play/FilePlayer.h>

#include <QFile>

#include <algorithm>
#include <utility>

namespace {

constexpr int kWatchMs = 200;
constexpr int kClippedMs = 4000;  ///< how long a clipped level is told
constexpr int kFullScale = 32767;

}  // namespace

MonitorSession::MonitorSession(QObject* pParent) : QObject(pParent)
{
    connect(&m_tick, &QTimer::timeout, this, &MonitorSession::_Tick);
    connect(&m_saver, &ConfigurationSaver::OnTakenOver, this, &MonitorSession::_OnTakenOver);
    connect(&m_hand, &BeatHand::OnHeldTempoChanged, this, [this](double pBPM) {
        if (getAnalyzer())
            getAnalyzer()->setFixedBPM(pBPM);
    });
    connect(&m_feed, &LiveFeed::OnBeatDue, &m_strip, &StripLog::AddBeat);
    m_tick.start(kWatchMs);
}

MonitorSession::~MonitorSession()
{
    m_feed.Follow(nullptr, 0);
    m_beats.Follow(nullptr);
    m_outputs.Follow(nullptr);
    m_strip.Follow(nullptr);
    m_sound.Follow(nullptr);
}

bool MonitorSession::Load(QString& pError)
{
    const bool isFirstStart = !QFile::exists(ConfigurationStore::getPath());
    const bool isLoaded = m_store.Load();
    m_isNew = isFirstStart;
    if (isFirstStart)
        _BeginPlainly();
    pError = isLoaded ? m_store.getNotice() : m_store.getError();
    m_deviceName = m_store.getDeviceName();
    m_beatSettings = BeatSettings::Load();
    m_beats.setAutomatic(m_beatSettings.isAutomatic);
    m_beats.getClock().setOffset(std::int64_t(m_beatSettings.offset * 1000.0));
    m_saver.Watch();
    return isLoaded;
}

/// A window that nobody has set up yet is as the desktop is, and stays among the others.
void MonitorSession::_BeginPlainly()
{
    Configuration& configuration = m_store.getConfiguration();
    configuration.setGrayMode(false);
    configuration.setTopMost(false);
    configuration.setIsModified(false);
}

AudioAnalyzer* MonitorSession::getAnalyzer() const
{
    return m_source ? m_source->getAnalyzer() : nullptr;
}

// ---- The source ---------------------------------------------------------------------------------

void MonitorSession::Listen(const QString& pName)
{
    _Close();
    m_deviceName = pName;
    if (m_deviceName.isEmpty())
        m_deviceName = m_store.getDeviceName();
    m_isChoiceOurs = m_deviceName.isEmpty();
    if (m_deviceName.isEmpty())
        m_deviceName = chooseDevice(listInputDevices());
    if (m_deviceName.isEmpty())
        return _WaitForAnyDevice();
    auto capture = std::make_unique<CaptureSession>(m_store.getConfiguration());
    CaptureSession* pCapture = capture.get();
    _TakeSource(std::move(capture));
    if (m_deviceName != kDefaultInput)
        return pCapture->Open(m_deviceName);
    if (SoundBackEnd::get())
        pCapture->FollowDefault();
    pCapture->Open(chooseDevice(listInputDevices()));
}

void MonitorSession::ChooseDevice(const QString& pName)
{
    const bool isListening = m_source && !isFilePlaying();
    if (pName != m_store.getDeviceName()) {
        m_store.setDeviceName(pName);
        m_saver.Touch();
    }
    if (pName != m_deviceName || !isListening)
        Listen(pName);
}

void MonitorSession::PlayFile(const QString& pPath, bool pIsLooped)
{
    _Close();
    auto player = std::make_unique<FilePlayer>(m_store.getConfiguration());
    m_pPlayer = player.get();
    _TakeSource(std::move(player));
    m_pPlayer->WantSound();
    m_pPlayer->setMuted(m_isMuted);
    m_pPlayer->Open(pPath, pIsLooped);
    Q_EMIT OnSourceChanged();
}

void MonitorSession::setMuted(bool pIsMuted)
{
    m_isMuted = pIsMuted;
    if (m_pPlayer)
        m_pPlayer->setMuted(pIsMuted);
    Q_EMIT OnSourceChanged();
}

void MonitorSession::StopFile()
{
    if (isFilePlaying() || m_endedFile)
        Listen(m_deviceName);
}

void MonitorSession::_Close()
{
    QtAudioInputDevicesManager::GetInstance()->disconnect(this);
    _SetAnalyzer(nullptr, 0);
    m_beats.Follow(nullptr);
    m_outputs.Follow(nullptr);
    m_strip.Follow(nullptr);
    m_sound.Follow(nullptr);
    m_source.reset();
    m_pPlayer = nullptr;
    m_endedFile.reset();
    m_notice.reset();
    m_peak = 0;
}

void MonitorSession::_TakeSource(std::unique_ptr<LiveSource> pSource)
{
    m_source = std::move(pSource);
    LiveSource* pNew = m_source.get();
    m_beats.Follow(pNew);
    m_outputs.Follow(pNew);
    m_strip.Follow(pNew);
    m_sound.Follow(pNew);
    using S = LiveSource;
    connect(pNew, &S::OnAnalyzerCreated, this, &MonitorSession::_OnAnalyzerCreated);
    connect(pNew, &S::OnAnchored, this, &MonitorSession::_OnAnchored);
    connect(pNew, &S::OnSamples, &m_feed, &LiveFeed::HearInput);
    connect(pNew, &S::OnNotice, this, &MonitorSession::_OnNotice);
    connect(pNew, &S::OnSourceChanged, this, &MonitorSession::_OnSourceChanged);
    // Queued, since the source is deleted then; meanwhile another may have taken its place.
    connect(
        pNew,
        &S::OnEnded,
        this,
        [this, pNew](const QString& pError) {
            if (m_source.get() == pNew)
                _OnFileEnded(pError);
        },
        Qt::QueuedConnection);
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

bool MonitorSession::isFilePlaying() const
{
    return m_source && m_source->getSource().kind == SourceState::eFile;
}

bool MonitorSession::isDevicePresent() const
{
    const SourceState source = m_source ? m_source->getSource() : SourceState();
    if (source.kind == SourceState::eDevice)
        return source.capture != eCaptureWaiting;
    return QtAudioInputDevicesManager::GetInstance()->GetAudioInputDevice(m_deviceName) != nullptr;
}

SourceState MonitorSession::getSource() const
{
    if (m_endedFile)
        return *m_endedFile;
    SourceState state = m_source ? m_source->getSource() : SourceState();
    state.notice = m_notice;
    return state;
}

int MonitorSession::TakePeak()
{
    return std::exchange(m_peak, 0);
}

// ---- The analysis -------------------------------------------------------------------------------

void MonitorSession::setAutomatic(bool pIsAutomatic)
{
    if (pIsAutomatic == isAutomatic())
        return;
    m_beats.setAutomatic(pIsAutomatic);
    m_beatSettings.isAutomatic = pIsAutomatic;
    _SaveBeats();
    Q_EMIT OnSourceChanged();
}

void MonitorSession::setOffset(double pMs)
{
    m_beatSettings.offset = pMs;
    m_beats.getClock().setOffset(std::int64_t(pMs * 1000.0));
    _SaveBeats();
}

void MonitorSession::_SaveBeats()
{
    if (!m_beatSettings.Save())
        Q_EMIT m_saver.OnFailed(tr("The choice of the beats cannot be stored in %1.")
                                    .arg(UISettings::_getDefaultPath()));
}

void MonitorSession::Reset()
{
    if (getAnalyzer())
        getAnalyzer()->Reset();
    m_hand.Reset();
    m_feed.Forget();
}

/// Another device is for the next start: what is recorded now goes on.
void MonitorSession::_OnTakenOver()
{
    AudioAnalyzer* pAnalyzer = getAnalyzer();
    if (!pAnalyzer)
        return;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.reader == SettingsTable::eTold)
            AnalyzerSettings::Tell(setting, setting.get(m_store.getConfiguration()), *pAnalyzer);
}

void MonitorSession::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer)
{
    pAnalyzer->setFixedBPM(m_hand.getHeldTempo());
    _SetAnalyzer(pAnalyzer, m_source->getSampleRate());
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

void MonitorSession::_OnSourceChanged()
{
    const SourceState source = m_source->getSource();
    if (source.kind == SourceState::eDevice && source.capture != eCaptureRunning)
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
    m_beats.Follow(nullptr);
    m_outputs.Follow(nullptr);
    m_strip.Follow(nullptr);
    m_sound.Follow(nullptr);
    m_source.reset();
    m_pPlayer = nullptr;
    m_notice.reset();
    m_endedFile = state;
    Q_EMIT OnSourceChanged();
}

void MonitorSession::_Tick()
{
    const int peak = m_source ? m_source->TakePeak() : 0;
    m_peak = std::max(m_peak, peak);
    if (peak >= kFullScale && m_notice == eClippedNotice)
        m_sinceClipped.start();
    _JudgeNotice();
    m_strip.Advance();
    m_strip.Say(SourceTexts::DescribeBriefly(getSource()));
    _JudgeBeginning();
}

/// The first beat shows that all is well.
void MonitorSession::_JudgeBeginning()
{
    if (!m_isNew || m_feed.getBeatCount() == 0)
        return;
    m_isNew = false;
    Q_EMIT OnSourceChanged();
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
