// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/LiveBeats.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/SoundFeed.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// What the window sends its beats to: the stored outputs that are enabled, all on or all off.
///
/// Threads: the event-loop thread; each output has one of its own.
class MonitorOutputs : public QObject
{
    Q_OBJECT

public:
    struct State
    {
        QString name;
        bool isReached;
    };

    /// pBeats is not owned, and outlives this. At first all are off.
    explicit MonitorOutputs(LiveBeats& pBeats, QObject* pParent = nullptr);
    ~MonitorOutputs() override;

    /// On: what is stored by now begins. Off: waits until all are closed. Returns what cannot be
    /// used, in words; the rest goes on all the same.
    QStringList setOn(bool pIsOn);
    bool isOn() const { return m_isOn; }
    /// Of those that are on, or were before they were switched off.
    std::vector<State> getStates() const;
    /// Lets those that hear sound hear a source, which is not owned; null = none.
    void Follow(LiveSource* pSource);

Q_SIGNALS:
    /// isOn() or getStates() are others.
    void OnChanged();

private:
    void _HearSource();

    LiveBeats& m_beats;  ///< not owned
    Outputs m_outputs;
    LiveSource* m_pSource = nullptr;     ///< not owned
    std::unique_ptr<SoundFeed> m_sound;  ///< null while nobody hears it
    QStringList m_names;
    bool m_isOn = false;
};
