// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <common/AnalysisOptions.h>
#include <optional>

/// How "listen" reports events.
enum eEventFormat
{
    eTextEvents,   ///< for people
    eBeatEvents,   ///< seconds of each beat, when it falls due
    eNdjsonEvents  ///< one JSON object a line
};

/// What "listen" was asked to do.
struct ListenOptions
{
    QString device;                      ///< empty = the stored one, else the default
    bool isSaved = false;                ///< remembers the device
    std::optional<eEventFormat> format;  ///< none = a live line on a terminal, else text
    double duration = 0.0;               ///< seconds; 0 = until it is ended
    bool showsFormat = false;
    bool measures = false;
    bool isQuiet = false;
    AnalysisOptions analysis;
};

/// What "devices" was asked to do.
struct DevicesOptions
{
    bool isWatching = false;  ///< goes on and tells what appears and vanishes
};

/// What "profiles" was asked to do.
struct ProfilesOptions
{
    enum eAction
    {
        eList,
        eAdd,
        eEdit,
        eRemove,
        eSelect
    };

    eAction action = eList;
    QString name;
    QString newName;          ///< empty = it stays
    AnalysisOptions changes;  ///< bpm, band and sensibility
};

/// What "config" was asked to do.
struct ConfigOptions
{
    enum eAction
    {
        eShow,
        eSet,
        ePath,
        eReset
    };

    eAction action = eShow;
    QString key;
    QString value;
    bool isAll = false;  ///< resets the user's profiles as well
};
