// SPDX-License-Identifier: MIT
#include <desktop/live/StripPanel.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/MainWindow.h>

#include <QAction>

/// Its keys show it first.
void MainWindow::_ConnectStrip()
{
    QAction& pause = m_pBooth->get(ePauseAction);
    const auto on = [this](eBoothAction pAction, auto pDo) {
        connect(
            &m_pBooth->get(pAction),
            &QAction::triggered,
            this,
            [this, pDo] {
                setPanelVisible(eStripPanel, true);
                pDo();
            });
    };
    on(
        ePauseAction, [this, &pause] { m_pStrip->setPaused(pause.isChecked()); });
    on(
        eNearerAction, [this] { m_pStrip->Zoom(1); });
    on(eFartherAction, [this] { m_pStrip->Zoom(-1); });
    connect(m_pStrip, &StripPanel::OnPaused, &pause, &QAction::setChecked);
}
