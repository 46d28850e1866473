// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/LiveBeats.h>
#include <shared/hands/HandMap.h>

#include <QObject>

/// Foot pedals, consoles and programs whose hand lies on the beat: does what their messages mean.
///
/// Threads: one event-loop thread.
class Hands : public QObject
{
    Q_OBJECT

public:
    /// pBeats is not owned.
    Hands(LiveBeats& pBeats, shared::HandMap pMap, QObject* pParent = nullptr);

    shared::HandMap& getMap() { return m_map; }
    /// While it learns, controls do nothing but tell their names.
    void setLearning(bool pIsLearning) { m_isLearning = pIsLearning; }

    void Take(const shared::HandMessage& pMessage);
    /// Also while it learns.
    void Do(const shared::HandCommand& pCommand);

Q_SIGNALS:
    /// A control that was touched; while it learns.
    void OnTouched(const QString& pControl);
    /// Something was done, in the words of HandAction.
    void OnDone(const QString& pAction);
    /// What is a host's: ms to be added to the offset of all outputs, and a profile's name.
    void OnOffsetWanted(double pMilliSeconds);
    void OnProfileWanted(const QString& pName);

private:
    void _Carry(const shared::HandCommand& pCommand);

    LiveBeats& m_beats;  ///< not owned
    shared::HandMap m_map;
    bool m_isLearning = false;
};
