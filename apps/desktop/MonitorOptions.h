// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What beat-monitor was asked to do.
struct MonitorOptions
{
    enum eAction
    {
        eRun,
        eShowText,  ///< help or version
        eRefuse     ///< text says why
    };

    eAction action = eRun;
    QString text;
    QString device;   ///< to listen to; empty = the stored one
    QString iniPath;  ///< empty = beside the program
    QString file;     ///< to play; empty = none
    bool isLooped = false;
};

MonitorOptions parseMonitorOptions(int pCount, const char* const* pValues);
