// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>
#include <AudioAnalyzer/analysis/detail/Magnitudes.h>

#include <algorithm>
#include <memory>

namespace {

using detail::kMicroSecondsPerSecond;
constexpr quint64 kHalfSecond = 500000;
constexpr qint16 kUnknown = -1;

// A block of 1024 samples touches two chunks; the 87 of a window of 2 s at 44.1 kHz take about as
// long to put together as one takes to measure.
constexpr quint64 kChunkSize = 1024;

quint64 ChunkCount(quint64 pSamples)
{
    return (pSamples + kChunkSize - 1) / kChunkSize;
}

}  // namespace

struct AudioSamplesStats::Chunk
{
    detail::Magnitudes figures;
    bool isMeasured;
};

AudioSamplesStats::AudioSamplesStats(double duration, double sampleRate)
    : m_timeScale(kMicroSecondsPerSecond), m_rounding(kHalfSecond), m_pSamples(nullptr),
      m_isFull(0), m_writePosition(0), m_capacity(detail::SampleCount(duration, sampleRate)),
      m_average(kUnknown), m_maximum(kUnknown), m_minimum(kUnknown), m_pChunks(nullptr)
{
    _Replace(m_capacity);
}

AudioSamplesStats::AudioSamplesStats(unsigned long long durationMicroseconds,
                                     unsigned long long sampleRate)
    : m_timeScale(kMicroSecondsPerSecond), m_rounding(kHalfSecond), m_pSamples(nullptr),
      m_isFull(0), m_writePosition(0),
      m_capacity((durationMicroseconds * sampleRate + kHalfSecond) / kMicroSecondsPerSecond),
      m_average(kUnknown), m_maximum(kUnknown), m_minimum(kUnknown), m_pChunks(nullptr)
{
    _Replace(m_capacity);
}

AudioSamplesStats::~AudioSamplesStats()
{
    delete[] m_pChunks;
    delete[] m_pSamples;
}

bool AudioSamplesStats::Resize(double duration, double sampleRate)
{
    if (!(duration > 0.0) || !(sampleRate > 0.0))
        return false;
    return _Resize(detail::SampleCount(duration, sampleRate));
}

bool AudioSamplesStats::Resize(unsigned long long durationMicroseconds,
                               unsigned long long sampleRate)
{
    return _Resize((durationMicroseconds * sampleRate + m_rounding) / m_timeScale);
}

bool AudioSamplesStats::_Resize(unsigned long pCapacity)
{
    if (pCapacity < 2 || pCapacity == m_capacity)
        return false;
    const bool hasSamples = _getCount() > 0;
    const qint16 maximum = getMaximalVolume();
    const qint16 minimum = getMinimalVolume();

    _Replace(pCapacity);
    m_isFull = 0;
    m_writePosition = 0;
    if (hasSamples) {
        // The extremes stand for the old window; the cached figures stay until the next Update().
        const qint16 extremes[] = {maximum, minimum};
        _Write(0, extremes, 2);
        m_isFull = pCapacity == 2 ? 1 : 0;
        m_writePosition = pCapacity == 2 ? 0 : 2;
    }
    return true;
}

bool AudioSamplesStats::Update(short* samples, unsigned long count)
{
    if (count == 0 || !samples)
        return false;
    if (count >= m_capacity) {
        _Write(0, samples + (count - m_capacity), m_capacity);
        m_isFull = 1;
        m_writePosition = 0;
    } else {
        const quint64 toEnd = std::min<quint64>(count, m_capacity - m_writePosition);
        _Write(m_writePosition, samples, toEnd);
        _Write(0, samples + toEnd, count - toEnd);
        m_writePosition += count;
        if (m_writePosition >= m_capacity) {
            m_isFull = 1;
            m_writePosition -= m_capacity;
        }
    }
    _Invalidate();
    return true;
}

bool AudioSamplesStats::Reset()
{
    m_isFull = 0;
    m_writePosition = 0;
    _Invalidate();
    return true;
}

qint16 AudioSamplesStats::getAverageVolume() const
{
    return m_average >= 0 || _Compute() ? m_average : kUnknown;
}

qint16 AudioSamplesStats::getMaximalVolume() const
{
    return m_maximum >= 0 || _Compute() ? m_maximum : kUnknown;
}

qint16 AudioSamplesStats::getMinimalVolume() const
{
    return m_minimum >= 0 || _Compute() ? m_minimum : kUnknown;
}

bool AudioSamplesStats::_Compute() const
{
    const quint64 count = _getCount();
    if (count == 0)
        return false;
    detail::Magnitudes figures = _RefreshChunk(0, count).figures;
    for (quint64 i = 1; i < ChunkCount(count); ++i)
        figures = detail::Combine(figures, _RefreshChunk(i, count).figures);
    m_average = static_cast<qint16>(static_cast<quint64>(figures.sum) / count);
    m_maximum = figures.maximum;
    m_minimum = figures.minimum;
    return true;
}

// The chunk at the write position is still growing and is measured every time.
const AudioSamplesStats::Chunk& AudioSamplesStats::_RefreshChunk(quint64 pIndex,
                                                                 quint64 pCount) const
{
    Chunk& chunk = m_pChunks[pIndex];
    if (!chunk.isMeasured) {
        const quint64 first = pIndex * kChunkSize;
        const quint64 size = std::min(kChunkSize, pCount - first);
        chunk.figures = detail::MeasureMagnitudes(m_pSamples + first, size);
        chunk.isMeasured = pIndex != m_writePosition / kChunkSize;
    }
    return chunk;
}

quint64 AudioSamplesStats::_getCount() const
{
    return m_isFull ? m_capacity : m_writePosition;
}

void AudioSamplesStats::_Write(quint64 pPosition, const qint16* pSamples, quint64 pCount)
{
    std::copy_n(pSamples, pCount, m_pSamples + pPosition);
    for (quint64 i = pPosition / kChunkSize; i < ChunkCount(pPosition + pCount); ++i)
        m_pChunks[i].isMeasured = false;
}

// Both arrays or none: an allocation that fails leaves the window as it is.
void AudioSamplesStats::_Replace(quint64 pCapacity)
{
    std::unique_ptr<qint16[]> samples(new qint16[pCapacity]);
    Chunk* pChunks = new Chunk[ChunkCount(pCapacity)]();
    delete[] m_pChunks;
    delete[] m_pSamples;
    m_pChunks = pChunks;
    m_pSamples = samples.release();
    m_capacity = pCapacity;
}

void AudioSamplesStats::_Invalidate()
{
    m_average = kUnknown;
    m_maximum = kUnknown;
    m_minimum = kUnknown;
}
