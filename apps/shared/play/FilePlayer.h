// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/LiveSource.h>
#include <shared/play/ReadAhead.h>

#include <QString>
#include <QTimer>

#include <memory>

/// Has an audio file analysed at real speed, exactly as if it were live.
///
/// Samples are handed over as the clock says that they sound. When they are not there in time, or
/// the program was held up, the analysis is started anew from where the file is.
///
/// Threads: one event-loop thread.
class FilePlayer : public LiveSource
{
    Q_OBJECT

public:
    /// pConfiguration is not owned and must outlive the player.
    explicit FilePlayer(Configuration& pConfiguration, QObject* pParent = nullptr);
    ~FilePlayer() override;

    /// To be called once.
    void Open(const QString& pPath, bool pIsLooped);

    /// Its position is that of this moment.
    SourceState getSource() const override;

private:
    void _Tick();
    bool _TakeChunk();
    void _Anchor();
    double _Seconds(quint64 pFrames) const;
    quint64 _CountDue() const;
    void _Feed(quint64 pCount);
    void _Analyze(std::size_t pCount);
    void _End();

    QString m_path;
    std::unique_ptr<ReadAhead> m_source;
    ReadAhead::Chunk m_chunk;
    std::size_t m_chunkFill = 0;  ///< samples of the chunk already analysed
    quint64 m_frameCount = 0;     ///< of the file; 0 = unknown
    quint64 m_anchor = 0;         ///< µs since the epoch
    quint64 m_sinceAnchor = 0;    ///< samples
    quint64 m_position = 0;       ///< samples since the file was opened
    QTimer m_tick;
};
