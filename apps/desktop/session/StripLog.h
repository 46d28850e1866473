// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/StripData.h>
#include <shared/beats/BeliefColumn.h>

#include <QObject>

class LiveBeats;
class LiveSource;

/// Keeps what happened in the last two minutes: level, tempo and what the tracker believes of it,
/// beats, and what was said.
///
/// Threads: the event-loop thread.
class StripLog : public QObject
{
    Q_OBJECT

public:
    static constexpr std::int64_t kLag = 300000;  ///< µs; sound that comes later is not kept

    /// pBeats is not owned; what it follows is to be followed after it.
    explicit StripLog(const LiveBeats& pBeats, QObject* pParent = nullptr);

    /// Hears a source, which is not owned; null = none.
    void Follow(LiveSource* pSource);
    void AddBeat(qint64 pTime, eBeatKind pKind, bool pIsOne);
    /// It was said just now.
    void Say(const QString& pText);
    /// Completes what lies behind by now; to be called a few times a second at least.
    void Advance();

    const StripData& getData() const { return m_data; }

private:
    void _OnSamples(const qint16* pSamples, std::size_t pCount, quint64 pEnd);
    void _Ask(StripData::Column& pColumn);

    const LiveBeats& m_beats;         ///< not owned
    LiveSource* m_pSource = nullptr;  ///< not owned
    StripData m_data;
};
