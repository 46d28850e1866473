// SPDX-License-Identifier: MIT
#include <desktop/look/Card.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/settings/ProfilesPanel.h>
#include <desktop/stage/KeysPage.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>

#include <QAction>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

// ---- The hand -----------------------------------------------------------------------------------

void MainWindow::_ConnectHand()
{
    using P = ManualBeatPanel;
    using H = BeatHand;
    P& panel = m_pSettings->getManualBeat();
    H& hand = m_session.getHand();
    connect(&panel, &P::OnTapped, &hand, &H::Tap);
    connect(&panel, &P::OnScaled, &hand, &H::Scale);
    connect(&panel, &P::OnRounded, &hand, &H::Round);
    connect(&panel, &P::OnOneMarked, &hand, &H::MarkOne);
    connect(&panel, &P::OnHoldChosen, &hand, [&hand](bool pIsHeld) {
        pIsHeld ? hand.Hold() : hand.Release();
    });
    connect(&hand, &H::OnActed, this, &MainWindow::_ShowClock);
    connect(&panel, &P::OnOffsetChanged, &m_session, &MonitorSession::setOffset);
    panel.setOffset(m_session.getOffset());
}

QAction& MainWindow::getResetAction()
{
    return m_pBooth->get(eSearchAction);
}

/// The keys of the digits are the places in the list.
void MainWindow::_ShowProfiles()
{
    m_pBooth->setProfiles(m_pSettings->getProfiles().getNames());
}

// ---- The stage view -----------------------------------------------------------------------------

void MainWindow::_MakeStage()
{
    m_pBooth = new BoothActions(m_session.getHand(), this);
    m_pStage = new StageView(this);
    m_pKeys = new KeysPage(this);
    m_pStageKeys = new KeysPage(m_pStage);
    m_pBooth->AddTo(*this);
    m_pBooth->AddTo(*m_pStage);
    auto* pEscape = new QShortcut(QKeySequence(Qt::Key_Escape), m_pStage);
    connect(pEscape, &QShortcut::activated, this, [this] {
        m_pStageKeys->isHidden() ? LeaveStage() : m_pStageKeys->hide();
    });
}

void MainWindow::_ConnectStage()
{
    connect(m_pStage, &StageView::OnLeft, this, &MainWindow::LeaveStage);
    const auto on = [this](eBoothAction pAction, auto pDo) {
        connect(&m_pBooth->get(pAction), &QAction::triggered, this, pDo);
    };
    ProfilesPanel& profiles = m_pSettings->getProfiles();
    on(
        eSearchAction, [this] { m_session.Reset(); });
    on(
        eStageAction, [this] { TurnStage(); });
    on(eKeysAction, [this] { _ShowKeys(); });
    MonitorOutputs& outputs = m_session.getOutputs();
    on(eOutputsAction, [this, &outputs] { _ShowProblems(outputs.setOn(!outputs.isOn())); });
    connect(&outputs, &MonitorOutputs::OnChanged, this, &MainWindow::_ShowLamps);
    on(eMuteAction, [this] { m_session.setMuted(m_pBooth->get(eMuteAction).isChecked()); });
    m_pBooth->get(eMuteAction).setChecked(m_session.isMuted());
    on(eAutomaticAction, [&profiles] { profiles.ChooseAutomatic(); });
    connect(m_pBooth, &BoothActions::OnProfileChosen, &profiles, &ProfilesPanel::ChooseProfile);
    connect(&profiles, &ProfilesPanel::OnConfigurationChanged, this, &MainWindow::_ShowProfiles);
    m_pLiveCard->installEventFilter(this);
    _ShowProfiles();
}

void MainWindow::TurnStage()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    // The window's own screen comes first, then those behind it in the list, around.
    const int own = screens.indexOf(screen());
    const int now = m_pStage->isVisible() ? screens.indexOf(m_pStage->screen()) : -1;
    const int next = now < 0 ? own : (now + 1) % screens.size();
    if (now >= 0 && next == own)
        return LeaveStage();
    const QRect place = screens[next]->geometry();
    if (m_pStage->isVisible())
        m_pStage->showNormal();
    m_pStage->setGeometry(place);
    m_pStage->windowHandle() ? m_pStage->windowHandle()->setScreen(screens[next]) : void();
    m_pStage->showFullScreen();
    m_pStage->activateWindow();
    _WatchRefresh();
}

void MainWindow::LeaveStage()
{
    m_pStage->hide();
    activateWindow();
    _WatchRefresh();
}

void MainWindow::_ShowLamps()
{
    const SourceState source = m_session.getSource();
    const bool isTrouble = source.kind == SourceState::eNone || source.notice ||
                           source.capture == eCaptureUnusable || !source.error.isEmpty();
    StageLamp lamp;
    lamp.name = source.kind == SourceState::eNone ? tr("No input") : source.name;
    lamp.state = isTrouble          ? StageLamp::eTrouble
                 : source.isPlaying ? StageLamp::eWorking
                                    : StageLamp::eWaiting;
    std::vector<StageLamp> lamps = {lamp};
    for (const MonitorOutputs::State& output : m_session.getOutputs().getStates())
        lamps.push_back(
            {output.name, output.isReached ? StageLamp::eWorking : StageLamp::eWaiting});
    m_pStage->setLamps(lamps);
    m_pBooth->get(eOutputsAction).setChecked(m_session.getOutputs().isOn());
}

void MainWindow::BeginOutputs()
{
    _ShowProblems(m_session.getOutputs().setOn(true));
}

void MainWindow::_ShowProblems(const QStringList& pProblems)
{
    if (!pProblems.isEmpty())
        ShowProblem(pProblems.join(QLatin1Char('\n')));
}

void MainWindow::_ShowKeys()
{
    (m_pStage->isVisible() ? m_pStageKeys : m_pKeys)->Toggle(BoothActions::getPage());
}
