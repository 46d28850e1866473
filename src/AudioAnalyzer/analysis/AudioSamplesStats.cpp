// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>

#include <algorithm>

namespace {

constexpr quint64 kMicroSecondsPerSecond = 1000000;
constexpr quint64 kHalfSecond = 500000;
constexpr qint16 kUnknown = -1;

/// Magnitude in 16 bits: -32768 stays -32768.
qint16 Magnitude(qint16 pSample)
{
    return static_cast<qint16>(pSample < 0 ? -pSample : pSample);
}

}  // namespace

AudioSamplesStats::AudioSamplesStats(double duration, double sampleRate)
    : m_timeScale(kMicroSecondsPerSecond), m_rounding(kHalfSecond), m_pSamples(nullptr),
      m_isFull(0), m_writePosition(0), m_capacity(detail::SampleCount(duration, sampleRate)),
      m_average(kUnknown), m_maximum(kUnknown), m_minimum(kUnknown)
{
    m_pSamples = new qint16[m_capacity];
}

AudioSamplesStats::AudioSamplesStats(unsigned long long durationMicroseconds,
                                     unsigned long long sampleRate)
    : m_timeScale(kMicroSecondsPerSecond), m_rounding(kHalfSecond), m_pSamples(nullptr),
      m_isFull(0), m_writePosition(0),
      m_capacity((durationMicroseconds * sampleRate + kHalfSecond) / kMicroSecondsPerSecond),
      m_average(kUnknown), m_maximum(kUnknown), m_minimum(kUnknown)
{
    m_pSamples = new qint16[m_capacity];
}

AudioSamplesStats::~AudioSamplesStats()
{
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

    qint16* pSamples = new qint16[pCapacity];
    delete[] m_pSamples;
    m_pSamples = pSamples;
    m_capacity = pCapacity;
    m_isFull = 0;
    m_writePosition = 0;
    if (hasSamples) {
        // The extremes stand for the old window; the cached figures stay until the next Update().
        m_pSamples[0] = maximum;
        m_pSamples[1] = minimum;
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
        std::copy_n(samples + (count - m_capacity), m_capacity, m_pSamples);
        m_isFull = 1;
        m_writePosition = 0;
    } else {
        const quint64 toEnd = std::min<quint64>(count, m_capacity - m_writePosition);
        std::copy_n(samples, toEnd, m_pSamples + m_writePosition);
        std::copy_n(samples + toEnd, count - toEnd, m_pSamples);
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
    qint16 minimum = Magnitude(m_pSamples[0]);
    qint16 maximum = minimum;
    qint64 sum = 0;
    for (quint64 i = 0; i < count; ++i) {
        const qint16 magnitude = Magnitude(m_pSamples[i]);
        minimum = std::min(minimum, magnitude);
        maximum = std::max(maximum, magnitude);
        sum += magnitude;
    }
    m_average = static_cast<qint16>(static_cast<quint64>(sum) / count);
    m_maximum = maximum;
    m_minimum = minimum;
    return true;
}

quint64 AudioSamplesStats::_getCount() const
{
    return m_isFull ? m_capacity : m_writePosition;
}

void AudioSamplesStats::_Invalidate()
{
    m_average = kUnknown;
    m_maximum = kUnknown;
    m_minimum = kUnknown;
}
