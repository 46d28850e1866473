// SPDX-License-Identifier: MIT
#include <desktop/look/Card.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/MainWindow.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

namespace {

/// The first local file that is dragged; empty = none.
QString FileOf(const QMimeData& pData)
{
    const QList<QUrl> urls = pData.urls();
    const auto found =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& pUrl) { return pUrl.isLocalFile(); });
    return found == urls.end() ? QString() : found->toLocalFile();
}

}  // namespace

void MainWindow::moveEvent(QMoveEvent* pEvent)
{
    QMainWindow::moveEvent(pEvent);
    // The window manager has put its frame around the window, which moved what is in it.
    if (m_place != Default && frameGeometry().size() != size())
        Place(m_place);
}

void MainWindow::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::LanguageChange) {
        _Retranslate();
        _ShowSource();
    }
    if (pEvent->type() == QEvent::WindowStateChange)
        _WatchRefresh();
    QMainWindow::changeEvent(pEvent);
}

void MainWindow::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    _WatchRefresh();
}

void MainWindow::hideEvent(QHideEvent* pEvent)
{
    QMainWindow::hideEvent(pEvent);
    _WatchRefresh();
}

void MainWindow::closeEvent(QCloseEvent* pEvent)
{
    pEvent->accept();
    QCoreApplication::quit();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!FileOf(*pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* pEvent)
{
    pEvent->acceptProposedAction();
    m_session.PlayFile(FileOf(*pEvent->mimeData()), false);
}

bool MainWindow::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == m_pLiveCard && pEvent->type() == QEvent::MouseButtonDblClick) {
        TurnStage();
        return true;
    }
    return QMainWindow::eventFilter(pObject, pEvent);
}
