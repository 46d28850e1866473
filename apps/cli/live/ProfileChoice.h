// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/LiveBeats.h>
#include <shared/settings/ConfigurationStore.h>

#include <QStringList>

/// Who tells the beats, as a hand chooses it while "listen" listens: the automatic tracker, or a
/// profile of those that are stored by then. Nothing is saved.
///
/// Threads: one event-loop thread.
class ProfileChoice
{
public:
    /// Neither argument is owned; pConfiguration is that of the analysis.
    ProfileChoice(Configuration& pConfiguration, LiveBeats& pBeats);

    /// Those that can be chosen. Cheap while their file stays as it is.
    QStringList FindNames();
    /// Empty = the automatic tracker.
    QString getName() const;
    /// The profile of that name, in any case, takes over; empty = the automatic tracker. False when
    /// there is none; then nothing changes.
    bool Choose(const QString& pName);

private:
    Configuration& m_configuration;  ///< not owned
    LiveBeats& m_beats;              ///< not owned
    ConfigurationStore m_stored;
};
