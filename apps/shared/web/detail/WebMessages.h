// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <shared/hands/HandAction.h>
#include <shared/web/WebChoices.h>

#include <QByteArray>
#include <QString>
#include <QVector>

#include <cstdint>
#include <optional>

namespace shared::detail {

constexpr int kLongestMessage = 4096;  ///< bytes, of a browser's

/// What a browser wants.
struct WebWish
{
    enum eKind
    {
        eAction,
        eProfile,  ///< the one called name; empty = the automatic tracker
        eInput     ///< likewise; there may be none of that name
    };

    eKind kind;
    HandAction action;
    QString name = {};
};

/// "tap", "nudge -5", one of what the page has a button for; "profile NAME", "input NAME". None for
/// all else, also for actions that last until they are let go, which a browser that vanishes never
/// does.
std::optional<WebWish> ReadWebMessage(const QString& pText);

/// {"type":"beat"}: the beat that comes next, and in how many ms from pNow, in µs. For a clock that
/// runs.
QByteArray describeWebBeat(const BeatClockState& pState, double pConfidence, std::int64_t pNow);

/// An output, as the page shows it.
struct WebOutput
{
    QString name;
    QString state;
    bool isOpen;
};

/// {"type":"state"}: all else. pLevel: 0 to 1, of full scale.
QByteArray describeWebState(const BeatClockState& pState,
                            bool pIsPlaying,
                            double pLevel,
                            const QVector<WebOutput>& pOutputs);

/// {"type":"choices"}
QByteArray describeWebChoices(const WebChoices& pChoices);

}  // namespace shared::detail
