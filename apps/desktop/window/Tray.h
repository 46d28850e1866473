// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <functional>

class QAction;
class QWidget;

/// The icon in the system tray: shows and hides the window, resets, quits.
///
/// The window is only ever hidden while there is a tray to bring it back from; when the tray goes
/// away, the window comes back by itself.
class Tray : public QObject
{
    Q_OBJECT

public:
    static constexpr int kWatchMs = 2000;

    /// pWindow is not owned. pIsAvailable tells whether there is a tray now.
    Tray(QWidget& pWindow,
         QAction& pReset,
         QAction& pQuit,
         std::function<bool()> pIsAvailable = &QSystemTrayIcon::isSystemTrayAvailable);

    /// Shows the window, or hides it where that is asked for and safe.
    void Start(bool pIsHidden);
    void Toggle();
    void Retranslate();
    QMenu& getMenu() { return m_menu; }

private:
    void _Show();
    void _Watch();

    QWidget& m_window;  ///< not owned
    std::function<bool()> m_isAvailable;
    QMenu m_menu;
    QAction* m_pToggle;  ///< of the menu
    QSystemTrayIcon m_icon;
    QTimer m_watch;
};
