// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatFollower.h>

#include <cli/live/detail/AnnounceErrors.h>
#include <cli/live/detail/TempoMedian.h>
#include <shared/beats/BeatRelay.h>

#include <QElapsedTimer>
#include <QObject>

class CaptureSession;

/// What is told of a live session of any length, and said of it at its end.
///
/// Times are seconds since the first sample, by the clock, also when the device was away meanwhile.
class LiveSummary : public QObject
{
    Q_OBJECT

public:
    /// Follows a session, which is not owned and not opened yet. Announcements are only kept with
    /// pMeasures.
    LiveSummary(CaptureSession& pSession, bool pMeasures);

    const BeatRelay& getRelay() const { return m_relay; }
    /// Seconds since the first sample; 0 before it.
    double getSeconds() const;
    quint64 getRealBeats() const { return m_realBeats; }
    quint64 getVirtualBeats() const { return m_virtualBeats; }
    /// Median of the tempos of real beats, without those of the first ten seconds if there are
    /// others; 0 = unknown.
    double getTempo() const;
    cli::AnnounceStatistics getAnnounceStatistics() const { return m_errors.getStatistics(); }

Q_SIGNALS:
    /// A beat falls due now.
    void OnBeat();

private:
    void _OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    void _OnAnchored();
    void _OnAnnouncement();
    void _OnBeatFound(const LoggedBeat& pBeat);

    CaptureSession& m_session;  ///< not owned
    bool m_measures;
    BeatFollower m_follower;
    BeatRelay m_relay{m_follower};
    QElapsedTimer m_clock;  ///< from the first sample on
    quint64 m_realBeats = 0;
    quint64 m_virtualBeats = 0;
    cli::TempoMedian m_earlyTempo;
    cli::TempoMedian m_settledTempo;
    cli::AnnounceErrors m_errors;
};
