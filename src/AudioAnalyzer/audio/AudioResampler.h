// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

#include <cstddef>

class QAudioFormat;

/// Converts interleaved integer PCM to mono signed 16-bit samples: one sample for each input frame,
/// at the input's own rate.
///
/// Objects come from Create() only and are never copied. A converter keeps nothing between two
/// calls but its output array, which only grows.
///
/// Threads: the thread that receives the captured data, no other.
class AUDIOANALYZER_EXPORT AudioResampler
{
public:
    /// A new converter chosen by channel count, sample type and sample size alone; null when the
    /// sample size is not 8, 16 or 32 bits. The caller owns it. [event loop]
    static AudioResampler* Create(const QAudioFormat& pFormat);

    AudioResampler(const AudioResampler&) = delete;
    AudioResampler& operator=(const AudioResampler&) = delete;
    virtual ~AudioResampler();

    /// Converts pBytes bytes at pData, which is only read and needs no alignment. Sets pCount to
    /// the number of mono samples; a trailing partial frame is ignored. Returns the converter's own
    /// array of pCount samples, or null while no call has produced a sample yet. [valid until next
    /// Resample] [audio path: no allocation] [allocates on size change: growth only]
    virtual qint16* Resample(char* pData, size_t pBytes, size_t& pCount) = 0;

protected:
    AudioResampler() = default;
};
