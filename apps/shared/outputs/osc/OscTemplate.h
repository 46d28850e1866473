// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/osc/OscExpression.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace shared {

/// When a message is sent.
enum eOscEvent
{
    eOscBeat,
    eOscBar,      ///< the first beat of a bar
    eOscTempo,    ///< the first beat of a tempo, and of each bar
    eOscPlaying,  ///< the clock begins or stands still
    eOscTick      ///< so many times a beat
};

/// A message, and when it is sent.
struct OscRule
{
    eOscEvent event = eOscBeat;
    std::int32_t ticks = 1;  ///< a beat, of eOscTick
    QByteArray address;
    QByteArray types;  ///< one of i f d h for each value
    std::vector<OscExpression> values;
};

/// A way to speak to a receiver that is known by name.
struct OscPreset
{
    const char* name;
    const char* text;  ///< a template
    int port;          ///< that its program listens at by default
};

/// What a receiver is sent: rules, as a preset or a user gives them.
///
/// Its text is a list of items, separated by semicolons:
///
///     WHEN ADDRESS TYPES VALUE, ...   WHEN: beat, bar, tempo, playing, tickN (N times a beat)
///     bundle                          what belongs to one instant is sent as one bundle, with the
///                                     time tag of that instant
///     the name of a preset            all that the preset has
///
///     tempo /speed f (bpm - 20) / 480; beat /go i 1; tick24 /phase f phase
struct OscTemplate
{
    Q_DECLARE_TR_FUNCTIONS(shared::OscTemplate)

public:
    static constexpr int kLongest = 2000;  ///< characters
    static constexpr std::size_t kMostRules = 32;
    static constexpr int kMostValues = 8;
    static constexpr std::int32_t kMostTicks = 192;  ///< a beat

    std::vector<OscRule> rules;
    std::int32_t division = 1;  ///< ticks a beat that the rules need
    bool isBundled = false;

    /// None, and pReason in words for people, when it is not understood. [allocates]
    static std::optional<OscTemplate> Parse(const QString& pText, QString& pReason);
    static const std::vector<OscPreset>& getPresets();
};

}  // namespace shared
