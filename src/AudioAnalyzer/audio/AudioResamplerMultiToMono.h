// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/audio/AudioResampler.h>
#include <AudioAnalyzer/audio/AudioSampleConverter.h>

/// Converter of multi-channel input: the channels of a frame, samples of type T, are summed and
/// averaged in type Acc, and the average is converted as an Acc. Samples are read in the machine's
/// byte order.
///
/// Intended: the average is converted by the rule of the accumulator's type, not of the sample's.
/// It is never rescaled as a T would be, so 16- and 32-bit input comes out as a constant or as its
/// sign.
template <typename T, typename Acc>
class AudioResamplerMultiToMono : public AudioResampler
{
public:
    /// pChannelCount: channels in a frame. A negative count, extended to 64 bits, gives a frame
    /// larger than any block: such a converter never produces a sample. Nor does one of 0 channels.
    explicit AudioResamplerMultiToMono(size_t pChannelCount);
    ~AudioResamplerMultiToMono() override;

    qint16* Resample(char* pData, size_t pBytes, size_t& pCount) override;

private:
    Acc _Average(const char* pFrame) const;

    size_t m_frameSize;     ///< bytes
    size_t m_channelCount;  ///< samples in a frame
    AudioSampleConverter<Acc> m_converter;
    qint16* m_pBuffer;        ///< owned output array, null until a sample was produced
    size_t m_bufferCapacity;  ///< samples
};

extern template class AUDIOANALYZER_EXPORT AudioResamplerMultiToMono<signed char, short>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMultiToMono<unsigned char, unsigned short>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMultiToMono<short, int>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMultiToMono<unsigned short, unsigned int>;
extern template class AUDIOANALYZER_EXPORT AudioResamplerMultiToMono<int, long long>;
extern template class AUDIOANALYZER_EXPORT
    AudioResamplerMultiToMono<unsigned int, unsigned long long>;
