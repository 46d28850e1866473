// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>
#include <shared/beats/BeatRelay.h>

#include <QObject>

/// Writes down all that a BeatRelay tells of one recording.
///
/// Threads: the relay's thread only.
class BeatLog : public QObject
{
    Q_OBJECT

public:
    /// pRelay is not owned and has told nothing yet.
    explicit BeatLog(BeatRelay& pRelay);

    /// The recording ended after pSampleCount samples.
    void Finish(quint64 pSampleCount);

    /// Complete after Finish().
    const AnalysisResult& getResult() const { return m_result; }
    AnalysisResult& getResult() { return m_result; }

private:
    void _LogPlaying(double pTime, bool pIsPlaying);

    BeatRelay& m_relay;  ///< not owned
    AnalysisResult m_result;
    bool m_isPlaying = false;
    double m_silenceStart = 0.0;  ///< seconds; while not playing
};
