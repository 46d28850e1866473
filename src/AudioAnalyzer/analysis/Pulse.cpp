// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/Pulse.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>

/// What all handles on one pulse share. Members in alphabetical order of their meaning.
struct PulseData
{
    quint64 analysisStartTime;  ///< µs
    qint16 averageVolume;
    quint64 endIndex;
    qint16 maximalValue;
    qint32 referenceCount;
    quint64 sampleRate;  ///< Hz
    quint64 startIndex;
    qint16 threshold;
    ePulseType type;
};

namespace {

using detail::kMicroSecondsPerSecond;

int Compare(quint64 pLeft, quint64 pRight)
{
    return pLeft < pRight ? -1 : (pLeft > pRight ? 1 : 0);
}

quint64 ElapsedSince(quint64 pTime)
{
    const quint64 now = HighResolutionTimer::getTime();
    return now < pTime ? 0 : now - pTime;
}

}  // namespace

Pulse::Pulse(unsigned long long startTime,
             unsigned long startIndex,
             unsigned long endIndex,
             unsigned long long sampleRate,
             short averageVolume,
             short threshold,
             short maximalValue,
             ePulseType type)
    : m_pData(new PulseData{startTime,
                            averageVolume,
                            endIndex,
                            maximalValue,
                            1,
                            sampleRate,
                            startIndex,
                            threshold,
                            type}),
      m_timeScale(kMicroSecondsPerSecond)
{
}

Pulse::Pulse(const Pulse& pOther)
    : Comparable<Pulse>(pOther), m_pData(pOther.m_pData), m_timeScale(kMicroSecondsPerSecond)
{
    if (m_pData)
        ++m_pData->referenceCount;
}

Pulse& Pulse::operator=(const Pulse& pOther)
{
    if (this == &pOther)
        return *this;
    if (pOther.m_pData)
        ++pOther.m_pData->referenceCount;
    _Release();
    m_pData = pOther.m_pData;
    return *this;
}

Pulse::~Pulse()
{
    _Release();
}

void Pulse::_Release()
{
    if (m_pData && --m_pData->referenceCount == 0)
        delete m_pData;
}

int Pulse::CompareTo(const Pulse& pOther) const
{
    const int order = Compare(m_pData->startIndex, pOther.m_pData->startIndex);
    return order != 0 ? order : Compare(m_pData->endIndex, pOther.m_pData->endIndex);
}

quint64 Pulse::getStartIndex() const
{
    return m_pData->startIndex;
}

quint64 Pulse::getEndIndex() const
{
    return m_pData->endIndex;
}

quint64 Pulse::getLength() const
{
    return m_pData->endIndex - m_pData->startIndex + 1;
}

quint64 Pulse::getDuration() const
{
    return getLength() * m_timeScale / m_pData->sampleRate;
}

quint64 Pulse::getStartTime() const
{
    return m_pData ? m_pData->analysisStartTime +
                         m_pData->startIndex * m_timeScale / m_pData->sampleRate
                   : 0;
}

quint64 Pulse::getEndTime() const
{
    return m_pData
               ? m_pData->analysisStartTime + m_pData->endIndex * m_timeScale / m_pData->sampleRate
               : 0;
}

qint16 Pulse::getAverageVolume() const
{
    return m_pData->averageVolume;
}

qint16 Pulse::getThreshold() const
{
    return m_pData->threshold;
}

qint16 Pulse::getMaximalValue() const
{
    return m_pData->maximalValue;
}

ePulseType Pulse::getType() const
{
    return m_pData->type;
}

quint64 Pulse::getElapsedTimeFromStart() const
{
    return ElapsedSince(getStartTime());
}

quint64 Pulse::getElapsedTimeFromEnd() const
{
    return ElapsedSince(getEndTime());
}

bool Pulse::setEndIndex(unsigned long pEndIndex)
{
    if (pEndIndex < m_pData->startIndex)
        return false;
    m_pData->endIndex = pEndIndex;
    return true;
}

bool Pulse::setLength(unsigned long pLength)
{
    if (pLength == 0)
        return false;
    m_pData->endIndex = m_pData->startIndex + pLength - 1;
    return true;
}

bool Pulse::setMaximalValue(short pValue)
{
    if (pValue <= m_pData->maximalValue)
        return false;
    m_pData->maximalValue = pValue;
    return true;
}

bool Pulse::setType(ePulseType pType)
{
    m_pData->type = pType;
    return true;
}
