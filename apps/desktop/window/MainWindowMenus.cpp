// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <desktop/look/Card.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/MainWindow.h>

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

void MainWindow::_MakeActions()
{
    m_pFileMenu = menuBar()->addMenu(QString());
    m_pOpen = m_pFileMenu->addAction(QString(), this, &MainWindow::_OpenFile);
    m_pOpen->setShortcut(QKeySequence::Open);
    m_pStop = m_pFileMenu->addAction(QString(), this, [this] { m_session.StopFile(); });
    m_pFileMenu->addAction(&m_pBooth->get(eMuteAction));
    m_pSave = m_pFileMenu->addAction(QString(), this, &MainWindow::_AskToSave);
    m_pSave->setShortcut(QKeySequence::Save);
    m_pFileMenu->addSeparator();
    m_pQuit = m_pFileMenu->addAction(QString(), this, &QWidget::close);
    m_pQuit->setShortcut(Qt::CTRL + Qt::Key_Q);
    m_pBeatMenu = menuBar()->addMenu(QString());
    m_pBooth->FillMenu(*m_pBeatMenu);
    m_pViewMenu = menuBar()->addMenu(QString());
    for (int panel = 0; panel < ePanelCount; ++panel) {
        QAction* pAction = m_pViewMenu->addAction(QString());
        pAction->setCheckable(true);
        pAction->setVisible(m_panels[std::size_t(panel)] != nullptr);
        connect(pAction, &QAction::triggered, this, [this, panel](bool pIsChecked) {
            setPanelVisible(ePanel(panel), pIsChecked);
        });
        m_actions[std::size_t(panel)] = pAction;
    }
    m_pViewMenu->addSeparator();
    for (const eBoothAction action : {ePauseAction, eNearerAction, eFartherAction, eStageAction})
        m_pViewMenu->addAction(&m_pBooth->get(action));
    const auto addFlag = [this](bool pIsChecked) {
        QAction* pAction = m_pViewMenu->addAction(QString());
        pAction->setCheckable(true);
        pAction->setChecked(pIsChecked);
        connect(pAction, &QAction::toggled, this, &MainWindow::ApplyFlags);
        return pAction;
    };
    m_pSoftFlash = addFlag(m_windowSettings.isFlashSoft);
    m_pLimitFlash = addFlag(m_windowSettings.isFlashLimited);
    m_pContrast = addFlag(m_windowSettings.isHighContrast);
    m_pHelpMenu = menuBar()->addMenu(QString());
    m_pHelpMenu->addAction(&m_pBooth->get(eKeysAction));
    m_pAbout = m_pHelpMenu->addAction(QString(), this, &MainWindow::_About);
}

void MainWindow::_Retranslate()
{
    setWindowTitle(tr("Beat Monitor"));
    m_pFileMenu->setTitle(tr("&File"));
    m_pOpen->setText(tr("&Open audio file…"));
    m_pStop->setText(tr("&Listen to the input again"));
    m_pSave->setText(tr("&Save what happened…"));
    m_pQuit->setText(tr("&Quit"));
    m_pBeatMenu->setTitle(tr("&Beat"));
    m_pBooth->Retranslate();
    m_pViewMenu->setTitle(tr("&View"));
    m_actions[eBPMPanel]->setText(tr("&Tempo"));
    m_actions[eBeatLEDPanel]->setText(tr("&Beat lamp"));
    m_actions[ePulseLEDPanel]->setText(tr("P&ulse lamp"));
    m_actions[eSpectrumPanel]->setText(tr("&Spectrum"));
    m_actions[eThresholdPanel]->setText(tr("T&hreshold"));
    m_actions[eDevicesPanel]->setText(tr("&Input devices"));
    m_actions[eProfilesPanel]->setText(tr("&Profiles"));
    m_actions[eManualBeatPanel]->setText(tr("&Manual beat"));
    m_actions[eOutputsPanel]->setText(tr("&Outputs"));
    m_actions[eDurationsPanel]->setText(tr("&Durations"));
    m_actions[eAdvancedSettingsPanel]->setText(tr("&Advanced settings"));
    m_actions[eResetPanel]->setText(tr("R&eset button"));
    m_actions[eStripPanel]->setText(tr("Last two mi&nutes"));
    m_pSoftFlash->setText(tr("Soft f&lash"));
    m_pSoftFlash->setToolTip(tr("The stage view only glows with the beat."));
    m_pLimitFlash->setText(tr("At most three &flashes a second"));
    m_pContrast->setText(tr("High &contrast"));
    m_pHelpMenu->setTitle(tr("&Help"));
    m_pAbout->setText(tr("&About beat-monitor"));
    m_pSpectrumCard->setTitle(tr("Spectrum"));
    m_pLevelCard->setTitle(tr("Volume and threshold"));
    m_pStripCard->setTitle(tr("Last two minutes"));
    m_pResetButton->setText(tr("Reset (R)"));
    m_pResetButton->setToolTip(tr("Forgets the tempo and starts to search again."));
}

void MainWindow::_OpenFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this,
        tr("Open audio file"),
        {},
        tr("Audio files (*.wav *.flac *.ogg *.opus *.mp3 *.aiff *.aif);;All files (*)"));
    if (!path.isEmpty())
        m_session.PlayFile(path, false);
}

void MainWindow::_About()
{
    QMessageBox::about(this,
                       tr("About beat-monitor"),
                       tr("<b>beat-monitor %1</b><p>Shows the beat and the tempo of live music.</p>"
                          "<p>MIT licence.</p>")
                           .arg(QStringLiteral(AUDIOANALYZER_VERSION)));
}
