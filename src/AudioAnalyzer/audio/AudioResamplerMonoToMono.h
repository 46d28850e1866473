// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/audio/AudioResampler.h>
#include <AudioAnalyzer/audio/AudioSampleConverter.h>

/// Converter of mono input: each sample of type T becomes one 16-bit sample. Samples are read in
/// the machine's byte order.
template <typename T>
class AudioResamplerMonoToMono : public AudioResampler
{
public:
    AudioResamplerMonoToMono();
    ~AudioResamplerMonoToMono() override;

    qint16* Resample(char* pData, size_t pBytes, size_t& pCount) override;

private:
    AudioSampleConverter<T> m_converter;
    qint16* m_pBuffer;        ///< owned output array, null until a sample was produced
    size_t m_bufferCapacity;  ///< samples
};

extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<signed char>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<unsigned char>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<short>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<unsigned short>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<int>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMonoToMono<unsigned int>;
