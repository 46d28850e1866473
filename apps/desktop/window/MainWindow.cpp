// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/live/BpmPanel.h>
#include <desktop/live/LedPanel.h>
#include <desktop/live/LevelPanel.h>
#include <desktop/live/SpeakersPanel.h>
#include <desktop/live/SpectrumPanel.h>
#include <desktop/live/StripPanel.h>
#include <desktop/look/Card.h>
#include <desktop/look/Look.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/session/SourceTexts.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/settings/ProfilesPanel.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/GrowingRow.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/Placement.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace {

constexpr qint64 kStatusMs = 200;

}  // namespace

MainWindow::MainWindow(MonitorSession& pSession,
                       const WindowSettings& pSettings,
                       const QPalette& pDesktop,
                       QWidget* pParent)
    : QMainWindow(pParent), m_session(pSession), m_windowSettings(pSettings), m_desktop(pDesktop)
{
    setAcceptDrops(true);
    m_session.setMuted(pSettings.isMuted);
    _MakePanels();
    _MakeStage();
    _MakeActions();
    _MakeLayout();
    _Connect();
    _ConnectStage();
    _ConnectStrip();
    _ConnectSettings();
    m_session.getHand().setLocking(pSettings.isManualBeatLockingBPM);
    _Retranslate();
    for (int panel = 0; panel < ePanelCount; ++panel)
        setPanelVisible(ePanel(panel), pSettings.visible[std::size_t(panel)]);
    ApplyFlags();
    _ShowSource();
    _SetSize();
    m_refresh.setTimerType(Qt::PreciseTimer);
}

MainWindow::~MainWindow() = default;

// ---- What it is made of -------------------------------------------------------------------------

void MainWindow::_MakePanels()
{
    Configuration& configuration = m_session.getConfiguration();
    m_pBpm = new BpmPanel(configuration);
    m_pBeatLed = new LedPanel(LedPanel::eBeats);
    m_pPulseLed = new LedPanel(LedPanel::ePulses);
    m_pSpeakers = new SpeakersPanel;
    m_pSpectrum = new SpectrumPanel(configuration);
    m_pLevels = new LevelPanel(configuration);
    m_pResetButton = new QPushButton;
    m_pStrip = new StripPanel(m_session.getStrip());
    m_livePanels = {m_pBpm, m_pBeatLed, m_pPulseLed, m_pSpeakers, m_pSpectrum, m_pLevels, m_pStrip};
    m_pLiveCard = new Card(_MakeLiveRow());
    m_pSpectrumCard = new Card(m_pSpectrum);
    m_pLevelCard = new Card(m_pLevels);
    m_pStripCard = new Card(m_pStrip);
    m_pSettings = new SettingsColumn(configuration, m_session.getOutputs());
    m_pStatus = new StatusLine;
    for (int panel = 0; panel < ePanelCount; ++panel)
        m_panels[std::size_t(panel)] = m_pSettings->getPanel(ePanel(panel));
    m_panels[eBPMPanel] = m_pBpm;
    m_panels[eBeatLEDPanel] = m_pBeatLed;
    m_panels[ePulseLEDPanel] = m_pPulseLed;
    m_panels[eSpectrumPanel] = m_pSpectrumCard;
    m_panels[eThresholdPanel] = m_pLevelCard;
    m_panels[eResetPanel] = m_pResetButton;
    m_panels[eStripPanel] = m_pStripCard;
}

QWidget* MainWindow::_MakeLiveRow()
{
    m_pGrowing = new GrowingRow;
    m_pGrowing->Add(m_pBpm, 1);
    m_pGrowing->Add(m_pBeatLed);
    m_pGrowing->Add(m_pPulseLed);
    m_pGrowing->Add(m_pSpeakers);
    auto* pRow = new QWidget;
    auto* pLayout = new QHBoxLayout(pRow);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(fontMetrics().height());
    pLayout->addWidget(m_pGrowing, 1);
    pLayout->addWidget(m_pResetButton, 0, Qt::AlignVCenter);
    return pRow;
}

void MainWindow::_MakeLayout()
{
    const int gap = fontMetrics().height() / 2;
    auto* pCenter = new QWidget;
    auto* pLive = new QVBoxLayout;
    pLive->setSpacing(gap);
    pLive->addWidget(m_pLiveCard, 1);
    pLive->addWidget(m_pSpectrumCard, 5);
    pLive->addWidget(m_pLevelCard);
    pLive->addWidget(m_pStripCard, 2);
    auto* pColumns = new QHBoxLayout;
    pColumns->setSpacing(gap);
    pColumns->addLayout(pLive, 3);
    pColumns->addWidget(m_pSettings, 1);
    auto* pLayout = new QVBoxLayout(pCenter);
    pLayout->setContentsMargins(gap, gap, gap, gap);
    pLayout->setSpacing(gap);
    pLayout->addLayout(pColumns, 1);
    pLayout->addWidget(m_pStatus);
    setCentralWidget(pCenter);
}

/// High enough for all settings, as far as the screen goes.
void MainWindow::_SetSize()
{
    const QSize screenSize = screen()->availableSize() * 9 / 10;
    const int around = menuBar()->sizeHint().height() + m_pStatus->sizeHint().height();
    const int gaps = 2 * fontMetrics().height();
    const int height = m_pSettings->sizeHint().height() + around + gaps;
    if (!m_windowSettings.size.isEmpty())
        return resize(m_windowSettings.size.boundedTo(screen()->availableSize()));
    resize(sizeHint().expandedTo({0, height}).boundedTo(screenSize));
}

void MainWindow::_Connect()
{
    using S = MonitorSession;
    connect(&m_session, &S::OnSourceChanged, this, &MainWindow::_ShowSource);
    ConfigurationSaver& saver = m_session.getSaver();
    connect(&saver, &ConfigurationSaver::OnFailed, this, &MainWindow::ShowProblem);
    connect(&saver, &ConfigurationSaver::OnSaved, this, [this] { ShowProblem({}); });
    connect(&saver, &ConfigurationSaver::OnTakenOver, this, &MainWindow::_OnTakenOver);
    connect(m_pLevels, &LevelPanel::OnConfigurationChanged, &saver, &ConfigurationSaver::Touch);
    connect(
        m_pResetButton, &QPushButton::clicked, &m_pBooth->get(eSearchAction), &QAction::trigger);
    connect(&m_session.getFeed(), &LiveFeed::OnFlashed, this, &MainWindow::_OnFlashed);
    connect(&m_refresh, &QTimer::timeout, this, &MainWindow::_Refresh);
}

void MainWindow::_ConnectSettings()
{
    using S = MonitorSession;
    SettingsColumn& column = *m_pSettings;
    connect(&m_session, &S::OnAnalyzerChanged, &column, &SettingsColumn::setAnalyzer);
    connect(&m_session,
            &S::OnDeviceChanged,
            &column.getDevices(),
            &InputDevicesPanel::setCurrentDevice);
    connect(&column.getDevices(), &InputDevicesPanel::OnDeviceChosen, &m_session, &S::ChooseDevice);
    _ConnectHand();
    connect(&column.getProfiles(),
            &ProfilesPanel::OnAutomaticChosen,
            this,
            [this](bool pIsAutomatic) { m_session.setAutomatic(pIsAutomatic); });
    column.getProfiles().setAutomatic(m_session.isAutomatic());
    column.getDevices().setFallback(m_session.isFallback());
    connect(&column,
            &SettingsColumn::OnConfigurationChanged,
            &m_session.getSaver(),
            &ConfigurationSaver::Touch);
    using A = AdvancedSettingsPanel;
    const A& advanced = column.getAdvanced();
    connect(&advanced, &A::OnGrayModeChanged, this, &MainWindow::ApplyFlags);
    connect(&advanced, &A::OnTopMostChanged, this, &MainWindow::ApplyFlags);
    connect(&advanced, &A::OnDisplaySpeakersChanged, this, &MainWindow::ApplyFlags);
    connect(&advanced, &A::OnDisplayStoppedChanged, this, &MainWindow::ApplyFlags);
    connect(&advanced, &A::OnLanguageChanged, this, &MainWindow::OnLanguageChosen);
}

// ---- What it shows ------------------------------------------------------------------------------

void MainWindow::_Refresh()
{
    const bool isSeen = !windowHandle() || windowHandle()->isExposed();
    if (!isSeen && !m_pStage->isVisible())
        return;
    LiveFeed& feed = m_session.getFeed();
    const LiveValues& values = feed.Read();
    const qint64 now = feed.getTime();
    const bool isCovered = m_pStage->isVisible() && m_pStage->screen() == screen();
    if (m_pStage->isVisible())
        m_pStage->Refresh(values, now);
    for (LivePanel* pPanel : m_livePanels)
        if (!isCovered && pPanel->isVisible())
            pPanel->Refresh(values, now);
    _ChoosePace(values, now);
    if (now - m_lastStatus >= kStatusMs) {
        m_lastStatus = now;
        _ShowSource();
        _ShowClock();
    }
}

void MainWindow::_ShowClock()
{
    m_pSettings->getManualBeat().setClock(m_session.getBeats().getClock().getState(),
                                          m_session.getFeed().getShownTempo());
}

void MainWindow::_OnFlashed()
{
    if (m_refresh.isActive() && m_refresh.interval() != kFlashMs)
        m_refresh.start(kFlashMs);
}

void MainWindow::_ChoosePace(const LiveValues& pValues, qint64 pNow)
{
    const qint64 last = std::max(pValues.beatTime, pValues.pulseTime);
    const qint64 fade = m_pStage->isVisible() ? StageView::kFadeMs : LedPanel::kFadeMs;
    const bool isFading = pNow - last <= fade + kFlashMs;
    if (!isFading && m_refresh.interval() != kCalmMs)
        m_refresh.start(kCalmMs);
}

void MainWindow::_WatchRefresh()
{
    if ((isVisible() && !isMinimized()) || m_pStage->isVisible())
        m_refresh.start(kCalmMs);
    else
        m_refresh.stop();
}

void MainWindow::_ShowSource()
{
    const SourceState source = m_session.getSource();
    const SourceTexts::Text text = SourceTexts::Describe(source);
    m_pStatus->setSource(text.text, text.isWarning);
    m_pBpm->setHelp(m_session.isNew() ? SourceTexts::DescribeBeginning(source) : QString());
    _ShowLamps();
    m_pStop->setEnabled(source.kind == SourceState::eFile || source.kind == SourceState::eEnded);
}

void MainWindow::ShowProblem(const QString& pText)
{
    m_pStatus->setProblem(pText);
    if (!pText.isEmpty())
        m_session.getStrip().Say(pText);
}

QString MainWindow::getProblem() const
{
    return m_pStatus->getProblem();
}

void MainWindow::setPanelVisible(ePanel pPanel, bool pIsVisible)
{
    QWidget* pWidget = m_panels[std::size_t(pPanel)];
    if (pWidget)
        pWidget->setVisible(pIsVisible);
    m_actions[std::size_t(pPanel)]->setChecked(pIsVisible);
    _HideEmptyCards();
}

bool MainWindow::isPanelVisible(ePanel pPanel) const
{
    const QWidget* pWidget = m_panels[std::size_t(pPanel)];
    return pWidget && !pWidget->isHidden();
}

void MainWindow::_HideEmptyCards()
{
    const std::initializer_list<const QWidget*> row = {
        m_pBpm, m_pBeatLed, m_pPulseLed, m_pSpeakers, m_pResetButton};
    m_pSettings->HideWhenEmpty();
    m_pLiveCard->setHidden(std::all_of(
        row.begin(), row.end(), [](const QWidget* pPanel) { return pPanel->isHidden(); }));
}

void MainWindow::ApplyFlags()
{
    const Configuration& configuration = m_session.getConfiguration();
    m_pSpeakers->setVisible(configuration.getDisplaySpeakers());
    m_windowSettings.isHighContrast = m_pContrast->isChecked();
    m_windowSettings.isFlashSoft = m_pSoftFlash->isChecked();
    m_windowSettings.isFlashLimited = m_pLimitFlash->isChecked();
    m_pStage->setFlash(m_windowSettings.isFlashSoft, m_windowSettings.isFlashLimited);
    m_pBpm->setStoppedShown(AdvancedSettingsPanel::isStoppedDisplayed(configuration));
    _HideEmptyCards();
    _ApplyLook();
    _ApplyTopMost();
}

/// Another program has stored other settings.
void MainWindow::_OnTakenOver()
{
    if (!m_session.getNotice().isEmpty())
        ShowProblem(m_session.getNotice());
    m_pSettings->Refresh();
    // What is recorded goes on, whatever device is stored.
    m_pSettings->getDevices().setCurrentDevice(m_session.getDeviceName(),
                                               m_session.isDevicePresent());
    ApplyFlags();
    Q_EMIT OnLanguageChosen(m_session.getConfiguration().getLanguage());
}

void MainWindow::_ApplyLook()
{
    const bool isGray = m_session.getConfiguration().getGrayMode();
    const eLook look = chooseLook(m_windowSettings.isHighContrast, isGray, m_desktop);
    const LookColors& colors = getColors(look);
    QApplication::setPalette(makePalette(look));
    for (LivePanel* pPanel : m_livePanels)
        pPanel->setColors(colors);
    // The stage is always dark.
    m_pStage->setColors(look == eLightLook ? getColors(eDarkLook) : colors);
    m_pStatus->setWarningColor(colors.warning);
}

void MainWindow::_ApplyTopMost()
{
    const bool isTopMost = m_session.getConfiguration().isTopMost();
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == isTopMost)
        return;
    // A change of the flags hides the window.
    const bool wasVisible = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, isTopMost);
    if (wasVisible)
        show();
}

WindowSettings MainWindow::CollectSettings() const
{
    WindowSettings settings = m_windowSettings;
    settings.isMuted = m_session.isMuted();
    for (int panel = 0; panel < ePanelCount; ++panel)
        settings.visible[std::size_t(panel)] = m_actions[std::size_t(panel)]->isChecked();
    // One that fills the screen has no size of its own.
    if (!isMaximized() && !isFullScreen()) {
        settings.size = size();
        settings.place = pos();
    }
    return settings;
}

void MainWindow::Place(eStartingPosition pPosition)
{
    const auto& left = m_windowSettings.place;
    if (pPosition == Default && left && QGuiApplication::screenAt(*left))
        return move(*left);
    // Before it is shown, a position is that of the frame; only the frame's size is unknown yet.
    m_place = frameGeometry().size() == size() ? pPosition : Default;
    const QScreen* pScreen = screen();
    const QSize frame = frameGeometry().size();
    if (const auto corner = placeWindow(pPosition, frame, pScreen->availableGeometry()))
        move(*corner);
}

#include "moc_MainWindow.cpp"
