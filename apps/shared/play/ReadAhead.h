// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioFileReader.h>

#include <QString>
#include <QtGlobal>

#include <future>
#include <memory>
#include <vector>

/// Reads an audio file a second ahead, on a thread of its own, so that a slow disk stops nothing.
///
/// Threads: one at a time.
class ReadAhead
{
public:
    struct Chunk
    {
        std::vector<qint16> samples;  ///< mono
        int sampleRate = 0;           ///< Hz; 0 = the file could not be opened
        quint64 frameCount = 0;       ///< of the whole file; 0 = unknown
        bool isLast = false;
        QString error;
    };

    /// Starts to read; with pIsLooped the file is read over and over.
    ReadAhead(const QString& pPath, bool pIsLooped);
    /// Waits for what is being read.
    ~ReadAhead();
    Q_DISABLE_COPY(ReadAhead)

    bool isReady() const;
    /// The chunk that was read, and starts to read the next one unless it is the last. Waits when
    /// it is not ready.
    Chunk Take();

private:
    Chunk _ReadChunk();
    bool _Open();
    void _Fill(Chunk& pChunk);

    QString m_path;
    bool m_isLooped;
    bool m_isEmpty = true;  ///< not one sample was read
    std::unique_ptr<AudioFileReader> m_reader;
    std::future<Chunk> m_next;
};
