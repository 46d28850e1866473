// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <desktop/session/ReadAhead.h>
#include <shared/capture/CaptureNotice.h>
#include <shared/capture/LevelWatch.h>

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class Configuration;

/// Has an audio file analysed at real speed, exactly as if it were live.
///
/// Samples are handed over as the clock says that they sound. When they are not there in time, or
/// the program was held up, the analysis is started anew from where the file is.
///
/// Threads: one event-loop thread.
class FilePlayer : public QObject
{
    Q_OBJECT

public:
    /// pConfiguration is not owned and must outlive the player.
    explicit FilePlayer(Configuration& pConfiguration, QObject* pParent = nullptr);
    ~FilePlayer() override;

    /// To be called once.
    void Open(const QString& pPath, bool pIsLooped);

    QString getPath() const { return m_path; }
    /// Null before OnAnalyzerCreated. Owned by the player.
    AudioAnalyzer* getAnalyzer() const { return m_analyzer.get(); }
    int getSampleRate() const { return m_sampleRate; }  ///< Hz; 0 = not known yet
    double getLength() const;                           ///< seconds; 0 = unknown
    double getPosition() const;                         ///< seconds into the file
    /// The greatest sample magnitude since the last call, at most 32767.
    int TakePeak() { return m_levels.TakePeak(); }

Q_SIGNALS:
    /// It is not started yet.
    void OnAnalyzerCreated(AudioAnalyzer* pAnalyzer);
    /// The analysis has been started: sample 0 is to come next.
    void OnAnchored();
    void OnNotice(eCaptureNotice pNotice);
    /// The end, proper when pError is empty. Nothing follows.
    void OnEnded(const QString& pError);

private:
    void _Tick();
    bool _TakeChunk();
    void _MakeAnalyzer(const ReadAhead::Chunk& pChunk);
    void _Anchor();
    quint64 _CountDue() const;
    void _Feed(quint64 pCount);
    void _Analyze(std::size_t pCount);
    void _End();
    void _WatchLevel(const qint16* pSamples, std::size_t pCount);

    Configuration& m_configuration;  ///< not owned
    QString m_path;
    std::unique_ptr<ReadAhead> m_source;
    ReadAhead::Chunk m_chunk;
    std::size_t m_chunkFill = 0;  ///< samples of the chunk already analysed
    std::unique_ptr<AudioAnalyzer> m_analyzer;
    int m_sampleRate = 0;       ///< Hz
    quint64 m_frameCount = 0;   ///< of the file; 0 = unknown
    quint64 m_anchor = 0;       ///< µs since the epoch
    quint64 m_sinceAnchor = 0;  ///< samples
    quint64 m_position = 0;     ///< samples since the file was opened
    bool m_isBlockHeard = false;
    bool m_isPlaying = false;
    shared::LevelWatch m_levels{0};
    QTimer m_tick;
};
