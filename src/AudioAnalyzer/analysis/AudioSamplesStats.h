// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

/// Rolling window over the newest samples, with their average, greatest and smallest magnitude.
///
/// The three figures are computed together, at most once after each Update(), from the figures of
/// chunks of the window, of which only those written since are measured anew. A figure of -1 means
/// that the window holds no samples.
///
/// Threads: one thread at a time.
class AUDIOANALYZER_EXPORT AudioSamplesStats
{
public:
    /// Window of duration seconds at sampleRate Hz, rounded to whole samples. [allocates the
    /// window]
    AudioSamplesStats(double duration, double sampleRate);
    /// Window of durationMicroseconds at sampleRate Hz, rounded to whole samples. [allocates the
    /// window]
    AudioSamplesStats(unsigned long long durationMicroseconds, unsigned long long sampleRate);
    ~AudioSamplesStats();
    AudioSamplesStats(const AudioSamplesStats&) = delete;
    AudioSamplesStats& operator=(const AudioSamplesStats&) = delete;

    /// Changes the window's length. A window that holds samples keeps two of them: its greatest and
    /// its smallest magnitude. True when the length changed; false, and no change, for a duration
    /// or rate that is not positive, for fewer than 2 samples and for the present length.
    /// [allocates on size change]
    bool Resize(double duration, double sampleRate);
    bool Resize(unsigned long long durationMicroseconds, unsigned long long sampleRate);

    /// Appends count samples, of which the newest that fit are kept. samples is only read.
    /// False, and no change, for a null pointer or a count of 0. [audio path: no allocation]
    bool Update(short* samples, unsigned long count);

    /// Empties the window and keeps its length. Always true. [audio path: no allocation]
    bool Reset();

    /// Magnitudes over the window, in 16 bits, so that -32768 stays -32768; -1 without samples.
    /// [audio path: no allocation]
    qint16 getAverageVolume() const;
    qint16 getMaximalVolume() const;
    qint16 getMinimalVolume() const;

private:
    struct Chunk;

    bool _Resize(unsigned long pCapacity);
    bool _Compute() const;
    const Chunk& _RefreshChunk(quint64 pIndex, quint64 pCount) const;
    quint64 _getCount() const;
    void _Write(quint64 pPosition, const qint16* pSamples, quint64 pCount);
    void _Replace(quint64 pCapacity);
    void _Invalidate();

    quint64 m_timeScale;       ///< µs per second
    quint64 m_rounding;        ///< half of m_timeScale
    qint16* m_pSamples;        ///< owned ring of m_capacity samples
    quint64 m_isFull;          ///< 0 or 1: the ring has wrapped at least once
    quint64 m_writePosition;   ///< next position to write; the count of samples while not full
    quint64 m_capacity;        ///< samples
    mutable qint16 m_average;  ///< magnitude; -1 = to be computed
    mutable qint16 m_maximum;  ///< magnitude; -1 = to be computed
    mutable qint16 m_minimum;  ///< magnitude; -1 = to be computed
    Chunk* m_pChunks;          ///< owned figures of the ring's chunks
};
