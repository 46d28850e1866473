// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace shared {

/// What a hand wants.
struct HandAction
{
    enum eKind
    {
        eTap,
        eOne,      ///< this beat begins a bar
        eHalf,     ///< the tempo
        eDouble,   ///< likewise
        eHold,     ///< keep this tempo; pressed again, let it go
        eReset,    ///< forget the music and the hand
        eNudge,    ///< amount: ms, positive is later
        eBend,     ///< amount: percent of the tempo, while it is pressed
        eOffset,   ///< amount: ms that are added to that of all outputs
        eProfile,  ///< the one called name
    };

    eKind kind;
    double amount = 0.0;
    QString name = {};

    /// "tap", "nudge -5", "bend 2", "offset 10", "profile Techno"; none when it is not understood.
    static std::optional<HandAction> Parse(const QString& pText);
    /// The reverse.
    QString getText() const;
    /// The forms that Parse() takes.
    static QStringList getForms();
};

}  // namespace shared
