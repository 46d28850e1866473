// SPDX-License-Identifier: MIT
#include <desktop/live/StripCanvas.h>
#include <desktop/live/StripPanel.h>
#include <desktop/look/Look.h>
#include <desktop/save/MomentFile.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SaveDialog.h>

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QPixmap>
#include <QStandardPaths>

namespace {

constexpr int kSavedWidth = 1600;  // pixels
constexpr int kSavedHeight = 400;  // pixels

/// All of it, however much of it is seen.
QImage Draw(const StripData& pData)
{
    StripCanvas canvas;
    canvas.setPalette(makePalette(eLightLook));
    canvas.resize(kSavedWidth, kSavedHeight);
    canvas.setColors(getColors(eLightLook));
    canvas.Show(pData);
    return canvas.grab().toImage();
}

}  // namespace

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

// ---- The file -----------------------------------------------------------------------------------

bool MainWindow::SaveMoment(const QString& pPath)
{
    m_session.getStrip().Advance();
    MomentFile file(m_session);
    const bool isSaved = file.Save(pPath, Draw(m_session.getStrip().getData()));
    ShowProblem(file.getError());
    return isSaved;
}

void MainWindow::_AskToSave()
{
    SaveDialog dialog(m_session.getSound(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString path = QFileDialog::getSaveFileName(
        this,
        tr("Save what happened"),
        folder.filePath(MomentFile::MakeName(QDateTime::currentDateTime())),
        tr("Zip files (*.zip);;All files (*)"));
    if (!path.isEmpty())
        SaveMoment(path);
}
