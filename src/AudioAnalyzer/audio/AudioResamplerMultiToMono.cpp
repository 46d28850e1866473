// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMultiToMono.h>
#include <AudioAnalyzer/audio/detail/ChannelAverage.h>
#include <AudioAnalyzer/audio/detail/GrowingBuffer.h>
#include <AudioAnalyzer/audio/detail/NativeSample.h>

#include <type_traits>

template <typename T, typename Acc>
AudioResamplerMultiToMono<T, Acc>::AudioResamplerMultiToMono(size_t pChannelCount)
    : m_frameSize(pChannelCount * sizeof(T)), m_channelCount(pChannelCount), m_pBuffer(nullptr),
      m_bufferCapacity(0)
{
}

template <typename T, typename Acc>
AudioResamplerMultiToMono<T, Acc>::~AudioResamplerMultiToMono()
{
    delete[] m_pBuffer;
}

template <typename T, typename Acc>
qint16* AudioResamplerMultiToMono<T, Acc>::Resample(char* pData, size_t pBytes, size_t& pCount)
{
    const size_t count = m_frameSize == 0 ? 0 : pBytes / m_frameSize;
    pCount = count;
    detail::EnsureCapacity(m_pBuffer, m_bufferCapacity, count);
    // A sum of 8-bit samples is computed in an int, which is what Acc would be promoted to.
    using Sum = std::conditional_t<sizeof(Acc) < sizeof(int), int, Acc>;
    if (detail::IsSumExact<T>(m_channelCount))
        detail::AverageFrames<T, Sum>(pData, count, m_channelCount, m_pBuffer);
    else
        for (size_t i = 0; i < count; ++i)
            m_pBuffer[i] = m_converter(_Average(pData + i * m_frameSize));
    return m_pBuffer;
}

template <typename T, typename Acc>
Acc AudioResamplerMultiToMono<T, Acc>::_Average(const char* pFrame) const
{
    // Summed without sign, since a signed sum may not wrap; divided in Acc, or in int when Acc is
    // shorter, where every channel count is greater than 0.
    using Sum = std::make_unsigned_t<Acc>;
    using Divisor = std::common_type_t<Acc, int>;
    Sum sum = 0;
    for (size_t i = 0; i < m_channelCount; ++i)
        sum = static_cast<Sum>(sum + static_cast<Sum>(detail::NativeSample<T>(pFrame, i)));
    return static_cast<Acc>(static_cast<Acc>(sum) / static_cast<Divisor>(m_channelCount));
}

template class AudioResamplerMultiToMono<signed char, short>;
template class AudioResamplerMultiToMono<unsigned char, unsigned short>;
template class AudioResamplerMultiToMono<short, int>;
template class AudioResamplerMultiToMono<unsigned short, unsigned int>;
template class AudioResamplerMultiToMono<int, long long>;
template class AudioResamplerMultiToMono<unsigned int, unsigned long long>;
