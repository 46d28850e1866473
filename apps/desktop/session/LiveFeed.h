// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/BeatCursor.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>

#include <desktop/session/LiveValues.h>
#include <desktop/session/StripData.h>
#include <desktop/session/detail/ShownTempo.h>
#include <desktop/session/detail/TempoSpan.h>
#include <shared/clock/LiveBeats.h>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

/// Copies what an analyzer reports, so that painting need not keep pace with it; tempo and beats
/// are the clock's.
///
/// Threads: the analyzer's thread.
class LiveFeed : public QObject
{
    Q_OBJECT

public:
    /// pBeats is not owned.
    explicit LiveFeed(LiveBeats& pBeats, QObject* pParent = nullptr);
    ~LiveFeed() override;

    /// Shows an analyzer, which is not owned, from its first sample on; null = none.
    void Follow(AudioAnalyzer* pAnalyzer, int pSampleRate);
    /// The analysis was started anew.
    void Restart();
    /// Samples of the input as they come.
    void HearInput(const qint16* pSamples, std::size_t pCount);
    /// Forgets the tempo, as the analyzer and the clock do on a reset.
    void Forget();

    /// The values of this moment. [valid until the next call] [no allocation]
    const LiveValues& Read();
    /// The tempo of this moment as a steady figure, BPM; 0 = unknown.
    double getShownTempo()
    {
        _ReadClock();
        return m_values.shownBPM;
    }
    /// ms; what the times of the values refer to.
    qint64 getTime() const { return m_clock.elapsed(); }
    /// Beats that fell due since the program started.
    quint64 getBeatCount() const { return m_beatCount; }

Q_SIGNALS:
    /// A beat or a pulse has come.
    void OnFlashed();
    /// A beat fell due, µs of ClockThread::getTime().
    void OnBeatDue(qint64 pTime, eBeatKind pKind, bool pIsOne);

private:
    void _Connect(AudioAnalyzer* pAnalyzer);
    void _OnSpectrum(const double* pAmplitudes, unsigned int pCount);
    void _OnPulse(const Pulse& pPulse);
    void _ReadClock();
    void _AwaitBeat();
    void _OnBeatDue();
    void _OnBeatFound(const BeatFollower::Beat& pBeat);

    LiveBeats& m_beats;  ///< not owned
    BeatCursor m_cursor;
    QTimer m_beat;  ///< until the next one
    QElapsedTimer m_clock;
    QPointer<AudioAnalyzer> m_pAnalyzer;
    std::unique_ptr<BeatFollower> m_follower;  ///< null without an analyzer
    LiveValues m_values;
    desktop::TempoSpan m_tempo;
    desktop::ShownTempo m_shown;
    double m_lastBPM = 0.0;  ///< of the clock while it ran; 0 = none
    quint64 m_beatCount = 0;
    int m_input = 0;  ///< greatest sample magnitude since Read()
};
