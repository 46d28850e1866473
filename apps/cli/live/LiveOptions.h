// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/HandAction.h>
#include <shared/outputs/OutputSettings.h>
#include <shared/settings/AnalysisOptions.h>

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// How "listen" reports events.
enum eEventFormat
{
    eTextEvents,   ///< for people
    eBeatEvents,   ///< seconds of each beat, when it falls due
    eNdjsonEvents  ///< one JSON object a line
};

/// Where others are let in: an address of this machine, empty = the machine itself; and a port, 0 =
/// any.
struct ListeningPlace
{
    QString address;
    std::uint16_t port;
};

/// Which hands "listen" lets in.
struct HandOptions
{
    QStringList midi;  ///< as MidiInput takes them
    std::vector<ListeningPlace> osc;
    std::optional<shared::HandAction> learned;  ///< what the first control that is touched is to do
};

/// What "listen" was asked to do.
struct ListenOptions
{
    QString device;                      ///< empty = the stored one, else the default
    QString file;                        ///< played instead of a device; empty = none
    bool isHeard = false;                ///< the file is, on the default output
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
    HandOptions hands;
    std::optional<ListeningPlace> web;  ///< of the page
    AnalysisOptions analysis;
};

/// What "devices" was asked to do.
struct DevicesOptions
{
    bool isWatching = false;  ///< goes on and tells what appears and vanishes
};
