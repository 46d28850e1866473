// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <shared/clock/LiveBeats.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/SoundFeed.h>

#include <QStringList>

/// What "listen" sends its beats to: the stored outputs that are enabled, and those that it was
/// given.
class ListenOutputs
{
    Q_DECLARE_TR_FUNCTIONS(ListenOutputs)

public:
    /// Neither argument is owned.
    ListenOutputs(const ListenOptions& pOptions, LiveBeats& pBeats);

    /// Begins; pSource is heard for those that hear sound. Returns what cannot be used, in words;
    /// the rest goes on all the same.
    QStringList Begin(LiveSource& pSource);
    /// Ends, and waits until all are closed.
    void End() { m_outputs.RemoveAll(); }

    /// For its signals.
    Outputs& getOutputs() { return m_outputs; }
    /// The name that was asked for and is not stored, in words; empty = all are.
    static QString FindUnknown(const ListenOptions& pOptions);

private:
    QString _FreeName(const QString& pKind) const;

    const ListenOptions& m_options;  ///< not owned
    Outputs m_outputs;
    SoundFeed m_sound;
};
