// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/HandAction.h>
#include <shared/hands/HandMessage.h>

#include <QStringList>

#include <map>
#include <optional>

namespace shared {

/// What a hand does, or no longer does.
struct HandCommand
{
    HandAction action;
    bool isPressed;  ///< false for bend alone, when it ends
};

/// Which control does what. It stands in "AudioAnalyzer.ini", in a group of its own; all hosts
/// share it.
///
/// Threads: one at a time.
class HandMap
{
public:
    static constexpr int kMost = 128;  ///< controls

    /// Reads the file. What is malformed is left out, and told by getProblems().
    static HandMap Load();
    /// Leaves the rest of the file as it is. False when it cannot be written.
    bool Save() const;
    const QStringList& getProblems() const { return m_problems; }

    /// In the order of their names.
    const std::map<QString, HandAction>& getActions() const { return m_actions; }
    /// Takes the place of what the control did. False when there are too many, or it is none.
    bool Learn(const QString& pControl, const HandAction& pAction);
    /// False when it did nothing.
    bool Forget(const QString& pControl) { return m_actions.erase(pControl) > 0; }

    /// What a message means. A control is pressed when its value passes one half, or is sent again
    /// as it was, as pedals do that are never released; turning it further does nothing.
    std::optional<HandCommand> Feel(const HandMessage& pMessage);

private:
    std::map<QString, HandAction> m_actions;  ///< by control
    std::map<QString, double> m_values;       ///< of controls that do something; the last ones
    QStringList m_problems;
};

}  // namespace shared
