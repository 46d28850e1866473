// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputSettings.h>
#include <shared/settings/AnalysisOptions.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

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
    std::optional<double> offset;        ///< ms; none = the stored one
    bool showsFormat = false;
    bool measures = false;
    bool isQuiet = false;
    std::vector<StoredOutput> outputs;  ///< sent to as well; they have no names
    QStringList outputNames;            ///< stored ones that are sent to, enabled or not
    bool isWithoutStored = false;       ///< those that are enabled are not sent to
    AnalysisOptions analysis;
};

/// What "devices" was asked to do.
struct DevicesOptions
{
    bool isWatching = false;  ///< goes on and tells what appears and vanishes
};
