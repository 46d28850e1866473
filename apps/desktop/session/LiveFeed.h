// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>

#include <desktop/session/LiveValues.h>
#include <desktop/session/detail/TempoSpan.h>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <memory>

/// Copies what an analyzer reports, so that painting need not keep pace with it.
///
/// Threads: the analyzer's thread.
class LiveFeed : public QObject
{
    Q_OBJECT

public:
    explicit LiveFeed(QObject* pParent = nullptr);
    ~LiveFeed() override;

    /// Shows an analyzer, which is not owned, from its first sample on; null = none.
    void Follow(AudioAnalyzer* pAnalyzer, int pSampleRate);
    /// The analysis was started anew.
    void Restart();
    /// Forgets the tempo, as the analyzer does on its Reset().
    void Forget();

    /// The values of this moment. [valid until the next call] [no allocation]
    const LiveValues& Read();
    /// ms; what the times of the values refer to.
    qint64 getTime() const { return m_clock.elapsed(); }
    /// Real and virtual beats that have been announced since the program started.
    quint64 getBeatCount() const { return m_beatCount; }

Q_SIGNALS:
    /// A beat or a pulse has come.
    void OnFlashed();

private:
    void _Connect(AudioAnalyzer* pAnalyzer);
    void _OnSpectrum(const double* pAmplitudes, unsigned int pCount);
    void _OnPulse(const Pulse& pPulse);
    void _OnTempo(double pBPM);
    void _OnBeat();
    void _OnBeatFound(const BeatFollower::Beat& pBeat);

    QElapsedTimer m_clock;
    QPointer<AudioAnalyzer> m_pAnalyzer;
    std::unique_ptr<BeatFollower> m_follower;  ///< null without an analyzer
    LiveValues m_values;
    desktop::TempoSpan m_tempo;
    bool m_isLastBeatVirtual = false;  ///< of the beats that were chosen
    double m_reportedBPM = 0.0;
    quint64 m_beatCount = 0;
};
