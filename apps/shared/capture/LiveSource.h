// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <shared/capture/CaptureNotice.h>
#include <shared/capture/LevelWatch.h>
#include <shared/capture/SourceState.h>

#include <QObject>
#include <QString>

#include <memory>

class Configuration;
class QAudioFormat;

/// Sound that is analysed while it sounds, from wherever it comes: a device, or a file played at
/// real speed. A host connects its signals, opens the source in the source's own way, and need not
/// ask which it has.
///
/// Threads: one event-loop thread.
class LiveSource : public QObject
{
    Q_OBJECT

public:
    /// pConfiguration is that of the analysis; it is not owned and must outlive the source.
    explicit LiveSource(Configuration& pConfiguration, QObject* pParent = nullptr);
    ~LiveSource() override;

    virtual SourceState getSource() const = 0;
    /// Null before OnAnalyzerCreated. Owned by the source. [valid until OnAnalyzerCreated]
    AudioAnalyzer* getAnalyzer() const { return m_analyzer.get(); }
    int getSampleRate() const { return m_sampleRate; }  ///< Hz; 0 = not known yet
    /// Music plays, as the engine or another tracker hears it.
    bool isPlaying() const { return m_isMusicHeard || (m_analyzer && m_analyzer->isPlaying()); }
    /// Whether a tracker beside the engine hears music.
    void setMusicHeard(bool pIsHeard) { m_isMusicHeard = pIsHeard; }
    /// The greatest sample magnitude since the last call, at most 32767.
    int TakePeak() { return m_levels.TakePeak(); }

Q_SIGNALS:
    /// When the sample rate is known, and when it has become another; the analyzer before is gone
    /// by then. It is not started yet.
    void OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    /// The analysis has been started: sample 0 is to come next.
    void OnAnchored();
    /// Each block of mono samples, before it is analysed, or when it is not. pEnd: when the sample
    /// behind it sounds or sounded, µs since the epoch. [valid during the emission]
    void OnSamples(const qint16* pSamples, std::size_t pCount, quint64 pEnd);
    /// Once per occurrence.
    void OnNotice(eCaptureNotice pNotice);
    /// getSource() is another, beside its position.
    void OnSourceChanged();
    /// The end of a file, proper when pError is empty. Nothing follows.
    void OnEnded(const QString& pError);

protected:
    /// Makes an analyzer for mono samples of that format, unless there is one of that rate, and
    /// watches the level of what it will be given over pLevelSeconds.
    void _Prepare(const QAudioFormat& pFormat, double pLevelSeconds);
    /// Tells what is wrong with samples that have been analysed.
    void _WatchLevel(const qint16* pSamples, std::size_t pCount);

private:
    Configuration& m_configuration;  ///< not owned
    std::unique_ptr<AudioAnalyzer> m_analyzer;
    int m_sampleRate = 0;  ///< Hz
    bool m_isMusicHeard = false;
    shared::LevelWatch m_levels{0};
};
