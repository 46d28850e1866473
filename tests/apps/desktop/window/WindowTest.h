// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/look/Look.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/window/MainWindow.h>

#include <apps/desktop/DesktopTest.h>
#include <fake/Machine.h>

/// The main window on the fake sound back end.
namespace windowtest {

/// The window of a session with the default settings.
struct Stand
{
    explicit Stand(const WindowSettings& pSettings = WindowSettings())
        : window(session, pSettings, makePalette(eLightLook))
    {
    }

    MonitorSession session;
    MainWindow window;
};

}  // namespace windowtest
