// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <cli/output/NdjsonWriter.h>
#include <cli/output/OutputFile.h>
#include <shared/capture/CaptureSession.h>

#include <QObject>

#include <memory>

class LiveSummary;
class QJsonObject;

/// Writes the events of a live session to standard output, each the moment it happens.
///
/// Beside the events of NdjsonWriter, which tell a beat once it is known to be one, NDJSON has
///   announce  a beat falls due now; bpm;
///   device    name and state: waiting, unusable, starting, running;
///   notice    what: noData, digitalSilence, tooQuiet, clipped.
class LiveEvents : public QObject
{
    Q_OBJECT

public:
    /// Follows a session that is not opened yet; neither argument is owned.
    LiveEvents(eEventFormat pFormat, CaptureSession& pSession, LiveSummary& pSummary);

    /// Writes the last event.
    void Finish();
    const OutputFile& getOutput() const { return m_output; }

Q_SIGNALS:
    /// Nothing can be written any more.
    void OnFailed();

private:
    void _FollowForText();
    void _FollowForNdjson();
    void _OnBeat();
    void _WriteText(double pTime, const QString& pText);
    void _WriteObject(const char* pType, QJsonObject pFields);
    void _Write(const QByteArray& pLine);

    eEventFormat m_format;
    CaptureSession& m_session;  ///< not owned
    LiveSummary& m_summary;     ///< not owned
    OutputFile m_output;
    std::unique_ptr<NdjsonWriter> m_ndjson;  ///< null for other formats
};
