// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMonoToMono.h>
#include <AudioAnalyzer/audio/detail/GrowingBuffer.h>
#include <AudioAnalyzer/audio/detail/NativeSample.h>

template <typename T>
AudioResamplerMonoToMono<T>::AudioResamplerMonoToMono() : m_pBuffer(nullptr), m_bufferCapacity(0)
{
}

template <typename T>
AudioResamplerMonoToMono<T>::~AudioResamplerMonoToMono()
{
    delete[] m_pBuffer;
}

template <typename T>
qint16* AudioResamplerMonoToMono<T>::Resample(char* pData, size_t pBytes, size_t& pCount)
{
    const size_t count = pBytes / sizeof(T);
    pCount = count;
    detail::EnsureCapacity(m_pBuffer, m_bufferCapacity, count);
    qint16* const pOut = m_pBuffer;
    for (size_t i = 0; i < count; ++i)
        pOut[i] = m_converter(detail::NativeSample<T>(pData, i));
    return pOut;
}

template class AudioResamplerMonoToMono<signed char>;
template class AudioResamplerMonoToMono<unsigned char>;
template class AudioResamplerMonoToMono<short>;
template class AudioResamplerMonoToMono<unsigned short>;
template class AudioResamplerMonoToMono<int>;
template class AudioResamplerMonoToMono<unsigned int>;
