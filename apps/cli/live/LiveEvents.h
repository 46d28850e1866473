// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/EventWriter.h>
#include <cli/live/LiveOptions.h>
#include <cli/output/NdjsonWriter.h>
#include <shared/capture/LiveSource.h>
#include <shared/clock/LiveBeats.h>
#include <shared/outputs/Outputs.h>

#include <QObject>

#include <memory>

class LiveSummary;
class QJsonObject;

/// Writes the events of a live session to standard output, each the moment it happens; a reader
/// that stalls loses the oldest, and holds up nothing.
///
/// Beside the events of NdjsonWriter, which tell a beat once it is known to be one, NDJSON has
///   announce  a beat of the clock falls due now; bpm, beat, beatInBar, confidence, and the instant
///             as monotonic and wall, in seconds of the system's clocks;
///   device    name and state: waiting, unusable, starting, running; none of a file;
///   notice    what: noData, digitalSilence, tooQuiet, clipped;
///   output    name, whether it is open, and state in words;
///   lost      count of events that the reader did not take in time.
///
/// Threads: that of the event loop, but for what is marked.
class LiveEvents : public QObject, public shared::ClockListener
{
    Q_OBJECT

public:
    /// Follows a source that is not opened yet, and its beats; no argument is owned.
    LiveEvents(eEventFormat pFormat, LiveSource& pSource, LiveBeats& pBeats, LiveSummary& pSummary);
    ~LiveEvents() override;

    /// Tells what becomes of outputs, which are not owned and have not begun.
    void Follow(Outputs& pOutputs);
    /// Writes the last event.
    void Finish();
    /// Nothing can be written any more.
    bool isBroken() const { return m_writer.isBroken(); }
    /// Events that no reader took.
    std::uint64_t getLostCount() const { return m_writer.getLostCount(); }
    /// [after Finish()]
    const OutputFile& getOutput() const { return m_writer.getOutput(); }

    void OnTick(const shared::ClockTick& pTick, const BeatClockState& pState) override;
    void OnRunningChanged(bool, const BeatClockState&) override {}

private:
    void _FollowForText();
    void _FollowForNdjson();
    QByteArray _FormAnnouncement(const Announcement& pAnnouncement) const;
    QByteArray _FormLoss(std::uint64_t pCount) const;
    void _WriteObject(const char* pType, const QJsonObject& pFields);

    eEventFormat m_format;
    LiveSource& m_source;    ///< not owned
    LiveBeats& m_beats;      ///< not owned
    LiveSummary& m_summary;  ///< not owned
    EventWriter m_writer;
    std::unique_ptr<NdjsonWriter> m_ndjson;  ///< null for other formats
};
