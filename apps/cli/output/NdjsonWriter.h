// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>
#include <shared/beats/BeatRelay.h>

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

class QJsonObject;

/// Writes what a BeatRelay tells as newline-delimited JSON, one event a line, the moment it
/// happens.
///
/// Every line has time (seconds) and type:
///   play, stop   the music counts as playing or stopped from time on;
///   pulse        loudness and threshold, 16-bit sample magnitudes;
///   beat         bpm (null = unknown), virtual, and accuracy, loudness of the engine's beats or
///                beatInBar, confidence, barConfidence of the automatic tracker's;
///   tempo        bpm changed (null = unknown);
///   end          the audio ended; bpm (of the whole), realBeats and virtualBeats.
/// docs/json.md tells more. A beat's time lies a little before those of its neighbours: it is
/// chosen when its window has passed.
class NdjsonWriter : public QObject
{
    Q_OBJECT

public:
    /// Receives one line with its line feed.
    using Sink = std::function<void(const QByteArray& pLine)>;

    /// Follows pRelay, which is not owned. pFile, when not empty, goes into every line as file.
    NdjsonWriter(const BeatRelay& pRelay, const QString& pFile, bool pIsRealOnly, Sink pSink);

    /// Writes the end event.
    void Finish(const AnalysisResult& pResult);

private:
    void _OnBeat(const LoggedBeat& pBeat);
    void _OnPulse(double pTime, const Pulse& pPulse);
    void _OnTempo(double pTime, double pBPM);
    void _Write(double pTime, const char* pType, QJsonObject pFields);

    QString m_file;     ///< empty = none is written
    bool m_isRealOnly;  ///< virtual beats are left out
    Sink m_sink;
    double m_lastBPM = 0.0;  ///< last tempo written; 0 = unknown, as it is before the first
};
