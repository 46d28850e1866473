// SPDX-License-Identifier: MIT
#include <desktop/look/Icon.h>
#include <desktop/window/Tray.h>

#include <QAction>
#include <QWidget>

#include <utility>

Tray::Tray(QWidget& pWindow, QAction& pReset, QAction& pQuit, std::function<bool()> pIsAvailable)
    : m_window(pWindow), m_isAvailable(std::move(pIsAvailable)),
      m_pToggle(m_menu.addAction(QString())), m_icon(makeIcon())
{
    m_menu.addAction(&pReset);
    m_menu.addSeparator();
    m_menu.addAction(&pQuit);
    m_icon.setContextMenu(&m_menu);
    connect(m_pToggle, &QAction::triggered, this, &Tray::Toggle);
    connect(&m_menu, &QMenu::aboutToShow, this, &Tray::Retranslate);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](auto pReason) {
        if (pReason == QSystemTrayIcon::Trigger)
            Toggle();
    });
    connect(&m_watch, &QTimer::timeout, this, &Tray::_Watch);
    Retranslate();
}

void Tray::Start(bool pIsHidden)
{
    if (m_isAvailable())
        m_icon.show();
    if (!pIsHidden || !m_isAvailable())
        _Show();
    m_watch.start(kWatchMs);
}

void Tray::Toggle()
{
    if (m_window.isVisible() && !m_window.isMinimized() && m_isAvailable())
        m_window.hide();
    else
        _Show();
}

void Tray::Retranslate()
{
    m_pToggle->setText(m_window.isVisible() ? tr("&Hide window") : tr("&Show window"));
    m_icon.setToolTip(QStringLiteral("beat-monitor"));
}

void Tray::_Show()
{
    m_window.show();
    if (m_window.isMinimized())
        m_window.showNormal();
    m_window.raise();
    m_window.activateWindow();
}

void Tray::_Watch()
{
    const bool isAvailable = m_isAvailable();
    if (isAvailable != m_icon.isVisible())
        m_icon.setVisible(isAvailable);
    if (!isAvailable && !m_window.isVisible())
        _Show();
}

#include "moc_Tray.cpp"
