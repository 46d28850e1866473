// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

#include <type_traits>

/// Takes one PCM sample of type T to a signed 16-bit sample: 8 bits are scaled by 256, more than 16
/// bits keep the topmost 16, unsigned types are re-centred on 0.
///
/// T is one of the eight instantiated below. Never owned or deleted through a pointer, hence
/// without a virtual destructor.
template <typename T>
class AudioSampleConverter
{
public:
    /// [audio path: no allocation]
    virtual qint16 operator()(T pSample) const
    {
        constexpr int bits = 8 * int(sizeof(T));
        constexpr int center = std::is_signed_v<T> ? 0 : 0x8000;
        if constexpr (bits == 8)
            return static_cast<qint16>((pSample * 256) ^ center);
        else
            return static_cast<qint16>((pSample >> (bits - 16)) ^ center);
    }
};

extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<signed char>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<unsigned char>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<short>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<unsigned short>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<int>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<unsigned int>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<long long>;
extern template class AUDIOANALYZER_EXPORT AudioSampleConverter<unsigned long long>;
