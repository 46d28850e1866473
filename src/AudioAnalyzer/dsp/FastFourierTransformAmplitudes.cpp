// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BandEdges.h>
#include <AudioAnalyzer/dsp/detail/HistorySize.h>
#include <AudioAnalyzer/dsp/detail/StrongestBands.h>

#include <algorithm>
#include <array>
#include <limits>

double* FastFourierTransform::getAmplitudes()
{
    if (!m_isSpectrumStale || m_length == 0)
        return m_pAmplitudes;
    _ResizeAmplitudes();
    _setMaximalAmplitude(_ComputePowers());
    const double reference = _getMaximalAmplitude();
    if (reference != 0.0)
        for (size_t i = 0; i < m_amplitudesCount; ++i)
            m_pAmplitudes[i] /= reference;
    m_isSpectrumStale = false;
    return m_pAmplitudes;
}

size_t FastFourierTransform::getAmplitudesCount()
{
    getAmplitudes();
    return m_amplitudesCount;
}

double FastFourierTransform::getAmplitude(int pIndex,
                                          double pSampleRate,
                                          double* pLowFrequency,
                                          double* pHighFrequency)
{
    getAmplitudes();
    const double halfRate = pSampleRate * 0.5;
    const bool isBin = pIndex >= 0 && pIndex < static_cast<int>(m_amplitudesCount);
    if (!isBin || !(halfRate > 0.0))
        return -1.0;
    const double low = detail::lowerEdge(pIndex, halfRate, m_amplitudesCount);
    const double next = detail::lowerEdge(pIndex + 1, halfRate, m_amplitudesCount);
    if (pLowFrequency)
        *pLowFrequency = low;
    if (pHighFrequency)
        *pHighFrequency = detail::upperEdge(low, next);
    return m_pAmplitudes[pIndex];
}

int FastFourierTransform::getIndex(double pFrequency, double pSampleRate)
{
    getAmplitudes();
    const double halfRate = pSampleRate * 0.5;
    if (!(pFrequency >= 0.0) || !(halfRate > pFrequency))
        return -1;
    const double index = static_cast<double>(m_amplitudesCount) * pFrequency / halfRate;
    // Only an overflow of the product, at frequencies near the largest double, fails this test.
    return index <= std::numeric_limits<int>::max() ? static_cast<int>(index) : -1;
}

size_t FastFourierTransform::getMaximalIndex() const
{
    return m_length / 2 - 1;
}

size_t FastFourierTransform::FindMaximalAmplitudes(size_t pMaxCount,
                                                   int pSampleRate,
                                                   FrequencyBandAmplitude*& pResult,
                                                   double pMinimalAmplitude)
{
    getAmplitudes();
    pResult = nullptr;
    const size_t capacity = std::min(m_amplitudesCount, pMaxCount);
    const double halfRate = pSampleRate * 0.5;
    if (!(halfRate > 0.0) || capacity == 0)
        return 0;
    _ResizeBands(capacity);

    detail::StrongestBands strongest(m_pBands, capacity);
    for (size_t i = 0; i < m_amplitudesCount; ++i) {
        const double amplitude = m_pAmplitudes[i];
        if (!strongest.isWanted(amplitude) || !(amplitude >= pMinimalAmplitude))
            continue;
        const int index = static_cast<int>(i);
        const double lower = detail::lowerEdge(index, halfRate, m_amplitudesCount);
        const double next = detail::lowerEdge(index + 1, halfRate, m_amplitudesCount);
        strongest.offer({amplitude, i, detail::upperEdge(lower, next), lower});
    }
    if (strongest.count() > 0)
        pResult = m_pBands;
    return strongest.count();
}

bool FastFourierTransform::setLastMaximalAmplitudesSize(size_t pSize)
{
    if (pSize == m_historySize)
        return false;
    delete[] m_pMaximums;
    m_pMaximums = nullptr;
    m_isHistoryFull = false;
    m_historyPosition = 0;
    m_historySize = pSize;
    return true;
}

bool FastFourierTransform::setLastMaximalAmplitudesSize(int pRate,
                                                        double pDuration,
                                                        size_t pBlockLength)
{
    if (pBlockLength == 0)
        return false;
    return setLastMaximalAmplitudesSize(detail::historySize(pRate, pDuration, pBlockLength));
}

double FastFourierTransform::_getMaximalAmplitude() const
{
    if (!m_pMaximums)
        return 0.0;
    const size_t used = m_isHistoryFull ? m_historySize : std::max<size_t>(m_historyPosition, 1);
    return *std::max_element(m_pMaximums, m_pMaximums + used);
}

bool FastFourierTransform::_setMaximalAmplitude(double pValue)
{
    const size_t slots = std::max<size_t>(m_historySize, 1);
    if (!m_pMaximums) {
        m_pMaximums = new double[slots];
        m_pMaximums[0] = pValue;
    } else if (m_historySize == 0) {
        m_pMaximums[0] = std::max(m_pMaximums[0], pValue);
    } else {
        m_pMaximums[m_historyPosition] = pValue;
    }
    if (m_historySize > 0 && ++m_historyPosition == m_historySize) {
        m_historyPosition = 0;
        m_isHistoryFull = true;
    }
    return true;
}

void FastFourierTransform::_ResizeAmplitudes()
{
    const size_t count = m_length / 2;
    if (count == m_amplitudesCount)
        return;
    delete[] m_pAmplitudes;
    m_pAmplitudes = nullptr;
    m_amplitudesCount = 0;
    m_pAmplitudes = new double[count];
    m_amplitudesCount = count;
}

/// A maximum per lane, since one maximum would make each bin wait for the bin before.
double FastFourierTransform::_ComputePowers()
{
    constexpr size_t kLanes = 8;
    const auto power = [this](size_t i) {
        return m_pReal[i] * m_pReal[i] + m_pImaginary[i] * m_pImaginary[i];
    };
    std::array<double, kLanes> peaks{};
    size_t i = 0;
    for (; i + kLanes <= m_amplitudesCount; i += kLanes) {
        std::array<double, kLanes> powers;
        for (size_t lane = 0; lane < kLanes; ++lane)
            powers[lane] = power(i + lane);
        std::copy(powers.begin(), powers.end(), m_pAmplitudes + i);
        for (size_t lane = 0; lane < kLanes; ++lane)
            peaks[lane] = powers[lane] > peaks[lane] ? powers[lane] : peaks[lane];
    }
    for (; i < m_amplitudesCount; ++i) {
        m_pAmplitudes[i] = power(i);
        peaks[0] = std::max(peaks[0], m_pAmplitudes[i]);
    }
    return *std::max_element(peaks.begin(), peaks.end());
}

void FastFourierTransform::_ResizeBands(size_t pCapacity)
{
    if (pCapacity == m_bandsCapacity)
        return;
    delete[] m_pBands;
    m_pBands = nullptr;
    m_bandsCapacity = 0;
    m_pBands = new FrequencyBandAmplitude[pCapacity];
    m_bandsCapacity = pCapacity;
}
